#pragma once

#include <memory>
#include <optional>
#include <tuple>

#include <gtest/gtest.h>

#include <QColor>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include "Desktop.h"
#include "InstalledHost.h"
#include "Support/ReceiverProcess.h"

namespace wexel {

/// One of the demo applications, and places in its window, which are known from looking at it.
struct Demo {
    const char *name;
    QString program;
    QString propertyList; ///< with its credentials
    QPoint spot; ///< pressed, it prints the answer
    QByteArray answer;
    QPoint nowhere; ///< pressed, no text cursor blinks
    QSize smaller; ///< its window can be that small
};

[[nodiscard]] Demo cafe();
[[nodiscard]] Demo editor();

/// A tester at a desktop, with or without a compositor, who uses a demo and marks its bugs. The demo is the installed one,
/// its receiver the real one.
struct DemoTest : testing::TestWithParam<std::tuple<Demo, bool>> {
    enum class Tool { Clear, Blur, Draw, Palette };
    enum class Screen { Editor, Compose, Inspect };

    QTemporaryDir folder;
    ReceiverProcess receiver;
    Desktop desktop;
    InstalledHost installation;
    QProcessEnvironment environment; ///< what else the demo starts with
    quint32 mainWindow = 0; ///< the demo's

    DemoTest();
    /// Tells what a failed test left on the screen.
    void TearDown() override;
    [[nodiscard]] static std::string nameOf(const testing::TestParamInfo<ParamType> &info);
    [[nodiscard]] static const Demo &demo() { return std::get<0>(GetParam()); }
    [[nodiscard]] static bool isEditor() { return !demo().program.endsWith(u"cafe"); }

    /// Starts the demo, until it can be used and knows its receiver.
    void open();
    /// The same, with a receiver that takes no reports of it.
    void openArchived();
    /// Ends it in the middle of whatever it does.
    void kill();
    /// Closes its window as its user does, and expects it to leave in good order.
    void quit();
    /// Presses its spot. True once it has printed the answer.
    [[nodiscard]] bool answers() const;

    /// The client area of the demo's window, on the screen.
    [[nodiscard]] QRect stage() const;
    [[nodiscard]] QPoint onScreen(const QPoint &onStage) const { return stage().topLeft() + onStage; }
    [[nodiscard]] std::optional<Desktop::Window> windowTitled(const QString &title) const;
    [[nodiscard]] std::optional<Desktop::Window> buttonWindow() const;
    /// The visible pill on the stage, without the shadow's margin; null while the button is hidden.
    [[nodiscard]] QRect button() const;
    void tapButton() const { desktop.click(onScreen(button().center())); }
    /// Drags the button so that its upper left corner comes to that place on the stage.
    void dropButtonAt(const QPoint &place) const;

    /// A window of the demo's exactly over the stage.
    [[nodiscard]] std::optional<Desktop::Window> flow() const;
    /// True once the flow is there, on top, has the keyboard and shows its blue.
    [[nodiscard]] bool flowOpens() const;
    /// The same where a popup covers it. Its button, null when it does not open.
    [[nodiscard]] QPoint popupOpens() const;
    /// True once the flow is gone and that window has the keyboard again.
    [[nodiscard]] bool flowGivesBackTo(quint32 window) const;
    void tapClose() const { desktop.click(onScreen({25, 28})); }
    void tapBack() const { tapClose(); } ///< is in the same place
    /// Expects that screen of the flow to be there soon, in its place.
    void arriveAt(Screen screen) const;
    /// Goes on to the second screen and types there.
    void describe(const char *words) const;
    void tapSubmit() const { tapNext(); } ///< is in the same place
    void tapNext() const { desktop.click(onScreen({stage().width() - 32, 28})); }
    /// True once the tool shows that colour.
    [[nodiscard]] bool isSelected(Tool tool, const QColor &color) const;
    void select(Tool tool, const QColor &color) const;
    void chooseColor(const QColor &color) const;
    /// Where the flow shows the picture of the application.
    [[nodiscard]] QRect imageOnScreen() const;
    /// The button that removes the attached screenshot; none while nothing is attached.
    [[nodiscard]] std::optional<QPoint> removeButton() const;
    /// The banners over the lower edge of the stage.
    [[nodiscard]] QList<Desktop::Window> banners() const;
    /// The screenshot of the report of that number, counted from 0, once it has come; no other may have come.
    [[nodiscard]] QImage receivedScreenshot(int number) const;

private:
    void startMenu();
    [[nodiscard]] QColor colorAt(const QPoint &onStage) const;
    [[nodiscard]] bool flowIsOnTop() const;
    [[nodiscard]] bool shows(Screen screen) const;
    [[nodiscard]] QRect toolOnScreen(Tool tool) const;
    /// The middle of what has that colour there.
    [[nodiscard]] std::optional<QPoint> find(const QColor &color, const QRect &area) const;

    std::unique_ptr<ChildProcess> m_menu;
    QStringList m_arguments;
    std::unique_ptr<HostProcess> m_host;
};

/// As GoogleTest prints the parameter.
void PrintTo(const Demo &demo, std::ostream *stream);

} // namespace wexel
