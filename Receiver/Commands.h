#pragma once

#include "Options.h"

namespace wexel::receiver {

/// Each runs one command and returns the program's exit code. They throw StorageError or std::runtime_error with a text for
/// the user.

/// Serves until SIGTERM or SIGINT.
int serve(const Options &options);

/// Lists the reports on the standard output, as a table or as JSON.
int listReports(const Options &options);

/// Switches an application off or on, the latter only if it is known; a running server sees it at its next request.
int setArchived(const Options &options, bool archived);

/// Changes the limits that are given for what is kept of an application, and prints them.
int setRetention(const Options &options);

/// Sets the dashboard's password and ends all sessions: the first line of the standard input, or a random one, which is
/// printed, if that is empty.
int setPassword(const Options &options);

/// Adds, lists, rotates or revokes clients; a running server sees it at its next request. Secrets are printed once.
int manageClients(const Options &options);

/// Writes the reports (with the command backup: everything) to a file.
int exportReports(const Options &options);

/// Adds the reports of such a file.
int importReports(const Options &options);

} // namespace wexel::receiver
