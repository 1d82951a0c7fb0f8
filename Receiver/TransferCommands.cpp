#include "Commands.h"

#include "Transfer/Export.h"
#include "Transfer/Import.h"

#include <iostream>

namespace wexel::receiver {

namespace {

void print(const ImportResult &result)
{
    std::cout << result.reports << " reports imported, " << result.known << " were known, " << result.deleted
              << " were deleted here and are not taken again\n";
    if (result.limited > 0)
        std::cout << result.limited << " applications have limits for what is kept: the next start removes "
                  << "what is beyond them, and a server that runs does so within an hour\n";
    if (result.access.password != RestoredAccess::Password::None)
        std::cout << "The dashboard's password was "
                  << (result.access.password == RestoredAccess::Password::Taken
                          ? "taken\n"
                          : "not taken: the one that was set here stays\n");
    if (result.access.clients + result.access.knownClients > 0)
        std::cout << result.access.clients << " clients were taken, " << result.access.knownClients
                  << " were known and stay as they are here\n";
}

} // namespace

int exportReports(const Options &options)
{
    DataFolder data(options.place, DataFolder::Access::Read);
    const ExportScope scope
        = options.command == Options::Command::Backup ? ExportScope::Everything : ExportScope::Reports;
    const ExportResult result = exportTo(options.file, data, scope);
    // The standard output may be the export.
    std::cerr << result.reports << " reports written";
    if (result.removed > 0)
        std::cerr << ", " << result.removed << " left out, as they were removed meanwhile";
    if (result.lostFiles > 0)
        std::cerr << "; the bytes of " << result.lostFiles << " files are lost";
    std::cerr << '\n';
    return result.lostFiles > 0 ? 1 : 0;
}

int importReports(const Options &options)
{
    TarReader tar(options.file);
    readManifest(tar); // before an inbox is made for what is no export
    DataFolder data(options.place, DataFolder::Access::Fill);
    ImportResult result;
    try {
        importFrom(tar, data, result);
    } catch (const std::exception &) {
        print(result); // it stays
        throw;
    }
    print(result);
    return std::cout.flush() ? 0 : 1;
}

} // namespace wexel::receiver
