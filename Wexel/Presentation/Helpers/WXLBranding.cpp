#include "Presentation/Helpers/WXLBranding.h"

#include "Presentation/Helpers/Artwork.h"
#include "Presentation/Helpers/WXLColorConverter.h"

namespace wexel {

namespace {
constexpr QSize logoSize(64, 64);
constexpr qreal logoPixelRatio = 3;
} // namespace

WXLBranding::WXLBranding()
    // The placeholder has no "#" on purpose: its first digit is skipped, which gives #0182F1.
    : WXLBranding(QStringLiteral("#FFFFFF"), QStringLiteral("#1144f1"), QStringLiteral("6182f1"), {},
                  QStringLiteral(u"Wexel is a simple, powerful bug reporting tool. \u279D"),
                  QStringLiteral("#fbc01b"))
{
    logo = artwork(QStringLiteral("detective"), logoSize, logoPixelRatio);
}

WXLBranding::WXLBranding(const QString &textColorString, const QString &backgroundColorString,
                         const QString &placeholderColorString, const QString & /*logoUrl*/,
                         const QString &slogan, const QString &highlightedTextColor)
    : textColor(WXLColorConverter::colorFromHex(textColorString))
    , backgroundColor(WXLColorConverter::colorFromHex(backgroundColorString))
    , placeholderColor(WXLColorConverter::colorFromHex(placeholderColorString))
    , slogan(slogan)
    , highlightedTextColor(WXLColorConverter::colorFromHex(highlightedTextColor))
{
}

} // namespace wexel
