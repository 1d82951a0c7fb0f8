#include "Platform/PropertyList.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QVariantList>

using namespace wexel;

namespace {

QByteArray plist(const QByteArray &content)
{
    return "<?xml version=\"1.0\"?>\n<plist version=\"1.0\">\n<dict>\n" + content + "\n</dict>\n</plist>\n";
}

std::string errorOf(const QByteArray &xml)
{
    PropertyListReader reader(xml, QStringLiteral("Info.plist"));
    EXPECT_EQ(reader.read(), std::nullopt) << xml.left(200).constData();
    return reader.error().toStdString();
}

} // namespace

TEST(PropertyListTest, readsEveryType)
{
    const QByteArray doctype = "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                               "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n";
    QByteArray xml = plist(
        "<!-- a comment --><key>text</key><string> Caf\xC3\xA9 &amp; <![CDATA[<tea>]]> &#x1F375;</string>"
        "<key>empty</key><string/><key>count</key><integer> -42 </integer>"
        "<key>big</key><integer>9223372036854775807</integer><key>ratio</key><real>2.5e-1</real>"
        "<key>yes</key><true/><key>no</key><false></false><key>bytes</key><data>\n AQID\n BA== </data>"
        "<key>when</key><date>2024-02-29T12:30:00Z</date>"
        "<key>list</key><array><string>a</string><dict><key>b</key><array/></dict></array>");
    xml.replace("<plist", doctype + "<plist");
    PropertyListReader reader(xml, QStringLiteral("x"));
    const auto read = reader.read();
    ASSERT_TRUE(read) << qPrintable(reader.error());
    const QVariantMap expected{
        {QStringLiteral("text"), QString(u" Café & <tea> 🍵"_qs)},
        {QStringLiteral("empty"), QString()},
        {QStringLiteral("count"), -42LL},
        {QStringLiteral("big"), 9223372036854775807LL},
        {QStringLiteral("ratio"), 0.25},
        {QStringLiteral("yes"), true},
        {QStringLiteral("no"), false},
        {QStringLiteral("bytes"), QByteArray("\1\2\3\4")},
        {QStringLiteral("when"), QDateTime(QDate(2024, 2, 29), QTime(12, 30), Qt::UTC)},
        {QStringLiteral("list"),
         QVariantList{QStringLiteral("a"), QVariantMap{{QStringLiteral("b"), QVariantList()}}}},
    };
    for (auto it = expected.begin(); it != expected.end(); ++it) {
        EXPECT_EQ(read->value(it.key()), it.value()) << qPrintable(it.key());
        EXPECT_EQ(read->value(it.key()).typeId(), it.value().typeId()) << qPrintable(it.key());
    }
    EXPECT_EQ(read->size(), expected.size());
}

TEST(PropertyListTest, errorsNameFileLineKeyAndWhatWasExpected)
{
    EXPECT_EQ(errorOf(plist("<key>Port</key>\n<integer>eighty</integer>")),
              "Info.plist:5: key \"Port\": expected an integer, found \"eighty\"");
    EXPECT_EQ(errorOf(plist("<key>A</key><string>x</string>\n<string>y</string>")),
              "Info.plist:5: key \"A\": expected <key> or </dict>, found <string>");
    EXPECT_EQ(errorOf(plist("<key>A</key>")), "Info.plist:5: key \"A\": expected a value, found </dict>");
    EXPECT_EQ(errorOf(plist("<key>A</key><set><string/></set>")),
              "Info.plist:4: key \"A\": expected a property list value, found <set>");
    EXPECT_EQ(errorOf("<plist><array/></plist>"), "Info.plist:1: expected <dict>, found <array>");
    EXPECT_EQ(errorOf("<html/>"), "Info.plist:1: expected <plist>, found <html>");
}

TEST(PropertyListTest, refusesWhatIsNotOneWholePropertyList)
{
    const QByteArray whole = plist("<key>A</key><string>x</string>");
    for (qsizetype length = 0; length < whole.indexOf("</plist>") + 8; ++length)
        EXPECT_NE(errorOf(whole.left(length)), "") << length;
    for (const char *content :
         {"<key>A</key><string>1</string><key>A</key><string>2</string>", "stray", "<key>A<b/></key><true/>",
          "<key>A</key><string>x<b/></string>", "<key>A</key><true>no</true>", "<key>A</key><data>!!!</data>",
          "<key>A</key><date>yesterday</date>", "<key>A</key><real>1,5</real>",
          "<key>A</key><integer>99999999999999999999</integer>"})
        EXPECT_NE(errorOf(plist(content)), "") << content;
    EXPECT_NE(errorOf("<plist><dict/><dict/></plist>"), "");
    EXPECT_NE(errorOf("<plist><dict/></plist><plist/>"), "");
    EXPECT_NE(errorOf(QByteArray("bplist00\xd1\x01\x02", 11)).find("plutil"), std::string::npos);
}

TEST(PropertyListTest, refusesEntitiesDepthAndSizeOfAnAttack)
{
    const QByteArray bomb = "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;\">]>\n";
    EXPECT_NE(errorOf(bomb + "<plist><dict><key>A</key><string>&b;</string></dict></plist>").find("entity"),
              std::string::npos);
    EXPECT_NE(errorOf("<!DOCTYPE plist [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><plist><dict/></plist>"),
              "");
    EXPECT_NE(errorOf(plist("<key>A</key><string>&undeclared;</string>")), "");
    const int depth = 100'000;
    EXPECT_NE(errorOf(plist("<key>A</key>" + QByteArray("<array>").repeated(depth))).find("32 levels"),
              std::string::npos);
    EXPECT_NE(errorOf(plist("<key>A</key><string>" + QByteArray(PropertyListReader::maximumBytes, 'x')
                            + "</string>")),
              "");
}
