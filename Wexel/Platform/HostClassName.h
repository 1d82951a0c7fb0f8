#pragma once

#include <QMetaObject>
#include <QString>

namespace wexel {

/// The class of an object by the name that the host's developer knows: the QML type's ("CartPage",
/// "StackView") without the engine's suffixes, else the C++ class's with its namespace. Thread-safe.
[[nodiscard]] QString hostClassName(const QMetaObject *metaObject);

/// The class that a developer declared for an object of this class. `CartPage { property int row }` gets a class of its
/// own from the engine, but it is a CartPage; `Pane { property int row }` declares what Qt's Pane does not have.
[[nodiscard]] const QMetaObject *hostClass(const QMetaObject *metaObject);

/// True for a QML type that the host wrote, a CartPage.qml, as opposed to Qt's own types and their styled
/// forms.
[[nodiscard]] bool isHostQmlType(const QMetaObject *metaObject);

} // namespace wexel
