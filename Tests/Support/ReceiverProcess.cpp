#include "Support/ReceiverProcess.h"

#include <csignal>

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

namespace wexel {

namespace {

const QString program = QStringLiteral(WEXEL_RECEIVER);

QByteArray output(const QStringList &arguments)
{
    ChildProcess process(program, arguments);
    const QByteArray text = process.readAll();
    EXPECT_EQ(process.wait(), 0) << arguments.join(u' ').toStdString();
    return text;
}

} // namespace

ReceiverProcess::ReceiverProcess(QString dataFolder, QStringList extraArguments)
    : m_dataFolder(std::move(dataFolder))
    , m_extraArguments(std::move(extraArguments))
{
    start();
}

void ReceiverProcess::start()
{
    const QStringList arguments{QStringLiteral("--data"),   m_dataFolder,
                                QStringLiteral("--listen"), m_listen,
                                QStringLiteral("--client"), clientId + u':' + clientSecret};
    m_process = std::make_unique<ChildProcess>(program, arguments + m_extraArguments);
    QString line = QString::fromUtf8(m_process->readLine());
    if (line.startsWith(QStringLiteral("Dashboard password: "))) // a new data folder
        line = QString::fromUtf8(m_process->readLine());
    const QString announcement = QStringLiteral("Listening on ");
    ASSERT_TRUE(line.startsWith(announcement)) << "the receiver printed: " << line.toStdString();
    m_url = line.mid(announcement.size());
    m_listen = QStringLiteral("127.0.0.1:%1").arg(QUrl(m_url).port());
}

void ReceiverProcess::terminate()
{
    m_process->signal(SIGTERM);
    EXPECT_EQ(m_process->wait(), 0);
}

void ReceiverProcess::kill()
{
    m_process.reset();
}

void ReceiverProcess::suspend() const
{
    m_process->signal(SIGSTOP);
}

void ReceiverProcess::resume() const
{
    m_process->signal(SIGCONT);
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
