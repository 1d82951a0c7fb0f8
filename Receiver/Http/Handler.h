#pragma once

#include "Http/Answer.h"
#include "Http/Caller.h"
#include "Http/RequestBody.h"

#include <Poco/Net/HTTPRequest.h>

#include <string>

namespace wexel::receiver {

/// One request as a handler sees it.
struct Request {
    const Poco::Net::HTTPRequest &header;
    RequestBody &body;
    std::string peer; ///< the address that it came from, with its port; without one if a proxy told it
    std::string parameter; ///< the decoded text in the route's place of {}; hostile
    Caller caller; ///< empty where anyone may ask
};

/// Answers the requests of one route. One object serves all threads at once.
class Handler
{
public:
    virtual ~Handler() = default;

    /// Throws HttpError or StorageError, which become the answer.
    virtual Answer handle(Request &request) = 0;
};

} // namespace wexel::receiver
