#pragma once

#include <QPainterPath>
#include <QRectF>

class QPainter;

namespace wexel {

/// How the banner looks: a white card that rises from the lower edge, with a green check and a message. Main thread only.
class WXLBannerView
{
public:
    static constexpr double cornerRadius = 15;
    static constexpr double shadowReach = 24; ///< of the drawing above the card

    /// Of the card above the edge, of which the lower corners lie below it.
    /// \param safeBottom what the system covers there
    /// \param width of the card, whose message takes more lines where letters are large; by default there is room
    [[nodiscard]] static double bannerViewHeight(double safeBottom, double width = 10'000);
    [[nodiscard]] static QPainterPath outline(const QRectF &card);
    /// What the card says.
    [[nodiscard]] static QString getMessage();
    /// \param isBlended whether the shadow can be seen; where it can't, a thin line sets the card off
    static void paint(QPainter &painter, const QRectF &card, bool isBlended);
};

} // namespace wexel
