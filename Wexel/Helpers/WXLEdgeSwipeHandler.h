#pragma once

#include <functional>

#include <QPointF>

namespace wexel {

/// How far a pan has to go from the edge until it counts, in points; strictly more than that.
extern const double HoriziontalSwipeTranslation;

/// The life of a drag. Began, changed any number of times, then ended or cancelled; or failed before it began.
enum class GestureState { Possible, Began, Changed, Ended, Cancelled, Failed };

/// A drag that is being watched.
class PanGesture
{
public:
    virtual ~PanGesture() = default;
    [[nodiscard]] virtual GestureState state() const = 0;
    /// From where it began, in points.
    [[nodiscard]] virtual QPointF translation() const = 0;
    /// False cancels the drag under way.
    virtual void setEnabled(bool enabled) = 0;
};

/// Decides when a pan from the screen's edge has gone far enough. Main thread only.
class WXLEdgeSwipeHandler
{
public:
    /// Called once for each swipe.
    std::function<void()> edgeSwipHandlerShouldInvokeStart;

    /// Called at each change of the gesture.
    void swiped(PanGesture &gesture) const;

private:
    void handleEdgeSwipeChange(PanGesture &gesture) const;
};

} // namespace wexel
