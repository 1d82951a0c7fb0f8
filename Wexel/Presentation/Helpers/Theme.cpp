#include "Presentation/Helpers/Theme.h"

#include <algorithm>

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QTextBoundaryFinder>

#include "Presentation/Helpers/SafeArea.h"
#include "Presentation/Helpers/Stage.h"

namespace wexel {

namespace {

/// Of the parts between which a line may end: in some scripts that is anywhere.
double widestPart(const QString &text, const QFontMetricsF &metrics)
{
    double widest = 0;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    for (qsizetype start = 0, end = finder.toNextBoundary(); end > start; end = finder.toNextBoundary()) {
        widest = std::max(widest, metrics.horizontalAdvance(text.mid(start, end - start).trimmed()));
        start = end;
    }
    return widest;
}

} // namespace

// Few applications load the translations of Qt, by which it would know the direction of their language.
bool Theme::isRightToLeft()
{
    return QGuiApplication::isRightToLeft() || QCoreApplication::translate("Wexel", "Next").isRightToLeft();
}

double Theme::scaled(double size)
{
    constexpr double usual = 15; // pixels; systems come with 12 to 15
    constexpr double most = 2;
    const double system = QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).pixelSize();
    return size * std::clamp(system / usual, 1.0, most);
}

QFont Theme::fitting(const QFont &font, const QString &text, double width)
{
    const double widest = widestPart(text, QFontMetricsF(font));
    if (width <= 0 || widest <= width)
        return font;
    QFont smaller = font;
    smaller.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * width / widest)));
    return smaller;
}

double Theme::safeTop()
{
    return safeAreaMargins(Stage::shared().window()).top();
}

} // namespace wexel
