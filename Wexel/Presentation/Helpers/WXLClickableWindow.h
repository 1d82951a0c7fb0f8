#pragma once

#include <QPainterPath>
#include <QRasterWindow>

namespace wexel {

/// A window of the library's over the stage that takes presses only where it says so; all others reach the host's windows
/// below. It never takes the keyboard from the host, never keeps it alive, and is on screen exactly while the stage is.
///
/// It is no larger than what it shows. Where nothing blends its transparent margin with what is below, it is cut out
/// along its clickable shape. Main thread only.
class WXLClickableWindow : public QRasterWindow
{
    Q_OBJECT

public:
    WXLClickableWindow();

    /// Places the window: `frame` is what can be seen of it, in the coordinates of the stage, `shape` what of it can be
    /// clicked, in those of the frame.
    void setContent(const QRectF &frame, const QPainterPath &shape);
    /// From now on it is shown whenever the stage is.
    void present();
    [[nodiscard]] bool isBlended() const { return m_isBlended; }
    /// Where in the window, which lies on whole points, the frame begins.
    [[nodiscard]] QPointF frameOffset() const;

    /// What the window is called, or what its message says.
    [[nodiscard]] virtual QString accessibleName() const = 0;
    /// Whether it is a button, not a message.
    [[nodiscard]] virtual bool canBePressed() const { return false; }
    /// What pressing the button does.
    virtual void press() { }
    [[nodiscard]] QAccessibleInterface *accessibleRoot() const override;

protected:
    bool event(QEvent *event) override;
    /// Called when the stage has changed, before the window follows it.
    virtual void stageChanged() { }

private:
    void followStage();
    void tellThatItCame();
    void place();
    void cutOut();

    QRectF m_frame;
    QPainterPath m_shape;
    bool m_isPresented = false;
    bool m_isBlended = true;
};

} // namespace wexel
