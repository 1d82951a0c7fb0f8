#include "Platform/KeyedArchiver.h"

namespace wexel {

SecureCoding::~SecureCoding() = default;

void Coder::encodeObject(const QVariant &object, const QString &key)
{
    if (object.isValid())
        m_fields.insert(key, object);
}

void Coder::encodeObject(const std::optional<QString> &text, const QString &key)
{
    if (text)
        m_fields.insert(key, *text);
}

void Coder::encodeObject(const ArchivedObject &object, const QString &key)
{
    if (object)
        m_fields.insert(key, QVariant::fromValue(object));
}

QVariant Coder::decodeObject(const QString &key) const
{
    return m_fields.value(key);
}

std::optional<QString> Coder::decodeString(const QString &key) const
{
    const QVariant field = m_fields.value(key);
    return field.typeId() == QMetaType::QString ? std::optional(field.toString()) : std::nullopt;
}

} // namespace wexel
