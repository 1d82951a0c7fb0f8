#include "Presentation/Button/ButtonDrag.h"

namespace wexel {

namespace {
constexpr double lift = 0.03;
} // namespace

QRectF liftedFrame(const QRectF &frame)
{
    return {frame.x() - lift * frame.height(), frame.y() - lift * frame.width(), frame.width() * (1 + lift),
            frame.height() * (1 + lift)};
}

QRectF putDownFrame(const QRectF &frame)
{
    return {frame.x() + lift * frame.height(), frame.y() + lift * frame.width(), frame.width() / (1 + lift),
            frame.height() / (1 + lift)};
}

QRectF clampedFrame(const QRectF &frame, const ButtonLimits &limits)
{
    QRectF result = frame;
    if (frame.x() < 0 || frame.right() > limits.stage.width())
        result.moveLeft(frame.x() >= 0 ? limits.stage.width() - frame.width() : 0);
    const double bottom = limits.stage.height() - limits.bottom;
    if (frame.y() < limits.top || frame.bottom() > bottom)
        result.moveTop(frame.y() >= limits.top ? bottom - frame.height() : limits.top);
    return result;
}

} // namespace wexel
