#include <gtest/gtest.h>

#include "Business/NetworkRequestRecord.h"
#include "Business/SampleRecords.h"
#include "Business/TouchRecord.h"

using namespace wexel;

namespace {

const QString time = QStringLiteral("2019-03-07T14:05:09.123+01:00");

template <typename T>
std::shared_ptr<T> archivedAndRead(const T &record)
{
    const QVariant root = QVariant::fromValue<ArchivedObject>(std::make_shared<T>(record));
    const AllowedClasses allowed{true, false, true, true, {&WXLBlackBoxObject::archivableClass()}};
    const auto bytes = KeyedArchiver::archivedDataWithRootObject(root);
    const QVariant read = KeyedUnarchiver::unarchivedObjectOfClasses(allowed, bytes.value_or(QByteArray()));
    return std::dynamic_pointer_cast<T>(read.value<ArchivedObject>());
}

QVariantMap fieldsOf(const WXLBlackBoxObject &record)
{
    Coder coder;
    record.encodeWithCoder(coder);
    return coder.fields();
}

QVariantMap named(std::initializer_list<std::pair<const char *, QVariant>> fields)
{
    QVariantMap map;
    for (const auto &[key, value] : fields)
        map.insert(QLatin1String(key), value);
    return map;
}

TEST(Records, WriteEachFieldUnderItsKey)
{
    const auto text = [](const char *value) { return QString(QLatin1String(value)); };
    EXPECT_EQ(fieldsOf(Network(text("wifi"), text("Home"), time)),
              named({{"nTypeKey", text("wifi")}, {"bNameKey", text("Home")}, {"nTimeKey", time}}));
    EXPECT_EQ(fieldsOf(Battery(text("2"), text("0.5"), time)),
              named({{"bStatusKey", text("2")}, {"bLevelKey", text("0.5")}, {"bTimeKey", time}}));
    EXPECT_EQ(fieldsOf(Record(text("1.500"), time)),
              named({{"rValueKey", text("1.500")}, {"rTimeKey", time}}));
    EXPECT_EQ(fieldsOf(TouchRecord(text("Button"), text("Page"), text("Buy"), time)),
              named({{"tClassNameKey", text("Button")},
                     {"tViewControllerKey", text("Page")},
                     {"tPropertyKey", text("Buy")},
                     {"tTimeKey", time}}));
    const QVariantMap headers = named({{"Accept", text("*/*")}});
    EXPECT_EQ(fieldsOf(NetworkRequestRecord(text("GET"), text("http://a/"), text("body"), headers, time)),
              named({{"nrMethodKey", text("GET")},
                     {"nrUrlKey", text("http://a/")},
                     {"nrRequestBodyKey", text("body")},
                     {"nrRequestHeadersKey", headers},
                     {"nrStatusCodeKey", text("")},
                     {"nrResponseBodyKey", text("")},
                     {"nrResponseHeadersKey", QVariantMap()},
                     {"nrTimestampKey", time},
                     {"nrDurationKey", 0.0}}));
}

TEST(Records, SurviveAnArchiveThatAllowsTheirBase)
{
    NetworkRequestRecord request(QStringLiteral("POST"), std::nullopt, std::nullopt, {}, time);
    request.statusCode = QStringLiteral("404");
    request.duration = 0.25;
    const auto readRequest = archivedAndRead(request);
    ASSERT_TRUE(readRequest);
    EXPECT_EQ(fieldsOf(*readRequest), fieldsOf(request));
    EXPECT_EQ(readRequest->url, std::nullopt);
    EXPECT_EQ(readRequest->duration, 0.25);

    const auto network = archivedAndRead(Network(std::nullopt, QString(), time));
    ASSERT_TRUE(network);
    EXPECT_EQ(network->type, std::nullopt);
    EXPECT_EQ(network->name, QString());
    const auto battery = archivedAndRead(Battery(QStringLiteral("1"), QStringLiteral("-1"), time));
    ASSERT_TRUE(battery);
    EXPECT_EQ(battery->level, QStringLiteral("-1"));
    const auto touch
        = archivedAndRead(TouchRecord(QStringLiteral("A"), std::nullopt, QStringLiteral("p"), time));
    ASSERT_TRUE(touch);
    EXPECT_EQ(touch->property, QStringLiteral("p"));
    EXPECT_TRUE(archivedAndRead(Record(std::nullopt, time)));
    EXPECT_TRUE(archivedAndRead(WXLBlackBoxObject()));
}

TEST(Records, ReadFieldsOfTheWrongTypeAsAbsent)
{
    const NetworkRequestRecord record(Coder(named({{"nrUrlKey", 5},
                                                   {"nrDurationKey", QStringLiteral("long")},
                                                   {"nrRequestHeadersKey", QStringLiteral("none")}})));
    EXPECT_EQ(record.url, std::nullopt);
    EXPECT_EQ(record.duration, std::nullopt);
    EXPECT_EQ(record.requestHeaders, std::nullopt);
    EXPECT_EQ(record.statusCode, std::nullopt) << "only a new record has an empty status";
}

} // namespace
