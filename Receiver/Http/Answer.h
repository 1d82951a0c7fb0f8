#pragma once

#include "Http/HttpError.h"
#include "Text.h"

#include <cstdint>
#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace wexel::receiver {

/// The content of a file, open, so that it can't vanish between the answer's header and its bytes.
struct FileContent {
    std::unique_ptr<std::istream> stream;
    std::uint64_t size = 0;
};

/// What a handler answers: a status with a text, with the content of a file, or with what a function writes.
struct Answer {
    Status status = Status::HTTP_OK;
    std::string contentType = "application/json";
    std::string body = {};
    std::optional<FileContent> file = {}; ///< if set, the body in place of the text
    /// If set, writes the body, whose length nobody knows before. To throw breaks the connection off.
    std::function<void(std::ostream &)> writer = {};
    std::vector<std::pair<std::string, std::string>> headers = {};
    std::string fault = {}; ///< of a refusal: its text as it is, for the log
    std::string route
        = {}; ///< what gave it, or would have but for the method; for the counts; empty: no route
    bool brokenOff = false; ///< close the connection one byte short of the announced length
};

inline Answer jsonAnswer(std::string json, Status status = Status::HTTP_OK)
{
    return {.status = status, .body = std::move(json)};
}

inline Answer errorAnswer(Status status, const std::string &text)
{
    Answer answer = jsonAnswer("{\"error\":" + jsonString(text) + "}", status);
    answer.fault = text;
    return answer;
}

} // namespace wexel::receiver
