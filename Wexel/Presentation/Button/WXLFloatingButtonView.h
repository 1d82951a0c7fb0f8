#pragma once

#include <QPainterPath>
#include <QRectF>

class QPainter;

namespace wexel {

/// How the floating button looks: a white pill with an icon and a word, and a soft shadow. Drawn without Qt Quick, whose
/// engine no host should pay for before a flow opens. Main thread only.
class WXLFloatingButtonView
{
public:
    /// 100 by 50 points; more where the user has large letters.
    [[nodiscard]] static QSizeF size();
    static constexpr double cornerRadius = 25.5;
    static constexpr double margin = 15; ///< from the left and the bottom, while nobody has moved it
    static constexpr double shadowReach = 26; ///< of the drawing beyond the button, when lifted

    /// Where the button is until somebody moves it.
    [[nodiscard]] static QPointF initialPosition(double stageHeight);
    [[nodiscard]] static QPainterPath outline(const QRectF &button);
    /// \param isBlended whether the shadow can be seen; where it can't, a thin line sets the button off
    static void paint(QPainter &painter, const QRectF &button, bool isLifted, bool isBlended);
};

} // namespace wexel
