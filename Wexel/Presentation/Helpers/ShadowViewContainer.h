#pragma once

#include <QQuickItem>

namespace wexel {

inline constexpr double maxShadowHeight = 10.0; ///< points

/// What stays in place above something that scrolls, with a shadow below it that grows as that goes under it. Main
/// thread only.
class ShadowViewContainer : public QQuickItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ShadowContainer)
    Q_PROPERTY(double shadowHeight MEMBER m_shadowHeight NOTIFY shadowHeightChanged)

public:
    using QQuickItem::QQuickItem;

    /// The height after a scroll to an offset, which is negative where the content is pulled below its top.
    [[nodiscard]] static double shadowHeightAt(double offset, double current);
    Q_INVOKABLE void scrollViewDidScroll(double offset);

Q_SIGNALS:
    void shadowHeightChanged();

private:
    double m_shadowHeight = 0;
};

} // namespace wexel
