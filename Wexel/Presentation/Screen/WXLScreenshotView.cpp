#include "Presentation/Screen/WXLScreenshotView.h"

#include <utility>

#include <QPainter>
#include <QQuickWindow>

#include "Presentation/Helpers/PictureItem.h"
#include "Presentation/Screen/BlurDab.h"
#include "Presentation/Screen/WXLOverlayView.h"

namespace wexel {

WXLScreenshotView::WXLScreenshotView(QQuickItem *parent)
    : QQuickItem(parent)
    , m_screenshotImageView(new PictureItem(this))
    , m_overlayView(new WXLOverlayView(m_screenshotImageView))
{
    constexpr double cornerRadius = 2;
    m_screenshotImageView->setCornerRadius(cornerRadius);
    m_screenshotImageView->setClip(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptTouchEvents(true);
    setCursor(Qt::CrossCursor);
}

void WXLScreenshotView::setImageFrame(const QRectF &frame)
{
    if (frame == m_imageFrame)
        return;
    m_imageFrame = frame;
    m_screenshotImageView->setPosition(frame.topLeft());
    m_screenshotImageView->setSize(frame.size());
    m_overlayView->setSize(frame.size());
    Q_EMIT imageFrameChanged();
}

void WXLScreenshotView::setBlurEnabled(bool enabled)
{
    m_overlayView->setVisible(!enabled);
    m_isBlurringEnabled = enabled;
}

QImage WXLScreenshotView::bakedImage() const
{
    const double ratio = window() != nullptr ? window()->effectiveDevicePixelRatio() : 1;
    const QSize size = (m_imageFrame.size() * ratio).toSize();
    QImage image = m_screenshotImageView->image();
    if (size.isEmpty()) // no room to show it in
        return image;
    if (image.size() != size)
        image = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    m_overlayView->drawStroke(painter);
    painter.end();
    return image;
}

void WXLScreenshotView::touchesBegan(const QPointF &point)
{
    m_touch = m_isBlurringEnabled ? Touch::Blurs : Touch::Draws;
    if (m_isBlurringEnabled)
        beginBlurring(point);
    else
        m_overlayView->touchesBegan(point - m_imageFrame.topLeft());
}

void WXLScreenshotView::touchesMoved(const QPointF &point)
{
    if (m_touch == Touch::Blurs)
        continueBlurring(point);
    else
        m_overlayView->touchesMoved(point - m_imageFrame.topLeft());
}

// However it ends, also when the system takes the finger away or another one has changed the tool: a stroke is never left
// half-drawn.
void WXLScreenshotView::touchesEnded()
{
    m_finger.reset();
    const Touch touch = std::exchange(m_touch, Touch::None);
    if (touch == Touch::Draws)
        m_overlayView->touchesEnded();
    else if (touch == Touch::Blurs && NeedScreenshotBlock)
        NeedScreenshotBlock();
}

void WXLScreenshotView::beginBlurring(const QPointF &point)
{
    const QImage &image = m_screenshotImageView->image();
    m_screenshotImageViewRatioWidth = image.width() / m_imageFrame.width();
    m_screenshotImageViewRatioHeight = image.height() / m_imageFrame.height();
    m_previousTouchedPoint = getCurrentPointFrom(point);
    if (!isPointOutsideOfImageView(m_previousTouchedPoint))
        dab(m_previousTouchedPoint);
}

void WXLScreenshotView::continueBlurring(const QPointF &point)
{
    const QPointF pixel = getCurrentPointFrom(point);
    if (isPointOutsideOfImageView(pixel))
        return;
    for (const QPointF &next : dabsTo(m_previousTouchedPoint, pixel))
        dab(next);
    m_previousTouchedPoint = pixel;
}

void WXLScreenshotView::dab(const QPointF &pixel)
{
    m_screenshotImageView->changeImage(
        [&pixel](QImage &image) { return blurCircleInImageViewAtPoint(image, pixel); });
}

QPointF WXLScreenshotView::getCurrentPointFrom(const QPointF &point) const
{
    const QPointF inside = point - m_imageFrame.topLeft();
    if (m_imageFrame.isEmpty() || !QRectF(QPointF(), m_imageFrame.size()).contains(inside))
        return {outsideOfImageViewPoint, outsideOfImageViewPoint};
    return {inside.x() * m_screenshotImageViewRatioWidth, inside.y() * m_screenshotImageViewRatioHeight};
}

void WXLScreenshotView::touchEvent(QTouchEvent *event)
{
    if (event->type() == QEvent::TouchCancel) // comes without an ungrab
        return touchesEnded();
    for (const QEventPoint &point : event->points()) {
        if (point.state() == QEventPoint::Pressed && m_touch == Touch::None) {
            m_finger = point.id();
            touchesBegan(point.position());
        } else if (point.id() != m_finger) {
            continue;
        } else if (point.state() == QEventPoint::Updated) {
            touchesMoved(point.position());
        } else if (point.state() == QEventPoint::Released) {
            touchesEnded();
        }
    }
}

void WXLScreenshotView::touchUngrabEvent()
{
    touchesEnded();
}

void WXLScreenshotView::mousePressEvent(QMouseEvent *event)
{
    if (m_touch == Touch::None)
        touchesBegan(event->position());
}

void WXLScreenshotView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_touch != Touch::None && !m_finger)
        touchesMoved(event->position());
}

void WXLScreenshotView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_finger && event->button() == Qt::LeftButton)
        touchesEnded();
}

void WXLScreenshotView::mouseUngrabEvent()
{
    if (!m_finger)
        touchesEnded();
}

} // namespace wexel
