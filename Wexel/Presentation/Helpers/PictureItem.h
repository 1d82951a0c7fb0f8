#pragma once

#include <QImage>
#include <QQuickPaintedItem>

namespace wexel {

/// Lets QML know the type of images.
struct ImageForQml {
    Q_GADGET
    QML_FOREIGN(QImage)
    QML_ANONYMOUS
};

/// An image, drawn as large as the item. One that `fills` it keeps its proportions, and what is too much is cut off.
class PictureItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Picture)
    Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)
    Q_PROPERTY(bool fills MEMBER m_fills NOTIFY imageChanged)
    Q_PROPERTY(double cornerRadius MEMBER m_cornerRadius NOTIFY imageChanged)

public:
    explicit PictureItem(QQuickItem *parent = nullptr);

    [[nodiscard]] const QImage &image() const { return m_image; }
    void setImage(const QImage &image);
    /// To change a part of it in place: `change` gets the image, which nobody else holds then, and returns which of its
    /// pixels are to be drawn anew.
    template <typename Change>
    void changeImage(Change change)
    {
        updatePixels(change(m_image));
    }
    void setCornerRadius(double radius) { m_cornerRadius = radius; }

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void imageChanged();

private:
    void updatePixels(const QRect &pixels);

    [[nodiscard]] QRectF source() const;

    QImage m_image;
    bool m_fills = false;
    double m_cornerRadius = 0;
};

} // namespace wexel
