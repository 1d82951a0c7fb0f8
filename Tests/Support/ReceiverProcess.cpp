#include "Support/ReceiverProcess.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

namespace wexel {

namespace {

const QString program = QStringLiteral(WEXEL_RECEIVER);

QByteArray output(const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << arguments.join(u' ').toStdString();
    return process.readAllStandardOutput();
}

} // namespace

ReceiverProcess::ReceiverProcess(QString dataFolder, QStringList extraArguments)
    : m_dataFolder(std::move(dataFolder))
    , m_extraArguments(std::move(extraArguments))
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    start();
}

ReceiverProcess::~ReceiverProcess()
{
    kill();
}

void ReceiverProcess::start()
{
    m_process.start(program,
                    QStringList{QStringLiteral("--data"), m_dataFolder, QStringLiteral("--listen"), m_listen,
                                QStringLiteral("--client"), clientId + u':' + clientSecret}
                        + m_extraArguments);
    while (!m_process.canReadLine() && m_process.waitForReadyRead())
        ;
    const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
    const QString announcement = QStringLiteral("Listening on ");
    ASSERT_TRUE(line.startsWith(announcement)) << "the receiver printed: " << line.toStdString();
    m_url = line.mid(announcement.size());
    m_listen = QStringLiteral("127.0.0.1:%1").arg(QUrl(m_url).port());
}

void ReceiverProcess::terminate()
{
    m_process.terminate();
    EXPECT_TRUE(m_process.waitForFinished());
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
}

void ReceiverProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

QJsonArray ReceiverProcess::reports() const
{
    return QJsonDocument::fromJson(output({QStringLiteral("reports"), QStringLiteral("--data"), m_dataFolder,
                                           QStringLiteral("--json")}))
        .array();
}

QStringList ReceiverProcess::descriptions() const
{
    QStringList texts;
    for (const auto &report : reports())
        texts.append(report.toObject().value(u"report").toObject().value(u"description").toString());
    return texts;
}

void ReceiverProcess::command(const QString &name, const QString &bundleId) const
{
    output({name, bundleId, QStringLiteral("--data"), m_dataFolder});
}

} // namespace wexel
