#pragma once

#include <Poco/Data/Session.h>

#include <cstdint>
#include <functional>
#include <string>

namespace wexel::receiver {

/// Where everything but the bytes of files is kept. Statements are written once, with the placeholders $1, $2 ... in the
/// order in which they first appear. Every thread may use it. Every failure of the database comes out as a StorageError.
class Database
{
public:
    enum class Mode {
        Serve, ///< makes what is missing, and brings an older schema up to date
        Fill, ///< for a command beside servers: makes the schema if there is none, which else must be that of this version
        Write, ///< the same, but the schema must be there
        Read ///< the same, and nothing can be written
    };
    using Work = std::function<void(Poco::Data::Session &)>;

    virtual ~Database() = default;

    /// Runs \a work as one transaction, which is on disk when this returns and undone when \a work throws. Where others
    /// write at once, \a work may be run again from its beginning.
    virtual void write(const Work &work) = 0;

    /// To be called after what is to be gone for good was deleted: has it leave the disk, as far as that is up to us and as
    /// nobody in another process still reads it. Failures are logged.
    virtual void discardDeleted() { }

    /// Runs \a work, which must only read.
    virtual void read(const Work &work) = 0;

    /// Runs \a work, which must only read, on what was there at one instant, and without keeping anybody waiting however
    /// long it takes. It runs once.
    virtual void readSnapshot(const Work &work) = 0;
};

/// Runs \a work; the text of its StorageError gets \a name before it.
void named(const std::string &name, const std::function<void()> &work);

/// The time of now as the database keeps it: milliseconds since 1970.
std::int64_t currentMilliseconds();

} // namespace wexel::receiver
