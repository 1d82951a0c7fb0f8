#include "Presentation/Helpers/ShadowViewContainer.h"

#include <algorithm>

namespace wexel {

double ShadowViewContainer::shadowHeightAt(double offset, double current)
{
    if (offset > 0)
        return std::min(offset, maxShadowHeight);
    return offset < 0 ? std::max(0.0, current + offset) : 0;
}

void ShadowViewContainer::scrollViewDidScroll(double offset)
{
    m_shadowHeight = shadowHeightAt(offset, m_shadowHeight);
    Q_EMIT shadowHeightChanged();
}

} // namespace wexel
