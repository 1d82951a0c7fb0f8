#pragma once

#include "Clients.h"
#include "Http/TrustedProxies.h"
#include "Storage/StoragePlace.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace wexel::receiver {

/// A command line that can't be obeyed; its text is for the user.
class UsageError : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// What the command line asked for.
struct Options {
    enum class Command {
        Serve,
        Reports,
        Archive,
        Unarchive,
        Retention,
        Password,
        Client,
        Export,
        Import,
        Backup,
        Help,
        Version
    };

    Command command = Command::Serve;
    StoragePlace place;
    std::string bundleId; ///< of archive, unarchive and retention
    std::optional<std::uint64_t> maximumAgeDays; ///< of retention; 0 takes the limit off, nothing leaves it
    std::optional<std::uint64_t> maximumMegabytes; ///< the same
    bool json = false; ///< of reports
    std::string file; ///< of export, import and backup; "-" is the standard output or input
    std::string clientAction; ///< of client: add, list, bind, rotate or revoke
    std::string clientId; ///< of client; empty with add: one is made up
    std::vector<std::string> bundleIds; ///< of client add and client bind
    bool anyBundle = false; ///< of client bind

    std::string listenHost = "127.0.0.1";
    std::uint16_t listenPort = 8787; ///< 0: any free one
    std::string publicUrl; ///< empty (the listen address), or an address that ends with a slash
    TrustedProxies trustedProxies;
    std::string certificateFile; ///< PEM, with its chain; empty: no TLS
    std::string privateKeyFile;
    Clients clients;
    std::string adminPasswordFile; ///< the dashboard's first password; empty: one is generated
    std::string whiteLabeling; ///< the JSON to answer, or empty

    std::uint64_t maximumFileSize = 64 * 1024 * 1024; ///< bytes
    std::uint64_t maximumReportSize = 16 * 1024 * 1024; ///< bytes
    int maximumConnections = 256;
    int requestTimeout = 60; ///< seconds in which a whole request must arrive
    std::uint64_t leastRate = 64 * 1024; ///< bytes a second; a wanted body has that much more time
    int idleTimeout = 10; ///< seconds in which a next request must begin
    int tokenLifetime = 30 * 24 * 3600; ///< seconds; the library asks for a token when its host starts

    bool usesTls() const { return !certificateFile.empty(); }
    /// Also true behind a proxy that ends TLS, if the public address says so.
    bool isReachedByTls() const { return usesTls() || publicUrl.starts_with("https://"); }
};

/// Reads the arguments (without the program's name). Throws UsageError.
Options parseOptions(const std::vector<std::string> &arguments);

/// The text of --help.
std::string usage();

} // namespace wexel::receiver
