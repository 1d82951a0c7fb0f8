#pragma once

#include "Http/Handler.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// GET dashboard/api/reports/{id}: one report as it was received, with what is known of its files.
class ReportViewHandler : public Handler
{
public:
    explicit ReportViewHandler(ReportStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ReportStore &m_store;
};

/// DELETE dashboard/api/reports/{id}: removes the report and its files for good.
class ReportRemovalHandler : public Handler
{
public:
    explicit ReportRemovalHandler(ReportStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ReportStore &m_store;
};

} // namespace wexel::receiver
