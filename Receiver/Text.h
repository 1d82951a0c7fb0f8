#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace wexel::receiver {

/// Decodes %XX; whatever is not a whole escape stays as it is. A plus sign is not a blank here.
std::string percentDecoded(std::string_view text);

/// Escapes everything but unreserved characters (RFC 3986).
std::string percentEncoded(std::string_view text);

/// The fields of a form body: split at & and the first =, both sides decoded. A name given twice keeps its first value.
std::map<std::string, std::string> formFields(std::string_view body);

std::vector<std::string_view> split(std::string_view text, char separator);

/// \a text as a quoted JSON string.
std::string jsonString(const std::string &text);

/// True if \a text is well-formed UTF-8.
bool isUtf8(const std::string &text);

/// \a text as every database takes it: without zero characters and, if it is not UTF-8, without what is not ASCII.
std::string storable(std::string text);

/// True for 1 to 64 ASCII letters and digits, which ids that are not numbers are made of.
bool isId(std::string_view text);

/// \a name made fit to be shown and stored: control characters become _, and so does every byte above ASCII of a name
/// that is not UTF-8. It is a label only; nothing ever uses it as a path.
std::string cleanFileName(std::string name);

} // namespace wexel::receiver
