#include <Wexel/WXLWexelFile.h>

#include <QFile>

#include "Platform/KeyedArchiver.h"

namespace wexel {

namespace {
const QString nameKey = QStringLiteral("nameKey");
const QString dataKey = QStringLiteral("dataKey");
} // namespace

WXLWexelFile::WXLWexelFile(QString name, QByteArray data) : m_name(std::move(name)), m_data(std::move(data))
{
}

std::shared_ptr<WXLWexelFile> WXLWexelFile::initWithName(const QString &name, const QUrl &fileUrl)
{
    QFile file(fileUrl.toLocalFile());
    if (!fileUrl.isLocalFile() || !file.open(QIODevice::ReadOnly))
        return nullptr;
    QByteArray data = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return nullptr;
    return std::make_shared<WXLWexelFile>(name, std::move(data));
}

std::shared_ptr<WXLWexelFile> WXLWexelFile::initWithFileURL(const QUrl &fileUrl)
{
    return initWithName(fileUrl.fileName(), fileUrl);
}

bool WXLWexelFile::fileIsEqual(const WXLWexelFile &other) const
{
    return m_data == other.m_data;
}

QString WXLWexelFile::codingClassName() const
{
    return archivableClass().name;
}

void WXLWexelFile::encodeWithCoder(Coder &coder) const
{
    coder.encodeObject(QVariant(m_name), nameKey);
    coder.encodeObject(QVariant(m_data), dataKey);
}

const ArchivableClass &WXLWexelFile::archivableClass()
{
    static const auto &instance = *new ArchivableClass{
        QStringLiteral("WXLWexelFile"), [](const Coder &coder) -> ArchivedObject {
            const auto name = coder.decodeString(nameKey).value_or(QString());
            return std::make_shared<WXLWexelFile>(name, coder.decodeObject(dataKey).toByteArray());
        }}; // outlives every thread
    return instance;
}

} // namespace wexel
