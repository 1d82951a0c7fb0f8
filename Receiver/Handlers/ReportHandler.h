#pragma once

#include "Http/Handler.h"
#include "Http/MemoryBudget.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// POST api/1.0/issue_tracking/apps/{bundle id}: takes a report; 403 if the application is archived, 503 if too much
/// arrives at once.
class ReportHandler : public Handler
{
public:
    ReportHandler(ReportStore &store, std::uint64_t maximumSize)
        : m_store(store)
        , m_maximumSize(maximumSize)
        , m_memory(reportsInMemory * maximumSize)
    {
    }

    Answer handle(Request &request) override;

private:
    /// So many of the largest, or more that are smaller, may be on their way at once.
    static constexpr std::uint64_t reportsInMemory = 8;

    ReportStore &m_store;
    std::uint64_t m_maximumSize; ///< bytes
    MemoryBudget m_memory;
};

} // namespace wexel::receiver
