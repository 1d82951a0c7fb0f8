#include "Business/HistorySnapshot.h"

#include "Business/WXLAppRepository.h"
#include "Business/WXLBlackBoxObject.h"
#include "Platform/KeyedArchiver.h"
#include "Platform/Log.h"

namespace wexel {

std::optional<QVariantList> historySnapshot(const WXLAppRepository &repository, const QString &key,
                                            const QString &reader)
{
    const auto stored = repository.getData(key);
    if (!stored)
        return {};
    const AllowedClasses allowed{.dictionary = true,
                                 .data = true,
                                 .string = true,
                                 .array = true,
                                 .classes = {&WXLBlackBoxObject::archivableClass()}};
    std::optional<Error> error;
    const QVariant history = KeyedUnarchiver::unarchivedObjectOfClasses(allowed, *stored, &error);
    if (error)
        log(QStringLiteral("%1: Failed to deserialize because of error %2")
                .arg(reader, error->localizedDescription()));
    return history.typeId() == QMetaType::QVariantList ? std::optional(history.toList()) : std::nullopt;
}

} // namespace wexel
