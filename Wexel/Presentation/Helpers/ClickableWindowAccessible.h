#pragma once

#include <QAccessibleActionInterface>
#include <QAccessibleObject>

namespace wexel {

class WXLClickableWindow;

/// What assistive technology learns of a window that draws itself: one control, or one message. Main thread only.
class ClickableWindowAccessible final : public QAccessibleObject, public QAccessibleActionInterface
{
public:
    explicit ClickableWindowAccessible(WXLClickableWindow *window);

    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QWindow *window() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }

private:
    [[nodiscard]] WXLClickableWindow *view() const;
};

} // namespace wexel
