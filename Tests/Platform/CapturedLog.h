#pragma once

#include <mutex>

#include <QLoggingCategory>
#include <QStringList>

/// Collects what any thread logs while it lives. One at a time.
class CapturedLog
{
public:
    CapturedLog()
    {
        const std::scoped_lock lock(s_mutex);
        s_lines.clear();
        m_previous = qInstallMessageHandler(&CapturedLog::take);
    }
    ~CapturedLog() { qInstallMessageHandler(m_previous); }
    CapturedLog(const CapturedLog &) = delete;
    CapturedLog &operator=(const CapturedLog &) = delete;

    [[nodiscard]] QStringList lines() const
    {
        const std::scoped_lock lock(s_mutex);
        return s_lines;
    }

private:
    static void take(QtMsgType, const QMessageLogContext &, const QString &line)
    {
        const std::scoped_lock lock(s_mutex);
        s_lines.append(line);
    }

    inline static std::mutex s_mutex;
    inline static QStringList &s_lines = *new QStringList; // threads may still log while the process exits
    QtMessageHandler m_previous;
};
