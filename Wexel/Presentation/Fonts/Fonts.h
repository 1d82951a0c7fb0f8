#pragma once

#include <QFont>

namespace wexel {

/// The typeface of the screens. Main thread only, with a QGuiApplication.
class Fonts
{
public:
    /// One face, `size` logical pixels high (fractions are rounded). Until that face is registered: the platform's sans
    /// serif of the same weight.
    static QFont fontRegularOfSize(double size);
    static QFont fontBoldOfSize(double size);
    static QFont fontMediumOfSize(double size);
    static QFont fontSemiBoldOfSize(double size);

    /// Registers the four faces with the process; those that are already there are left alone.
    static void registerFonts();
    /// Registers one face from the library's resources, "HKGrotesk-Bold" for example. A failure is logged.
    static void loadMyCustomFont(const QString &name);
};

} // namespace wexel
