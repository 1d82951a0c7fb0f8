#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QtCore/QString>

#include <Wexel/WXLWexelReportData.h>
#include <Wexel/WexelExport.h>

namespace wexel {

class WXLWexelPrivate;

/// Version of the library.
inline constexpr double WexelVersionNumber = 1.0;
/// Version of this build as a line of text, for example "@(#)PROGRAM:Wexel  PROJECT:Wexel-1".
WEXEL_EXPORT extern const char *const WexelVersionString;

/// What opens the reporting flow; combine with `|` and pass to `WXLWexel::startWithInvocationEvents`.
enum WexelInvocationEvent : unsigned {
    WexelInvocationEventMotion = 1, ///< shaking the device, or the window on a desktop
    WexelInvocationEventButton = 2, ///< a floating button over the application
    WexelInvocationEventScreenshot = 4, ///< the user takes a screenshot
    WexelInvocationEventRightEdgePan = 8, ///< a drag that starts at the right edge
    WexelInvocationEventReserved = 16, ///< no effect
};

/// The library's one entry. A host calls `start()` once, after its QCoreApplication, QGuiApplication or
/// QApplication exists and has its name, organisation and domain, which decide where files lie; from then on the host
/// can send reports. It works with that one application object: once it is gone, calls do nothing.
///
/// All functions are called on the main thread. None blocks on the network, none throws, and none reports an
/// error: failures are logged under the category "wexel", kept reports are retried by themselves.
///
/// Configuration comes from two property lists. The host's Info.plist (the resource ":/Info.plist", else beside the
/// executable, else "../share/<executable>/Info.plist") holds a dictionary "Wexel" with "APIClientID" and
/// "APIClientSecret", and "CFBundleIdentifier". The library's own Info.plist holds the backend's address.
class WEXEL_EXPORT WXLWexel
{
public:
    /// Enriches or replaces the data of a report before it is uploaded. Runs on the main thread; a null result
    /// keeps the report as it was passed in.
    using PrepareData
        = std::function<std::shared_ptr<WXLWexelReportData>(const std::shared_ptr<WXLWexelReportData> &)>;

    /// The one instance, created on first use and never destroyed.
    static WXLWexel &sharedInstance();

    /// Starts with shaking as the only invocation.
    static void start();
    /// Starts the library: installs the triggers of the reporting flow, authorises with the backend, sends what earlier
    /// runs left, and records the black box and the application's states from now on.
    /// \param events any combination of `WexelInvocationEvent`
    static void startWithInvocationEvents(unsigned events);
    /// Opens the reporting flow now. Does nothing while a flow is open, or while the host shows no
    /// window.
    static void manualStart();
    /// Switches the black box on or off: the last minute of CPU and memory use, network and orientation, which reports
    /// carry. It is on from `start`, unless it was switched off before. Off also deletes what it recorded. Taps, requests
    /// and application states are recorded in any case.
    static void setBlackBoxEnabled(bool enabled);

    /// Sends a report without any screen. Dropped while the backend has the application archived. It is gathered before
    /// this returns, saved to the disk a moment later, and stays there until the backend has it.
    /// \param attachScreenshot true to attach a picture of the application's windows
    /// \param description the report's text; without a value the report carries none
    static void autoReportWithAttachScreenshot(bool attachScreenshot,
                                               const std::optional<QString> &description);
    /// As above with the empty text as description.
    static void autoReportWithAttachScreenshot(bool attachScreenshot);
    /// Without a screenshot.
    static void autoReportWithDescription(const std::optional<QString> &description);
    /// Without a screenshot and with the empty text as description.
    static void autoReport();

    /// The hook, empty by default; it may replace itself while it runs.
    [[nodiscard]] const PrepareData &onPrepareData() const;
    void setOnPrepareData(PrepareData block);

    WXLWexel(const WXLWexel &) = delete;
    WXLWexel &operator=(const WXLWexel &) = delete;

private:
    friend class WXLWexelReportData; // a new one is gathered by what stands behind the entry
    WXLWexel();
    ~WXLWexel();
    std::unique_ptr<WXLWexelPrivate> d;
};

} // namespace wexel
