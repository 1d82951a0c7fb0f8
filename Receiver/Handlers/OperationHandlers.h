#pragma once

#include "HealthProbe.h"
#include "Http/Handler.h"

namespace wexel::receiver {

/// GET healthz: 200 if a report could be stored now, else 503; answered within a second or so.
class HealthHandler : public Handler
{
public:
    explicit HealthHandler(HealthProbe &probe) : m_probe(probe) { }

    Answer handle(Request &request) override;

private:
    HealthProbe &m_probe;
};

/// GET metrics: what was counted, as Prometheus reads it.
class MetricsHandler : public Handler
{
public:
    Answer handle(Request &request) override;
};

} // namespace wexel::receiver
