#pragma once

#include <QColor>

namespace wexel {

/// The palette of the screens.
class Colors
{
public:
    static QColor shadowColor();
    static QColor buttonShadowColor();
    static QColor whiteColor();
    static QColor blackColor();
    static QColor regularGrayColor();
    static QColor paleGrayColor();
    static QColor defaultDarkBlueColor();
    static QColor defaultLightBlueColor();
    static QColor coolGreyColor();
    static QColor inactiveGreyColor();
    static QColor slateColor();
    static QColor gunmetalColor();
    static QColor silverColor();
    static QColor paletteGreyColor();
    static QColor paletteYellowColor();
    static QColor paletteGreenColor();
    static QColor palettePurpleColor();
    static QColor paletteRedColor();
};

} // namespace wexel
