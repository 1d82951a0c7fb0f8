#include "Platform/HostClassName.h"

#include <QMetaClassInfo>
#include <QRegularExpression>

namespace wexel {

namespace {

// The engine's class for the root of a QML document: "CartPage_QMLTYPE_12".
bool isDocumentType(const QMetaObject *metaObject)
{
    return QByteArray(metaObject->className()).contains("_QMLTYPE_");
}

QString withoutSuffix(const char *className)
{
    static const QRegularExpression suffix(QStringLiteral("(_QMLTYPE_\\d+|_QML_\\d+)+$"));
    return QString::fromUtf8(className).remove(suffix);
}

// The name that a C++ class is registered under in QML; empty for none of its own.
QString elementName(const QMetaObject *metaObject)
{
    for (int i = metaObject->classInfoOffset(); i < metaObject->classInfoCount(); ++i) {
        const QMetaClassInfo info = metaObject->classInfo(i);
        const QString value = QString::fromUtf8(info.value());
        if (qstrcmp(info.name(), "QML.Element") == 0 && value != QStringLiteral("anonymous"))
            return value == QStringLiteral("auto") ? withoutSuffix(metaObject->className()) : value;
    }
    return {};
}

} // namespace

QString hostClassName(const QMetaObject *metaObject)
{
    // "QQuickRectangle_QML_18" is an instance's own class: a Rectangle { } with a property of its own.
    while (!isDocumentType(metaObject) && QByteArray(metaObject->className()).contains("_QML_")
           && metaObject->superClass() != nullptr)
        metaObject = metaObject->superClass();
    const QString element = elementName(metaObject);
    return element.isEmpty() ? withoutSuffix(metaObject->className()) : element;
}

const QMetaObject *hostClass(const QMetaObject *metaObject)
{
    const QMetaObject *base = metaObject->superClass();
    return base != nullptr && QByteArray(metaObject->className()).contains("_QML_") && isHostQmlType(base)
        ? base
        : metaObject;
}

bool isHostQmlType(const QMetaObject *metaObject)
{
    if (!isDocumentType(metaObject))
        return false;
    const QString name = withoutSuffix(metaObject->className());
    for (const QMetaObject *base = metaObject->superClass(); base != nullptr; base = base->superClass()) {
        if (elementName(base) == name) // a style's StackView.qml over the StackView of the templates
            return false;
    }
    return true;
}

} // namespace wexel
