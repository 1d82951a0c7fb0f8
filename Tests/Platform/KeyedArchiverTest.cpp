#include <gtest/gtest.h>

#include <limits>

#include <QPoint>

#include "Platform/KeyedArchiver.h"

using namespace wexel;

namespace {

/// An object with one field.
class Box final : public SecureCoding
{
public:
    QVariant content;
    [[nodiscard]] QString codingClassName() const override { return QStringLiteral("Box"); }
    void encodeWithCoder(Coder &coder) const override
    {
        coder.encodeObject(content, QStringLiteral("content"));
    }
};

std::shared_ptr<Box> makeBox(const QVariant &content)
{
    auto box = std::make_shared<Box>();
    box->content = content;
    return box;
}

QVariant boxed(const QVariant &content)
{
    return QVariant::fromValue<ArchivedObject>(makeBox(content));
}

const ArchivableClass boxClass{QStringLiteral("Box"), [](const Coder &coder) {
                                   return makeBox(coder.decodeObject(QStringLiteral("content")));
                               }};
const ArchivableClass baseClass{QStringLiteral("Base"), [](const Coder &) { return nullptr; }, {&boxClass}};
const AllowedClasses everything{true, true, true, true, {&baseClass}};

/// Reads bytes given in hexadecimal; returns "code: message" of the refusal, or nothing.
QString refusal(const QByteArray &bytes, const AllowedClasses &allowed = everything)
{
    std::optional<Error> error;
    const QVariant value = KeyedUnarchiver::unarchivedObjectOfClasses(allowed, bytes, &error);
    EXPECT_NE(value.isValid(), error.has_value());
    return error ? QStringLiteral("%1: %2").arg(error->code).arg(error->message) : QString();
}

QVariant nested(int levels)
{
    QVariant value = QStringLiteral("core");
    for (int i = 0; i < levels; ++i)
        value = QVariantMap{{QStringLiteral("k"), value}};
    return value;
}

TEST(KeyedArchiver, BringsBackEveryKindOfValue)
{
    const QVariantMap map{{QStringLiteral("a"), 1LL}, {QStringLiteral("b"), QVariantList{true, false}}};
    const QVariantList values{QStringLiteral("z\u00fcrich \U0001F41E"),
                              QString(),
                              QByteArray("\0\xff", 2),
                              QByteArray(),
                              true,
                              -1LL,
                              std::numeric_limits<qint64>::min(),
                              std::numeric_limits<qint64>::max(),
                              std::numeric_limits<quint64>::max(),
                              3.0,
                              0.25F,
                              QVariantList(),
                              map};
    const auto bytes = KeyedArchiver::archivedDataWithRootObject(values);
    ASSERT_TRUE(bytes);
    const QVariantList read = KeyedUnarchiver::unarchivedObjectOfClasses(everything, *bytes).toList();
    EXPECT_EQ(read, values);
    ASSERT_EQ(read.size(), values.size());
    for (qsizetype i = 0; i < read.size(); ++i)
        EXPECT_EQ(read.at(i).typeId(), values.at(i).typeId()) << "value " << i;
}

TEST(KeyedArchiver, BringsBackObjectsWithinObjects)
{
    const QStringList texts{QStringLiteral("x"), QStringLiteral("y")};
    const auto bytes
        = KeyedArchiver::archivedDataWithRootObject(boxed(QVariantList{boxed(texts), boxed({})}));
    ASSERT_TRUE(bytes);
    const QVariant root = KeyedUnarchiver::unarchivedObjectOfClasses(everything, *bytes);
    const auto outer = std::dynamic_pointer_cast<Box>(root.value<ArchivedObject>());
    ASSERT_TRUE(outer);
    const Coder fields({{QStringLiteral("first"), outer->content.toList().value(0)}});
    const auto inner = fields.decodeObjectOf<Box>(QStringLiteral("first"));
    ASSERT_TRUE(inner);
    EXPECT_EQ(inner->content.toStringList(), texts);
    EXPECT_EQ(fields.decodeObjectOf<Box>(QStringLiteral("second")), nullptr);
}

TEST(KeyedArchiver, LeavesOutWhatItCannotHoldAndSaysWhere)
{
    const QVariantMap root{
        {QStringLiteral("good"), 1LL},
        {QStringLiteral("list"), QVariantList{QStringLiteral("x"), QPoint(1, 2), QStringLiteral("y")}},
        {QStringLiteral("null"), QVariant::fromValue(ArchivedObject())}};
    std::optional<Error> error;
    const auto bytes = KeyedArchiver::archivedDataWithRootObject(root, &error);
    ASSERT_TRUE(bytes && error);
    EXPECT_EQ(error->code, ArchiveErrorNotArchivable);
    EXPECT_EQ(error->message, QStringLiteral("cannot archive a null object at null"));
    const QVariantMap kept{{QStringLiteral("good"), 1LL},
                           {QStringLiteral("list"), QVariantList{QStringLiteral("x"), QStringLiteral("y")}}};
    EXPECT_EQ(KeyedUnarchiver::unarchivedObjectOfClasses(everything, *bytes).toMap(), kept);

    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(QVariant(), &error), std::nullopt);
    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(QVariantList{boxed(QVariantList{QPoint()})}, &error),
              KeyedArchiver::archivedDataWithRootObject(QVariantList{boxed(QVariantList())}));
    EXPECT_EQ(error->message, QStringLiteral("cannot archive a value of type QPoint at [0].content[0]"));
}

TEST(KeyedUnarchiver, LetsInOnlyWhatIsAllowed)
{
    const auto archive
        = [](const QVariant &value) { return *KeyedArchiver::archivedDataWithRootObject(value); };
    const auto refusedText = QStringLiteral("3: a text is not allowed at the root");
    EXPECT_EQ(refusal(archive(QStringLiteral("text")), {}), refusedText);
    EXPECT_TRUE(refusal(archive(QByteArray("bytes")), {}).startsWith(QStringLiteral("3: a byte buffer")));
    EXPECT_TRUE(refusal(archive(QVariantList()), {}).startsWith(QStringLiteral("3: a list")));
    EXPECT_TRUE(refusal(archive(QVariantMap()), {}).startsWith(QStringLiteral("3: a map")));
    EXPECT_EQ(refusal(archive(5), {}), QString());
    EXPECT_EQ(refusal(archive(boxed(QStringLiteral("x"))), {true, true, true, true, {}}),
              QStringLiteral("3: class \"Box\" is not allowed at the root"));
    // The fields of an object are its structure; what they hold still has to be allowed.
    EXPECT_EQ(refusal(archive(boxed(5)), {false, false, false, false, {&boxClass}}), QString());
    EXPECT_EQ(refusal(archive(boxed(QVariantMap())), {false, false, false, false, {&boxClass}}),
              QStringLiteral("3: a map is not allowed at content"));
}

TEST(KeyedUnarchiver, RefusesWhatIsNoArchive)
{
    const QList<std::pair<QByteArray, QString>> cases{
        {"", QStringLiteral("the archive ends at the root")},
        {"82 01", QStringLiteral("the archive ends at [1]")},
        {"84 01", QStringLiteral("a list longer than the archive")},
        {"81 ff", QStringLiteral("no archived value at [0]")},
        {"82 19 01", QStringLiteral("at [0]")},
        {"83 01 19 0102", QStringLiteral("the archive ends at [2]")},
        {"01 02", QStringLiteral("1 bytes after the archive")},
        {"81 01 00", QStringLiteral("1 bytes after the archive")},
        {"a2 6161 01 6161 02", QStringLiteral("the key \"a\" twice")},
        {"a1 01 02", QStringLiteral("a map key that is not a text")},
        {"a1 4161 02", QStringLiteral("a map key that is not a text")},
        {"9f 01 ff", QStringLiteral("not a list of known length")},
        {"bf 6161 01 ff", QStringLiteral("not a map of known length")},
        {"7f 6161 ff", QStringLiteral("a string of indefinite length")},
        {"5f 4161 ff", QStringLiteral("a string of indefinite length")},
        {"a1 7f 6161 ff 01", QStringLiteral("a string of indefinite length")},
        {"61 ff", QStringLiteral("a text that is not UTF-8")},
        {"63 eda080", QStringLiteral("a text that is not UTF-8")},
        {"5a ffffffff 00", QStringLiteral("longer than the archive")},
        {"7b 7fffffffffffffff 00", QStringLiteral("longer than the archive")},
        {"9b 7fffffffffffffff 00", QStringLiteral("longer than the archive")},
        {"bb ffffffffffffffff 00", QStringLiteral("longer than the archive")},
        {"3b 8000000000000000", QStringLiteral("an integer below 64 bits")},
        {"3b ffffffffffffffff", QStringLiteral("an integer below 64 bits")},
        {"f6", QStringLiteral("null or another simple value")},
        {"f7", QStringLiteral("null or another simple value")},
        {"f9 3c00", QStringLiteral("no archived value")},
        {"c0 6161", QStringLiteral("tag 0, not an object's")},
        {"d81b d81b 82 63426f78 a0", QStringLiteral("not an object of known length")},
        {"d81b 81 63426f78", QStringLiteral("not a class name and fields")},
        {"d81b 82 01 a0", QStringLiteral("not a class name and fields")},
        {"d81b 82 63426f78 80", QStringLiteral("not a map of known length")},
        {"d81b 83 63426f78 a0 01", QStringLiteral("not a class name and fields")},
        {"d81b 82 6442617365 a0", QStringLiteral("fields that make no Base")},
        {"ff", QStringLiteral("no archived value")},
        {"fc", QStringLiteral("no archived value")},
    };
    for (const auto &[hex, message] : cases) {
        const QString found = refusal(QByteArray::fromHex(hex));
        EXPECT_TRUE(found.contains(message)) << hex.constData() << " gives " << qPrintable(found);
    }
}

TEST(KeyedUnarchiver, LimitsDepthAndElements)
{
    std::optional<Error> error;
    const auto deepest
        = KeyedArchiver::archivedDataWithRootObject(nested(KeyedUnarchiver::maximumDepth), &error);
    EXPECT_FALSE(error);
    EXPECT_EQ(refusal(*deepest), QString());
    KeyedArchiver::archivedDataWithRootObject(nested(KeyedUnarchiver::maximumDepth + 1), &error);
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->message.contains(QStringLiteral("more than 32 levels at ...k.k")));
    EXPECT_TRUE(refusal(QByteArray(1'000'000, '\x81')).startsWith(QStringLiteral("4: more than 32 levels")));

    const QByteArray header = QByteArray::fromHex("9a") + QByteArray::fromHex("000f4241"); // 1,000,001
    EXPECT_TRUE(refusal(header + QByteArray(1'000'001, '\x01'))
                    .startsWith(QStringLiteral("4: more than 1000000 el")));
    const QVariantList many(KeyedUnarchiver::maximumElements + 1, true);
    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(many, &error), std::nullopt);
    EXPECT_EQ(error->code, ArchiveErrorTooLarge);
}

TEST(KeyedUnarchiver, KeepsMessagesShortAndPrintable)
{
    const QString name = QStringLiteral("Evil\n\u202e") + QString(5000, QLatin1Char('x'));
    const QByteArray key = QByteArray::fromHex("a1 79 1388") + QByteArray(5000, 'k');
    const QString found = refusal(key + QByteArray::fromHex("d81b 82 79") + QByteArray::fromHex("138f")
                                  + name.toUtf8() + QByteArray::fromHex("a0"));
    EXPECT_TRUE(found.contains(QStringLiteral("class \"Evil??xxx"))) << qPrintable(found);
    EXPECT_LT(found.size(), 200);
}

} // namespace
