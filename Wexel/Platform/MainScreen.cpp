#include "Platform/MainScreen.h"

#include <QGuiApplication>
#include <QScreen>

namespace wexel {

namespace {

QScreen *primaryScreen()
{
    return qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr
        ? QGuiApplication::primaryScreen()
        : nullptr;
}

// Qt has rounded the native length divided by the scale, which two lengths can share at a fractional scale. Of those
// the even one is the screen's: 614 at 1.25 is 768, not 767.
int nativeLength(int length, qreal scale)
{
    const int even = 2 * qRound(length * scale / 2);
    return qRound(even * (1 / scale)) == length ? even : qRound(length * scale);
}

int orientationCode(Qt::ScreenOrientation orientation)
{
    switch (orientation) {
    case Qt::PortraitOrientation:
        return 1;
    case Qt::InvertedPortraitOrientation:
        return 2;
    case Qt::LandscapeOrientation:
        return 3;
    case Qt::InvertedLandscapeOrientation:
        return 4;
    case Qt::PrimaryOrientation:
        break;
    }
    return 0;
}

} // namespace

MainScreen::MainScreen()
{
    if (auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        QObject::connect(application, &QGuiApplication::primaryScreenChanged, &m_context,
                         [this] { follow(); });
        follow();
    }
}

QSize MainScreen::nativeSize() const
{
    const QScreen *screen = primaryScreen();
    if (screen == nullptr)
        return {0, 0};
    return {nativeLength(screen->size().width(), screen->devicePixelRatio()),
            nativeLength(screen->size().height(), screen->devicePixelRatio())};
}

void MainScreen::follow()
{
    m_followed = std::make_unique<QObject>();
    if (const QScreen *screen = primaryScreen()) {
        QObject::connect(screen, &QScreen::orientationChanged, m_followed.get(), [this] { update(); });
        QObject::connect(screen, &QScreen::primaryOrientationChanged, m_followed.get(), [this] { update(); });
    }
    update();
}

void MainScreen::update()
{
    const QScreen *screen = primaryScreen();
    if (screen == nullptr)
        m_orientation = 0;
    else if (screen->orientation() == Qt::PrimaryOrientation)
        m_orientation = orientationCode(screen->primaryOrientation());
    else
        m_orientation = orientationCode(screen->orientation());
}

} // namespace wexel
