#include "Presentation/Helpers/QuickHitView.h"

#include <algorithm>
#include <functional>

#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include "Platform/HostClassName.h"

namespace wexel {

namespace {

using Condition = std::function<bool(const QQuickItem &item)>;

bool inheritsAny(const QObject &object, std::initializer_list<const char *> classNames)
{
    return std::any_of(classNames.begin(), classNames.end(),
                       [&object](const char *className) { return object.inherits(className); });
}

bool takesPressesItself(const QQuickItem &item, bool hasHandlers)
{
    // A text takes presses for its links only, and the overlay to see those beside a popup: they leave them to others. A
    // MouseArea has an `enabled` of its own.
    if (inheritsAny(item, {"QQuickText", "QQuickOverlay"}) || !item.property("enabled").toBool())
        return false;
    // Any handler, one for hovering too, has its item accept all buttons.
    if (hasHandlers && item.acceptedMouseButtons() == Qt::AllButtons && !item.acceptTouchEvents())
        return inheritsAny(item, {"QQuickControl", "QQuickMouseArea", "QQuickTextInput", "QQuickTextEdit"});
    return item.acceptedMouseButtons() != Qt::NoButton || item.acceptTouchEvents();
}

bool takesPresses(const QQuickItem &item)
{
    bool hasHandlers = false;
    for (const QObject *child : item.children()) {
        if (!child->inherits("QQuickPointerHandler"))
            continue;
        hasHandlers = true;
        if (!inheritsAny(*child, {"QQuickHoverHandler", "QQuickWheelHandler"})
            && child->property("enabled").toBool())
            return true;
    }
    return takesPressesItself(item, hasHandlers);
}

bool isDrawn(const QQuickItem &item)
{
    return item.flags().testFlag(QQuickItem::ItemHasContents);
}

// It takes presses to scroll, or to keep them from what lies below.
bool isContainer(const QObject &object)
{
    return inheritsAny(object,
                       {"QQuickFlickable", "QQuickPane", "QQuickContainer", "QQuickPathView", "QQuickPopup"});
}

// Views have delegates beyond their edges ready, which they do not draw.
bool isBeyondView(const QQuickItem &item)
{
    const QQuickItem *content = item.parentItem();
    const QQuickItem *view = content != nullptr ? content->parentItem() : nullptr;
    return view != nullptr && view->inherits("QQuickItemView")
        && !view->boundingRect().intersects(item.mapRectToItem(view, item.boundingRect()));
}

bool isShown(const QQuickItem &item)
{
    return item.isVisible() && item.isEnabled() && item.opacity() > 0;
}

// In the order in which Qt delivers presses: children before their parent, the topmost first.
const QQuickItem *topmostAt(const QQuickItem &item, const QPointF &position, const Condition &condition)
{
    if (item.clip() && !item.clipRect().contains(position))
        return nullptr;
    QList<QQuickItem *> children = item.childItems();
    std::stable_sort(children.begin(), children.end(),
                     [](const QQuickItem *a, const QQuickItem *b) { return a->z() < b->z(); });
    for (auto child = children.crbegin(); child != children.crend(); ++child) {
        if (!isShown(**child))
            continue;
        const QQuickItem *found = topmostAt(**child, (*child)->mapFromItem(&item, position), condition);
        if (found != nullptr && !isBeyondView(**child))
            return found;
    }
    return item.contains(position) && condition(item) ? &item : nullptr;
}

// The item around an item; for what a popup shows, the popup.
const QObject *owner(const QObject &object)
{
    const auto *item = qobject_cast<const QQuickItem *>(&object);
    const bool isPopup = item == nullptr || item->inherits("QQuickPopupItem");
    return isPopup ? object.parent() : item->parentItem();
}

// Made by Qt, in a document of its own or in C++, for a control or a view that the host declared.
bool isPart(const QObject &object)
{
    if (object.inherits("QQuickAbstractButton")) // a menu's and a button box's are as good as the host's own
        return false;
    const QQmlContext *context = qmlContext(&object);
    if (context == nullptr)
        return QByteArray(object.metaObject()->className()).startsWith("QQuick");
    const QUrl document = context->baseUrl();
    return document.scheme() == QStringLiteral("qrc")
        && document.path().contains(QStringLiteral("/QtQuick/"));
}

bool isControl(const QObject &object)
{
    const auto *item = qobject_cast<const QQuickItem *>(&object);
    return item != nullptr && inheritsAny(*item, {"QQuickControl", "QQuickTextInput", "QQuickTextEdit"})
        && takesPresses(*item);
}

// Of the host: a document or a class of its own.
bool isHostType(const QMetaObject *metaObject)
{
    if (isHostQmlType(metaObject))
        return true;
    while (QByteArray(metaObject->className()).contains("_QML") && metaObject->superClass() != nullptr)
        metaObject = metaObject->superClass();
    return !QByteArray(metaObject->className()).startsWith("QQuick");
}

// A component of the host that is less than a screen.
bool isComponent(const QObject &object)
{
    const auto *item = qobject_cast<const QQuickItem *>(&object);
    return item != nullptr && isHostType(item->metaObject())
        && 2 * item->width() * item->height() < qreal(item->window()->width()) * item->window()->height();
}

// The object, or what it stands for.
const QObject *recognised(const QObject *view, const QQuickItem *root)
{
    while (isPart(*view)) {
        const QObject *around = owner(*view);
        if (around == nullptr || around == root)
            break;
        view = around;
    }
    for (const QObject *object = view; object != nullptr; object = owner(*object)) {
        if (isComponent(*object) || (isControl(*object) && !isContainer(*object)))
            return object;
        if (isContainer(*object))
            break;
    }
    return view;
}

} // namespace

const QObject *hitItem(const QQuickWindow &scene, const QPointF &position)
{
    const QQuickItem *root = scene.contentItem();
    if (root == nullptr)
        return nullptr;
    const QQuickItem *hit = topmostAt(*root, position, takesPresses);
    if (hit == nullptr || isContainer(*hit))
        hit = topmostAt(*root, position, [hit](const auto &item) { return &item == hit || isDrawn(item); });
    return hit != nullptr ? recognised(hit, root) : nullptr;
}

} // namespace wexel
