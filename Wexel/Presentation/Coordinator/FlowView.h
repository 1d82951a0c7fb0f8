#pragma once

#include <QImage>
#include <QQuickItem>

#include "Presentation/Coordinator/NavigationController.h"

namespace wexel {

/// The root of the flow's window: the screens over a picture of the application, from which they fade in and to which they
/// fade out. The picture stands in for what lies below, so that fading needs no window that lets anything through. Main
/// thread only.
class FlowView : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage backdrop MEMBER m_backdrop NOTIFY backdropChanged)
    Q_PROPERTY(wexel::NavigationController *navigationController MEMBER m_navigationController NOTIFY
                   navigationControllerChanged REQUIRED)

public:
    using QQuickItem::QQuickItem;

    [[nodiscard]] NavigationController &navigationController() const { return *m_navigationController; }
    void setBackdrop(const QImage &picture);
    /// Both begin an animation.
    void open() { Q_EMIT opening(); }
    void close() { Q_EMIT closing(); }

Q_SIGNALS:
    void backdropChanged();
    void navigationControllerChanged();
    void opening();
    void closing();
    void closed(); ///< the closing animation has ended

private:
    QImage m_backdrop;
    NavigationController *m_navigationController = nullptr;
};

} // namespace wexel
