#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace wexel {

/// The soft shadow of its parent, a rounded rectangle; declared as the first child, it lies below the others but above
/// the parent's own drawing, so the parent is an Item.
class ShadowItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Shadow)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
    Q_PROPERTY(QPointF offset MEMBER m_offset NOTIFY changed)
    Q_PROPERTY(double blur MEMBER m_blur NOTIFY changed)
    Q_PROPERTY(double cornerRadius MEMBER m_cornerRadius NOTIFY changed)

public:
    explicit ShadowItem(QQuickItem *parent = nullptr);
    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

protected:
    void componentComplete() override;

private:
    void layOut();

    QColor m_color;
    QPointF m_offset;
    double m_blur = 0;
    double m_cornerRadius = 0;
};

} // namespace wexel
