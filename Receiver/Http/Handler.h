#pragma once

#include "Http/Answer.h"
#include "Http/RequestBody.h"

#include <Poco/Net/HTTPRequest.h>

#include <string>

namespace wexel::receiver {

/// One request as a handler sees it.
struct Request {
    const Poco::Net::HTTPRequest &header;
    RequestBody &body;
    std::string parameter; ///< the decoded text in the route's place of {}; hostile
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
