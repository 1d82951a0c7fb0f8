#pragma once

#include "Http/HttpError.h"
#include "Text.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace wexel::receiver {

/// What a handler answers: a status with a text, or with the content of a file.
struct Answer {
    Status status = Status::HTTP_OK;
    std::string contentType = "application/json";
    std::string body = {};
    std::filesystem::path file = {}; ///< if not empty, its bytes are the body
    std::vector<std::pair<std::string, std::string>> headers = {};
    bool brokenOff = false; ///< close the connection one byte short of the announced length
};

inline Answer jsonAnswer(std::string json, Status status = Status::HTTP_OK)
{
    return {.status = status, .body = std::move(json)};
}

inline Answer errorAnswer(Status status, const std::string &text)
{
    return jsonAnswer("{\"error\":" + jsonString(text) + "}", status);
}

} // namespace wexel::receiver
