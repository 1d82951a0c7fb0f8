#include "Presentation/Banner/WXLBannerView.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include "Presentation/Fonts/Fonts.h"
#include "Presentation/Helpers/Artwork.h"
#include "Presentation/Helpers/Colors.h"
#include "Presentation/Helpers/Shadow.h"
#include "Presentation/Helpers/Theme.h"

namespace wexel {

namespace {

constexpr double spacing = 11;
constexpr double topInset = 15;
constexpr double bottomInset = 10; // at least
constexpr double iconSize = 18;
constexpr double fontSize = 18;
constexpr double widestPart = 0.85; // of the card

QString done()
{
    return QCoreApplication::translate("Wexel", "Done. ");
}

QString submitted()
{
    return QCoreApplication::translate("Wexel", "Bug submitted successfully.");
}

double iconSide()
{
    return std::round(Theme::scaled(iconSize));
}

/// The message, laid out in lines as wide as there is room in a card, centred.
class Message
{
public:
    // Some languages need more letters than a line has room for: these get smaller, unless the user wants them large.
    explicit Message(double cardWidth) : m_room(widestPart * cardWidth - iconSide() - spacing)
    {
        const double size = Theme::scaled(fontSize);
        layOut(size);
        if (m_layout.lineCount() == 1 || size > fontSize)
            return;
        const double needed = QFontMetricsF(semiBold(size)).horizontalAdvance(done())
            + QFontMetricsF(regular(size)).horizontalAdvance(submitted());
        layOut(std::floor(std::max(1.0, size * m_room / needed)));
    }
    [[nodiscard]] QSizeF size() const
    {
        double width = 0;
        for (int i = 0; i < m_layout.lineCount(); ++i)
            width = std::max(width, m_layout.lineAt(i).naturalTextWidth());
        return {width, m_layout.boundingRect().height()};
    }
    void draw(QPainter &painter, const QPointF &topLeft) const
    {
        m_layout.draw(&painter, topLeft - QPointF((m_room - size().width()) / 2, 0));
    }

private:
    static QFont semiBold(double size) { return Fonts::fontSemiBoldOfSize(size); }
    static QFont regular(double size) { return Fonts::fontRegularOfSize(size); }
    static QTextLayout::FormatRange range(qsizetype start, qsizetype length, const QFont &font,
                                          const QColor &color)
    {
        QTextLayout::FormatRange range{static_cast<int>(start), static_cast<int>(length), {}};
        range.format.setFont(font);
        range.format.setForeground(color);
        return range;
    }
    void layOut(double size)
    {
        m_layout.setText(done() + submitted());
        m_layout.setFont(regular(size));
        m_layout.setFormats({range(0, done().size(), semiBold(size), Colors::blackColor()),
                             range(done().size(), submitted().size(), regular(size), Colors::slateColor())});
        QTextOption option(Qt::AlignHCenter);
        option.setTextDirection(m_layout.text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        m_layout.setTextOption(option);
        m_layout.beginLayout();
        double height = 0;
        for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
            line.setLineWidth(m_room);
            line.setPosition({0, height});
            height += line.height();
        }
        m_layout.endLayout();
    }

    QTextLayout m_layout;
    double m_room;
};

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

void paintContent(QPainter &painter, const QRectF &card)
{
    const Message message(card.width());
    const QSizeF text = message.size();
    const double side = iconSide();
    const double middle = card.top() + topInset + std::max(side, text.height()) / 2;
    const double left = card.center().x() - (side + spacing + text.width()) / 2;
    const bool isMirrored = Theme::isRightToLeft();
    painter.drawImage(QPointF(isMirrored ? left + text.width() + spacing : left, middle - side / 2),
                      artwork(QStringLiteral("check-circle"), QSizeF(side, side).toSize(),
                              painter.device()->devicePixelRatioF()));
    message.draw(painter, {isMirrored ? left : left + side + spacing, middle - text.height() / 2});
}

} // namespace

double WXLBannerView::bannerViewHeight(double safeBottom, double width)
{
    constexpr double least = 51;
    const double content = std::max(iconSide(), Message(width).size().height());
    return std::max(least, std::ceil(topInset + content + bottomInset)) + safeBottom / 2;
}

QPainterPath WXLBannerView::outline(const QRectF &card)
{
    QPainterPath path;
    path.addRoundedRect(card, cornerRadius, cornerRadius);
    return path;
}

QString WXLBannerView::getMessage()
{
    return done() + submitted();
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
