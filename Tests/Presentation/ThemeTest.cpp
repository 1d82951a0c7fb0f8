#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QGuiApplication>
#include <QLibrary>
#include <QRawFont>
#include <QResource>
#include <QSet>

#include "Platform/CapturedLog.h"
#include "Presentation/Fonts/Fonts.h"
#include "Presentation/Helpers/Artwork.h"
#include "Presentation/Helpers/ArtworkProvider.h"
#include "Presentation/Helpers/Colors.h"
#include "Presentation/Helpers/WXLBrandingService.h"

using namespace wexel;
using testing::ElementsAre;

namespace {

TEST(ThemeTest, ABrandingIsOursUntilItIsGivenAsTexts)
{
    WXLBrandingService service;
    EXPECT_EQ(service.branding(), nullptr);
    service.start();
    const auto ours = service.branding();
    EXPECT_EQ(ours->textColor.rgba(), 0xFFFFFFFF);
    EXPECT_EQ(ours->backgroundColor, Colors::defaultDarkBlueColor());
    EXPECT_EQ(ours->placeholderColor.rgba(), 0xFF0182F1);
    EXPECT_EQ(ours->highlightedTextColor.rgba(), 0xFFFBC01B);
    EXPECT_EQ(ours->slogan,
              QString::fromUtf8("Wexel is a simple, powerful bug reporting tool. \xE2\x9E\x9D"));
    EXPECT_EQ(ours->logo.deviceIndependentSize(), QSizeF(64, 64));

    const QString address = QStringLiteral("http://127.0.0.1/logo.png");
    const WXLBranding theirs(QStringLiteral("#010203"), QStringLiteral("#040506"), QStringLiteral("#070809"),
                             address, QStringLiteral("Slogan"), QStringLiteral("#0A0B0C"));
    EXPECT_EQ(theirs.textColor.rgba(), 0xFF010203);
    EXPECT_EQ(theirs.backgroundColor.rgba(), 0xFF040506);
    EXPECT_EQ(theirs.placeholderColor.rgba(), 0xFF070809);
    EXPECT_EQ(theirs.highlightedTextColor.rgba(), 0xFF0A0B0C);
    EXPECT_EQ(theirs.slogan, QStringLiteral("Slogan"));
    EXPECT_TRUE(theirs.logo.isNull());

    service.branding()->slogan = theirs.slogan;
    service.start();
    EXPECT_EQ(service.branding()->slogan, WXLBranding().slogan) << "a flow begins with a fresh branding";
}

TEST(ThemeTest, ColorsThatAreEasilyMistaken)
{
    EXPECT_EQ(Colors::blackColor().rgba(), 0xFF313030);
    EXPECT_EQ(Colors::shadowColor().rgba(), 0x4D5A7498); // 0.3
    EXPECT_EQ(Colors::buttonShadowColor().rgba(), 0xCCA5B4C7); // 0.8
    EXPECT_EQ(Colors::paletteGreyColor().rgba(), 0xFF515F6B);
    EXPECT_EQ(Colors::palettePurpleColor().rgba(), 0xFF6552FF);
}

TEST(ThemeTest, AFaceIsThePlatformsUntilItIsRegisteredAndThenItsOwn)
{
    const struct {
        QFont (*face)(double);
        const char *file;
        QFont::Weight weight;
    } faces[] = {{Fonts::fontRegularOfSize, "Regular", QFont::Normal},
                 {Fonts::fontMediumOfSize, "Medium", QFont::Medium},
                 {Fonts::fontSemiBoldOfSize, "SemiBold", QFont::DemiBold},
                 {Fonts::fontBoldOfSize, "Bold", QFont::Bold}};
    QFontDatabase::removeAllApplicationFonts(); // as before any flow
    for (const auto &[face, file, weight] : faces) {
        EXPECT_EQ(face(18).weight(), weight);
        EXPECT_NE(QRawFont::fromFont(face(18)).familyName(), QStringLiteral("Wexel Grotesk")) << file;
    }

    const CapturedLog log;
    Fonts::registerFonts();
    Fonts::registerFonts();
    EXPECT_THAT(log.lines(), ElementsAre());
    EXPECT_EQ(QFontDatabase::styles(QStringLiteral("Wexel Grotesk")).size(), 4) << "twice is once";
    for (const auto &[face, file, weight] : faces) {
        const QRawFont drawn = QRawFont::fromFont(face(18));
        const QString path = QStringLiteral(":/wexel/Fonts/HKGrotesk-%1.otf").arg(QLatin1String(file));
        EXPECT_EQ(drawn.fontTable("name"), QRawFont(path, 18).fontTable("name")) << file;
        EXPECT_EQ(drawn.weight(), weight) << file;
        EXPECT_EQ(drawn.pixelSize(), 18);
        EXPECT_TRUE(drawn.supportsCharacter(QChar(0x017E))) << "extended Latin";
    }
}

TEST(ThemeTest, AFontThatCannotBeLoadedIsLogged)
{
    const CapturedLog log;
    Fonts::loadMyCustomFont(QStringLiteral("HKGrotesk-Black"));
    EXPECT_THAT(log.lines(),
                ElementsAre(QStringLiteral("Failed to load font: HKGrotesk-Black.otf is missing")));
}

QSet<QRgb> colorsOf(const QImage &image)
{
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255)
                colors.insert(image.pixel(x, y));
    return colors;
}

TEST(ThemeTest, ArtworkFillsItsPointsInThePixelsOfTheScreen)
{
    for (const char *name : {"plus", "check-circle", "clear", "blur", "draw", "palette", "Close",
                             "back-arrow", "path", "switchOn", "delete-icon", "owl", "detective"})
        EXPECT_FALSE(colorsOf(artwork(QLatin1String(name), {24, 24}, 2)).isEmpty()) << name;

    const QColor tint(1, 130, 241);
    EXPECT_THAT(colorsOf(artwork(QStringLiteral("palette"), {24, 24}, 3, tint)), ElementsAre(tint.rgba()));

    // Wider than high: the circle keeps its shape, in the middle.
    const QImage wide = artwork(QStringLiteral("check-circle"), {48, 24}, 2);
    EXPECT_EQ(wide.size(), QSize(96, 48));
    EXPECT_EQ(wide.devicePixelRatio(), 2);
    const auto isClear = [&wide](int x) { return qAlpha(wide.pixel(x, 24)) == 0; };
    EXPECT_TRUE(isClear(26) && !isClear(30) && !isClear(65) && isClear(69));

    QSize pixels;
    const QImage owl = ArtworkProvider().requestImage(QStringLiteral("owl/24"), &pixels, {});
    EXPECT_EQ(pixels, QSize(24, 24) * qGuiApp->devicePixelRatio());
    EXPECT_FALSE(colorsOf(owl).isEmpty());

    const CapturedLog log;
    EXPECT_TRUE(artwork(QStringLiteral("penguin"), {24, 24}, 1).isNull());
    EXPECT_THAT(log.lines(), ElementsAre(QStringLiteral("Failed to load image: penguin")));
}

} // namespace
