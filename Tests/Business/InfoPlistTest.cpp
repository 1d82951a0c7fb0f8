#include "Business/WXLInfoPlist.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace wexel;

namespace {

/// A host's and a library's bundle made of files, and the lines that reading from them logged.
class InfoPlistTest : public testing::Test
{
protected:
    [[nodiscard]] Bundle bundleOf(const char *name, const QByteArray &entries) const
    {
        const QString path = folder.filePath(QString::fromUtf8(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("<plist version=\"1.0\"><dict>" + entries + "</dict></plist>");
        file.close();
        return {QString::fromUtf8(name), {path}};
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(InfoPlistTest, readsCredentialsFromTheHostAndTheAddressFromTheLibrary)
{
    const Bundle host = bundleOf("host",
                                 "<key>CFBundleIdentifier</key><string>com.example.Cafe</string>"
                                 "<key>WEXEL_API_URL</key><string>http://host.example/</string>"
                                 "<key>Wexel</key><dict><key>APIClientID</key><string>id</string>"
                                 "<key>APIClientSecret</key><string>s&lt;cret</string></dict>");
    const Bundle library = bundleOf("library",
                                    "<key>CFBundleIdentifier</key><string>org.wexel.Wexel</string>"
                                    "<key>WEXEL_API_URL</key><string>http://127.0.0.1:8787/</string>");
    const WXLInfoPlist plist(host, library);
    EXPECT_EQ(plist.apiClientID(), QStringLiteral("id"));
    EXPECT_EQ(plist.apiClientSecret(), QStringLiteral("s<cret"));
    EXPECT_EQ(plist.hostApplicationBundleId(), QStringLiteral("com.example.Cafe"));
    EXPECT_EQ(plist.apiUrl(), QStringLiteral("http://127.0.0.1:8787/"));
    EXPECT_EQ(plist.wexelBundle().objectForInfoDictionaryKey(QStringLiteral("CFBundleIdentifier")).toString(),
              QStringLiteral("org.wexel.Wexel"));
}

TEST_F(InfoPlistTest, whatIsMissingIsAbsentWithoutALogLine)
{
    const Bundle empty = bundleOf("host", "");
    const Bundle partial
        = bundleOf("partial", "<key>Wexel</key><dict><key>APIClientID</key><string/></dict>");
    testing::internal::CaptureStderr();
    const WXLInfoPlist plist(empty, empty);
    EXPECT_EQ(plist.apiClientID(), std::nullopt);
    EXPECT_EQ(plist.hostApplicationBundleId(), std::nullopt);
    EXPECT_EQ(plist.apiUrl(), std::nullopt);
    EXPECT_EQ(WXLInfoPlist(partial, empty).apiClientID(), QString());
    EXPECT_EQ(WXLInfoPlist(partial, empty).apiClientSecret(), std::nullopt);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(InfoPlistTest, aValueOfTheWrongTypeIsAbsentAndNamedInTheLog)
{
    const Bundle number
        = bundleOf("number.plist", "<key>Wexel</key><dict><key>APIClientID</key><integer>7</integer></dict>");
    const Bundle text = bundleOf("text.plist", "<key>Wexel</key><string>id</string>");
    testing::internal::CaptureStderr();
    EXPECT_EQ(WXLInfoPlist(number, text).apiClientID(), std::nullopt);
    EXPECT_EQ(WXLInfoPlist(text, text).apiClientSecret(), std::nullopt);
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("number.plist: key \"Wexel/APIClientID\": expected a string, found qlonglong"),
              std::string::npos)
        << log;
    EXPECT_NE(log.find("text.plist: key \"Wexel\": expected a dictionary, found QString"), std::string::npos)
        << log;
}
