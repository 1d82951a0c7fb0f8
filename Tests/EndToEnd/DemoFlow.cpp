// What a tester does in the flow, and sees of it.

#include <algorithm>
#include <cmath>

#include "DemoTest.h"
#include "Support/Wait.h"

namespace wexel {

namespace {

const QColor flowBlue(0x11, 0x44, 0xf1);
constexpr int barHeight = 64;

bool isLike(QRgb pixel, const QColor &color)
{
    constexpr int tolerance = 8;
    return std::abs(qRed(pixel) - color.red()) <= tolerance
        && std::abs(qGreen(pixel) - color.green()) <= tolerance
        && std::abs(qBlue(pixel) - color.blue()) <= tolerance;
}

} // namespace

QColor DemoTest::colorAt(const QPoint &onStage) const
{
    return desktop.picture({onScreen(onStage), QSize(1, 1)}).pixel(0, 0);
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

std::optional<Desktop::Window> DemoTest::flow() const
{
    for (const auto &window : desktop.windows()) {
        if (window.geometry == stage() && window.id != mainWindow)
            return window;
    }
    return {};
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

std::optional<QPoint> DemoTest::removeButton() const
{
    const QColor slate(0x5e, 0x6d, 0x7f);
    const QRect besideTheCard = stage().adjusted(0, 300, 0, 340 - stage().height());
    return find(slate, besideTheCard);
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

} // namespace wexel
