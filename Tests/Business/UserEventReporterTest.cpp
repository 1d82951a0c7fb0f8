#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include "Business/HistoryKeys.h"
#include "Business/TouchRecord.h"
#include "Business/WXLUserEventReporter.h"
#include "Platform/CapturedLog.h"
#include "Platform/SerialQueue.h"
#include "Support/Histories.h"

namespace cafe {

class OrderForm : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Size size MEMBER m_size)
    Q_PROPERTY(QTimer *retry MEMBER m_timer)
    Q_PROPERTY(QString note MEMBER m_note)
    Q_PROPERTY(QThread *worker MEMBER m_thread)
    Q_PROPERTY(QTimer *reminder MEMBER m_timer)

public:
    enum Size { Small, Large };
    Q_ENUM(Size)

private:
    Size m_size = Small;
    QString m_note;
    QTimer *m_timer = nullptr;
    QThread *m_thread = nullptr;
};

class CakeForm : public OrderForm
{
    Q_OBJECT
    Q_PROPERTY(QThread *oven MEMBER m_oven)

private:
    QThread *m_oven = nullptr;
};

} // namespace cafe

using namespace wexel;

namespace {

struct UserEventReporterTest : testing::Test {
    QTemporaryDir folder;
    WXLAppRepository repository{
        makeUserDefaults(folder.filePath(QStringLiteral("store")), [](auto, auto) {})};
    SetClock clock;
    WXLDateProvider dates{clock};

    [[nodiscard]] QStringList stored(WXLUserEventReporter &reporter) const
    {
        for (int turn = 0; turn < 3; ++turn) // the report, the change, the store of it
            reporter.eventQueue().workingQueue().waitUntilDone();
        QStringList taps;
        for (const auto &tap : storedRecordsOf<TouchRecord>(repository, kUserEventReportKey))
            taps.append(QStringList({*tap->className, *tap->viewController, *tap->property, *tap->timestamp})
                            .join(QLatin1Char(' ')));
        return taps;
    }
};

std::string propertyOf(const char *className, const QMetaObject &controller)
{
    return WXLUserEventReporter::getPropertyName(QString::fromUtf8(className), &controller).toStdString();
}

} // namespace

TEST_F(UserEventReporterTest, PairsOwnPropertiesWithTheObjectTypedOnesByTheirPlace)
{
    EXPECT_EQ(propertyOf("QThread", cafe::OrderForm::staticMetaObject), "retry");
    EXPECT_EQ(propertyOf("QTimer", cafe::OrderForm::staticMetaObject), "note") << "the last one counts";
    EXPECT_EQ(propertyOf("cafe::OrderForm", cafe::OrderForm::staticMetaObject), "") << "not its enumeration";
    EXPECT_EQ(propertyOf("QObject", cafe::OrderForm::staticMetaObject), "") << "not what they inherit";
    EXPECT_EQ(propertyOf("QThread", cafe::CakeForm::staticMetaObject), "oven");
    EXPECT_EQ(propertyOf("QTimer", cafe::CakeForm::staticMetaObject), "") << "not the base's";
}

TEST_F(UserEventReporterTest, KeepsTapsAcrossLaunchesUntilTheyArePruned)
{
    const cafe::OrderForm form;
    const QString first = dates.timestamp();
    {
        WXLUserEventReporter reporter(repository, dates);
        reporter.reportViewTouched(QTimer(), &form);
        clock.time = clock.time.addSecs(1);
        reporter.reportViewTouched(form, nullptr);
        EXPECT_EQ(stored(reporter).size(), 2);
    }
    WXLUserEventReporter reporter(repository, dates);
    reporter.reportTouch(std::make_shared<TouchRecord>(QStringLiteral("A"), QStringLiteral("B"),
                                                       QStringLiteral("c"), QStringLiteral("no time")));
    EXPECT_EQ(stored(reporter),
              QStringList({QStringLiteral("QTimer cafe::OrderForm note ") + first,
                           QStringLiteral("cafe::OrderForm   ") + dates.timestamp(),
                           QStringLiteral("A B c no time")}));
    reporter.removeRecordsOlderThan(clock.time);
    EXPECT_EQ(stored(reporter),
              QStringList({QStringLiteral("cafe::OrderForm   ") + dates.timestamp(),
                           QStringLiteral("A B c no time")}));
}

TEST_F(UserEventReporterTest, ReadsNothingOfADamagedHistoryAndSaysSo)
{
    EXPECT_FALSE(WXLUserEventReporter::userEventHistory(repository));
    repository.setData("damaged", kUserEventReportKey);
    const CapturedLog log;
    EXPECT_FALSE(WXLUserEventReporter::userEventHistory(repository));
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().startsWith(
        QStringLiteral("WXLEventReporter: Failed to deserialize because of error ")));
}

#include "UserEventReporterTest.moc"
