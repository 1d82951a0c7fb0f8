#include "Presentation/Helpers/WXLClickableWindow.h"

#include <QEvent>
#include <QGuiApplication>

#include "Platform/WindowSystem.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/Stage.h"

namespace wexel {

WXLClickableWindow::WXLClickableWindow()
{
    setProperty(clickableWindowProperty, true);
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint | Qt::WindowDoesNotAcceptFocus);
    QSurfaceFormat translucent;
    translucent.setAlphaBufferSize(8);
    setFormat(translucent);
    connect(&Stage::shared(), &Stage::changed, this, &WXLClickableWindow::followStage);
}

void WXLClickableWindow::setContent(const QRectF &frame, const QPainterPath &shape)
{
    const bool isSameShape = shape == m_shape && frame.size() == m_frame.size();
    m_frame = frame;
    m_shape = shape;
    place();
    if (!isSameShape)
        cutOut();
    update();
}

void WXLClickableWindow::present()
{
    m_isPresented = true;
    followStage();
}

void WXLClickableWindow::followStage()
{
    stageChanged();
    const Stage &stage = Stage::shared();
    if (!m_isPresented || !stage.isShown())
        return hide(); // at once: without its parent it would keep the host alive
    QWindow *below = stage.topWindow();
    if (transientParent() != below) {
        hide(); // the window system learns of its parent when it is shown
        setTransientParent(below);
    }
    place();
    if (!isVisible())
        show();
}

void WXLClickableWindow::place()
{
    setGeometry(m_frame.translated(Stage::shared().geometry().topLeft()).toAlignedRect());
}

void WXLClickableWindow::cutOut()
{
    if (!handle())
        return;
    const QRegion region(m_shape.toFillPolygon().toPolygon());
    m_isBlended = isComposited();
    setMask(m_isBlended ? QRegion() : region);
    setInputRegion(*this, region);
}

bool WXLClickableWindow::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Expose:
    case QEvent::Enter: // a compositor may have come or gone since
        if (isComposited() != m_isBlended || event->type() == QEvent::Expose)
            cutOut();
        break;
    case QEvent::Close: // by a host that closes all windows, and may think better of it
        QMetaObject::invokeMethod(this, &WXLClickableWindow::followStage, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return QRasterWindow::event(event);
}

} // namespace wexel
