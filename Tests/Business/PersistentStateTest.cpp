#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Platform/CapturedLog.h"

using namespace wexel;

namespace {

struct RepositoryTest : testing::Test {
    QTemporaryDir folder;
    [[nodiscard]] WXLAppRepository launch() const
    {
        return WXLAppRepository(
            makeUserDefaults(folder.filePath(QStringLiteral("defaults")), [](auto, auto) {}));
    }
};

TEST_F(RepositoryTest, KeepsItsStateAcrossLaunches)
{
    {
        auto fresh = launch();
        EXPECT_TRUE(fresh.applicationActive()) << "a fresh install may report";
        EXPECT_FALSE(fresh.clientAuthorized());
        EXPECT_FALSE(fresh.emailAddress() || fresh.lastUsedColor() || fresh.floatingButtonFrameX());
        const CapturedLog log;
        fresh.setApplicationActive(false);
        fresh.setClientAuthorized(true);
        EXPECT_EQ(log.lines(),
                  QStringList({QStringLiteral("WXLAppRepository - Setting application active -> False"),
                               QStringLiteral("WXLAppRepository - Setting client authorized -> True")}));
        fresh.setEmailAddress(QStringLiteral("tester@example.org"));
        fresh.setLastUsedColor(-3);
        fresh.setFloatingButtonFrameY(12.25F);
        fresh.setSlogan(QStringLiteral("Hi"));
    }
    const auto next = launch();
    EXPECT_FALSE(next.applicationActive());
    EXPECT_TRUE(next.clientAuthorized());
    EXPECT_EQ(next.emailAddress(), QStringLiteral("tester@example.org"));
    EXPECT_EQ(next.lastUsedColor(), -3);
    EXPECT_EQ(next.floatingButtonFrameY(), 12.25F);
    EXPECT_EQ(next.getObjectForKey(QStringLiteral("pellum.slogan")), QStringLiteral("Hi"));
    EXPECT_FALSE(next.getData(QStringLiteral("pellum.slogan"))) << "a text is not bytes";
}

struct ZonedClock final : Clock {
    QDateTime time;
    QDateTime now() const override { return time; }
};

TEST(DateProvider, WritesMillisecondsAndTheZone)
{
    ZonedClock clock;
    const WXLDateProvider dates(clock);
    const auto utc = QDateTime::fromString(QStringLiteral("2019-03-07T13:05:09.123Z"), Qt::ISODateWithMs);
    clock.time = utc; // the zone is the machine's, whatever that of the date
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(dates.timestamp(), QStringLiteral("2019-03-07T14:05:09.123+01:00"));
    EXPECT_EQ(WXLDateProvider::stringFromDate(utc.addMonths(4)),
              QStringLiteral("2019-07-07T15:05:09.123+02:00"));
    qputenv("TZ", "MART9:30");
    EXPECT_EQ(dates.timestamp(), QStringLiteral("2019-03-07T03:35:09.123-09:30"));
    qputenv("TZ", "UTC0");
    EXPECT_EQ(dates.timestamp(), QStringLiteral("2019-03-07T13:05:09.123Z"));
    EXPECT_EQ(WXLDateProvider::stringFromDate(utc, QStringLiteral("yyyy")), dates.timestamp());
    EXPECT_EQ(WXLDateProvider::dateFromTimestamp(dates.timestamp()), utc);
    clock.time = QDateTime::currentDateTime();
    EXPECT_EQ(WXLDateProvider::dateFromTimestamp(dates.timestamp()), clock.time);
}

TEST(DateProvider, ReadsNothingButItsFormat)
{
    for (const char *text : {"", "2019-03-07", "2019-03-07T14:05:09+01:00", "2019-03-07T14:05:09.123",
                             "2019-03-07T14:05:09.123+0100", "2019-13-07T14:05:09.123Z",
                             " 2019-03-07T14:05:09.123Z", "2019-03-07T14:05:09.123Z\n"})
        EXPECT_FALSE(WXLDateProvider::dateFromTimestamp(QString::fromLatin1(text))) << text;
}

} // namespace
