#include "Platform/WindowSystem.h"

#include <cstdlib>
#include <vector>

#include <QGuiApplication>
#include <QWindow>

#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace wexel {

namespace {

struct Free {
    void operator()(void *reply) const { std::free(reply); } // XCB allocates its answers with malloc
};
template <typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

xcb_connection_t *xConnection()
{
    auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    auto *x11 = application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t *connection, const QByteArray &name)
{
    const auto cookie
        = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const Answer<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(connection, cookie, nullptr));
    return answer ? answer->atom : xcb_atom_t(XCB_ATOM_NONE);
}

std::vector<xcb_rectangle_t> nativeRectangles(const QRegion &region, qreal ratio)
{
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect &part : region) {
        const QRect native
            = QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio).toAlignedRect();
        rectangles.push_back({static_cast<std::int16_t>(native.x()), static_cast<std::int16_t>(native.y()),
                              static_cast<std::uint16_t>(native.width()),
                              static_cast<std::uint16_t>(native.height())});
    }
    return rectangles;
}

} // namespace

void setInputRegion(QWindow &window, const QRegion &region)
{
    xcb_connection_t *connection = xConnection();
    if (!connection)
        return window.setMask(region); // Wayland: only presses are masked
    if (!xcb_get_extension_data(connection, &xcb_shape_id)->present)
        return;
    const auto rectangles = nativeRectangles(region, window.devicePixelRatio());
    xcb_shape_rectangles(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                         static_cast<xcb_window_t>(window.winId()), 0, 0,
                         static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    xcb_flush(connection);
}

bool isComposited()
{
    xcb_connection_t *connection = xConnection();
    if (!connection)
        return true;
    // Whoever blends the windows of the first screen owns this selection; Qt knows of one screen per display.
    const xcb_atom_t selection = atom(connection, "_NET_WM_CM_S0");
    const Answer<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace wexel
