#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

#include "API/WXLAPI.h"
#include "API/WXLAPIReport.h"
#include "Business/NetworkRequestRecord.h"
#include "Business/ReportKeys.h"
#include "Business/SampleRecords.h"
#include "Business/TouchRecord.h"
#include "Platform/KeyedArchiver.h"

using namespace wexel;

namespace {

const QString now = QStringLiteral("2026-03-07T14:05:09.123+01:00");

template <typename T, typename... Arguments>
QVariant record(Arguments... arguments)
{
    return QVariant::fromValue<ArchivedObject>(std::make_shared<T>(arguments...));
}

QJsonObject json(const char *text)
{
    const auto document = QJsonDocument::fromJson(text);
    EXPECT_TRUE(document.isObject()) << text;
    return document.object();
}

QJsonObject wire(const QVariantMap &gathered)
{
    return WXLAPIReport(WXLWexelReportData(gathered)).dictValues();
}

TEST(APIReport, OfNothingHoldsOnlyWhatIsAlwaysThere)
{
    EXPECT_EQ(
        WXLAPIReport(WXLWexelReportData(QVariantMap())).dictValues(),
        json(R"({"platform": "iOS", "os": "iOS", "report_type": "manual", "blackbox": {}, "log": {}})"));
}

TEST(APIReport, NamesEveryScalarOnTheWire)
{
    const QString t = QStringLiteral("t");
    QVariantMap gathered;
    for (const auto &key :
         {kWXLUserInput, kWXLUserEmail, kWXLTimeZone, kWXLLocale, kWXLIssueReportedTime, kWXLSystemVersion,
          kWXLAppVersion, kWXLBuildVersion, kWXLModelName, kWXLBatteryStatus, kWXLBatteryLevel,
          kWXLAvailableDiskSpace, kWXLNetworkName, kWXLNetworkType, kWXLViewControllerName,
          kWXLSystemBuildVersion, kWXLWexelSDKVersion})
        gathered.insert(key, QString(t + key.mid(4)));
    int number = 0;
    for (const auto &key : {kWXLUsedDiskSpace, kWXLUsedMemory, kWXLUsedApplicationMemory, kWXLAvailableMemory,
                            kWXLDeviceOrientation, kWXLScreenHeight, kWXLScreenWidth, kWXLAuthentication})
        gathered.insert(key, ++number + 0.5);
    gathered.insert(QStringLiteral("WXL_SomethingOfTheHost"), QStringLiteral("stays here"));
    WXLWexelReportData data(gathered);
    data.quickFacts = QStringLiteral("two in the cart");
    EXPECT_EQ(WXLAPIReport(data).dictValues(), json(R"({
        "title": "tUserInput", "description": "tUserInput", "tester_email": "tUserEmail", "timezone": "tTimeZone",
        "locale": "tLocale", "issue_reported_time": "tIssueReportedTime", "os_version": "tSystemVersion",
        "app_version": "tAppVersion", "build_version": "tBuildVersion", "device": "tModelName",
        "battery_status": "tBatteryStatus", "battery_level": "tBatteryLevel",
        "available_disk_space": "tAvailableDiskSpace", "network_name": "tNetworkName", "network_type": "tNetworkType",
        "current_view": "tViewControllerName", "os_build_version": "tSystemBuildVersion",
        "sdk_version": "tWexelSDKVersion", "used_disk_space": 1.5, "used_memory": 2.5, "used_application_memory": 3.5,
        "available_memory": 4.5, "device_orientation": 5.5, "screen_height": 6.5, "screen_width": 7.5,
        "authentication": 8.5, "quick_facts": "two in the cart", "platform": "iOS", "os": "iOS",
        "report_type": "manual", "blackbox": {}, "log": {}})"));
}

TEST(APIReport, KeepsAnEmptyDescriptionApartFromNone)
{
    EXPECT_EQ(wire({{kWXLUserInput, QString()}}).value(u"description"), QJsonValue(QString()));
    EXPECT_FALSE(wire({}).contains(u"description"));
}

TEST(APIReport, DropsValuesOfAnotherTypeThanTheKeys)
{
    const QVariantMap wrong{{kWXLUserInput, QVariantList{1}},
                            {kWXLLocale, true},
                            {kWXLTimeZone, QStringList{QStringLiteral("UTC")}},
                            {kWXLUsedMemory, QStringLiteral("12")},
                            {kWXLAvailableMemory, qQNaN()},
                            {kWXLUsedDiskSpace, qInf()},
                            {kWXLCpuHistory, QStringLiteral("none")}};
    EXPECT_EQ(wire(wrong), wire({}));
    EXPECT_EQ(wire({{kWXLAuthentication, 1}, {kWXLScreenWidth, quint64(5)}}).size(), 7)
        << "any kind of number";
}

TEST(APIReport, ListsGrantedPermissionsByName)
{
    const auto values = wire({{kWXLPhotoLibraryPermission, kWXLAccessPermissionGranted},
                              {kWXLLocationPermission, kWXLAccessPermissionGrantedWhileUsing},
                              {kWXLCameraPermission, kWXLAccessPermissionGranted}});
    EXPECT_EQ(values.value(u"permissions").toArray(),
              json(R"({"p": [
        {"name": "camera", "state": "on"}, {"name": "location", "state": "only_while_using_the_app"},
        {"name": "photolibrary", "state": "on"}]})")
                  .value(u"p")
                  .toArray());
}

TEST(APIReport, WritesEachHistoryUnderItsKey)
{
    const QVariantList values{record<Record>(QStringLiteral("1.000"), now)};
    auto request = std::make_shared<NetworkRequestRecord>(
        QStringLiteral("GET"), QStringLiteral("http://h/a"), QStringLiteral("body"),
        QVariantMap{{QStringLiteral("Accept"), QStringLiteral("*/*")}}, now);
    const auto report = wire({
        {kWXLSessionStateHistory, QVariantList{record<Record>(QStringLiteral("0"), now)}},
        {kWXLCpuHistory, values},
        {kWXLMemoryUsedByAppHistory, values},
        {kWXLMemoryUsedByDeviceHistory, values},
        {kWXLStorageHistory, values},
        {kWXLOrientationHistory, values},
        {kWXLBatteryHistory, QVariantList{record<Battery>(QStringLiteral("1"), QStringLiteral("0.5"), now)}},
        {kWXLNetworkHistory,
         QVariantList{record<Network>(QStringLiteral("wifi"), QStringLiteral("Lab"), now)}},
        {kWXLUserEventsHistory,
         QVariantList{
             record<TouchRecord>(QStringLiteral("Button"), QStringLiteral("CartPage"), QString(), now)}},
        {kWXLNetworkRequestHistory, QVariantList{QVariant::fromValue<ArchivedObject>(request)}},
    });
    const auto expected = json(R"({
        "sessions": [{"time_occurred": "T", "state": "0"}],
        "blackbox": {
            "cpu_usage_history": [{"value": "1.000", "time_occurred": "T"}],
            "application_memory_usage_history": [{"value": "1.000", "time_occurred": "T"}],
            "memory_usage_history": [{"value": "1.000", "time_occurred": "T"}],
            "disk_space_usage_history": [{"value": "1.000", "time_occurred": "T"}],
            "device_orientation_history": [{"value": "1.000", "time_occurred": "T"}],
            "battery_usage_history": [{"status": "1", "level": "0.5", "time_occurred": "T"}],
            "network_usage_history": [{"type": "wifi", "name": "Lab", "time_occurred": "T"}]},
        "log": {
            "user_taps": [{"class_name": "Button", "property": "", "view": "CartPage", "timestamp": "T"}],
            "network_requests": [{"method": "GET", "statuc_code": "", "url": "http://h/a", "request_body": "body",
                "request_headers": {"Accept": "*/*"}, "response_body": "", "response_headers": {},
                "timestamp": "T", "duration": 0}]}})");
    const auto text = [](const QJsonValue &value) {
        return QJsonDocument(QJsonObject{{QStringLiteral("v"), value}}).toJson().replace(now.toUtf8(), "T");
    };
    for (const auto key : {u"sessions", u"blackbox", u"log"})
        EXPECT_EQ(text(report.value(QStringView(key))), text(expected.value(QStringView(key))));
}

TEST(APIReport, SkipsRecordsThatLackAField)
{
    auto noDuration = std::make_shared<NetworkRequestRecord>(QStringLiteral("GET"), QStringLiteral("u"),
                                                             QString(), QVariantMap(), now);
    noDuration->duration.reset();
    auto endless = std::make_shared<NetworkRequestRecord>(*noDuration);
    endless->duration = qInf();
    auto noHeaders = std::make_shared<NetworkRequestRecord>(*noDuration);
    noHeaders->duration = 1;
    noHeaders->responseHeaders.reset();
    const auto report = wire({
        {kWXLBatteryHistory,
         QVariantList{record<Battery>(QStringLiteral("1"), std::optional<QString>(), now)}},
        {kWXLCpuHistory,
         QVariantList{record<Network>(QStringLiteral("wifi"), QString(), now)}}, // another's record
        {kWXLSessionStateHistory, QVariantList{record<Record>(std::optional<QString>(), now), QVariant(7)}},
        {kWXLNetworkRequestHistory,
         QVariantList{QVariant::fromValue<ArchivedObject>(noDuration),
                      QVariant::fromValue<ArchivedObject>(endless),
                      QVariant::fromValue<ArchivedObject>(noHeaders)}},
    });
    EXPECT_TRUE(report.value(u"blackbox").toObject().isEmpty());
    EXPECT_TRUE(report.value(u"log").toObject().isEmpty());
    EXPECT_FALSE(report.contains(u"sessions"));
}

TEST(APIReport, CarriesFilesBesideTheJson)
{
    WXLWexelReportData data{QVariantMap()};
    data.screenshotFile = std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"), "S");
    data.attachedFiles = {{std::make_shared<WXLWexelFile>(QStringLiteral("a.log"), "A"), nullptr}};
    const WXLAPIReport report(data);
    ASSERT_TRUE(report.screenshotFile && report.files);
    EXPECT_EQ(report.screenshotFile->fileName, QStringLiteral("screenshot.jpg"));
    ASSERT_EQ(report.files->size(), 1);
    EXPECT_EQ(report.files->first().data, "A");
    EXPECT_EQ(report.dictValues().size(), 5) << "no content in the JSON";
}

TEST(APIReport, IsSentWithBareSlashes)
{
    const QString hostile = QStringLiteral("http://x/\\/\"\u0001\u20ac</script>");
    const QByteArray body = WXLAPI::bodyDataFromDictionary({{QStringLiteral("url"), hostile}});
    EXPECT_TRUE(body.contains("http://x/"));
    EXPECT_TRUE(body.contains("\n")) << "indented";
    EXPECT_EQ(QJsonDocument::fromJson(body).object().value(u"url").toString(), hostile);
}

} // namespace
