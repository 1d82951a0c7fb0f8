#include "Helpers/WXLEdgeSwipeHandler.h"

#include <cmath>

namespace wexel {

const double HoriziontalSwipeTranslation = 40.0;

void WXLEdgeSwipeHandler::swiped(PanGesture &gesture) const
{
    if (gesture.state() == GestureState::Changed)
        handleEdgeSwipeChange(gesture);
}

void WXLEdgeSwipeHandler::handleEdgeSwipeChange(PanGesture &gesture) const
{
    if (std::abs(gesture.translation().x()) <= HoriziontalSwipeTranslation)
        return;
    gesture.setEnabled(false); // cancels it, so that one swipe counts once
    gesture.setEnabled(true);
    if (edgeSwipHandlerShouldInvokeStart)
        edgeSwipHandlerShouldInvokeStart();
}

} // namespace wexel
