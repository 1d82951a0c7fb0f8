#pragma once

#include <QByteArray>
#include <QImage>

namespace wexel {

/// Takes the picture of the application that a report begins with. Main thread only.
class WXLScreenshotService
{
public:
    static WXLScreenshotService &sharedInstance();

    /// The stage (the client area of the host's main window) with all of the application's visible windows on
    /// it, dialogs, menus and popups included, back to front, in the pixels of the main window's screen.
    /// Covered windows are drawn as they would look uncovered. The library's clickable windows are left out.
    /// A null image when there is nothing to draw.
    [[nodiscard]] QImage takeScreenshot() const;

    /// The same without the reporting flow.
    [[nodiscard]] QImage takePictureOfHost() const;

    /// The image as JPEG of quality 0.7; empty for a null image.
    [[nodiscard]] QByteArray getImageData(const QImage &image) const;

private:
    WXLScreenshotService() = default;
};

} // namespace wexel
