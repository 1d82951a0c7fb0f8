#include "Support/LibraryBundle.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

namespace wexel {

void pointToBackend(const QString &prefix, const QString &url)
{
    QFile file(prefix + QStringLiteral("/share/wexel/Info.plist"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite)) << qPrintable(file.fileName());
    QString text = QString::fromUtf8(file.readAll());
    static const QRegularExpression entry(
        QStringLiteral("(<key>WEXEL_API_URL</key>\\s*<string>)[^<]*(?=</string>)"));
    ASSERT_TRUE(text.contains(entry)) << "no address in " << qPrintable(file.fileName());
    text.replace(entry, QStringLiteral("\\1") + url);
    ASSERT_TRUE(file.resize(0) && file.seek(0));
    file.write(text.toUtf8());
}

} // namespace wexel
