#include <gtest/gtest.h>

#include <QTouchEvent>

#include <Wexel/WXLWexelFile.h>

#include "Presentation/EditorOverHost.h"
#include "Presentation/Screen/EditorLayout.h"

using namespace wexel;

namespace {

const QColor red(0xFF, 0x06, 0x46);
const QColor green(0x00, 0xC2, 0x74);

using ScreenshotEditorTest = EditorOverHost;

} // namespace

TEST(EditorLayoutTest, theImageFillsItsPlaceInTheStagesOwnShape)
{
    // 844 - 44 - 64 = 736 are there, 90.2 % are the image's, 5.2 % stay empty below.
    expectNear(EditorLayout{{390, 844}, 44, 64, 0, 844.0 / 390}.imageFrame(),
               {41.617, 77.856, 306.766, 663.872});
    expectNear(EditorLayout{{390, 844}, 44, 64, 34, 844.0 / 390}.imageFrame(),
               {48.703, 76.292, 292.594, 633.204});
    expectNear(EditorLayout{{1600, 900}, 44, 64, 0, 900.0 / 1600}.imageFrame(),
               {164.992, 80.432, 1270.016, 714.384});
    // The window became narrow: no wider than it, but for the margins, and in the middle of its place.
    expectNear(EditorLayout{{400, 900}, 44, 64, 0, 900.0 / 1600}.imageFrame(), {16, 334.124, 368, 207});
    EXPECT_TRUE((EditorLayout{{30, 60}, 44, 64, 0, 2}.imageFrame().isEmpty()));
}

TEST_F(ScreenshotEditorTest, nextMakesTheImageTheReportsScreenshotInPlaceOfTheLast)
{
    WXLScreenshotVM model(noise({40, 30}), report);
    model.didPressNextButton(); // nobody listens
    std::shared_ptr<WXLWexelReportData> given;
    int closes = 0;
    model.onDidPressNextButton = [&given](const auto &data) { given = data; };
    model.onDidPressCloseButton = [&closes] { ++closes; };
    model.screenshotImage = QImage(20, 10, QImage::Format_RGB32);
    model.screenshotImage.fill(green);
    model.didPressNextButton();
    EXPECT_EQ(given, report);
    ASSERT_TRUE(report->screenshotFile);
    EXPECT_EQ(report->screenshotFile->name(), QStringLiteral("screenshot.jpg"));
    const QImage decoded = QImage::fromData(report->screenshotFile->data(), "JPG");
    EXPECT_EQ(decoded.size(), QSize(20, 10));
    EXPECT_NEAR(decoded.pixelColor(10, 5).green(), green.green(), 6);
    EXPECT_EQ(closes, 0);
    model.didPressCloseButton();
    EXPECT_EQ(closes, 1);
}

TEST_F(ScreenshotEditorTest, theColourIsTheStoredOneOrElseRed)
{
    for (const auto &[stored, colour] : {std::pair<std::optional<qint32>, QColor>{std::nullopt, red},
                                         {2, green},
                                         {0, QColor(0x51, 0x5F, 0x6B)},
                                         {6, red},
                                         {-1, red}}) {
        open(stored);
        EXPECT_EQ(drawingColor(), colour) << stored.value_or(-100);
        EXPECT_EQ(toolbar->property("selectionColor").value<QColor>(), colour);
        EXPECT_EQ(selectedTool(), WXLToolbarContainerView::Draw);
        EXPECT_TRUE(canvas->overlayView().isVisible());
    }
}

TEST_F(ScreenshotEditorTest, aStrokeIsBakedAlongItsPathAndNowhereElse)
{
    open();
    expectNear(canvas->mapRectToScene(canvas->imageFrame()), {41.617, 77.856, 306.766, 663.872});
    const QImage first = viewModel->screenshotImage.copy();
    const QImage before = baked();
    EXPECT_EQ(before.size(), (canvas->imageFrame().size() * flow->devicePixelRatio()).toSize());
    QImage scaled = first.scaled(before.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(before.devicePixelRatio());
    EXPECT_EQ(before, scaled) << "a tap draws nothing";
    dragAlong({50, 100, 250, 100});
    expectChanged(before, {49, 99, 202, 2});
    EXPECT_LT(greenAt({150, 100}), -100);
}

TEST_F(ScreenshotEditorTest, aColourIsStoredDrawnWithAndClosesThePalette)
{
    open();
    tap("BLUR");
    tap("PALETTE");
    EXPECT_TRUE(toolbar->isPaletteShown());
    tap("Colour 3");
    EXPECT_EQ(repository.lastUsedColor(), 2);
    EXPECT_EQ(drawingColor(), green);
    EXPECT_EQ(selectedTool(), WXLToolbarContainerView::Draw);
    EXPECT_FALSE(canvas->isBlurringEnabled());
    EXPECT_TRUE(waitUntil([this] { return !toolbar->isPaletteShown(); }));
    tap("PALETTE");
    tap("Colour 3"); // the current one
    EXPECT_TRUE(waitUntil([this] { return !toolbar->isPaletteShown(); }));
    tap("PALETTE");
    tap("Close palette");
    EXPECT_FALSE(toolbar->isPaletteShown());
    tap("PALETTE");
    dragAlong({50, 50, 90, 50});
    EXPECT_FALSE(toolbar->isPaletteShown()) << "a stroke has begun";
    EXPECT_GT(greenAt({75, 50}), 100);
    tap("CLEAR"); // the tools are back
    EXPECT_EQ(selectedTool(), WXLToolbarContainerView::Draw);
}

TEST_F(ScreenshotEditorTest, blurringChangesOnlyWhatTheFingerGoesOver)
{
    open();
    const QImage before = baked();
    tap("BLUR");
    EXPECT_EQ(selectedTool(), WXLToolbarContainerView::Blur);
    EXPECT_FALSE(canvas->overlayView().isVisible());
    dragThrough({{-20, 200}, {-10, 200}});
    EXPECT_EQ(shownImage(), before);
    dragThrough({{-20, 200}, {100, 200}, {-20, 250}}); // in, and out again: one dab
    const double reach = 16 / before.devicePixelRatio(); // a dab is 32 pixels of the image wide
    expectChanged(before, {100 - reach, 200 - reach, 2 * reach, 2 * reach});
    const QImage dabbed = viewModel->screenshotImage;
    dragThrough({{60, 400}, {240, 400}}); // at once: the way between is filled
    expectChanged(dabbed, {60 - reach, 400 - reach, 180 + 2 * reach, 2 * reach});
    tap("DRAW");
    EXPECT_TRUE(canvas->overlayView().isVisible());
}

TEST_F(ScreenshotEditorTest, clearGivesBackTheVeryFirstImage)
{
    open();
    const QImage initial = viewModel->screenshotImage.copy();
    dragAlong({50, 100, 250, 100});
    tap("BLUR");
    dragAlong({50, 300, 250, 300});
    EXPECT_NE(viewModel->screenshotImage.size(), initial.size());
    tap("CLEAR");
    EXPECT_EQ(viewModel->screenshotImage, initial);
    EXPECT_EQ(shownImage(), initial);
    EXPECT_EQ(selectedTool(), WXLToolbarContainerView::Blur);
    dragAlong({50, 300, 250, 300}); // and keeps it for the next time
    tap("CLEAR");
    EXPECT_EQ(shownImage(), initial);
    tap("Next");
    ASSERT_TRUE(report->screenshotFile);
    EXPECT_EQ(QImage::fromData(report->screenshotFile->data()).size(), initial.size());
}

TEST_F(ScreenshotEditorTest, aSecondFingerTearsNoStroke)
{
    open();
    const QImage before = baked();
    touch().press(1, inWindow({50, 100}));
    touch().move(1, inWindow({100, 100}));
    touch().stationary(1).press(2, inWindow({60, 400}));
    touch().move(1, inWindow({150, 100})).move(2, inWindow({200, 400}));
    touch().stationary(1).release(2, inWindow({200, 400}));
    EXPECT_EQ(viewModel->screenshotImage, before) << "not yet at its end";
    touch().move(1, inWindow({200, 100}));
    touch().release(1, inWindow({200, 100}));
    expectChanged(before, {49, 99, 152, 2});
}

TEST_F(ScreenshotEditorTest, aTouchThatIsTakenAwayEndsItsStroke)
{
    open();
    const QImage before = baked();
    touch().press(1, inWindow({50, 100}));
    touch().move(1, inWindow({150, 100}));
    touch().stationary(1).press(2, inWindow({50, 400})); // with it comes the move, which waits for a frame
    QTouchEvent cancel(QEvent::TouchCancel, screen.get());
    QCoreApplication::sendEvent(window(), &cancel);
    expectChanged(before, {49, 99, 102, 2});
    const QImage marked = viewModel->screenshotImage;
    dragAlong({50, 300, 150, 300});
    expectChanged(marked, {49, 299, 102, 2});
}

TEST_F(ScreenshotEditorTest, aToolThatIsChosenDuringAStrokeIsForTheNextTouch)
{
    open();
    const QImage before = baked();
    const QQuickItem *blur = tappable(editor, QStringLiteral("BLUR"));
    const QPoint onBlur = blur->mapToScene(blur->boundingRect().center()).toPoint();
    touch().press(1, inWindow({50, 100}));
    touch().move(1, inWindow({150, 100}));
    touch().stationary(1).press(2, onBlur);
    touch().stationary(1).release(2, onBlur);
    EXPECT_TRUE(canvas->isBlurringEnabled());
    touch().move(1, inWindow({200, 100}));
    touch().release(1, inWindow({200, 100}));
    expectChanged(before, {49, 99, 152, 2});
    tap("DRAW");
    EXPECT_EQ(canvas->bakedImage(), viewModel->screenshotImage) << "nothing is left over the image";
}
