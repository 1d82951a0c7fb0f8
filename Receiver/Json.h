#pragma once

#include "Text.h"

#include <concepts>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

namespace wexel::receiver {

/// Puts JSON together from pieces that are JSON already; texts become such by jsonString().
inline std::string jsonObject(std::initializer_list<std::pair<const char *, std::string>> members)
{
    std::string json;
    for (const auto &[key, value] : members)
        json += (json.empty() ? "{" : ",") + jsonString(key) + ":" + value;
    return (json.empty() ? "{" : json) + "}";
}

/// \a toJson is called for each element.
template <typename Range, typename Function>
std::string jsonArray(const Range &range, Function &&toJson)
{
    std::string json = "[";
    for (const auto &element : range)
        json += (json.size() > 1 ? "," : "") + toJson(element);
    return json + "]";
}

inline std::string jsonBool(bool value)
{
    return value ? "true" : "false";
}

std::string jsonNumber(std::integral auto value)
{
    return std::to_string(value);
}

/// null without a value.
template <std::integral Number>
std::string jsonNumber(const std::optional<Number> &value)
{
    return value ? std::to_string(*value) : "null";
}

} // namespace wexel::receiver
