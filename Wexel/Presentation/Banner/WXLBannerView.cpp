#include "Presentation/Banner/WXLBannerView.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

#include "Presentation/Fonts/Fonts.h"
#include "Presentation/Helpers/Artwork.h"
#include "Presentation/Helpers/Colors.h"
#include "Presentation/Helpers/Shadow.h"
#include "Presentation/Helpers/Theme.h"

namespace wexel {

namespace {

constexpr double spacing = 11;
constexpr double topInset = 15;
constexpr int iconSize = 18;
constexpr double fontSize = 18;
constexpr double widestPart = 0.85; // of the card

struct Piece {
    QString text;
    QFont font;
    QColor color;
    [[nodiscard]] double width() const { return QFontMetricsF(font).horizontalAdvance(text); }
};

std::pair<Piece, Piece> message(double size)
{
    return {{QCoreApplication::translate("Wexel", "Done. "), Fonts::fontSemiBoldOfSize(size),
             Colors::blackColor()},
            {QCoreApplication::translate("Wexel", "Bug submitted successfully."),
             Fonts::fontRegularOfSize(size), Colors::slateColor()}};
}

void paintShadow(QPainter &painter, const QRectF &card)
{
    constexpr double blur = 12;
    constexpr double offset = 5;
    const double margin = shadowMargin(blur);
    const QColor color = QColor::fromRgbF(93 / 255.0F, 130 / 255.0F, 170 / 255.0F, 0.22F);
    painter.drawImage(
        card.topLeft() - QPointF(margin, margin - offset),
        shadow(card.size(), WXLBannerView::cornerRadius, blur, color, painter.device()->devicePixelRatioF()));
}

void paintPiece(QPainter &painter, const Piece &piece, double left, const QRectF &line)
{
    painter.setFont(piece.font);
    painter.setPen(piece.color);
    painter.drawText(QRectF(left, line.top(), piece.width() + 1, line.height()),
                     Qt::AlignVCenter | Qt::AlignLeft, piece.text);
}

void paintContent(QPainter &painter, const QRectF &card)
{
    auto [done, submitted] = message(Theme::scaled(fontSize));
    const double room = widestPart * card.width() - iconSize - spacing;
    const double needed = done.width() + submitted.width();
    if (needed > room) // some languages need more letters
        std::tie(done, submitted) = message(std::max(1.0, Theme::scaled(fontSize) * room / needed));
    const double height = std::max<double>(iconSize, QFontMetricsF(submitted.font).height());
    const QRectF line(card.left(), card.top() + topInset, card.width(), height);
    const double width = iconSize + spacing + done.width() + submitted.width();
    const double left = card.center().x() - width / 2;
    // Where one reads from the right, everything is placed from there.
    const bool isMirrored = QGuiApplication::isRightToLeft();
    const auto place
        = [=](double from, double wide) { return isMirrored ? left + width - from - wide : left + from; };
    painter.drawImage(QPointF(place(0, iconSize), line.center().y() - iconSize / 2.0),
                      artwork(QStringLiteral("check-circle"), QSize(iconSize, iconSize),
                              painter.device()->devicePixelRatioF()));
    paintPiece(painter, done, place(iconSize + spacing, done.width()), line);
    paintPiece(painter, submitted, place(iconSize + spacing + done.width(), submitted.width()), line);
}

} // namespace

double WXLBannerView::bannerViewHeight(double safeBottom)
{
    constexpr double height = 51;
    return height + safeBottom / 2;
}

QPainterPath WXLBannerView::outline(const QRectF &card)
{
    QPainterPath path;
    path.addRoundedRect(card, cornerRadius, cornerRadius);
    return path;
}

QString WXLBannerView::getMessage()
{
    const auto [done, submitted] = message(Theme::scaled(fontSize));
    return done.text + submitted.text;
}

void WXLBannerView::paint(QPainter &painter, const QRectF &card, bool isBlended)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (isBlended)
        paintShadow(painter, card);
    else
        painter.fillRect(card,
                         Colors::inactiveGreyColor()); // cut out along the outline: a line around the card
    const double line = isBlended ? 0 : 1;
    painter.fillPath(outline(card.adjusted(line, line, -line, 0)), Colors::whiteColor());
    paintContent(painter, card);
}

} // namespace wexel
