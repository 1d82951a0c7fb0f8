#include "Presentation/Helpers/HitView.h"

#include <algorithm>

#include <QGuiApplication>
#include <QQuickRenderControl>
#include <QQuickWindow>
#include <QWidget>

#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/QuickHitView.h"
#include "Presentation/Helpers/WidgetHitView.h"

namespace wexel {

namespace {

QWindow *embeddedWindowAt(const QWindow &window, const QPointF &position)
{
    const auto children = window.findChildren<QWindow *>(QString(), Qt::FindDirectChildrenOnly);
    const auto found
        = std::find_if(children.rbegin(), children.rend(), [&window, &position](const QWindow *child) {
              // A window declared within another in QML is its child only as an object.
              return child->parent() == &window && child->isVisible()
                  && QRectF(child->geometry()).contains(position);
          });
    return found != children.rend() ? *found : nullptr;
}

// The scene that is drawn into a widget; null for a widget without one.
QQuickWindow *sceneOf(const QWidget &widget)
{
    if (!widget.inherits("QQuickWidget"))
        return nullptr;
    const QPoint place = widget.mapTo(widget.window(), QPoint());
    for (QWindow *window : QGuiApplication::allWindows()) {
        auto *scene = qobject_cast<QQuickWindow *>(window);
        QPoint offset;
        const QWindow *target
            = scene != nullptr ? QQuickRenderControl::renderWindowFor(scene, &offset) : nullptr;
        if (target != nullptr && target == widget.window()->windowHandle() && offset == place)
            return scene;
    }
    return nullptr;
}

const QObject &viewInWidget(QWidget &root, const QPoint &position)
{
    QWidget &widget = hitWidget(root, position);
    QQuickWindow *scene = sceneOf(widget);
    const QObject *item = scene != nullptr ? hitItem(*scene, widget.mapFrom(&root, position)) : nullptr;
    return item != nullptr ? *item : recognisedWidget(widget);
}

} // namespace

const QObject &hitView(QWindow &window, const QPointF &position)
{
    if (QWindow *embedded = embeddedWindowAt(window, position))
        return hitView(*embedded, position - embedded->position());
    if (QWidget *widget = widgetOf(&window))
        return viewInWidget(*widget, position.toPoint());
    auto *scene = qobject_cast<QQuickWindow *>(&window);
    const QObject *item = scene != nullptr ? hitItem(*scene, position) : nullptr;
    return item != nullptr ? *item : window;
}

} // namespace wexel
