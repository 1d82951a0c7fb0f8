#pragma once

#include <QObject>
#include <QUrl>
#include <qqml.h>

namespace wexel {

/// The page that tells testers how to report well: the address that the build was given, else the page that lies beside
/// the library's property list.
class HelpPage : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QUrl address READ address CONSTANT)

public:
    [[nodiscard]] static QUrl address();
};

} // namespace wexel
