#include "Commands.h"

#include "Transfer/Export.h"
#include "Transfer/Import.h"

#include <iostream>

namespace wexel::receiver {

namespace {

/// An inbox that nobody has served yet is made.
DataFolder::Access importAccess(const StoragePlace &place)
{
    std::error_code error;
    const bool isNewFolder = place.database.empty() && !std::filesystem::exists(place.data, error);
    return isNewFolder || !place.database.empty() ? DataFolder::Access::Serve : DataFolder::Access::Change;
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
    if (result.leftOut > 0)
        std::cerr << ", " << result.leftOut << " left out, as their files are gone";
    std::cerr << '\n';
    return 0;
}

int importReports(const Options &options)
{
    DataFolder data(options.place, importAccess(options.place));
    const ImportResult result = importFrom(options.file, data);
    std::cout << result.reports << " reports imported, " << result.known << " were known\n";
    return 0;
}

} // namespace wexel::receiver
