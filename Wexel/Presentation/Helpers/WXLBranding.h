#pragma once

#include <QColor>
#include <QImage>
#include <QString>

namespace wexel {

/// Posted by whoever gives the screens another branding; they look anew then.
inline const QString BrandingUpdatedNotification = QStringLiteral("BrandingUpdated");

/// What a customer may change about the screens. A plain value; main thread only.
class WXLBranding
{
public:
    /// Our own branding.
    WXLBranding();
    /// A branding from texts; the colours go through `WXLColorConverter`. Nothing is loaded from the address: the logo
    /// stays a null image.
    WXLBranding(const QString &textColorString, const QString &backgroundColorString,
                const QString &placeholderColorString, const QString &logoUrl, const QString &slogan,
                const QString &highlightedTextColor);

    QColor textColor;
    QColor backgroundColor;
    QColor placeholderColor;
    QImage logo; ///< 64 by 64 points, sharp on a screen of three pixels a point
    QString slogan;
    QColor highlightedTextColor;
};

} // namespace wexel
