#pragma once

#include <QImage>
#include <QQuickItem>

namespace wexel {

/// The root of the flow's window: the screens over a picture of the application, from which they fade in and to which they
/// fade out. The picture stands in for what lies below, so that fading needs no window that lets anything through. Main
/// thread only.
class FlowView : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage backdrop MEMBER m_backdrop NOTIFY backdropChanged)
    Q_PROPERTY(QQuickItem *screens MEMBER m_screens NOTIFY screensChanged REQUIRED)

public:
    using QQuickItem::QQuickItem;

    /// What the screens are put into.
    [[nodiscard]] QQuickItem *screens() const { return m_screens; }
    void setBackdrop(const QImage &picture);
    /// Both begin an animation.
    void open() { Q_EMIT opening(); }
    void close() { Q_EMIT closing(); }

Q_SIGNALS:
    void backdropChanged();
    void screensChanged();
    void opening();
    void closing();
    void closed(); ///< the closing animation has ended

private:
    QImage m_backdrop;
    QQuickItem *m_screens = nullptr;
};

} // namespace wexel
