#include "Platform/Error.h"

namespace wexel {

QString Error::localizedDescription() const
{
    if (!message.isEmpty())
        return message;
    return QStringLiteral("The operation couldn\u2019t be completed. (%1 error %2.)").arg(domain).arg(code);
}

QString Error::description() const
{
    const QString text = message.isEmpty() ? QStringLiteral("(null)") : message;
    return QStringLiteral("Error Domain=%1 Code=%2 \"%3\"").arg(domain, QString::number(code), text);
}

} // namespace wexel
