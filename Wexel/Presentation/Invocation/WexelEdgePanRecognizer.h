#pragma once

#include <functional>
#include <optional>

#include <QObject>
#include <QPointF>

#include "Helpers/WXLEdgeSwipeHandler.h"

class QEventPoint;
class QWindow;

namespace wexel {

/// Recognises a drag, of a finger, a pen or the mouse, that starts at the stage's right edge and goes inwards. It watches:
/// the host gets every event as without it. A drag that starts up or down, of a scroll bar for example, fails. Lives as
/// long as the application object. Main thread only.
class WexelEdgePanRecognizer final : public QObject, public PanGesture
{
public:
    /// \param action called at each change of the state or the translation
    WexelEdgePanRecognizer(QObject *application, std::function<void(PanGesture &)> action);

    [[nodiscard]] GestureState state() const override { return m_state; }
    [[nodiscard]] QPointF translation() const override { return m_translation; }
    void setEnabled(bool enabled) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void pressed(const QWindow *window, const QEventPoint &point);
    void moved(const QEventPoint &point);
    void ended();
    void setState(GestureState state);

    const std::function<void(PanGesture &)> m_action;
    GestureState m_state = GestureState::Possible;
    std::optional<int> m_point; ///< which of the fingers
    QPointF m_start; // global
    QPointF m_translation;
    bool m_isEnabled = true;
};

} // namespace wexel
