#include <gtest/gtest.h>

#include <Wexel/WXLWexelReportData.h>

#include "Business/ReportKeys.h"
#include "Presentation/InspectBug/DeviceNames.h"
#include "Presentation/InspectBug/WXLInspectBugVC.h"

using namespace wexel;

namespace {

WXLInspectBugVM inspected(const QVariantMap &gathered)
{
    return WXLInspectBugVM(std::make_shared<WXLWexelReportData>(gathered));
}

std::string network(const QVariantMap &gathered)
{
    return inspected(gathered).network().toStdString();
}

TEST(InspectBug, SaysWhatTheReportCarries)
{
    const WXLInspectBugVM viewModel = inspected({{kWXLSystemVersion, QStringLiteral("12")},
                                                 {kWXLModelName, QStringLiteral("iPad4,4")},
                                                 {kWXLAppVersion, QStringLiteral("1.4.0")},
                                                 {kWXLBuildVersion, QStringLiteral("87")},
                                                 {kWXLLocale, QStringLiteral("en_US")},
                                                 {kWXLScreenHeight, 812},
                                                 {kWXLScreenWidth, 375},
                                                 {kWXLAvailableMemory, 2048.0},
                                                 {kWXLUsedMemory, 512.0},
                                                 {kWXLAvailableDiskSpace, QStringLiteral("65536")},
                                                 {kWXLUsedDiskSpace, 16384.0}});
    EXPECT_EQ(viewModel.device(), QStringLiteral("iPad Mini"));
    EXPECT_EQ(viewModel.appVersion(), QStringLiteral("1.4.0 (87)"));
    EXPECT_EQ(viewModel.locale(), QStringLiteral("en-US"));
    EXPECT_EQ(viewModel.resolution(), QStringLiteral("812 \u2715 375 px"));
    EXPECT_EQ(viewModel.availableMemory(), QStringLiteral("75% \u2022 1536 out of 2048 MB"));
    EXPECT_EQ(viewModel.availableStorage(), QStringLiteral("75% \u2022 48 out of 64.0 GB"));
    EXPECT_EQ(inspected({}).availableMemory(), QStringLiteral("0% \u2022 0 out of 0 MB"));
    EXPECT_EQ(inspected({}).device(), QString());
    EXPECT_EQ(deviceName(QStringLiteral("iPhone12,1")), std::nullopt);
    EXPECT_EQ(deviceName(QStringLiteral("iPad3,4")), QStringLiteral("iPad"));
}

TEST(InspectBug, NamesTheNetwork)
{
    const auto ofType = [](const char *type) {
        return QVariantMap{{kWXLNetworkType, QString::fromUtf8(type)}};
    };
    EXPECT_EQ(network(ofType("OFFLINE")), "Offline");
    QVariantMap wifi = ofType("wifi");
    EXPECT_EQ(network(wifi), "WiFi \u2022 (null)");
    wifi.insert(kWXLNetworkName, QStringLiteral("Lab"));
    EXPECT_EQ(network(wifi), "WiFi \u2022 Lab");
    EXPECT_EQ(network(ofType("WiFi")), "Cellular ");
    EXPECT_EQ(network(ofType("CTRadioAccessTechnologyLTE")), "Cellular 4G");
    EXPECT_EQ(network(ofType("CTRadioAccessTechnologyeHRPD")), "Cellular 3G");
    EXPECT_EQ(network({}), "Cellular ");
}

TEST(InspectBug, ListsPermissionsAndFacts)
{
    EXPECT_TRUE(inspected({}).grantedPermissions().isEmpty());
    EXPECT_EQ(inspected({}).permissionsDescription(),
              QStringLiteral("ALL PERMISSIONS WERE EITHER DENIED OR NOT ASKED FOR."));
    const WXLInspectBugVM some = inspected({{kWXLPhotoLibraryPermission, kWXLAccessPermissionGranted},
                                            {kWXLCalendarPermission, kWXLAccessPermissionGranted}});
    EXPECT_EQ(some.grantedPermissions(),
              QStringList({QStringLiteral("Access to calendar"), QStringLiteral("Access to photolibrary")}));
    EXPECT_EQ(some.permissionsDescription(),
              QStringLiteral("ALL OTHERS WERE EITHER DENIED OR NOT ASKED FOR."));
    auto report = std::make_shared<WXLWexelReportData>(QVariantMap());
    EXPECT_EQ(WXLInspectBugVM(report).quickFacts(), QStringLiteral("Quick Facts not enabled."));
    report->quickFacts = QStringLiteral("3 notes");
    EXPECT_EQ(WXLInspectBugVM(report).quickFacts(), QStringLiteral("3 notes"));
}

TEST(InspectBug, HeadsTheScreenWithTheLastSectionThatCameUp)
{
    const auto header = [](const QList<double> &middles) {
        return WXLInspectBugVC::headerText(middles, 100).toStdString();
    };
    EXPECT_EQ(header({300, 500, 700}), "Essentials");
    EXPECT_EQ(header({100, 300, 500}), "Attachment");
    EXPECT_EQ(header({-90, 99, 300}), "Granted permissions");
    EXPECT_EQ(header({-300, -100, 50}), "Quick Facts");
}

} // namespace
