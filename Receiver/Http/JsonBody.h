#pragma once

#include "Http/Handler.h"

#include <Poco/JSON/Object.h>

namespace wexel::receiver {

/// The JSON object that a request of the dashboard carries, of at most 64 KiB. Throws HttpError: 415 unless the body is
/// declared as JSON, which a form of another site can't do; 400 unless it is one object.
Poco::JSON::Object::Ptr readJsonBody(Request &request);

/// Throws HttpError 400 unless there is a text under \a key.
std::string textIn(const Poco::JSON::Object &object, const std::string &key);

} // namespace wexel::receiver
