#include "Presentation/InspectBug/HelpPage.h"

#include "Platform/Bundle.h"

namespace wexel {

QUrl HelpPage::address()
{
    const QString configured
        = Bundle::library().objectForInfoDictionaryKey(QStringLiteral("WEXEL_HELP_URL")).toString();
    if (!configured.isEmpty())
        return QUrl(configured);
    return QUrl::fromLocalFile(Bundle::library().path() + QStringLiteral("/better-bug-reports.html"));
}

} // namespace wexel
