#include "Presentation/Helpers/WXLClickableWindow.h"

#include <QAccessible>
#include <QBitmap>
#include <QEvent>
#include <QGuiApplication>
#include <QPainter>

#include "Platform/WindowSystem.h"
#include "Presentation/Helpers/ClickableWindowAccessible.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/Stage.h"

namespace wexel {

namespace {

/// Those whose centre is inside.
QRegion pixelsWithin(const QPainterPath &shape, const QSize &size)
{
    if (size.isEmpty())
        return {};
    QBitmap bitmap(size);
    bitmap.clear();
    QPainter painter(&bitmap);
    painter.fillPath(shape, Qt::color1);
    painter.end();
    return QRegion(bitmap);
}

QAccessibleInterface *makeAccessible(const QString & /*className*/, QObject *object)
{
    auto *window = qobject_cast<WXLClickableWindow *>(object);
    return window != nullptr ? new ClickableWindowAccessible(window) : nullptr;
}

} // namespace

WXLClickableWindow::WXLClickableWindow()
{
    setProperty(clickableWindowProperty, true);
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint | Qt::WindowDoesNotAcceptFocus);
    QSurfaceFormat translucent;
    translucent.setAlphaBufferSize(8);
    setFormat(translucent);
    QAccessible::installFactory(makeAccessible); // keeps one of each
    connect(&Stage::shared(), &Stage::changed, this, &WXLClickableWindow::followStage);
}

void WXLClickableWindow::setContent(const QRectF &frame, const QPainterPath &shape)
{
    const QPainterPath before = m_shape.translated(frameOffset());
    m_frame = frame;
    m_shape = shape;
    place();
    if (m_shape.translated(frameOffset()) != before)
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
    if (!isVisible()) {
        show();
        tellThatItCame();
    }
    if (below != stage.window())
        raise(); // a dialog is put above what was opened from it whenever its own window is touched
}

void WXLClickableWindow::tellThatItCame()
{
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
    if (canBePressed())
        return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QAccessibleInterface *WXLClickableWindow::accessibleRoot() const
{
    return QAccessible::queryAccessibleInterface(const_cast<WXLClickableWindow *>(this));
}

void WXLClickableWindow::place()
{
    setGeometry(m_frame.translated(Stage::shared().geometry().topLeft()).toAlignedRect());
}

QPointF WXLClickableWindow::frameOffset() const
{
    return m_frame.topLeft() - QPointF(m_frame.toAlignedRect().topLeft());
}

void WXLClickableWindow::cutOut()
{
    if (!handle())
        return;
    const QRegion region = pixelsWithin(m_shape.translated(frameOffset()), size());
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
