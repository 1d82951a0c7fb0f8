#include "Commands.h"

#include "Storage/StorageError.h"

#include <Poco/Exception.h>

#include <clocale>
#include <iostream>
#include <sys/stat.h>

namespace {

using namespace wexel::receiver;

int run(const Options &options)
{
    switch (options.command) {
    case Options::Command::Serve:
        return serve(options);
    case Options::Command::Reports:
        return listReports(options);
    case Options::Command::Archive:
        return setArchived(options, true);
    case Options::Command::Unarchive:
        return setArchived(options, false);
    case Options::Command::Retention:
        return setRetention(options);
    case Options::Command::Password:
        return setPassword(options);
    case Options::Command::Client:
        return manageClients(options);
    case Options::Command::Export:
    case Options::Command::Backup:
        return exportReports(options);
    case Options::Command::Import:
        return importReports(options);
    case Options::Command::Help:
        std::cout << usage();
        return 0;
    case Options::Command::Version:
        std::cout << "wexel-receiver " WEXEL_RECEIVER_VERSION "\n";
        return 0;
    }
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    ::umask(077); // whatever is made, in a folder that others made too, is for the owner alone
    // As which the archives' writer takes and gives names. There is one thread yet.
    // NOLINTNEXTLINE(concurrency-mt-unsafe)
    std::setlocale(LC_CTYPE, "C.UTF-8");
    try {
        return run(parseOptions({argv + 1, argv + argc}));
    } catch (const UsageError &error) {
        std::cerr << "wexel-receiver: " << error.what() << "\nTry wexel-receiver --help.\n";
        return 2;
    } catch (const Poco::Exception &error) {
        std::cerr << "wexel-receiver: " << error.displayText() << '\n';
    } catch (const std::exception &error) {
        std::cerr << "wexel-receiver: " << error.what() << '\n';
    }
    return 1;
}
