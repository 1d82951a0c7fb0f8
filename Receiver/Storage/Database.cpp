#include "Storage/Database.h"

#include "Storage/StorageError.h"

#include <Poco/Timestamp.h>

namespace wexel::receiver {

void named(const std::string &name, const std::function<void()> &work)
{
    try {
        work();
    } catch (const StorageError &error) {
        throw StorageError(error.kind(), name + ": " + error.what());
    }
}

std::int64_t currentMilliseconds()
{
    return Poco::Timestamp().epochMicroseconds() / 1000;
}

} // namespace wexel::receiver
