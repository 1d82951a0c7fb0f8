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
    Q_PROPERTY(QColor white READ white CONSTANT)
    Q_PROPERTY(QColor coolGrey READ coolGrey CONSTANT)
    Q_PROPERTY(QColor inactiveGrey READ inactiveGrey CONSTANT)

public:
    [[nodiscard]] static QColor white() { return Colors::whiteColor(); }
    [[nodiscard]] static QColor coolGrey() { return Colors::coolGreyColor(); }
    [[nodiscard]] static QColor inactiveGrey() { return Colors::inactiveGreyColor(); }

    Q_INVOKABLE [[nodiscard]] static QFont bold(double size) { return Fonts::fontBoldOfSize(size); }
    Q_INVOKABLE [[nodiscard]] static QFont semiBold(double size) { return Fonts::fontSemiBoldOfSize(size); }
};

} // namespace wexel
