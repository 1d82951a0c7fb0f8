#include "Presentation/Banner/WXLMessageBannerVC.h"

#include <utility>

#include <QGuiApplication>
#include <QPainter>

#include "Presentation/Banner/WXLBannerView.h"
#include "Presentation/Helpers/SafeArea.h"
#include "Presentation/Helpers/Stage.h"

namespace wexel {

using namespace std::chrono_literals;
using View = WXLBannerView;

namespace {

double cardHeight()
{
    const Stage &stage = Stage::shared();
    return View::bannerViewHeight(safeAreaMargins(stage.window()).bottom(), stage.geometry().width());
}

/// Time across, way up, from (0, 0) to (1, 1).
QEasingCurve bezier(const QPointF &first, const QPointF &second)
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(first, second, {1, 1});
    return curve;
}

} // namespace

WXLMessageBannerVC::WXLMessageBannerVC(Scheduler &scheduler, std::function<void(WXLMessageBannerVC *)> onGone)
    : m_scheduler(scheduler)
    , m_onGone(std::move(onGone))
{
    setTitle(QGuiApplication::applicationDisplayName());
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_shown = value.toDouble();
        layOut();
    });
}

WXLMessageBannerVC::~WXLMessageBannerVC()
{
    if (m_timer)
        m_timer->invalidate();
}

QString WXLMessageBannerVC::accessibleName() const
{
    return View::getMessage();
}

void WXLMessageBannerVC::show()
{
    after(1s, &WXLMessageBannerVC::slideIn);
}

void WXLMessageBannerVC::slideIn()
{
    layOut();
    present();
    slide(0, 1, bezier({0, 0}, {0.58, 1}), &WXLMessageBannerVC::dismissBanner);
}

void WXLMessageBannerVC::dismissBanner()
{
    after(2s, &WXLMessageBannerVC::slideOut);
}

void WXLMessageBannerVC::slideOut()
{
    slide(1, 0, bezier({0.42, 0}, {1, 1}), &WXLMessageBannerVC::end);
}

void WXLMessageBannerVC::end()
{
    hide();
    if (const auto gone = std::exchange(m_onGone, {}))
        gone(this);
}

void WXLMessageBannerVC::after(std::chrono::milliseconds delay, void (WXLMessageBannerVC::*step)())
{
    m_timer = m_scheduler.schedule(delay, [this, step] { (this->*step)(); });
}

void WXLMessageBannerVC::slide(double from, double to, const QEasingCurve &curve,
                               void (WXLMessageBannerVC::*next)())
{
    constexpr int milliseconds = 200;
    m_animation.setStartValue(from);
    m_animation.setEndValue(to);
    m_animation.setDuration(milliseconds);
    m_animation.setEasingCurve(curve);
    connect(&m_animation, &QVariantAnimation::finished, this, next, Qt::SingleShotConnection);
    m_animation.start();
}

// Only what is above the edge of the stage: another application's window may lie below it.
void WXLMessageBannerVC::layOut()
{
    const QSizeF stage = Stage::shared().geometry().size();
    const double visible = cardHeight() * m_shown;
    const double reach = View::shadowReach;
    QPainterPath shape;
    shape.addRect(0, reach, stage.width(), visible);
    shape &= View::outline({0, reach, stage.width(), cardHeight() + View::cornerRadius});
    setContent({0, stage.height() - visible - reach, stage.width(), visible + reach}, shape);
}

void WXLMessageBannerVC::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    View::paint(painter,
                QRectF(0, frameOffset().y() + View::shadowReach, width(), cardHeight() + View::cornerRadius),
                isBlended());
}

} // namespace wexel
