#include "DemoTest.h"

#include <algorithm>
#include <cmath>

#include <QJsonObject>

#include "Platform/PropertyList.h"
#include "Support/Wait.h"

namespace wexel {

namespace {

const QColor flowBlue(0x11, 0x44, 0xf1);
constexpr int shadowReach = 26; // of the button's window beyond the button
constexpr int barHeight = 64;

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

bool isLike(QRgb pixel, const QColor &color)
{
    constexpr int tolerance = 8;
    return std::abs(qRed(pixel) - color.red()) <= tolerance
        && std::abs(qGreen(pixel) - color.green()) <= tolerance
        && std::abs(qBlue(pixel) - color.blue()) <= tolerance;
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

std::optional<Desktop::Window> DemoTest::flow() const
{
    for (const auto &window : desktop.windows()) {
        if (window.geometry == stage() && window.id != mainWindow)
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

QColor DemoTest::colorAt(const QPoint &onStage) const
{
    return desktop.picture({onScreen(onStage), QSize(1, 1)}).pixel(0, 0);
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

bool DemoTest::flowIsOnTop() const
{
    const auto window = flow();
    return window && desktop.windows().last() == *window && desktop.activeWindow() == window->id;
}

bool DemoTest::flowOpens() const
{
    return spinUntil([this] { return flowIsOnTop() && colorAt({2, 2}) == flowBlue; });
}

QPoint DemoTest::popupOpens() const
{
    const QColor lightBlue(0, 141, 255);
    std::optional<QPoint> button;
    EXPECT_TRUE(spinUntil([&] {
        button = find(lightBlue, stage().adjusted(0, stage().height() / 2, 0, -stage().height() / 4));
        return flowIsOnTop() && button;
    })) << "no popup";
    desktop.settle(stage());
    return button.value_or(QPoint());
}

bool DemoTest::flowGivesBackTo(quint32 window) const
{
    return spinUntil([this, window] { return !flow() && desktop.activeWindow() == window; });
}

bool DemoTest::shows(Screen screen) const
{
    const QRect rightItem(onScreen({stage().width() - 60, 15}), QSize(50, 30));
    const bool isPaper = colorAt({20, 120}) == QColor(Qt::white);
    const bool goesOn = find(Qt::white, rightItem).has_value(); // by "Next" or "Submit"
    return isPaper == (screen != Screen::Editor) && goesOn == (screen != Screen::Inspect);
}

void DemoTest::arriveAt(Screen screen) const
{
    EXPECT_TRUE(spinUntil([&] { return shows(screen); })) << "not at screen " << int(screen);
    desktop.settle(stage().adjusted(0, 150, 0, 0)); // the caret blinks above
}

void DemoTest::describe(const char *words) const
{
    tapNext();
    arriveAt(Screen::Compose);
    desktop.xdotool(QStringLiteral("type --delay 15 ") + QLatin1String(words));
}

QRect DemoTest::toolOnScreen(Tool tool) const
{
    constexpr int widest = 520;
    constexpr int tools = 4;
    const QRect below = stage();
    const int width = std::min(below.width(), widest);
    return {below.center().x() - width / 2 + int(tool) * width / tools, below.bottom() - barHeight + 1,
            width / tools, barHeight};
}

std::optional<QPoint> DemoTest::find(const QColor &color, const QRect &area) const
{
    constexpr int enough = 10; // pixels
    const QImage picture = desktop.picture(area);
    QPoint sum;
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (isLike(picture.pixel(x, y), color)) {
                sum += QPoint(x, y);
                ++count;
            }
        }
    }
    return count < enough ? std::nullopt : std::optional(area.topLeft() + sum / count);
}

bool DemoTest::isSelected(Tool tool, const QColor &color) const
{
    return spinUntil([&] { return find(color, toolOnScreen(tool)).has_value(); });
}

void DemoTest::select(Tool tool, const QColor &color) const
{
    desktop.click(toolOnScreen(tool).center());
    EXPECT_TRUE(isSelected(tool, color));
}

void DemoTest::chooseColor(const QColor &color) const
{
    const QRect toolbar = toolOnScreen(Tool::Clear) | toolOnScreen(Tool::Palette);
    const QColor purple(0x65, 0x52, 0xff); // shown by the open palette only
    desktop.click(toolOnScreen(Tool::Palette).center());
    ASSERT_TRUE(spinUntil([&] { return find(purple, toolbar) && find(color, toolbar); })) << "no palette";
    desktop.settle(toolbar);
    desktop.click(*find(color, toolbar));
    EXPECT_TRUE(spinUntil([&] { return !find(purple, toolbar); })) << "the palette does not close";
    EXPECT_TRUE(isSelected(Tool::Draw, color));
}

QRect DemoTest::imageOnScreen() const
{
    constexpr int titleHeight = 50;
    const QRect between = stage().adjusted(0, titleHeight, 0, -barHeight);
    desktop.settle(between); // the blue is there a moment before the picture is in its place
    const QImage picture = desktop.picture(between);
    QRect image;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (QColor(picture.pixel(x, y)) != flowBlue)
                image |= QRect(x, y, 1, 1);
        }
    }
    return image.translated(between.topLeft());
}

std::optional<QPoint> DemoTest::removeButton() const
{
    const QColor slate(0x5e, 0x6d, 0x7f);
    const QRect besideTheCard = stage().adjusted(0, 300, 0, 340 - stage().height());
    return find(slate, besideTheCard);
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
