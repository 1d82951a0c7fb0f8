#include "Presentation/Coordinator/FlowView.h"

namespace wexel {

void FlowView::setBackdrop(const QImage &picture)
{
    m_backdrop = picture;
    Q_EMIT backdropChanged();
}

} // namespace wexel
