#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "Support/HostProcess.h"
#include "Support/LibraryBundle.h"
#include "Support/ReceiverProcess.h"

using namespace wexel;

namespace {

const QString compiler = QStringLiteral(CXX_COMPILER);
const QString flags = QStringLiteral(CXX_FLAGS); // of a sanitizer, which the whole process needs

/// Runs the command to its end and gives its output.
QString run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    constexpr int deadlineMilliseconds = 60'000;
    EXPECT_TRUE(process.waitForFinished(deadlineMilliseconds)) << qPrintable(process.errorString());
    QString output = QString::fromUtf8(process.readAll());
    EXPECT_EQ(process.exitCode(), 0) << qPrintable(program + u' ' + arguments.join(u' ') + u'\n' + output);
    return output;
}

QStringList words(const QString &text)
{
    return text.simplified().split(u' ', Qt::SkipEmptyParts);
}

/// The current build, installed once for all tests and moved to another place, as a package would be.
class Package : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_folder = new QTemporaryDir;
        const QString first = path(QStringLiteral("first"));
        run(QStringLiteral(CMAKE_PROGRAM),
            {QStringLiteral("--install"), QStringLiteral(BUILD_FOLDER), QStringLiteral("--prefix"), first});
        ASSERT_TRUE(QDir().rename(first, prefix()));
    }
    static void TearDownTestSuite() { delete s_folder; }

    [[nodiscard]] static QString path(const QString &name) { return s_folder->filePath(name); }
    [[nodiscard]] static QString prefix() { return path(QStringLiteral("a moved prefix")); }
    [[nodiscard]] static QString libraryFolder() { return prefix() + u'/' + QStringLiteral(LIBRARY_FOLDER); }
    [[nodiscard]] static QString library() { return libraryFolder() + QStringLiteral("/libWexel.so"); }
    [[nodiscard]] static QString source(const QString &name)
    {
        return QStringLiteral(CONSUMER_FOLDER) + u'/' + name;
    }

    static void expectDelivery(const QString &consumer)
    {
        const QTemporaryDir folder;
        const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
        pointToBackend(prefix(), receiver.url());
        HostProcess host(folder.filePath(QStringLiteral("home")), consumer, {QStringLiteral("Hello")});
        EXPECT_TRUE(host.waitForOutput("WXLUploader: Uploaded succesfully")) << host.output().constData();
        const auto reports = receiver.reports();
        ASSERT_EQ(reports.size(), 1);
        const auto report = reports[0].toObject().value(u"report").toObject();
        EXPECT_EQ(reports[0].toObject().value(u"bundle_id").toString(),
                  QStringLiteral("org.example.consumer"));
        EXPECT_EQ(report.value(u"description").toString(), QStringLiteral("Hello"));
        EXPECT_EQ(report.value(u"sdk_version").toString(), QStringLiteral(PROJECT_VERSION));
    }

private:
    static inline QTemporaryDir *s_folder = nullptr;
};

TEST_F(Package, IsFoundByCMake)
{
    const QString build = path(QStringLiteral("cmake"));
    run(QStringLiteral(CMAKE_PROGRAM),
        {QStringLiteral("-G"), QStringLiteral("Ninja"), QStringLiteral("-S"), QStringLiteral(CONSUMER_FOLDER),
         QStringLiteral("-B"), build, QStringLiteral("-DCMAKE_PREFIX_PATH=") + prefix(),
         QStringLiteral("-DCMAKE_CXX_COMPILER=") + compiler, QStringLiteral("-DCMAKE_CXX_FLAGS=") + flags});
    run(QStringLiteral(CMAKE_PROGRAM), {QStringLiteral("--build"), build});
    expectDelivery(build + QStringLiteral("/Consumer"));
}

TEST_F(Package, IsFoundByPkgConfig)
{
    qputenv("PKG_CONFIG_PATH", QFile::encodeName(libraryFolder() + QStringLiteral("/pkgconfig")));
    const QStringList options = QProcess::splitCommand(
        run(QStringLiteral("pkg-config"),
            {QStringLiteral("--cflags"), QStringLiteral("--libs"), QStringLiteral("wexel")})
            .replace(QStringLiteral("\\ "), QStringLiteral("\" \"")));
    const QString folder = path(QStringLiteral("pkg-config"));
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_TRUE(QFile::copy(source(QStringLiteral("Info.plist")), folder + QStringLiteral("/Info.plist")));
    const QString consumer = folder + QStringLiteral("/Consumer");
    run(compiler,
        QStringList{QStringLiteral("-std=c++20"), QStringLiteral("-fPIC"), source(QStringLiteral("main.cpp")),
                    QStringLiteral("-o"), consumer}
            + words(flags) + options + QStringList{QStringLiteral("-Wl,-rpath,") + libraryFolder()});
    expectDelivery(consumer);
}

TEST_F(Package, HasHeadersThatStandAlone)
{
    const QDir headers(prefix() + QStringLiteral("/include/Wexel"));
    const QStringList names = headers.entryList({QStringLiteral("*.h")});
    EXPECT_TRUE(names.contains(QStringLiteral("WXLWexel.h")));
    const QStringList qt = words(run(QStringLiteral("pkg-config"),
                                     {QStringLiteral("--cflags"), QStringLiteral("Qt6Network"),
                                      QStringLiteral("Qt6Qml")})); // the factory's
    for (const QString &name : names)
        run(compiler,
            QStringList{QStringLiteral("-std=c++20"), QStringLiteral("-fPIC"), QStringLiteral("-Wall"),
                        QStringLiteral("-Wextra"), QStringLiteral("-Werror"), QStringLiteral("-fsyntax-only"),
                        QStringLiteral("-I") + prefix() + QStringLiteral("/include"),
                        QStringLiteral("-include"), QStringLiteral("Wexel/") + name, QStringLiteral("-x"),
                        QStringLiteral("c++"), QStringLiteral("/dev/null")}
                + qt);
}

TEST_F(Package, ExportsThePublicApiOnly)
{
    const QStringList lines = run(QStringLiteral("nm"),
                                  {QStringLiteral("-DC"), QStringLiteral("--defined-only"),
                                   QStringLiteral("--extern-only"), library()})
                                  .split(u'\n', Qt::SkipEmptyParts);
    static const QRegularExpression allowed(
        QStringLiteral("^[0-9a-f]+ [A-Z] ((vtable|typeinfo|typeinfo name) for )?"
                       "wexel::(WXLNetworkAccessManager|WXLWexel|WXLWexelFile|WXLWexelReportData|"
                       "SecureCoding|WexelVersionString)\\b"));
    EXPECT_GT(lines.size(), 20);
    for (const QString &line : lines)
        EXPECT_TRUE(allowed.match(line).hasMatch()) << qPrintable(line);
}

TEST_F(Package, IsVersionedAndFindsNothingByTheBuildMachine)
{
    const QString dynamic = run(QStringLiteral("readelf"), {QStringLiteral("-d"), library()});
    EXPECT_TRUE(dynamic.contains(QStringLiteral("soname: [libWexel.so.1]"))) << qPrintable(dynamic);
    static const QRegularExpression searchPath(QStringLiteral("\\((RUNPATH|RPATH)\\).*\\[(.*)\\]"));
    const QString ownFolder = QStringLiteral("$ORIGIN");
    QDirIterator files(prefix(), QDir::Files, QDirIterator::Subdirectories);
    int programs = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        if (content.startsWith("\x7f"
                               "ELF")) {
            ++programs;
            const auto match
                = searchPath.match(run(QStringLiteral("readelf"), {QStringLiteral("-d"), file.fileName()}));
            EXPECT_TRUE(!match.hasMatch() || match.captured(2).startsWith(ownFolder))
                << qPrintable(file.fileName() + u' ' + match.captured(2));
            continue;
        }
        for (const QByteArray folder : {SOURCE_FOLDER, BUILD_FOLDER})
            EXPECT_FALSE(content.contains(folder))
                << qPrintable(file.fileName()) << " names " << folder.constData();
    }
    EXPECT_GE(programs, 2) << "the library and the receiver";
}

} // namespace
