#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace wexel {

/// One of the library's own pictures, sharp at every ratio of pixels to points; tinted when a tint is given.
class ArtworkItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Artwork)
    Q_PROPERTY(QString name MEMBER m_name NOTIFY changed)
    Q_PROPERTY(QColor tint MEMBER m_tint NOTIFY changed)

public:
    explicit ArtworkItem(QQuickItem *parent = nullptr);
    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    QString m_name;
    QColor m_tint; // invalid: as drawn
};

} // namespace wexel
