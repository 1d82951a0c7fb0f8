#include "Presentation/Helpers/WidgetHitView.h"

#include <QAbstractSpinBox>
#include <QComboBox>

namespace wexel {

namespace {

// The list of a combo box is a window with a class that is not public.
bool isListOfComboBox(const QWidget *widget)
{
    return widget->inherits("QComboBoxPrivateContainer");
}

// Qt gives the parts that it makes names of their own: "qt_scrollarea_viewport", "qt_spinbox_lineedit".
bool isPart(const QWidget *widget)
{
    const QWidget *parent = widget->parentWidget();
    if (parent == nullptr)
        return false;
    if (isListOfComboBox(widget))
        return true;
    return !widget->isWindow()
        && (widget->objectName().startsWith(QStringLiteral("qt_")) || isListOfComboBox(parent)
            || qobject_cast<const QComboBox *>(parent) != nullptr
            || qobject_cast<const QAbstractSpinBox *>(parent) != nullptr);
}

} // namespace

QWidget &hitWidget(QWidget &root, const QPoint &position)
{
    QWidget *hit = root.childAt(position);
    while (hit != nullptr && hit != &root && !hit->isEnabled())
        hit = hit->parentWidget();
    return hit != nullptr ? *hit : root;
}

const QWidget &recognisedWidget(const QWidget &widget)
{
    const QWidget *recognised = &widget;
    while (isPart(recognised))
        recognised = recognised->parentWidget();
    return *recognised;
}

} // namespace wexel
