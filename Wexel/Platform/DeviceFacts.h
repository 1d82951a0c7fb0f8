#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>

#include <QString>

#include "Platform/Error.h"

namespace wexel {

class BackgroundThread;

/// Free and total bytes of one file system.
struct FileSystemSize {
    quint64 totalBytes = 0;
    quint64 freeBytes = 0;
};

/// One network as a tester knows it. Both fields absent: the machine has neither Wi-Fi nor radio hardware, or
/// is connected by neither.
struct NetworkIdentity {
    std::optional<QString> type; ///< "wifi", or the radio access technology
    std::optional<QString> name; ///< the Wi-Fi network's name
};

/// Battery state as reports carry it.
struct BatteryFact {
    int state = 0; ///< 0 unknown, 1 unplugged, 2 charging, 3 full
    float level = -1.0F; ///< 0 to 1, -1 when unknown
};

enum class Permission { Camera, Microphone, Contacts, PhotoLibrary, Location, Calendar, MediaLibrary };
enum class PermissionState { NotGranted, GrantedWhileUsing, Granted };
using Permissions = std::map<Permission, PermissionState>; ///< one that is missing is not granted

/// Processor time that each thread has used so far, by thread identifier.
using ThreadTimes = std::map<int, std::chrono::nanoseconds>;

/// What services of the system know, which may take seconds to start and to answer. A default value: no answer yet.
struct ServiceFacts {
    Permissions permissions;
    NetworkIdentity network;
    bool canAuthenticateOwner = false; ///< the machine can ask its owner for a password or a fingerprint
};

/// What can be known about the machine, one function a source. Each reads the real thing afresh, but for services
/// of the system; what this machine cannot know is absent. Where a function takes an `Error`, it is set when the
/// result is absent.
///
/// None blocks for longer than a few milliseconds, `services` for 20. Thread times, memory, file system, network and
/// device orientation may be read on any thread, the rest on the main thread.
class DeviceFacts
{
public:
    virtual ~DeviceFacts() = default;
    /// Those of this machine, made on first use, which is on the main thread, and never destroyed.
    static DeviceFacts &shared();

    [[nodiscard]] virtual QString hardwareModel() const = 0; ///< machine field of the kernel's identification
    [[nodiscard]] virtual QString systemVersion() const = 0; ///< operating-system version, for example "12"
    [[nodiscard]] virtual QString timeZoneName() const = 0; ///< IANA identifier
    [[nodiscard]] virtual std::optional<QString>
    localeIdentifier() const = 0; ///< "en_GB"; absent for the C locale
    [[nodiscard]] virtual BatteryFact battery() const = 0;
    /// Of the file system that holds the path or the nearest parent that exists. Free bytes include those
    /// kept for the administrator, so that total - free is what `df` calls used.
    [[nodiscard]] virtual std::optional<FileSystemSize> fileSystem(const QString &path,
                                                                   Error &error) const = 0;
    [[nodiscard]] virtual std::optional<ThreadTimes> threadTimes(Error &error) const = 0; ///< of this process
    [[nodiscard]] virtual std::optional<quint64> residentBytes(Error &error) const = 0; ///< of this process
    [[nodiscard]] virtual std::optional<quint64> physicalBytes() const = 0; ///< of the machine
    /// Of the machine: active + inactive + wired. On Linux wired is what cannot be reclaimed: unevictable
    /// pages and the kernel's own memory (SUnreclaim, KernelStack and PageTables of /proc/meminfo).
    [[nodiscard]] virtual std::optional<quint64> usedBytes(Error &error) const = 0;
    /// 0 unknown, 1 portrait, 2 upside down, 3 landscape left, 4 landscape right, 5 face up, 6 face down.
    /// From the orientation sensor, without one (or before its first reading) that of the main screen.
    [[nodiscard]] virtual int deviceOrientation() const = 0;
    /// Of the main screen in native pixels; 0 without one.
    [[nodiscard]] virtual int screenWidth() const = 0;
    [[nodiscard]] virtual int screenHeight() const = 0;
    /// Has the services asked in the background, as was done when the facts were made. What they do not answer
    /// within 20 ms is as it was last known.
    [[nodiscard]] virtual ServiceFacts services() const = 0;
    /// As last known, at once; each call has it asked again in the background. Who calls every few seconds is
    /// no further behind than that.
    [[nodiscard]] virtual NetworkIdentity network() const = 0;
};

/// The facts of the machine that this process runs on. Called on the main thread.
/// \param background where the orientation sensor is started when it is first asked for; outlives the facts. Null: no
///        sensor is used.
std::unique_ptr<DeviceFacts> makeDeviceFacts(BackgroundThread *background = nullptr);

} // namespace wexel
