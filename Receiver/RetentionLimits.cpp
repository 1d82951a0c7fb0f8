#include "RetentionLimits.h"

#include "Http/HttpError.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

namespace {

std::optional<std::int64_t> limitAt(const Poco::JSON::Object &object, const std::string &key,
                                    std::int64_t largest)
{
    const Poco::Dynamic::Var value = object.get(key);
    if (value.isEmpty() && object.has(key))
        return std::nullopt;
    // What does not fit into 64 bits with a sign arrives as unsigned, or as a real number.
    const bool fits = value.isInteger() && value.isSigned();
    const std::int64_t limit = fits ? value.convert<std::int64_t>() : 0;
    if (limit < 1 || limit > largest)
        throw HttpError(Status::HTTP_BAD_REQUEST,
                        "Expected under \"" + key + "\" null or a number from 1 to "
                            + std::to_string(largest));
    return limit;
}

} // namespace

Retention readRetention(const Poco::JSON::Object &object)
{
    return {limitAt(object, "max_age_days", longestRetention),
            limitAt(object, "max_bytes", largestRetention)};
}

} // namespace wexel::receiver
