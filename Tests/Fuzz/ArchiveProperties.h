#pragma once

#include "Business/WXLBlackBoxObject.h"
#include "Platform/KeyedArchiver.h"

namespace wexel {

/// What holds for any bytes given to the archive reader. Returns the property that does not, or null.
inline const char *brokenArchiveProperty(const QByteArray &bytes)
{
    const AllowedClasses allowed{true, true, true, true, {&WXLBlackBoxObject::archivableClass()}};
    std::optional<Error> error;
    const QVariant value = KeyedUnarchiver::unarchivedObjectOfClasses(allowed, bytes, &error);
    if (value.isValid() == error.has_value())
        return "a value or an error, never both and never neither";
    if (error)
        return error->message.size() < 500 ? nullptr : "error messages are short";
    // Compared as archives, because NaN differs from itself and objects have no equality.
    const auto first = KeyedArchiver::archivedDataWithRootObject(value, &error);
    if (!first || error)
        return "what was read can be written";
    const QVariant again = KeyedUnarchiver::unarchivedObjectOfClasses(allowed, *first, &error);
    if (error)
        return "what was written can be read";
    return KeyedArchiver::archivedDataWithRootObject(again) == first ? nullptr : "it reads as the same value";
}

} // namespace wexel
