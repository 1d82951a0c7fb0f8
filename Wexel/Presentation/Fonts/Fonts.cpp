#include "Presentation/Fonts/Fonts.h"

#include <algorithm>

#include <QFontDatabase>
#include <QHash>
#include <QResource>

#include "Platform/Log.h"

namespace wexel {

namespace {

const QString regular = QStringLiteral("HKGrotesk-Regular");
const QString medium = QStringLiteral("HKGrotesk-Medium");
const QString semiBold = QStringLiteral("HKGrotesk-SemiBold");
const QString bold = QStringLiteral("HKGrotesk-Bold");

// Face names to numbers of the font database. It forgets them with the application object, hence `familiesOf`.
QHash<QString, int> &registrations()
{
    static QHash<QString, int> registrations;
    return registrations;
}

QStringList familiesOf(const QString &name)
{
    return QFontDatabase::applicationFontFamilies(registrations().value(name, -1));
}

QFont face(const QString &name, QFont::Weight weight, double size)
{
    const QStringList families = familiesOf(name);
    QFont font(families.isEmpty() ? QStringList(QStringLiteral("Sans Serif")) : families);
    font.setStyleHint(QFont::SansSerif);
    font.setWeight(weight);
    font.setPixelSize(std::max(1, qRound(size)));
    return font;
}

} // namespace

QFont Fonts::fontRegularOfSize(double size)
{
    return face(regular, QFont::Normal, size);
}

QFont Fonts::fontBoldOfSize(double size)
{
    return face(bold, QFont::Bold, size);
}

QFont Fonts::fontMediumOfSize(double size)
{
    return face(medium, QFont::Medium, size);
}

QFont Fonts::fontSemiBoldOfSize(double size)
{
    return face(semiBold, QFont::DemiBold, size);
}

void Fonts::registerFonts()
{
    for (const QString &name : {bold, medium, regular, semiBold})
        loadMyCustomFont(name);
}

void Fonts::loadMyCustomFont(const QString &name)
{
    if (!familiesOf(name).isEmpty())
        return;
    const QResource file(QStringLiteral(":/wexel/Fonts/%1.otf").arg(name));
    if (!file.isValid()) {
        log(QStringLiteral("Failed to load font: %1.otf is missing").arg(name));
        return;
    }
    // Stored as it is, so that the font lives in the library's own pages and is never copied.
    const int registration = QFontDatabase::addApplicationFontFromData(file.uncompressedData());
    if (registration < 0)
        log(QStringLiteral("Failed to load font: %1.otf is not a font that can be used").arg(name));
    else
        registrations().insert(name, registration);
}

} // namespace wexel
