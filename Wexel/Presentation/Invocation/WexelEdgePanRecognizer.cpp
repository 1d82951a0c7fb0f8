#include "Presentation/Invocation/WexelEdgePanRecognizer.h"

#include <cmath>
#include <utility>

#include <QGuiApplication>
#include <QPointerEvent>
#include <QStyleHints>

#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/PointerEvents.h"
#include "Presentation/Helpers/Stage.h"

namespace wexel {

namespace {

constexpr int edgeWidth = 20; // points in which a finger finds the edge

bool isAtRightEdge(const QPointF &position)
{
    QRect edge = Stage::shared().geometry();
    edge.setLeft(edge.right() - edgeWidth + 1);
    return QRectF(edge).contains(position);
}

} // namespace

WexelEdgePanRecognizer::WexelEdgePanRecognizer(QObject *application, std::function<void(PanGesture &)> action)
    : QObject(application)
    , m_action(std::move(action))
{
    application->installEventFilter(this);
}

void WexelEdgePanRecognizer::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
    if (!enabled && m_point)
        setState(GestureState::Cancelled);
}

// Every event of every object of the main thread comes through here.
bool WexelEdgePanRecognizer::eventFilter(QObject *watched, QEvent *event)
{
    if (!event->isPointerEvent() || !watched->isWindowType() || isMadeOfAnother(*event))
        return false;
    if (event->type() == QEvent::TouchCancel && m_point) {
        setState(GestureState::Cancelled);
        return false;
    }
    if (event->type() == QEvent::MouseButtonPress
        && static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton)
        return false;
    for (const QEventPoint &point : static_cast<const QPointerEvent *>(event)->points()) {
        if (point.state() == QEventPoint::Pressed)
            pressed(static_cast<QWindow *>(watched), point);
        else if (m_point == point.id() && point.state() == QEventPoint::Updated)
            moved(point);
        else if (m_point == point.id() && point.state() == QEventPoint::Released)
            ended();
    }
    return false;
}

void WexelEdgePanRecognizer::pressed(const QWindow *window, const QEventPoint &point)
{
    if (m_point || !m_isEnabled || isOwn(window) || !isAtRightEdge(point.globalPosition()))
        return;
    m_point = point.id();
    m_start = point.globalPosition();
    m_translation = {};
    m_state = GestureState::Possible;
}

void WexelEdgePanRecognizer::moved(const QEventPoint &point)
{
    m_translation = point.globalPosition() - m_start;
    if (m_state == GestureState::Possible) {
        if (m_translation.manhattanLength() < QGuiApplication::styleHints()->startDragDistance())
            return;
        const bool isInwards = -m_translation.x() > std::abs(m_translation.y());
        setState(isInwards ? GestureState::Began : GestureState::Failed);
        if (!isInwards)
            return;
    }
    setState(
        GestureState::Changed); // with the beginning, too: a busy host sees a quick swipe as one movement
}

void WexelEdgePanRecognizer::ended()
{
    setState(m_state == GestureState::Possible ? GestureState::Failed : GestureState::Ended);
}

void WexelEdgePanRecognizer::setState(GestureState state)
{
    m_state = state;
    if (state != GestureState::Began && state != GestureState::Changed)
        m_point.reset();
    m_action(*this);
}

} // namespace wexel
