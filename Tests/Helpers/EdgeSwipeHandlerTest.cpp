#include <gtest/gtest.h>

#include "Helpers/WXLEdgeSwipeHandler.h"

using namespace wexel;

namespace {

/// A drag at one moment.
struct Drag final : PanGesture {
    Drag(GestureState state, const QPointF &translation) : m_state(state), m_translation(translation) { }
    GestureState state() const override { return m_state; }
    QPointF translation() const override { return m_translation; }
    void setEnabled(bool enabled) override { changes.push_back(enabled); }

    std::vector<bool> changes;

private:
    GestureState m_state;
    QPointF m_translation;
};

} // namespace

TEST(EdgeSwipeHandlerTest, aChangeBeyondFortyPointsInvokesAndCancelsTheDrag)
{
    WXLEdgeSwipeHandler handler;
    int invocations = 0;
    bool isCancelledBefore = false;
    const auto invokes = [&](GestureState state, const QPointF &translation) {
        Drag drag(state, translation);
        handler.edgeSwipHandlerShouldInvokeStart = [&] {
            ++invocations;
            isCancelledBefore = drag.changes == std::vector{false, true};
        };
        handler.swiped(drag);
        return std::exchange(invocations, 0) == 1 && std::exchange(isCancelledBefore, false);
    };
    EXPECT_FALSE(invokes(GestureState::Changed, {-39, 0}));
    EXPECT_FALSE(invokes(GestureState::Changed, {-40, 500})) << "neither the limit nor the vertical part";
    EXPECT_TRUE(invokes(GestureState::Changed, {-40.5, 0}));
    EXPECT_TRUE(invokes(GestureState::Changed, {40.5, 0}));
    for (const auto state : {GestureState::Possible, GestureState::Began, GestureState::Ended,
                             GestureState::Cancelled, GestureState::Failed})
        EXPECT_FALSE(invokes(state, {-100, 0}));
    handler.edgeSwipHandlerShouldInvokeStart = {};
    Drag unheard(GestureState::Changed, {-100, 0});
    handler.swiped(unheard);
    EXPECT_EQ(unheard.changes, std::vector({false, true}));
}
