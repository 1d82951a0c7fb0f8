#pragma once

#include <filesystem>
#include <string>

namespace wexel::receiver {

/// Where a receiver keeps everything: a folder of its own, or a database that it shares with others.
struct StoragePlace {
    std::filesystem::path data; ///< the folder; empty with a database
    std::string database = {}; ///< the address of a PostgreSQL database, or empty
    std::filesystem::path files
        = {}; ///< with a database: the folder of the files' bytes; empty: in the database too
};

} // namespace wexel::receiver
