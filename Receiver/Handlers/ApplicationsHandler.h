#pragma once

#include "Http/Handler.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// POST api/1.0/issue_tracking/apps: registers an application or, with "check_archived": true, tells whether it may
/// report: 404 if it is archived. An application that is not known may; the question alone does not register it.
class ApplicationsHandler : public Handler
{
public:
    explicit ApplicationsHandler(ReportStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ReportStore &m_store;
};

} // namespace wexel::receiver
