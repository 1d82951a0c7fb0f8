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
        QObject::connect(application, &QGuiApplication::primaryScreenChanged, &m_screenContext,
                         [this] { follow(); });
        follow();
    }
}

QSize MainScreen::nativeSize() const
{
    const QScreen *screen = primaryScreen();
    if (screen == nullptr)
        return {0, 0};
    const QSizeF size = QSizeF(screen->size()) * screen->devicePixelRatio();
    return {static_cast<int>(size.width()), static_cast<int>(size.height())};
}

void MainScreen::follow()
{
    if (const QScreen *screen = primaryScreen()) {
        QObject::connect(screen, &QScreen::orientationChanged, &m_screenContext, [this] { update(); });
        QObject::connect(screen, &QScreen::primaryOrientationChanged, &m_screenContext, [this] { update(); });
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
