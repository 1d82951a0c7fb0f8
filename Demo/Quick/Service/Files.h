#pragma once

#include <map>
#include <string_view>

/// What the service serves: the path of a request to the text of the file. Generated from menu.json and
/// Pictures/.
const std::map<std::string_view, std::string_view> &files();
