#include "Presentation/Button/WXLFloatingButtonVC.h"

#include <utility>

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>

#include "Business/WXLAppRepository.h"
#include "Presentation/Button/WXLFloatingButtonView.h"
#include "Presentation/Helpers/SafeArea.h"
#include "Presentation/Helpers/Stage.h"

namespace wexel {

using View = WXLFloatingButtonView;

namespace {

ButtonLimits limitsOfStage()
{
    const Stage &stage = Stage::shared();
    const QMarginsF safe = safeAreaMargins(stage.window());
    return {QSizeF(stage.geometry().size()), safe.top(), safe.bottom()};
}

} // namespace

WXLFloatingButtonVC::WXLFloatingButtonVC(std::shared_ptr<WXLFloatingButtonVM> viewModel,
                                         WXLAppRepository &appRepository)
    : m_viewModel(std::move(viewModel))
    , m_appRepository(appRepository)
{
    setTitle(QGuiApplication::applicationDisplayName());
}

QString WXLFloatingButtonVC::accessibleName() const
{
    return QCoreApplication::translate("Wexel", "Report a bug");
}

QRectF WXLFloatingButtonVC::restingFrame() const
{
    const QPointF initial = View::initialPosition(limitsOfStage().stage.height());
    const auto x = m_appRepository.floatingButtonFrameX();
    const auto y = m_appRepository.floatingButtonFrameY();
    return {QPointF(x ? *x : initial.x(), y ? *y : initial.y()), View::size()};
}

// A stage that became smaller must not leave the button outside, and one that grows again brings it back.
void WXLFloatingButtonVC::stageChanged()
{
    if (!m_isLifted)
        setFrame(clampedFrame(restingFrame(), limitsOfStage()));
}

void WXLFloatingButtonVC::setFrame(const QRectF &frame)
{
    m_frame = frame;
    constexpr double reach = View::shadowReach;
    setContent(frame.adjusted(-reach, -reach, reach, reach),
               View::outline({QPointF(reach, reach), frame.size()}));
}

QRectF WXLFloatingButtonVC::buttonInWindow() const
{
    constexpr double reach = View::shadowReach;
    return {frameOffset() + QPointF(reach, reach), m_frame.size()};
}

void WXLFloatingButtonVC::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    View::paint(painter, buttonInWindow(), m_isLifted, isBlended());
}

void WXLFloatingButtonVC::mousePressEvent(QMouseEvent *event)
{
    m_isPressed = event->button() == Qt::LeftButton;
    m_isPanning = false;
    m_lastPosition = event->globalPosition();
}

void WXLFloatingButtonVC::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF translation = event->globalPosition() - m_lastPosition;
    const bool isFar = translation.manhattanLength() >= QGuiApplication::styleHints()->startDragDistance();
    if (!m_isPressed || (!m_isPanning && !isFar))
        return;
    panned(std::exchange(m_isPanning, true) ? Pan::Changed : Pan::Began, translation);
    m_lastPosition = event->globalPosition();
}

void WXLFloatingButtonVC::mouseReleaseEvent(QMouseEvent *event)
{
    if (!std::exchange(m_isPressed, false))
        return;
    if (m_isPanning)
        panned(Pan::Ended, event->globalPosition() - m_lastPosition);
    else if (View::outline(buttonInWindow()).contains(event->position()))
        wexelButtonTapped();
}

void WXLFloatingButtonVC::wexelButtonTapped() const
{
    m_viewModel->didPressWexelButton();
}

void WXLFloatingButtonVC::panned(Pan state, const QPointF &translation)
{
    if (state == Pan::Began) {
        m_frame = liftedFrame(m_frame);
        m_isLifted = true;
    }
    setFrame(clampedFrame(m_frame.translated(translation), limitsOfStage()));
    if (state == Pan::Ended)
        putDown();
}

void WXLFloatingButtonVC::putDown()
{
    m_isLifted = false;
    setFrame(putDownFrame(m_frame));
    m_appRepository.setFloatingButtonFrameX(static_cast<float>(m_frame.x()));
    m_appRepository.setFloatingButtonFrameY(static_cast<float>(m_frame.y()));
}

} // namespace wexel
