#pragma once

#include "Http/Handler.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// PUT dashboard/api/applications/{bundle id}/retention: how long, and how much of it, an application's reports are kept.
class RetentionHandler : public Handler
{
public:
    explicit RetentionHandler(ReportStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ReportStore &m_store;
};

} // namespace wexel::receiver
