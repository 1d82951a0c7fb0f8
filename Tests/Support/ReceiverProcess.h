#pragma once

#include <memory>

#include <QJsonArray>
#include <QString>
#include <QStringList>

#include "Support/ChildProcess.h"

namespace wexel {

/// The real wexel-receiver, with a data folder of its own.
class ReceiverProcess
{
public:
    static inline const QString clientId = QStringLiteral("tests");
    static inline const QString clientSecret = QStringLiteral("a secret of the tests");

    explicit ReceiverProcess(QString dataFolder, QStringList extraArguments = {});

    /// Starts, on the port of the last time if there was one. Fails the test when it does not come up.
    void start();
    /// Ends it as an operator would.
    void terminate();
    /// Ends it as a power cut would.
    void kill();
    /// Makes it stop answering, its connections open, until it is resumed.
    void suspend() const;
    void resume() const;

    /// With a trailing slash.
    [[nodiscard]] QString url() const { return m_url; }
    /// What `wexel-receiver reports --json` prints.
    [[nodiscard]] QJsonArray reports() const;
    /// The descriptions of all reports that arrived, with repetitions.
    [[nodiscard]] QStringList descriptions() const;
    /// Runs a command such as "archive" on the data folder.
    void command(const QString &name, const QString &bundleId) const;

private:
    QString m_dataFolder;
    QStringList m_extraArguments;
    QString m_url;
    QString m_listen = QStringLiteral("127.0.0.1:0");
    std::unique_ptr<ChildProcess> m_process;
};

} // namespace wexel
