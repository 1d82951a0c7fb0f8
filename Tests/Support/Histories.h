#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

#include "Business/HistorySnapshot.h"
#include "Business/SampleRecords.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Platform/KeyedArchiver.h"

namespace wexel {

/// The stored records of a history as the class that a test expects there; nothing when nothing is stored. Fails the
/// test on a record of another class.
template <typename Kind>
std::vector<std::shared_ptr<Kind>> storedRecordsOf(const WXLAppRepository &repository, const QString &key)
{
    std::vector<std::shared_ptr<Kind>> records;
    for (const QVariant &value : historySnapshot(repository, key, QString()).value_or(QVariantList())) {
        records.push_back(std::dynamic_pointer_cast<Kind>(value.value<ArchivedObject>()));
        EXPECT_TRUE(records.back()) << qPrintable(key);
    }
    return records;
}

/// The values of stored `Record`s, oldest first.
template <typename Kind>
QStringList storedValues(const WXLAppRepository &repository, const QString &key)
{
    QStringList values;
    for (const auto &record : storedRecordsOf<Kind>(repository, key))
        values.append(record ? record->value.value_or(QString()) : QString());
    return values;
}

/// A clock that the test sets.
struct SetClock final : Clock {
    QDateTime time = QDateTime::fromMSecsSinceEpoch(1'551'963'909'123, Qt::UTC);
    QDateTime now() const override { return time; }
};

} // namespace wexel
