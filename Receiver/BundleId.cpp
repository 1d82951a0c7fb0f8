#include "BundleId.h"

#include "Text.h"

#include <Poco/Ascii.h>

#include <algorithm>

namespace wexel::receiver {

namespace {

constexpr std::size_t maximumLength = 255;

bool isAllowed(char c)
{
    return (c & 0x80) != 0 || Poco::Ascii::isAlphaNumeric(c) || c == ' ' || c == '.' || c == '_' || c == '-';
}

} // namespace

std::string bundleIdFault(const std::string &bundleId)
{
    if (bundleId.empty())
        return "The bundle id is empty";
    if (bundleId.size() > maximumLength)
        return "The bundle id is longer than " + std::to_string(maximumLength) + " bytes";
    if (!std::all_of(bundleId.begin(), bundleId.end(), isAllowed) || bundleId.front() == '.')
        return "The bundle id may hold letters, digits, blanks, '.', '_' and '-' only and must not begin "
               "with '.'";
    if (!isUtf8(bundleId))
        return "The bundle id is not UTF-8";
    return {};
}

} // namespace wexel::receiver
