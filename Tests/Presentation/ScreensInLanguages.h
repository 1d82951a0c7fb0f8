#pragma once

#include <gtest/gtest.h>

#include <memory>

#include <QBuffer>
#include <QRasterWindow>
#include <QTemporaryDir>
#include <QTranslator>

#include <Wexel/WXLWexelFile.h>
#include <Wexel/WXLWexelReportData.h>

#include "Business/ReportKeys.h"
#include "Business/WXLAppRepository.h"
#include "Platform/NotificationCenter.h"
#include "Presentation/Coordinator/FlowView.h"
#include "Presentation/Coordinator/NavigationController.h"
#include "Presentation/Coordinator/WXLDisplayWindow.h"
#include "Presentation/Fonts/Fonts.h"
#include "Presentation/Helpers/WXLBranding.h"
#include "Presentation/InspectBug/WXLInspectBugVC.h"
#include "Presentation/QuickHost.h"
#include "Presentation/ReportCompose/WXLReportComposeViewController.h"
#include "Presentation/ReportCompose/WXLReportComposeViewModel.h"
#include "Presentation/ReportingDisabled/WXLReportingDisabledPopupVC.h"
#include "Presentation/Screen/WXLScreenshotVC.h"
#include "Presentation/Screen/WXLScreenshotVM.h"

namespace wexel {

/// The flow's window with one screen, over a host of a size, in a language that the library comes with or in English.
class FlowInLanguage
{
public:
    FlowInLanguage(const char *language, QSize size)
    {
        const QString folder = QStringLiteral(WEXEL_TRANSLATIONS);
        if (translator.load(QStringLiteral("wexel_") + QLatin1String(language), folder))
            QCoreApplication::installTranslator(&translator);
        else
            EXPECT_STREQ(language, "en");
        Fonts::registerFonts();
        host.setGeometry({QPoint(20, 20), size});
        host.show();
        EXPECT_TRUE(waitUntil([this] { return host.isExposed(); }));
        flow = std::make_unique<WXLDisplayWindow>();
        picture = QImage(size, QImage::Format_RGB32);
        picture.fill(QColor(0xE4, 0xDC, 0xC8));
        QBuffer file;
        picture.save(&file, "PNG");
        report->screenshotFile
            = std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"), file.data());
        report->quickFacts = QStringLiteral("Basket: 3 items (\u0642\u0647\u0648\u0629), order 4711.");
    }

    /// The first screens by name, the popup over the editor. They are there at once.
    QQuickItem *show(const std::string &name)
    {
        if (name == "compose")
            return show(compose());
        if (name == "inspect")
            return show(inspect());
        QQuickItem *first = show(editor());
        if (name == "editor")
            return first;
        auto *popup = flow->screen<WXLReportingDisabledPopupVC>("ReportingDisabledPopup.qml");
        flow->view().navigationController().presentViewController(popup);
        return popup;
    }
    QQuickItem *compose()
    {
        auto *screen = flow->screen<WXLReportComposeViewController>("ReportCompose.qml");
        screen->viewDidLoad(std::make_shared<WXLReportComposeViewModel>(report, notifications));
        return screen;
    }
    [[nodiscard]] WXLDisplayWindow &window() const { return *flow; }

private:
    QQuickItem *editor()
    {
        auto *screen = flow->screen<WXLScreenshotVC>("Screenshot.qml");
        screen->viewDidLoad(std::make_shared<WXLScreenshotVM>(picture, report), WXLBranding(), repository);
        return screen;
    }
    QQuickItem *inspect()
    {
        auto *screen = flow->screen<WXLInspectBugVC>("InspectBug.qml");
        screen->viewDidLoad(WXLInspectBugVM(report), WXLBranding());
        return screen;
    }
    QQuickItem *show(QQuickItem *screen)
    {
        NavigationController &navigation = flow->view().navigationController();
        navigation.pushViewController(screen, false);
        flow->makeKeyAndVisible();
        navigation.setScale(1); // as after the opening animation
        EXPECT_TRUE(waitUntil([this] { return flow->isExposed(); }));
        return screen;
    }

    QTranslator translator;
    QImage picture;
    QTemporaryDir folder;
    NotificationCenter notifications;
    WXLAppRepository repository{
        makeUserDefaults(folder.filePath(QStringLiteral("store")), [](auto, auto) {})};
    std::shared_ptr<WXLWexelReportData> report = std::make_shared<WXLWexelReportData>(
        QVariantMap{{kWXLSystemVersion, QStringLiteral("12 (bookworm)")},
                    {kWXLModelName, QStringLiteral("iPad4,4")},
                    {kWXLAppVersion, QStringLiteral("1.4.0")},
                    {kWXLBuildVersion, QStringLiteral("20261121.3")},
                    {kWXLNetworkType, QStringLiteral("wifi")},
                    {kWXLNetworkName, QStringLiteral("Linden Guest")},
                    {kWXLViewControllerName, QStringLiteral("CheckoutPaymentMethodsPage")},
                    {kWXLLocale, QStringLiteral("de_DE")},
                    {kWXLScreenHeight, 844},
                    {kWXLScreenWidth, 390},
                    {kWXLAvailableMemory, 16384.0},
                    {kWXLUsedMemory, 512.0},
                    {kWXLAvailableDiskSpace, QStringLiteral("655360")},
                    {kWXLUsedDiskSpace, 16384.0},
                    {kWXLCameraPermission, kWXLAccessPermissionGranted},
                    {kWXLPhotoLibraryPermission, kWXLAccessPermissionGranted}});
    QRasterWindow host;
    std::unique_ptr<WXLDisplayWindow> flow;
};

} // namespace wexel
