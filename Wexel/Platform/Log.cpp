#include "Platform/Log.h"

#include <QLoggingCategory>

namespace wexel {

namespace {
Q_LOGGING_CATEGORY(category, "wexel")
} // namespace

void log(const QString &line)
{
    qCInfo(category).noquote() << line;
}

QString logged(const std::optional<QString> &text)
{
    return text.value_or(QStringLiteral("(null)"));
}

} // namespace wexel
