#include <gtest/gtest.h>

#include "Helpers/HexColor.h"

using namespace wexel;

namespace {

TEST(HexColor, SkipsTheFirstCharacterAndReadsTheRestAsANumber)
{
    const struct {
        const char *text;
        QRgb color;
    } cases[] = {
        {"#FFFFFF", 0xFFFFFFFF}, {"6182f1", 0xFF0182F1},    {"#", 0xFF000000},
        {"", 0xFF000000},        {"#12345678", 0xFF345678}, {"#12G456", 0xFF000012},
        {"#abc", 0xFF000ABC},    {"#FF112233", 0xFF112233}, {"#123456789ABCDEF", 0xFFFFFFFF},
        {"# 12", 0xFF000000},    {"#-1", 0xFF000000},       {"#\xC3\xA9", 0xFF000000},
    };
    for (const auto &[text, color] : cases)
        EXPECT_EQ(colorWithHexValue(QString::fromUtf8(text)).rgba(), color) << text;
}

} // namespace
