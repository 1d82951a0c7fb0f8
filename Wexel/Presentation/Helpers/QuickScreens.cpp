#include "Presentation/Helpers/QuickScreens.h"

#include <algorithm>

#include <QQuickItem>
#include <QQuickWindow>

#include "Platform/HostClassName.h"

namespace wexel {

namespace {

constexpr int maximumSearchDepth = 8;

QQuickItem *itemAt(QObject *container, int index)
{
    QQuickItem *item = nullptr;
    QMetaObject::invokeMethod(container, "itemAt", Q_RETURN_ARG(QQuickItem *, item), Q_ARG(int, index));
    return item;
}

QQuickItem *lastVisibleItem(QObject *splitView)
{
    for (int i = splitView->property("count").toInt() - 1; i >= 0; --i) {
        QQuickItem *item = itemAt(splitView, i);
        if (item != nullptr && item->isVisible())
            return item;
    }
    return nullptr;
}

bool isContainer(const QObject *object)
{
    return object->inherits("QQuickStackView") || object->inherits("QQuickSwipeView")
        || object->inherits("QQuickStackLayout") || object->inherits("QQuickSplitView");
}

QObject *currentScreen(QObject *container)
{
    if (container->inherits("QQuickSplitView"))
        return lastVisibleItem(container);
    if (container->inherits("QQuickStackLayout"))
        return itemAt(container, container->property("currentIndex").toInt());
    return container->property("currentItem").value<QObject *>();
}

// What belongs to a control is no screen: tool tips, menus, the list of a combo box.
bool isPresented(const QObject *popup)
{
    return popup != nullptr && popup->inherits("QQuickPopup") && popup->property("visible").toBool()
        && !popup->inherits("QQuickToolTip") && !popup->inherits("QQuickMenu")
        && (popup->parent() == nullptr || !popup->parent()->inherits("QQuickComboBox"));
}

// Popups lie in the overlay above the window's content, each behind an item of its own.
QObject *presentedPopup(const QQuickWindow *window)
{
    QObject *top = nullptr;
    qreal topZ = 0;
    for (const QQuickItem *overlay : window->contentItem()->childItems()) {
        if (!overlay->inherits("QQuickOverlay"))
            continue;
        for (const QQuickItem *item : overlay->childItems()) {
            if (isPresented(item->parent()) && (top == nullptr || item->z() >= topZ)) {
                top = item->parent();
                topZ = item->z();
            }
        }
    }
    return top;
}

bool fillsParent(const QQuickItem *item)
{
    const QQuickItem *parent = item->parentItem();
    return item->isVisible() && 2 * item->width() * item->height() >= parent->width() * parent->height();
}

// The topmost container that fills `item`; in a window or a loader also the page or the host's own type that does.
QQuickItem *screenBelow(const QQuickItem *item, bool isInWindow, int depth = 0)
{
    QList<QQuickItem *> children = item->childItems();
    std::stable_sort(children.begin(), children.end(),
                     [](const QQuickItem *a, const QQuickItem *b) { return a->z() > b->z(); });
    for (QQuickItem *child : children) {
        if (!fillsParent(child) || child->inherits("QQuickOverlay"))
            continue;
        const bool isPage = child->inherits("QQuickPage") || isHostQmlType(child->metaObject());
        if (isContainer(child) || (isPage && (isInWindow || item->inherits("QQuickLoader"))))
            return child;
        QQuickItem *found = depth < maximumSearchDepth ? screenBelow(child, isInWindow, depth + 1) : nullptr;
        if (found != nullptr)
            return found;
    }
    return nullptr;
}

} // namespace

QObject *quickScreenInside(QObject *controller)
{
    if (isContainer(controller))
        return currentScreen(controller);
    if (controller->inherits("QQuickLoader"))
        return controller->property("item").value<QObject *>();
    if (const auto *window = qobject_cast<QQuickWindow *>(controller)) {
        QObject *popup = presentedPopup(window);
        return popup != nullptr ? popup : screenBelow(window->contentItem(), true);
    }
    const auto *item = controller->inherits("QQuickPopup")
        ? controller->property("contentItem").value<QQuickItem *>()
        : qobject_cast<QQuickItem *>(controller);
    return item != nullptr ? screenBelow(item, false) : nullptr;
}

} // namespace wexel
