#include "Commands.h"

#include "Access/FirstPassword.h"
#include "Log.h"
#include "Server.h"
#include "Storage/DatabaseAddress.h"
#include "Storage/Maintenance.h"

#include <Poco/Crypto/OpenSSLInitializer.h>

#include <csignal>
#include <iostream>

namespace wexel::receiver {

namespace {

/// To be called before any thread starts, so that all of them leave the signals to waitForEnd().
sigset_t blockEndSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

int waitForEnd(const sigset_t &signals)
{
    int signal = 0;
    sigwait(&signals, &signal);
    return signal;
}

/// A peer that leaves and a file that reaches the size limit are errors to handle, not reasons to end.
void ignoreSignals()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

/// Where the reports are, for the log.
std::string nameOf(const StoragePlace &place)
{
    return place.database.empty() ? std::filesystem::absolute(place.data).string()
                                  : databaseName(place.database);
}

} // namespace

int serve(const Options &options)
{
    const sigset_t signals = blockEndSignals();
    ignoreSignals();
    // Each digest holds one of these; were the last of them let go by one thread while another takes one, OpenSSL would be
    // torn down under it.
    const Poco::Crypto::OpenSSLInitializer openSsl;
    // First what may fail without a trace; the password last, as it is told only once.
    const std::optional<std::string> given = givenPassword(options);
    Port port(options);
    DataFolder data(options.place, DataFolder::Access::Serve);
    if (const auto password = setFirstPassword(given, data.database()))
        std::cout << "Dashboard password: " << *password << std::endl;
    Server server(options, data, std::move(port));
    const HourlyMaintenance maintenance({data.files(), data.reports()});
    logEvent("started",
             {{"version", WEXEL_RECEIVER_VERSION}, {"url", server.url()}, {"data", nameOf(options.place)}});
    std::cout << "Listening on " << server.url() << std::endl;
    const int signal = waitForEnd(signals);
    logEvent("stopping", {{"signal", std::to_string(signal)}});
    server.stop();
    logEvent("stopped");
    return 0;
}

} // namespace wexel::receiver
