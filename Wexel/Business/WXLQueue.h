#pragma once

#include <memory>

#include <QString>

#include "Business/WXLBlackBoxObject.h"

namespace wexel {

class PersistedHistory;
class SerialQueue;
class WXLAppRepository;

/// A history of a fixed number of entries; a further one drops the oldest. Stored whole under its key after every
/// change, and loaded from there. One that was longer when it was loaded stays so and grows. Thread-safe.
class WXLQueue
{
public:
    /// \param capacity less than 1 counts as 1
    WXLQueue(WXLAppRepository &repository, qint32 capacity, const QString &key);

    /// Appends in the background, in the order of the calls. A null record does nothing.
    void push(const std::shared_ptr<const WXLBlackBoxObject> &record);
    /// From its return on nothing is stored any more; the owner may remove the key.
    void close();

    [[nodiscard]] WXLAppRepository &repository() const;
    [[nodiscard]] const QString &key() const;
    [[nodiscard]] SerialQueue &workingQueue() const;

private:
    size_t m_numberOfElements;
    std::shared_ptr<PersistedHistory> m_queue;
};

} // namespace wexel
