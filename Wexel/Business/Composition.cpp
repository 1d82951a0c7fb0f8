#include "Business/Composition.h"

#include <QCoreApplication>

#include "Business/Flow.h"
#include "Business/ReportAssembly.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLBlackBox.h"
#include "Business/WXLDateProvider.h"
#include "Business/WXLSessionReporter.h"
#include "Business/WXLWexelPrivate.h"
#include "Helpers/WXLConnection.h"
#include "Platform/ApplicationState.h"
#include "Platform/DeviceFacts.h"
#include "Platform/HostFolders.h"
#include "Platform/MainScheduler.h"

namespace wexel {

std::unique_ptr<WXLWexelPrivate> makeWexel(std::unique_ptr<Flow> flowOfThisBuild)
{
    if (!QCoreApplication::instance())
        qFatal("Wexel: create the QCoreApplication, QGuiApplication or QApplication before the first call");
    ApplicationState::watch();
    // Never destroyed: blocks that refer to these may still run while the process ends.
    auto *flow = flowOfThisBuild.release();
    auto *session = new UrlSession(WXLAPI::sessionConfiguration());
    const auto infoPlist = [] { return WXLInfoPlist(); };
    auto *api = new WXLAPI(*session, MainScheduler::shared(), infoPlist);
    const QUrl documents = HostFolders::documents();
    auto *assembly = new ReportAssembly(DeviceFacts::shared(), WXLConnection::sharedInstance(),
                                        WXLAppRepository::sharedInstance(), WXLDateProvider::sharedInstance(),
                                        *flow, documents.toLocalFile());
    return std::make_unique<WXLWexelPrivate>(WXLWexelPrivate::Collaborators{
        .api = *api,
        .appRepository = WXLAppRepository::sharedInstance(),
        .connection = WXLConnection::sharedInstance(),
        .scheduler = MainScheduler::shared(),
        .notifications = NotificationCenter::defaultCenter(),
        .flow = *flow,
        .reportAssembly = *assembly,
        .blackBox = WXLBlackBox::sharedInstance(),
        .startSessions = [] { WXLSessionReporter::sharedInstance(); },
        .infoPlist = infoPlist,
        .documentsDirectory = documents,
    });
}

} // namespace wexel
