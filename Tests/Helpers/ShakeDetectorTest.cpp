#include <gtest/gtest.h>

#include <vector>

#include "Helpers/ShakeDetector.h"

using namespace wexel;

namespace {

constexpr double amplitude = 40;

struct ShakeDetectorTest : testing::Test {
    /// How often shaking is noticed while the value goes through these, one every `step`.
    int shakes(const std::vector<double> &values, ShakeDetector::Time step)
    {
        int count = 0;
        for (const double value : values)
            count += detector.moved(now += step, value) ? 1 : 0;
        return count;
    }

    ShakeDetector detector{amplitude};
    ShakeDetector::Time now{0};
    const ShakeDetector::Time quick{100};
};

} // namespace

TEST_F(ShakeDetectorTest, fourSwingsAreOneShakeAndTheNextNeedsFourNewOnes)
{
    const auto swing = [this](int number) {
        std::vector<double> values;
        for (int step = 1; step <= 10; ++step)
            values.push_back(number % 2 == 0 ? 10 * step : 100 - 10 * step);
        return shakes(values, ShakeDetector::Time(10));
    };
    (void)detector.moved(now, 0);
    std::vector<int> counts;
    for (int number = 0; number < 8; ++number)
        counts.push_back(swing(number));
    EXPECT_EQ(counts, std::vector({0, 0, 0, 1, 0, 0, 0, 1})) << "the rest of the fourth is no new swing";
}

TEST_F(ShakeDetectorTest, theFourthSwingCountsUntilASecondAfterTheFirst)
{
    EXPECT_EQ(shakes({0, 50, 0, 50}, quick), 0);
    now += ShakeDetector::Time(1000 - 200); // the first one counted two steps before
    EXPECT_EQ(shakes({0}, ShakeDetector::Time(0)), 1);
    EXPECT_EQ(shakes({50, 0, 50}, quick), 0);
    now += ShakeDetector::Time(1000 - 200 + 1);
    EXPECT_EQ(shakes({0}, ShakeDetector::Time(0)), 0) << "a millisecond late";
    EXPECT_EQ(shakes({50}, ShakeDetector::Time(0)), 1) << "the second to the fifth are within a second";
}

TEST_F(ShakeDetectorTest, otherMovementIsNoShake)
{
    const auto shakesAfterRest = [this](const std::vector<double> &values, ShakeDetector::Time step) {
        now += ShakeDetector::Time(10'000);
        return shakes(values, step);
    };
    EXPECT_EQ(shakesAfterRest({0, 39, 0, 39, 0, 39, 0, 39, 0}, quick), 0) << "too small";
    EXPECT_EQ(shakesAfterRest({0, 50, 100, 150, 200, 250, 300, 350}, quick), 0) << "one way";
    EXPECT_EQ(shakesAfterRest({300, 350, 300, 350, 300, 350, 300}, ShakeDetector::Time(400)), 0)
        << "too slow";
    EXPECT_EQ(shakesAfterRest({300, 250, 220, 250, 220, 250, 220, 250, 220}, quick), 0)
        << "wide at first, then small";
}
