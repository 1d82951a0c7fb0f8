#include "Commands.h"

#include "Transfer/Export.h"
#include "Transfer/Import.h"

#include <iostream>

namespace wexel::receiver {

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
    DataFolder data(options.place, DataFolder::Access::Fill);
    const ImportResult result = importFrom(options.file, data);
    std::cout << result.reports << " reports imported, " << result.known << " were known\n";
    return 0;
}

} // namespace wexel::receiver
