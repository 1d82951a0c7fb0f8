#pragma once

#include <QQuickItem>

namespace wexel {

/// A button that can be tapped beside its drawing, too: by so many points on each side. Main thread only.
class WXLLargerTappableButton : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool highlighted READ isHighlighted NOTIFY highlightedChanged)
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
    /// While a finger is down on it, and after a tap.
    [[nodiscard]] bool isHighlighted() const { return m_isHighlighted; }
    [[nodiscard]] bool contains(const QPointF &point) const override;

Q_SIGNALS:
    void highlightedChanged();
    void insetChanged();
    void tapped();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;

private:
    void setHighlighted(bool highlighted);

    bool m_isHighlighted = false;
};

} // namespace wexel
