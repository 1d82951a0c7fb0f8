#pragma once

#include <memory>

#include "Presentation/Button/ButtonDrag.h"
#include "Presentation/Button/WXLFloatingButtonVM.h"
#include "Presentation/Helpers/WXLClickableWindow.h"

namespace wexel {

class WXLAppRepository;

/// The floating button, in a window of its own: a tap invokes, a drag moves it and keeps where it was dropped.
///
/// Resting -> pressed -> resting again (a tap), or lifted by the first movement -> dragged -> put down. A drag that is
/// broken off leaves it lifted, and its place unsaved. Main thread only.
class WXLFloatingButtonVC final : public WXLClickableWindow
{
public:
    /// \param appRepository outlives the button
    WXLFloatingButtonVC(std::shared_ptr<WXLFloatingButtonVM> viewModel, WXLAppRepository &appRepository);

    /// The button on the stage, without its shadow.
    [[nodiscard]] const QRectF &frame() const { return m_frame; }

    [[nodiscard]] QString accessibleName() const override;
    [[nodiscard]] bool canBePressed() const override { return true; }
    void press() override { wexelButtonTapped(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void stageChanged() override;

private:
    enum class Pan { Began, Changed, Ended };

    void wexelButtonTapped() const;
    void panned(Pan state, const QPointF &translation);
    void putDown();
    void setFrame(const QRectF &frame);
    [[nodiscard]] QRectF restingFrame() const;
    [[nodiscard]] QRectF buttonInWindow() const;

    std::shared_ptr<WXLFloatingButtonVM> m_viewModel;
    WXLAppRepository &m_appRepository;
    QRectF m_frame;
    QPointF m_lastPosition; // of the pointer, global
    bool m_isPressed = false;
    bool m_isPanning = false;
    bool m_isLifted = false;
};

} // namespace wexel
