#pragma once

#include <string_view>
#include <vector>

namespace wexel::receiver {

/// A file that is part of the program.
struct EmbeddedFile {
    std::string_view name;
    std::string_view bytes;
};

/// Constant, and so is what it refers to. The build makes its definition.
const std::vector<EmbeddedFile> &embeddedFiles();

} // namespace wexel::receiver
