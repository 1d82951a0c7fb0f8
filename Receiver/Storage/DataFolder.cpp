#include "Storage/DataFolder.h"

#include "Storage/DatabaseAddress.h"
#include "Storage/DatabaseFileStore.h"
#include "Storage/FolderFileStore.h"
#include "Storage/PostgresDatabase.h"
#include "Storage/SqliteDatabase.h"
#include "Storage/StorageError.h"

#include <cerrno>
#include <fcntl.h>
#include <map>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;

namespace fs = std::filesystem;

namespace {

const std::string databaseFile = "receiver.sqlite";

[[noreturn]] void refuse(const fs::path &folder, const std::string &why)
{
    throw StorageError(StorageError::Kind::Failed,
                       "The data folder " + folder.string() + " can't be used: " + why);
}

void create(const fs::path &folder)
{
    std::error_code error;
    const fs::path parent = fs::absolute(folder).parent_path();
    fs::create_directories(parent, error);
    if (::mkdir(folder.c_str(), 0700) == 0)
        syncFolder(parent);
    else if (errno != EEXIST)
        refuse(folder, std::generic_category().message(errno));
}

/// The lock goes with the process, however it ends.
Descriptor lock(const fs::path &folder)
{
    const fs::path file = folder / "lock";
    Descriptor descriptor = openOrMakeFile(file, O_RDWR);
    if (!descriptor.isOpen())
        refuse(folder, std::generic_category().message(errno));
    if (::flock(descriptor.number(), LOCK_EX | LOCK_NB) != 0)
        refuse(folder, "another wexel-receiver serves it");
    return descriptor;
}

Descriptor prepare(const fs::path &folder, DataFolder::Access access)
{
    if (folder.empty())
        return Descriptor();
    if (access == DataFolder::Access::Serve || access == DataFolder::Access::Fill) {
        create(folder);
        Descriptor taken = access == DataFolder::Access::Serve ? lock(folder) : Descriptor();
        // SQLite would make it root's if root came first; the files that it makes later get the owner of this one.
        if (!makeFile(folder / databaseFile).isOpen() && errno != EEXIST)
            refuse(folder, std::generic_category().message(errno));
        return taken;
    }
    std::error_code error;
    const bool isThere = fs::exists(folder / databaseFile, error);
    if (error)
        refuse(folder, error.message());
    if (!isThere)
        refuse(folder, "no wexel-receiver has served it yet");
    return Descriptor();
}

std::unique_ptr<Database> openDatabase(const StoragePlace &place, DataFolder::Access access)
{
    using Access = DataFolder::Access;
    static const std::map<Access, Database::Mode> modes = {{Access::Serve, Database::Mode::Serve},
                                                           {Access::Fill, Database::Mode::Fill},
                                                           {Access::Change, Database::Mode::Write},
                                                           {Access::Read, Database::Mode::Read}};
    if (place.database.empty())
        return std::make_unique<SqliteDatabase>(place.data / databaseFile, modes.at(access));
    return std::make_unique<PostgresDatabase>(place.database, modes.at(access));
}

/// Where receivers of one inbox kept bytes in different places, each would take the others' files for lost, and deleting a
/// report would leave bytes behind.
void agreeOnFiles(const StoragePlace &place, Database &database, bool maySet)
{
    const bool isInDatabase = !place.database.empty() && place.files.empty();
    const std::string wanted = isInDatabase ? "database" : "folder";
    if (maySet)
        database.write([&](Poco::Data::Session &session) {
            session << "UPDATE inbox SET bytes_in = $1 WHERE bytes_in IS NULL", bind(wanted), now;
        });
    std::string kept;
    database.read([&](Poco::Data::Session &session) {
        session << "SELECT coalesce(bytes_in, $1) FROM inbox", bind(wanted), into(kept), now;
    });
    if (kept != wanted)
        throw StorageError(StorageError::Kind::Failed,
                           databaseName(place.database)
                               + (isInDatabase
                                      ? ": this inbox keeps the bytes of its files in a folder; give "
                                        "it by --files DIR, the same to every receiver and command"
                                      : ": this inbox keeps the bytes of its files in the database; "
                                        "leave --files out"));
}

/// A folder that is not mounted looks like a new one, and what came now would be out of sight once it is.
void refuseUnmounted(const fs::path &folder, Database &database)
{
    std::error_code error;
    if (fs::exists(folder / "files", error) || error)
        return;
    int known = 0;
    database.read([&](Poco::Data::Session &session) {
        session << "SELECT count(*) FROM (SELECT id FROM files LIMIT 1) AS found", into(known), now;
    });
    if (known != 0)
        refuse(folder,
               "the inbox has files, but not here: is it mounted? If they are lost for good, make "
               "a folder \"files\" in it");
}

std::unique_ptr<FileStore> openFiles(const StoragePlace &place, Database &database, DataFolder::Access access)
{
    const bool mayMake = access == DataFolder::Access::Serve || access == DataFolder::Access::Fill;
    agreeOnFiles(place, database, mayMake);
    if (!place.database.empty() && place.files.empty())
        return std::make_unique<DatabaseFileStore>(database);
    auto files = std::make_unique<FolderFileStore>(place.database.empty() ? place.data : place.files);
    if (mayMake) {
        if (!place.files.empty()) {
            refuseUnmounted(place.files, database);
            create(place.files);
        }
        files->prepare(database);
    }
    return files;
}

} // namespace

DataFolder::DataFolder(const StoragePlace &place, Access access)
    : m_lock(prepare(place.data, access))
    , m_database(openDatabase(place, access))
    , m_files(openFiles(place, *m_database, access))
    , m_reports(*m_database, *m_files)
    , m_tokens(*m_database)
{
}

} // namespace wexel::receiver
