#pragma once

#include "Http/Handler.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// GET dashboard/api/applications: every application, with what is stored of it.
class ApplicationListHandler : public Handler
{
public:
    explicit ApplicationListHandler(ReportStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ReportStore &m_store;
};

/// POST dashboard/api/applications/{bundle id}/archive or .../unarchive.
class ArchivedHandler : public Handler
{
public:
    ArchivedHandler(ReportStore &store, bool archived) : m_store(store), m_archived(archived) { }

    Answer handle(Request &request) override;

private:
    ReportStore &m_store;
    bool m_archived;
};

} // namespace wexel::receiver
