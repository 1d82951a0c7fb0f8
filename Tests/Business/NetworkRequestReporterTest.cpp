#include <thread>

#include "Business/CapturedHost.h"

using namespace wexel;

namespace {

constexpr qsizetype limit = WexelMaximumBodyBytes;

UrlRequest request(const QString &url, const QByteArray &body = "sent")
{
    UrlRequest result;
    result.url = QUrl(url);
    result.method = "POST";
    result.body = body;
    result.setValue("application/json", "Content-Type");
    return result;
}

TEST(NetworkRequestReporter, StoresARequestAtItsStartAndAtItsAnswer)
{
    ReporterUnderTest host;
    QElapsedTimer elapsed;
    elapsed.start();
    std::optional<QByteArray> passed;
    const auto answered
        = host.reporter.report(request(QStringLiteral("http://api.example/a b?c=d#e")),
                               [&](const auto &data, const auto &response, const auto &error) {
                                   passed = data;
                                   EXPECT_TRUE(response && response->statusCode == 201 && error);
                               });
    const auto failed = host.reporter.report(request(QStringLiteral("http://other/")), {});
    auto records = host.records();
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(records[0].method, QStringLiteral("POST"));
    EXPECT_EQ(records[0].url, QStringLiteral("http://api.example/a%20b?c=d#e"));
    EXPECT_EQ(records[0].requestBody, QStringLiteral("sent"));
    EXPECT_EQ(records[0].requestHeaders->value(QStringLiteral("Content-Type")),
              QStringLiteral("application/json"));
    EXPECT_TRUE(WXLDateProvider::dateFromTimestamp(*records[0].timestamp));
    EXPECT_TRUE(records[0].statusCode->isEmpty() && records[0].responseBody->isEmpty()
                && records[0].responseHeaders->isEmpty());
    EXPECT_EQ(records[0].duration, 0);

    answered("received", UrlResponse{201, {{"X-Answer", "yes"}}}, Error{});
    EXPECT_EQ(passed, "received");
    records = host.records();
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(records[0].url, QStringLiteral("http://other/")) << "the answered one has moved to the end";
    EXPECT_EQ(records[1].statusCode, QStringLiteral("201"));
    EXPECT_EQ(records[1].responseBody, QStringLiteral("received"));
    EXPECT_EQ(records[1].responseHeaders->value(QStringLiteral("X-Answer")), QStringLiteral("yes"));
    EXPECT_GT(*records[1].duration, 0);
    EXPECT_LE(*records[1].duration, static_cast<double>(elapsed.nsecsElapsed()) / 1e9);

    failed({}, {}, Error{});
    EXPECT_TRUE(host.last().statusCode->isEmpty() && host.last().responseBody->isEmpty());
    EXPECT_GT(*host.last().duration, 0);
}

TEST(NetworkRequestReporter, LeavesItsOwnBackendAndAddressesWithoutAHostAlone)
{
    ReporterUnderTest host;
    for (const char *url : {"https://backend.example/x", "http://BACKEND.example:81/", "http://example/",
                            "data:text/plain,x", "file:///etc/hosts", "http:///nowhere"}) {
        EXPECT_FALSE(host.reporter.report(request(QString::fromUtf8(url)), {})) << url;
        bool isCalled = false;
        host.reporter.report(request(QString::fromUtf8(url)), [&](auto...) { isCalled = true; })({}, {}, {});
        EXPECT_TRUE(isCalled) << url;
    }
    EXPECT_FALSE(WXLNetworkRequestReporter::networkRequestHistory(host.repository));
    EXPECT_TRUE(host.reporter.report(request(QStringLiteral("https://www.backend.example/")), {}))
        << "a longer name is another host";
}

TEST(NetworkRequestReporter, KeepsTheBeginningOfTexts)
{
    ReporterUnderTest host;
    const auto recorded = [&](const QByteArray &body) {
        host.reporter.report(request(QStringLiteral("http://api.example/"), body), {})(body, {}, {});
        const auto record = host.last();
        EXPECT_EQ(record.requestBody, record.responseBody);
        return *record.responseBody;
    };
    const QString mark = WexelBodyCutMark;
    EXPECT_EQ(recorded(QByteArray(limit, 'x')), QString(limit, u'x'));
    EXPECT_EQ(recorded(QByteArray(limit + 1, 'x')), QString(limit, u'x') + mark);
    EXPECT_EQ(recorded(QByteArray(limit - 2, 'x') + "€ and more"), QString(limit - 2, u'x') + mark)
        << "cut within a character";
    EXPECT_EQ(recorded("caf\xc3"), QStringLiteral("caf")) << "ended within a character";
    EXPECT_EQ(recorded("\x89PNG\r\n\x1a\n\xff"), QString());
}

TEST(NetworkRequestReporter, SurvivesARestartAndDropsWhatIsTooOld)
{
    ReporterUnderTest host;
    host.reporter.report(request(QStringLiteral("http://before/")), {})({}, {}, {});
    host.settle();
    WXLNetworkRequestReporter next(host.repository, WXLDateProvider::sharedInstance(), {});
    next.report(request(QStringLiteral("http://after/")), {})("answer", {}, {});
    for (int turn = 0; turn < 3; ++turn)
        next.timeEventQueue().workingQueue().waitUntilDone();
    const auto records = host.records();
    ASSERT_EQ(records.size(), 2);
    EXPECT_GT(*records[0].duration, 0) << "a number that was read twice";
    next.removeRecordsOlderThan(WXLDateProvider::dateFromTimestamp(*records[1].timestamp)->addSecs(1));
    next.timeEventQueue().workingQueue().waitUntilDone();
    next.timeEventQueue().workingQueue().waitUntilDone();
    EXPECT_TRUE(host.records().empty());
}

TEST(NetworkRequestReporter, TakesReportsPrunesAndReadersFromManyThreads)
{
    ReporterUnderTest host;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&host] {
            for (int i = 0; i < 25; ++i) {
                const auto answered
                    = host.reporter.report(request(QStringLiteral("http://api.example/")), {});
                host.reporter.removeRecordsOlderThan(QDateTime::currentDateTime().addSecs(-60));
                answered("received", UrlResponse{200}, {});
                (void)WXLNetworkRequestReporter::networkRequestHistory(host.repository);
            }
        });
    }
    for (auto &thread : threads)
        thread.join();
    const auto records = host.records();
    EXPECT_EQ(records.size(), 100);
    for (const auto &record : records)
        EXPECT_EQ(record.responseBody, QStringLiteral("received"));
}

} // namespace
