#include "DemoTest.h"

#include <algorithm>
#include <iostream>

#include <QJsonObject>

#include "Platform/PropertyList.h"
#include "Support/Wait.h"

namespace wexel {

namespace {

constexpr int shadowReach = 26; // of the button's window beyond the button

QVariantMap keysOf(const Demo &demo)
{
    QString error;
    return readPropertyList(demo.propertyList, error).value_or(QVariantMap());
}

QStringList clientOf(const Demo &demo)
{
    const QVariantMap keys = keysOf(demo).value(QStringLiteral("Wexel")).toMap();
    const auto key = [&keys](const char *name) { return keys.value(QLatin1String(name)).toString(); };
    return {QStringLiteral("--client"), key("APIClientID") + u':' + key("APIClientSecret")};
}

} // namespace

Demo cafe()
{
    return {"Cafe",     QStringLiteral(DEMO_CAFE), QStringLiteral(DEMO_CAFE_PROPERTY_LIST),
            {110, 230}, "Page: Flat white",        {195, 60},
            {370, 600}};
}

Demo editor()
{
    return {"Editor",  QStringLiteral(DEMO_EDITOR), QStringLiteral(DEMO_EDITOR_PROPERTY_LIST),
            {48, 97},  "Note: River walk",          {900, 620},
            {560, 400}};
}

void PrintTo(const Demo &demo, std::ostream *stream)
{
    *stream << demo.name;
}

std::string DemoTest::nameOf(const testing::TestParamInfo<ParamType> &info)
{
    return std::get<0>(info.param).name + std::string(std::get<1>(info.param) ? "Composited" : "");
}

DemoTest::DemoTest()
    : receiver(folder.filePath(QStringLiteral("data")), clientOf(demo()))
    , desktop(std::get<1>(GetParam()))
    , installation(receiver.url(), demo().program)
{
    if (!isEditor())
        startMenu();
}

void DemoTest::TearDown()
{
    if (!HasFailure())
        return;
    std::cout << "Active: " << desktop.activeWindow() << ", main: " << mainWindow << '\n';
    for (const auto &[id, owner, title, geometry] : desktop.windows())
        std::cout << id << " of " << owner << " '" << qPrintable(title) << "' " << geometry.width() << 'x'
                  << geometry.height() << '+' << geometry.x() << '+' << geometry.y() << '\n';
    if (m_host)
        std::cout << m_host->output().constData() << '\n';
}

void DemoTest::startMenu()
{
    m_menu = std::make_unique<ChildProcess>(QStringLiteral(CAFE_MENU_SERVICE),
                                            QStringList{QStringLiteral("--listen=127.0.0.1:0")});
    const QByteArray url = m_menu->readLine().replace("Listening on ", "").replace("127.0.0.1", "localhost");
    m_arguments = {QStringLiteral("--menu"), QString::fromUtf8(url)};
}

void DemoTest::open()
{
    environment.insert(QStringLiteral("DISPLAY"), desktop.display());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       QStringLiteral("detect_leaks=0")); // of Qt's style and theme plugins
    m_host = installation.run(m_arguments, environment);
    EXPECT_TRUE(m_host->waitForOutput("Authentication succeeded")) << m_host->output().constData();
    EXPECT_TRUE(isEditor() || m_host->waitForOutput("Menu: ready"));
    mainWindow = 0;
    EXPECT_TRUE(spinUntil([this] {
        mainWindow = desktop.activeWindow();
        // The window manager may still name one of a demo that was killed.
        const QList<Desktop::Window> windows = desktop.windows();
        return std::any_of(windows.begin(), windows.end(),
                           [this](const Desktop::Window &window) { return window.id == mainWindow; })
            && !button().isNull();
    })) << m_host->output().constData();
    desktop.settle(stage());
}

void DemoTest::openArchived()
{
    receiver.command(QStringLiteral("archive"),
                     keysOf(demo()).value(QStringLiteral("CFBundleIdentifier")).toString());
    open();
    EXPECT_TRUE(m_host->waitForOutput("WXLWexel: Application is archived."));
}

void DemoTest::kill()
{
    m_host.reset();
    EXPECT_TRUE(spinUntil([this] { return desktop.windows().isEmpty(); }));
}

void DemoTest::quit()
{
    EXPECT_TRUE(spinUntil([this] { return desktop.activeWindow() == mainWindow; }));
    desktop.xdotool(QStringLiteral("key alt+F4"));
    EXPECT_TRUE(m_host->waitForEnd() && m_host->leftCleanly()) << m_host->output().constData();
}

bool DemoTest::answers() const
{
    const auto before = m_host->output().count(demo().answer);
    desktop.click(onScreen(demo().spot));
    return spinUntil([&] { return m_host->output().count(demo().answer) > before; });
}

QRect DemoTest::stage() const
{
    for (const auto &window : desktop.windows()) {
        if (window.id == mainWindow)
            return window.geometry;
    }
    return {};
}

std::optional<Desktop::Window> DemoTest::windowTitled(const QString &title) const
{
    for (const auto &window : desktop.windows()) {
        if (window.title.startsWith(title) && window.id != mainWindow)
            return window;
    }
    return {};
}

std::optional<Desktop::Window> DemoTest::buttonWindow() const
{
    constexpr QSize largest(170, 110);
    for (const auto &window : desktop.windows()) {
        const QSize size = window.geometry.size();
        if (window.id != mainWindow && size.boundedTo(largest) == size)
            return window;
    }
    return {};
}

QRect DemoTest::button() const
{
    const auto window = buttonWindow();
    return window ? window->geometry.adjusted(shadowReach, shadowReach, -shadowReach, -shadowReach)
                        .translated(-stage().topLeft())
                  : QRect();
}

void DemoTest::dropButtonAt(const QPoint &place) const
{
    const QPoint hand = onScreen(button().center());
    desktop.drag({hand, hand + place - button().topLeft()});
}

QList<Desktop::Window> DemoTest::banners() const
{
    constexpr int highest = 80;
    QList<Desktop::Window> found = desktop.windows();
    found.removeIf([this](const Desktop::Window &window) {
        return window.geometry.width() != stage().width() || window.geometry.height() > highest;
    });
    return found;
}

QImage DemoTest::receivedScreenshot(int number) const
{
    QJsonArray reports;
    EXPECT_TRUE(spinUntil([&] {
        reports = receiver.reports();
        return reports.size() > number;
    })) << "no report arrives";
    EXPECT_EQ(reports.size(), number + 1);
    const QJsonObject screenshot = reports.last().toObject().value(u"screenshot").toObject();
    EXPECT_EQ(screenshot.value(u"name").toString(), QStringLiteral("screenshot.jpg"));
    return QImage(screenshot.value(u"path").toString()).convertToFormat(QImage::Format_RGB32);
}

} // namespace wexel
