#pragma once

#include <QQuickItem>

namespace wexel {

/// A button that can be tapped beside its drawing, too: by so many points on each side. Main thread only.
class WXLLargerTappableButton : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int horizontalClickableInset MEMBER horizontalClickableInset NOTIFY insetChanged)
    Q_PROPERTY(int verticalClickableInset MEMBER verticalClickableInset NOTIFY insetChanged)

public:
    explicit WXLLargerTappableButton(QQuickItem *parent = nullptr);

    qint32 horizontalClickableInset = 20;
    qint32 verticalClickableInset = 20;

    /// Whether a point is close enough to a button of those bounds. The limits, which count as inside, are whole numbers:
    /// cut, not rounded.
    [[nodiscard]] static bool isPointInside(const QPointF &point, const QRectF &bounds,
                                            qint32 horizontalInset, qint32 verticalInset);
    [[nodiscard]] bool contains(const QPointF &point) const override;

Q_SIGNALS:
    void insetChanged();
    void tapped();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
};

} // namespace wexel
