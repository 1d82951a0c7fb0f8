#include "Presentation/Button/WXLFloatingButtonView.h"

#include <cmath>

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>

#include "Presentation/Fonts/Fonts.h"
#include "Presentation/Helpers/Artwork.h"
#include "Presentation/Helpers/Colors.h"
#include "Presentation/Helpers/Shadow.h"
#include "Presentation/Helpers/Theme.h"

namespace wexel {

namespace {

constexpr double iconSize = 24;
constexpr double gap = 9; // between icon and title
constexpr double padding = 13;
constexpr double titleSize = 18;
constexpr double shadowBlur = 5;
const QColor shadowColor = QColor::fromRgbF(93 / 255.0F, 130 / 255.0F, 170 / 255.0F, 0.14F);

void paintShadow(QPainter &painter, const QRectF &button, double offset)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const double margin = shadowMargin(shadowBlur);
    painter.drawImage(
        button.topLeft() - QPointF(margin, margin - offset),
        shadow(button.size(), WXLFloatingButtonView::cornerRadius, shadowBlur, shadowColor, ratio));
}

QString title()
{
    return QCoreApplication::translate("Wexel", "Bug");
}

/// Some languages need more letters than the button has room for.
QFont fittingFont(double width)
{
    const QFont font = Fonts::fontSemiBoldOfSize(Theme::scaled(titleSize));
    const double needed = QFontMetricsF(font).horizontalAdvance(title());
    return needed <= width ? font : Fonts::fontSemiBoldOfSize(Theme::scaled(titleSize) * width / needed);
}

void paintContent(QPainter &painter, const QRectF &button)
{
    const QFont font = fittingFont(button.width() - 2 * padding - iconSize - gap);
    const double titleWidth = QFontMetricsF(font).horizontalAdvance(title());
    const double width = iconSize + gap + titleWidth;
    const double left = button.center().x() - width / 2;
    const bool isMirrored = Theme::isRightToLeft();
    const QPointF icon(isMirrored ? left + width - iconSize : left, button.center().y() - iconSize / 2);
    painter.drawImage(icon,
                      artwork(QStringLiteral("plus"), QSize(int(iconSize), int(iconSize)),
                              painter.device()->devicePixelRatioF()));
    const double textLeft = isMirrored ? left : left + iconSize + gap;
    painter.setFont(font);
    painter.setPen(Colors::blackColor());
    painter.drawText(QRectF(textLeft, button.top(), titleWidth + 1, button.height()),
                     Qt::AlignVCenter | Qt::AlignLeft, title());
}

} // namespace

QSizeF WXLFloatingButtonView::size()
{
    constexpr QSizeF usual{100, 50};
    constexpr double above = 6; // and below the title
    if (Theme::scaled(titleSize) <= titleSize)
        return usual;
    const QFontMetricsF metrics(Fonts::fontSemiBoldOfSize(Theme::scaled(titleSize)));
    const double width = 2 * padding + iconSize + gap + metrics.horizontalAdvance(title());
    return usual.expandedTo({std::ceil(width), std::ceil(metrics.height() + 2 * above)});
}

QPointF WXLFloatingButtonView::initialPosition(double stageHeight)
{
    return {margin, stageHeight - size().width() - margin}; // the width on purpose
}

QPainterPath WXLFloatingButtonView::outline(const QRectF &button)
{
    QPainterPath path;
    path.addRoundedRect(button, cornerRadius, cornerRadius);
    return path;
}

void WXLFloatingButtonView::paint(QPainter &painter, const QRectF &button, bool isLifted, bool isBlended)
{
    constexpr double offset = 5;
    constexpr double liftedOffset = 15;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (isBlended)
        paintShadow(painter, button, isLifted ? liftedOffset : offset);
    else
        painter.fillRect(button,
                         Colors::inactiveGreyColor()); // cut out along the outline: a line around the button
    const double line = isBlended ? 0 : 1;
    painter.fillPath(outline(button.adjusted(line, line, -line, -line)), Colors::whiteColor());
    paintContent(painter, button);
}

} // namespace wexel
