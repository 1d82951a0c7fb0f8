#pragma once

#include <atomic>

#include <Poco/Net/HTTPRequestHandlerFactory.h>

/// GET of a file, POST of an order to "/orders"; everything else is not found. Thread-safe.
class HandlerFactory : public Poco::Net::HTTPRequestHandlerFactory
{
public:
    Poco::Net::HTTPRequestHandler *createRequestHandler(const Poco::Net::HTTPServerRequest &request) override;

private:
    std::atomic<int> m_lastOrder = 100;
};
