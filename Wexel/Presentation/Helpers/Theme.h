#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <qqml.h>

#include "Presentation/Fonts/Fonts.h"
#include "Presentation/Helpers/Colors.h"

namespace wexel {

/// The colours and the typeface for the screens. Main thread only.
class Theme : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft CONSTANT)
    Q_PROPERTY(double multiplierWidthWithoutSafeArea READ multiplierWidthWithoutSafeArea CONSTANT)
    Q_PROPERTY(QColor white READ white CONSTANT)
    Q_PROPERTY(QColor black READ black CONSTANT)
    Q_PROPERTY(QColor shadow READ shadow CONSTANT)
    Q_PROPERTY(QColor buttonShadow READ buttonShadow CONSTANT)
    Q_PROPERTY(QColor regularGrey READ regularGrey CONSTANT)
    Q_PROPERTY(QColor paleGrey READ paleGrey CONSTANT)
    Q_PROPERTY(QColor lightBlue READ lightBlue CONSTANT)
    Q_PROPERTY(QColor coolGrey READ coolGrey CONSTANT)
    Q_PROPERTY(QColor inactiveGrey READ inactiveGrey CONSTANT)
    Q_PROPERTY(QColor slate READ slate CONSTANT)
    Q_PROPERTY(QColor gunmetal READ gunmetal CONSTANT)
    Q_PROPERTY(QColor silver READ silver CONSTANT)

public:
    /// Whether the screens are mirrored: the application is, or the language of their texts reads that way.
    [[nodiscard]] static bool isRightToLeft();
    /// The part of a screen's width that its texts and rules take.
    [[nodiscard]] static constexpr double multiplierWidthWithoutSafeArea() { return 13.0 / 15; }
    [[nodiscard]] static QColor white() { return Colors::whiteColor(); }
    [[nodiscard]] static QColor black() { return Colors::blackColor(); }
    [[nodiscard]] static QColor shadow() { return Colors::shadowColor(); }
    [[nodiscard]] static QColor buttonShadow() { return Colors::buttonShadowColor(); }
    [[nodiscard]] static QColor regularGrey() { return Colors::regularGrayColor(); }
    [[nodiscard]] static QColor paleGrey() { return Colors::paleGrayColor(); }
    [[nodiscard]] static QColor lightBlue() { return Colors::defaultLightBlueColor(); }
    [[nodiscard]] static QColor slate() { return Colors::slateColor(); }
    [[nodiscard]] static QColor gunmetal() { return Colors::gunmetalColor(); }
    [[nodiscard]] static QColor silver() { return Colors::silverColor(); }
    [[nodiscard]] static QColor coolGrey() { return Colors::coolGreyColor(); }
    [[nodiscard]] static QColor inactiveGrey() { return Colors::inactiveGreyColor(); }

    // Larger where the user has the system's texts large, up to twice the size.
    Q_INVOKABLE [[nodiscard]] static QFont bold(double size) { return Fonts::fontBoldOfSize(scaled(size)); }
    Q_INVOKABLE [[nodiscard]] static QFont regular(double size)
    {
        return Fonts::fontRegularOfSize(scaled(size));
    }
    Q_INVOKABLE [[nodiscard]] static QFont semiBold(double size)
    {
        return Fonts::fontSemiBoldOfSize(scaled(size));
    }
    Q_INVOKABLE [[nodiscard]] static double scaled(double size);
    /// The font, smaller where otherwise a word of the text would be broken to fit the width, in points.
    Q_INVOKABLE [[nodiscard]] static QFont fitting(const QFont &font, const QString &text, double width);
    /// What the system covers of the upper edge, in points.
    Q_INVOKABLE [[nodiscard]] static double safeTop();
};

} // namespace wexel
