#include "Presentation/ScreensInLanguages.h"

#include <QPainter>

#include "Presentation/Banner/WXLBannerView.h"
#include "Presentation/Helpers/ArtworkItem.h"
#include "Presentation/Helpers/Theme.h"

using namespace wexel;

namespace {

const auto languages = {"ar", "de", "en", "es", "fr", "ja"};
const auto screens = {"editor", "popup", "compose", "inspect"};

bool isText(const QQuickItem *item)
{
    return item->inherits("QQuickText") && !item->property("text").toString().isEmpty();
}

bool isArtwork(const QQuickItem *item)
{
    return qobject_cast<const ArtworkItem *>(item) != nullptr;
}

bool isField(const QQuickItem *item)
{
    return item->inherits("QQuickTextEdit") || item->inherits("QQuickTextInput");
}

bool isTappable(const QQuickItem *item)
{
    return item->metaObject()->indexOfSignal("tapped()") >= 0;
}

/// What of a screen can be seen, or could after scrolling.
void collect(QQuickItem *item, QList<QQuickItem *> &seen)
{
    if (!item->isVisible() || item->opacity() == 0)
        return;
    if (isText(item) || isArtwork(item) || isField(item) || isTappable(item))
        seen.append(item);
    for (QQuickItem *child : item->childItems())
        collect(child, seen);
}

QList<QQuickItem *> seenOf(QQuickItem *screen)
{
    QList<QQuickItem *> seen;
    collect(screen, seen);
    EXPECT_GE(seen.size(), 4);
    return seen;
}

/// The inside of the area that scrolls the item up and down; the window's own where none does.
QQuickItem *ground(const QQuickItem *item)
{
    for (QQuickItem *above = item->parentItem(); above != nullptr; above = above->parentItem()) {
        if (above->inherits("QQuickFlickable") && !above->inherits("QQuickListView"))
            return above->property("contentItem").value<QQuickItem *>();
    }
    return item->window()->contentItem();
}

/// Where it draws: a text may be smaller than its item.
QRectF drawn(const QQuickItem *item)
{
    QRectF area(0, 0, item->width(), item->height());
    if (!isText(item))
        return area;
    const QSizeF size(item->property("contentWidth").toDouble(), item->property("contentHeight").toDouble());
    QRectF content({}, size);
    const int alignment = item->property("effectiveHorizontalAlignment").toInt();
    content.moveCenter(area.center());
    if (alignment == Qt::AlignLeft)
        content.moveLeft(0);
    else if (alignment == Qt::AlignRight)
        content.moveRight(area.right());
    return content;
}

std::string nameOf(const QQuickItem *item)
{
    const char *property = isText(item) ? "text" : "name";
    return item->metaObject()->className() + (" " + item->property(property).toString().toStdString());
}

void expectUncut(const QQuickItem *item)
{
    if (isText(item)) {
        EXPECT_FALSE(item->property("truncated").toBool()) << nameOf(item);
        EXPECT_LE(item->property("contentWidth").toDouble(), item->width() + 1) << nameOf(item);
        EXPECT_LE(item->property("contentHeight").toDouble(), item->height() + 1) << nameOf(item);
    }
    const QQuickItem *below = ground(item);
    const QRectF place = item->mapRectToItem(below, drawn(item));
    const double height = below == item->window()->contentItem()
        ? below->height()
        : below->parentItem()->property("contentHeight").toDouble();
    EXPECT_TRUE(QRectF(-1, -1,
                       below->parentItem() == nullptr ? below->width() + 2 : below->parentItem()->width() + 2,
                       height + 2)
                    .contains(place))
        << nameOf(item) << " at " << place.x() << "," << place.y() << " " << place.width() << "x"
        << place.height();
}

/// Two that lie on the same ground and draw over one another.
bool collide(const QQuickItem *one, const QQuickItem *other)
{
    constexpr double touch = 1; // of the room between lines
    const QQuickItem *below = ground(one);
    if (below != ground(other))
        return false;
    const QRectF place = one->mapRectToItem(below, drawn(one)).adjusted(touch, touch, -touch, -touch);
    return place.intersects(other->mapRectToItem(below, drawn(other)));
}

void expectNoneOverAnother(const QList<QQuickItem *> &seen)
{
    for (qsizetype i = 0; i < seen.size(); ++i) {
        for (qsizetype k = i + 1; k < seen.size(); ++k) {
            const bool areDrawn
                = (isText(seen[i]) || isArtwork(seen[i])) && (isText(seen[k]) || isArtwork(seen[k]));
            if (areDrawn && (isText(seen[i]) || isText(seen[k]))) {
                EXPECT_FALSE(collide(seen[i], seen[k])) << nameOf(seen[i]) << " and " << nameOf(seen[k]);
            }
        }
    }
}

/// Of one side for as long as it is there.
struct Direction {
    explicit Direction(Qt::LayoutDirection direction) { QGuiApplication::setLayoutDirection(direction); }
    ~Direction() { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }
    Direction(const Direction &) = delete;
    Direction &operator=(const Direction &) = delete;
};

void expectMirrored(const QQuickItem *item, const QQuickItem *mirrored)
{
    const double width = item->window()->width();
    const QRectF place = item->mapRectToScene(drawn(item));
    const QRectF other = mirrored->mapRectToScene(drawn(mirrored));
    EXPECT_NEAR(other.left(), width - place.right(), 1.01) << nameOf(item);
    EXPECT_NEAR(other.right(), width - place.left(), 1.01) << nameOf(item);
    EXPECT_NEAR(other.top(), place.top(), 0.01) << nameOf(item);
    if (isField(item)) {
        EXPECT_EQ(item->property("effectiveHorizontalAlignment").toInt(), Qt::AlignLeft);
        EXPECT_EQ(mirrored->property("effectiveHorizontalAlignment").toInt(), Qt::AlignRight);
    }
    const QString picture = item->property("name").toString();
    if (isArtwork(item) && (picture == u"back-arrow" || picture == u"path" || picture == u"switchOn")) {
        EXPECT_EQ(std::abs(item->rotation() - mirrored->rotation()), 180) << nameOf(item);
    }
}

/// Where the language's message ends up on a banner: everything that is neither white nor the line around the card.
QRect messageOnBanner(const QSize &card)
{
    constexpr int margin = 100;
    QImage image(card + QSize(2 * margin, 2 * margin), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    WXLBannerView::paint(painter, QRect({margin, margin}, card), true);
    painter.end();
    QRect message;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (std::min({color.red(), color.green(), color.blue()}) < 160) // a shadow is paler
                message |= QRect(x - margin, y - margin, 1, 1);
        }
    }
    return message;
}

TEST(ScreensInLanguagesTest, allTextsFitTheSmallestWindow)
{
    const bool areLarge = qEnvironmentVariableIsSet("QT_FONT_DPI"); // as the build runs it once more
    ASSERT_EQ(Theme::scaled(10), areLarge ? 20 : 10);
    for (const char *language : languages) {
        for (const std::string screen : screens) {
            SCOPED_TRACE(std::string(language) + " " + screen);
            FlowInLanguage flow(language, {320, 568});
            QQuickItem *shown = flow.show(screen);
            QCoreApplication::processEvents();
            flow.window().grabWindow(); // lays the texts out
            const QList<QQuickItem *> seen = seenOf(shown);
            for (const QQuickItem *item : seen)
                expectUncut(item);
            expectNoneOverAnother(seen);
        }
        FlowInLanguage flow(language, {320, 568});
        const int height = static_cast<int>(WXLBannerView::bannerViewHeight(0, 320));
        const QRect message = messageOnBanner({320, height + static_cast<int>(WXLBannerView::cornerRadius)});
        EXPECT_TRUE(QRect(0, 4, 320, height - 8).contains(message))
            << language << " " << message.width() << "x" << message.height();
    }
}

TEST(ScreensInLanguagesTest, screensAreMirroredWhereOneReadsFromTheRight)
{
    for (const std::string screen : screens) {
        SCOPED_TRACE(screen);
        FlowInLanguage flow("en", {390, 844});
        const QList<QQuickItem *> items = seenOf(flow.show(screen));
        flow.window().grabWindow();
        const Direction direction(Qt::RightToLeft);
        FlowInLanguage other("en", {390, 844});
        const QList<QQuickItem *> mirrored = seenOf(other.show(screen));
        other.window().grabWindow();
        ASSERT_EQ(items.size(), mirrored.size());
        for (qsizetype i = 0; i < items.size(); ++i)
            expectMirrored(items[i], mirrored[i]);
    }
    for (const auto &[language, side] :
         {std::pair("en", 1), {"ar", -1}}) { // whatever the application's direction
        FlowInLanguage flow(language, {390, 844});
        flow.show("editor");
        QQuickItem *next = flow.compose();
        flow.window().view().navigationController().pushViewController(next, true);
        EXPECT_EQ(next->x(), side * 390) << language;
    }
}

} // namespace
