#include "Presentation/Helpers/Theme.h"

#include <algorithm>

#include <QFontDatabase>
#include <QFontInfo>

#include "Presentation/Helpers/SafeArea.h"
#include "Presentation/Helpers/Stage.h"

namespace wexel {

double Theme::scaled(double size)
{
    constexpr double usual = 15; // pixels; systems come with 12 to 15
    constexpr double most = 2;
    const double system = QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).pixelSize();
    return size * std::clamp(system / usual, 1.0, most);
}

double Theme::safeTop()
{
    return safeAreaMargins(Stage::shared().window()).top();
}

} // namespace wexel
