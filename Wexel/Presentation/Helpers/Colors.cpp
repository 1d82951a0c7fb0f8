#include "Presentation/Helpers/Colors.h"

namespace wexel {

namespace {

QColor withAlpha(QColor color, float alpha)
{
    color.setAlphaF(alpha);
    return color;
}

} // namespace

QColor Colors::shadowColor()
{
    return withAlpha(QColor(90, 116, 152), 0.3F);
}

QColor Colors::buttonShadowColor()
{
    return withAlpha(QColor(165, 180, 199), 0.8F);
}

QColor Colors::whiteColor()
{
    return QColor(255, 255, 255);
}

QColor Colors::blackColor()
{
    return QColor(49, 48, 48); // red one step above, on purpose
}

QColor Colors::regularGrayColor()
{
    return QColor(122, 138, 154);
}

QColor Colors::paleGrayColor()
{
    return QColor(231, 236, 242);
}

QColor Colors::defaultDarkBlueColor()
{
    return QColor(17, 68, 241);
}

QColor Colors::defaultLightBlueColor()
{
    return QColor(0, 141, 255);
}

QColor Colors::coolGreyColor()
{
    return QColor(163, 172, 180);
}

QColor Colors::inactiveGreyColor()
{
    return QColor(182, 194, 205);
}

QColor Colors::slateColor()
{
    return QColor(94, 109, 127);
}

QColor Colors::gunmetalColor()
{
    return QColor(79, 90, 101);
}

QColor Colors::silverColor()
{
    return QColor(212, 219, 224);
}

QColor Colors::paletteGreyColor()
{
    return QColor(81, 95, 107);
}

QColor Colors::paletteYellowColor()
{
    return QColor(255, 204, 0);
}

QColor Colors::paletteGreenColor()
{
    return QColor(0, 194, 116);
}

QColor Colors::palettePurpleColor()
{
    return QColor(101, 82, 255);
}

QColor Colors::paletteRedColor()
{
    return QColor(255, 6, 70);
}

} // namespace wexel
