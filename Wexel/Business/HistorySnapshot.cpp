#include "Business/HistorySnapshot.h"

#include "Business/WXLAppRepository.h"
#include "Business/WXLBlackBoxObject.h"
#include "Platform/KeyedArchiver.h"
#include "Platform/Log.h"

namespace wexel {

namespace {

QVariant unarchivedHistory(const QByteArray &stored, std::optional<Error> *error)
{
    const AllowedClasses allowed{.dictionary = true,
                                 .data = true,
                                 .string = true,
                                 .array = true,
                                 .classes = {&WXLBlackBoxObject::archivableClass()}};
    return KeyedUnarchiver::unarchivedObjectOfClasses(allowed, stored, error);
}

} // namespace

QVariantList storedRecords(const QByteArray &stored)
{
    std::optional<Error> ignored;
    const QVariant history = unarchivedHistory(stored, &ignored);
    return history.typeId() == QMetaType::QVariantList ? history.toList() : QVariantList();
}

std::optional<QVariantList> historySnapshot(const WXLAppRepository &repository, const QString &key,
                                            const QString &reader)
{
    const auto stored = repository.getData(key);
    if (!stored)
        return {};
    std::optional<Error> error;
    const QVariant history = unarchivedHistory(*stored, &error);
    if (error)
        log(QStringLiteral("%1: Failed to deserialize because of error %2")
                .arg(reader, error->localizedDescription()));
    return history.typeId() == QMetaType::QVariantList ? std::optional(history.toList()) : std::nullopt;
}

} // namespace wexel
