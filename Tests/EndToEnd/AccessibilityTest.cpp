// The flow by role and name only, as someone goes through it who does not see it.

#include <algorithm>
#include <utility>

#include <gtest/gtest.h>

#include <QJsonObject>

#include "AssistiveTechnology.h"
#include "DemoTest.h"
#include "Support/Wait.h"

using namespace wexel;

namespace {

struct AccessibilityTest : DemoTest {
    AssistiveTechnology reader;
    QString heading; ///< of the screen that is used

    AccessibilityTest()
    {
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), reader.sessionBus());
        environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    }
    [[nodiscard]] QList<Accessible> shown() const { return reader.shownBeside(heading); }
    [[nodiscard]] static bool has(const QList<Accessible> &screen, const char *role, const QString &name)
    {
        return std::any_of(screen.begin(), screen.end(),
                           [&](const Accessible &one) { return one.is(role, name); });
    }
    [[nodiscard]] bool isShown(const char *role, const char *name) const
    {
        return has(shown(), role, QLatin1String(name));
    }

    /// Waits for that screen, and for the one before it to be gone.
    void arriveAt(const char *title)
    {
        const QString last = std::exchange(heading, QLatin1String(title));
        EXPECT_TRUE(spinUntil([&] {
            const auto screen = shown();
            return !screen.isEmpty() && (last.isEmpty() || !has(screen, "heading", last));
        })) << title;
        expectAllToBeNamed();
    }
    void expectAllToBeNamed() const
    {
        const QStringList meaningless{QStringLiteral("filler"), QStringLiteral("unknown"),
                                      QStringLiteral("panel"), QStringLiteral("invalid")};
        for (const Accessible &one : shown()) {
            if (one.is(Accessible::State::Focusable)) {
                EXPECT_FALSE(one.name().isEmpty()) << qPrintable(one.role());
                EXPECT_FALSE(meaningless.contains(one.role())) << qPrintable(one.name());
            }
        }
    }
    /// Waits for it.
    [[nodiscard]] Accessible find(const char *role, const char *name) const
    {
        Accessible found(QDBusConnection(QString()), {}, {});
        EXPECT_TRUE(spinUntil([&] {
            const auto screen = shown();
            const auto one = std::find_if(screen.begin(), screen.end(), [&](const Accessible &candidate) {
                return candidate.is(role, QLatin1String(name));
            });
            if (one != screen.end())
                found = *one;
            return one != screen.end();
        })) << name;
        return found;
    }
    void press(const char *name) const { EXPECT_TRUE(find("push button", name).press()) << name; }
    [[nodiscard]] bool isChecked(const char *name) const
    {
        return spinUntil([&] { return find("push button", name).is(Accessible::State::Checked); });
    }
    void write(const char *field, const QString &text) const
    {
        const Accessible found = find("text", field);
        EXPECT_TRUE(found.setText(text));
        EXPECT_EQ(found.text(), text);
    }
    void expectFocusOn(const QString &name) const
    {
        EXPECT_TRUE(spinUntil([&] {
            const auto screen = shown();
            return std::any_of(screen.begin(), screen.end(), [&](const Accessible &one) {
                return one.is(Accessible::State::Focused) && one.name() == name;
            });
        })) << qPrintable(name);
    }
    /// Expects Tab to lead to these, one after another.
    void tabThrough(const QStringList &names) const
    {
        for (const QString &name : names) {
            desktop.xdotool(QStringLiteral("key Tab"));
            expectFocusOn(name);
        }
    }
};

TEST_P(AccessibilityTest, TheFlowCanBeGoneThroughByRoleAndName)
{
    open();
    tapButton(); // which is no part of what the keyboard or assistive technology reaches
    ASSERT_TRUE(flowOpens());

    arriveAt("Mark the bug");
    EXPECT_TRUE(isChecked("DRAW"));
    tabThrough({QStringLiteral("Close"), QStringLiteral("Next"), QStringLiteral("CLEAR"),
                QStringLiteral("BLUR"), QStringLiteral("DRAW"), QStringLiteral("PALETTE")});
    press("PALETTE");
    press("Colour 3");
    press("PALETTE");
    EXPECT_TRUE(isChecked("Colour 3"));
    expectAllToBeNamed();
    press("Close palette");
    press("BLUR");
    EXPECT_TRUE(isChecked("BLUR"));
    EXPECT_FALSE(find("push button", "DRAW").is(Accessible::State::Checked));
    press("Next");

    arriveAt("Wrap-up");
    expectFocusOn(QStringLiteral("Describe the bug and tap Submit"));
    tabThrough({QStringLiteral("Your email"), QStringLiteral("Remove screenshot"),
                QStringLiteral("Inspect bug"), QStringLiteral("Read here"), QStringLiteral("Back"),
                QStringLiteral("Submit")});
    const QString description = QStringLiteral("The cup is upside down");
    const QString email = QStringLiteral("ada@example.com");
    write("Describe the bug and tap Submit", description);
    write("Your email", email);
    (void)find("link", "Read here");
    (void)find("graphic", "Screenshot");
    press("Inspect bug");

    arriveAt("Inspect bug");
    (void)find("label", "APP VERSION: ");
    tabThrough({QStringLiteral("Back"), QStringLiteral("Inspect bug")});
    press("Back");

    arriveAt("Wrap-up");
    expectFocusOn(QStringLiteral("Submit")); // which had it before; while the screens still move, nothing has
    EXPECT_EQ(find("text", "Describe the bug and tap Submit").text(), description);
    press("Submit");
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    EXPECT_FALSE(receivedScreenshot(0).isNull());
    const QJsonObject report = receiver.reports().at(0).toObject().value(u"report").toObject();
    EXPECT_EQ(report.value(u"description").toString(), description);
    EXPECT_EQ(report.value(u"tester_email").toString(), email);
    quit();
}

TEST_P(AccessibilityTest, TheKeyboardGoesOnWhenTheScreenshotIsRemoved)
{
    open();
    tapButton();
    ASSERT_TRUE(flowOpens());
    arriveAt("Mark the bug");
    press("Next");
    arriveAt("Wrap-up");
    expectFocusOn(QStringLiteral("Describe the bug and tap Submit"));
    tabThrough({QStringLiteral("Your email"), QStringLiteral("Remove screenshot")});
    press("Remove screenshot");
    expectFocusOn(QStringLiteral("Inspect bug"));
    EXPECT_TRUE(spinUntil([this] { return !isShown("graphic", "Screenshot"); }));
    EXPECT_FALSE(isShown("push button", "Remove screenshot"));
    press("Submit");
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    ASSERT_TRUE(spinUntil([this] { return receiver.reports().size() == 1; }));
    const QJsonObject received = receiver.reports().at(0).toObject();
    EXPECT_TRUE(received.value(u"screenshot").isNull());
    EXPECT_FALSE(received.value(u"report").toObject().contains(u"screenshot_url"));
    quit();
}

TEST_P(AccessibilityTest, ThePopupOfAnArchivedApplicationTellsWhyAndLeadsOut)
{
    openArchived();
    tapButton();
    arriveAt("Reporting disabled");
    (void)find("dialog", "Reporting disabled");
    (void)find("label", "App's administrator has disabled bug reporting for now Try restarting the app");
    expectFocusOn(QStringLiteral("Dismiss"));
    press("Next"); // of the editor below
    EXPECT_FALSE(isShown("push button", "Submit"));
    tabThrough({QStringLiteral("Dismiss")});
    press("Dismiss");
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    quit();
}

INSTANTIATE_TEST_SUITE_P(Demos, AccessibilityTest,
                         testing::Values(std::tuple(cafe(), false), std::tuple(editor(), false)),
                         DemoTest::nameOf);

} // namespace
