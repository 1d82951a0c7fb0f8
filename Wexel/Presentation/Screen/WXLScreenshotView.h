#pragma once

#include <functional>
#include <optional>

#include <QImage>
#include <QQuickItem>

namespace wexel {

class PictureItem;
class WXLOverlayView;

/// The canvas: shows the screenshot and lets the tester draw on it, or blur what is private. Every finished stroke and
/// every dab becomes part of the image, so that the image always is the whole annotated screenshot.
///
/// Takes the first finger, the pen or the mouse; further fingers are ignored until that one is up. Main thread only.
class WXLScreenshotView : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QRectF imageFrame READ imageFrame WRITE setImageFrame NOTIFY imageFrameChanged)

public:
    explicit WXLScreenshotView(QQuickItem *parent = nullptr);

    [[nodiscard]] PictureItem &screenshotImageView() const { return *m_screenshotImageView; }
    [[nodiscard]] WXLOverlayView &overlayView() const { return *m_overlayView; }
    /// The screenshot in the coordinates of the canvas.
    [[nodiscard]] const QRectF &imageFrame() const { return m_imageFrame; }
    void setImageFrame(const QRectF &frame);

    [[nodiscard]] bool isBlurringEnabled() const { return m_isBlurringEnabled; }
    void setBlurEnabled(bool enabled);
    std::function<void()> NeedScreenshotBlock; ///< blurring has ended: keep what is shown

    /// The image with the stroke in progress, as large as it is shown, in the screen's pixels.
    [[nodiscard]] QImage bakedImage() const;

Q_SIGNALS:
    void imageFrameChanged();

protected:
    void touchEvent(QTouchEvent *event) override;
    void touchUngrabEvent() override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;

private:
    enum class Touch { None, Draws, Blurs };

    // Points are in the coordinates of the canvas.
    void touchesBegan(const QPointF &point);
    void touchesMoved(const QPointF &point);
    void touchesEnded();
    void beginBlurring(const QPointF &point);
    void continueBlurring(const QPointF &point);
    void dab(const QPointF &pixel);
    [[nodiscard]] QPointF getCurrentPointFrom(const QPointF &point) const;

    PictureItem *m_screenshotImageView;
    WXLOverlayView *m_overlayView;
    QRectF m_imageFrame;
    bool m_isBlurringEnabled = false;
    Touch m_touch = Touch::None;
    std::optional<int> m_finger;
    QPointF m_previousTouchedPoint; ///< the last blurred one, in pixels of the image
    double m_screenshotImageViewRatioWidth
        = 0; ///< pixels of the image to points, taken when a finger comes down
    double m_screenshotImageViewRatioHeight = 0;
};

} // namespace wexel
