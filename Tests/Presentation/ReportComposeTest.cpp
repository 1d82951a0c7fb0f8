#include "Presentation/ReportCompose/WXLReportComposeViewModel.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include <Wexel/WXLWexelFile.h>
#include <Wexel/WXLWexelReportData.h>

#include "Business/ReportKeys.h"
#include "Platform/NotificationCenter.h"
#include "Presentation/Helpers/ShadowViewContainer.h"
#include "Presentation/Helpers/WXLBranding.h"
#include "Presentation/Helpers/WXLLargerTappableButton.h"
#include "Presentation/Textview/WXLResizingTextView.h"

using namespace wexel;

namespace {

std::shared_ptr<WXLWexelFile> screenshotFile()
{
    QBuffer buffer;
    EXPECT_TRUE(QImage(3, 5, QImage::Format_RGB32).save(&buffer, "PNG"));
    return std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"), buffer.data());
}

struct ReportCompose : testing::Test {
    std::shared_ptr<WXLWexelReportData> report = std::make_shared<WXLWexelReportData>(
        QVariantMap{{kWXLLocale, QStringLiteral("en_US")}, {kWXLUserInput, QStringLiteral("before")}});
    NotificationCenter notifications;
    WXLReportComposeViewModel viewModel{report, notifications};
    std::optional<QString> passedOn = QStringLiteral("nothing passed on");

    ReportCompose()
    {
        viewModel.submitButtonPressed = [this](const auto &submitted, const auto &email) {
            EXPECT_EQ(submitted, report);
            passedOn = email;
        };
    }
    [[nodiscard]] QVariantMap gathered() const { return *report->gatheredDataDict; }
};

TEST_F(ReportCompose, AddsDescriptionAndEmailToWhatWasGathered)
{
    viewModel.didPressSubmitButton(QStringLiteral("It is red"), QStringLiteral("ada@example.org"));
    EXPECT_EQ(gathered(),
              (QVariantMap{{kWXLLocale, QStringLiteral("en_US")},
                           {kWXLUserInput, QStringLiteral("It is red")},
                           {kWXLUserEmail, QStringLiteral("ada@example.org")}}));
    EXPECT_EQ(passedOn, QStringLiteral("ada@example.org"));
    viewModel.didPressSubmitButton(QStringLiteral("It is red"), QString());
    EXPECT_EQ(gathered().value(kWXLUserEmail), QString());
    EXPECT_EQ(passedOn, QString());
}

TEST_F(ReportCompose, TakesThePlaceholderForNoDescription)
{
    report->gatheredDataDict.reset();
    viewModel.didPressSubmitButton(WXLReportComposeViewModel::placeholder(), std::nullopt);
    EXPECT_EQ(gathered(), QVariantMap());
    EXPECT_EQ(passedOn, std::nullopt);
}

TEST_F(ReportCompose, RefreshesWithTheBrandingAsLongAsItLives)
{
    int refreshes = 0;
    {
        WXLReportComposeViewModel other(report, notifications);
        notifications.post(BrandingUpdatedNotification); // nobody shows it yet
        other.brandingRefresCallback = [&refreshes] { ++refreshes; };
        notifications.post(BrandingUpdatedNotification);
    }
    notifications.post(BrandingUpdatedNotification);
    EXPECT_EQ(refreshes, 1);
}

TEST_F(ReportCompose, TellsOfARemovedScreenshotBeforeItIsGone)
{
    EXPECT_TRUE(viewModel.attachments().isEmpty());
    report->screenshotFile = std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"), QByteArray());
    EXPECT_TRUE(viewModel.attachments().isEmpty());
    report->screenshotFile = screenshotFile();
    ASSERT_EQ(viewModel.attachments().size(), 1);
    EXPECT_EQ(viewModel.attachments().first().size(), QSize(3, 5));
    std::shared_ptr<WXLWexelFile> removed;
    viewModel.onDidPressDeleteAttachment = [&](const auto &file) {
        EXPECT_EQ(report->screenshotFile, file);
        removed = file;
    };
    viewModel.didPressDeleteAttachment(7);
    EXPECT_TRUE(removed);
    EXPECT_FALSE(report->screenshotFile);
}

TEST(ResizingTextView, GrowsToThreeLinesAndThenScrolls)
{
    constexpr double insets = 16;
    constexpr double line = 20;
    const auto measured = [](double lines) {
        WXLResizingTextView view;
        view.setText(QStringLiteral("typed"));
        view.textViewDidChange(lines * line * 1.1 + insets, insets, line);
        return std::pair(view.property("fieldHeight").toDouble(), view.property("isScrollEnabled").toBool());
    };
    EXPECT_EQ(measured(1), std::pair(38.0, false));
    EXPECT_EQ(measured(2), std::pair(60.0, false));
    EXPECT_EQ(measured(3), std::pair(82.0, false));
    EXPECT_EQ(measured(4), std::pair(82.0, true));
    EXPECT_EQ(measured(30), std::pair(82.0, true));
    EXPECT_EQ(measured(1), std::pair(38.0, false));
}

TEST(ShadowViewContainer, GrowsWithTheScrolledWay)
{
    EXPECT_EQ(ShadowViewContainer::shadowHeightAt(25, 0), 10);
    EXPECT_EQ(ShadowViewContainer::shadowHeightAt(4.5, 10), 4.5);
    EXPECT_EQ(ShadowViewContainer::shadowHeightAt(0, 10), 0);
    EXPECT_EQ(ShadowViewContainer::shadowHeightAt(-4, 10), 6);
    EXPECT_EQ(ShadowViewContainer::shadowHeightAt(-40, 10), 0);
}

TEST(LargerTappableButton, CanBeHitBesideItsDrawing)
{
    const WXLLargerTappableButton button;
    const auto isInside = [](double x, double y, const QRectF &bounds, qint32 inset) {
        return WXLLargerTappableButton::isPointInside({x, y}, bounds, inset, inset);
    };
    const QRectF bounds(0, 0, 20, 20);
    EXPECT_EQ(button.horizontalClickableInset, 20);
    EXPECT_TRUE(isInside(-20, -20, bounds, 20));
    EXPECT_TRUE(isInside(40, 40, bounds, 20));
    EXPECT_FALSE(isInside(-20.5, 0, bounds, 20));
    EXPECT_FALSE(isInside(0, 40.5, bounds, 20));
    EXPECT_TRUE(isInside(0, 5, QRectF(0.6, 0, 20, 20), 0)) << "whole numbers, cut";
    EXPECT_FALSE(isInside(20.7, 5, QRectF(0.6, 0, 20, 20), 0));
}

} // namespace
