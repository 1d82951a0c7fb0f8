#pragma once

#include "Http/Handler.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// POST api/1.0/issue_tracking/apps/{bundle id}: takes a report; 403 if the application is archived.
class ReportHandler : public Handler
{
public:
    ReportHandler(ReportStore &store, std::uint64_t maximumSize) : m_store(store), m_maximumSize(maximumSize)
    {
    }

    Answer handle(Request &request) override;

private:
    ReportStore &m_store;
    std::uint64_t m_maximumSize; ///< bytes
};

} // namespace wexel::receiver
