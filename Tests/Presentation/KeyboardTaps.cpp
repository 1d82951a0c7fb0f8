#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethod>

#include "Presentation/QuickHost.h"
#include "Presentation/Taps.h"

namespace {

QQuickItem *keyboard()
{
    for (QWindow *window : QGuiApplication::allWindows()) {
        auto *scene = qobject_cast<QQuickWindow *>(window);
        const auto items = scene != nullptr ? scene->contentItem()->childItems() : QList<QQuickItem *>();
        if (window->inherits("QtVirtualKeyboard::InputView") && !items.isEmpty())
            return items.first();
    }
    return nullptr;
}

} // namespace

TEST(KeyboardTapsTest, theKeyboardIsTappedAsAWholeAlthoughItIsNeverActive)
{
    QuickHost host;
    host.show("ApplicationWindow { width: 400; height: 400; visible: true; TextField { focus: true } }");
    QGuiApplication::inputMethod()->show();
    ASSERT_TRUE(waitUntil([] { return keyboard() != nullptr; }));
    QQuickWindow *window = keyboard()->window();
    EXPECT_TRUE(window->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
    Taps taps;
    for (const QPoint &key : {QPoint(60, 80), QPoint(300, 130)})
        EXPECT_EQ(taps.classAt(window, QPoint(key.x(), window->height() - key.y())), "InputPanel");
}

// The engine of the keyboard, which stays with the application, holds objects where LeakSanitizer does not look.
extern "C" Q_DECL_EXPORT const char *__lsan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "detect_leaks=0";
}

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_IM_MODULE", "qtvirtualkeyboard");
    new QApplication(argc,
                     argv); // stays: Qt destroys its keyboard later than the cursors that this still needs
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
