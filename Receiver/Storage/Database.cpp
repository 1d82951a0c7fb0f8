#include "Storage/Database.h"

#include <Poco/Timestamp.h>

namespace wexel::receiver {

std::int64_t currentMilliseconds()
{
    return Poco::Timestamp().epochMicroseconds() / 1000;
}

} // namespace wexel::receiver
