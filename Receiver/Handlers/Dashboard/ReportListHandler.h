#pragma once

#include "Http/Handler.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// GET dashboard/api/reports: a page of the reports that the query asks for.
class ReportListHandler : public Handler
{
public:
    explicit ReportListHandler(ReportStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ReportStore &m_store;
};

/// GET dashboard/api/filters: the versions and devices that the list can be narrowed down to.
class FiltersHandler : public Handler
{
public:
    explicit FiltersHandler(ReportStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ReportStore &m_store;
};

} // namespace wexel::receiver
