// The values of parameters as text, by their types.
#include <gtest/gtest.h>

#include <cmath>

#include "frame/services/fixed_text.h"
#include "frame/services/parameter_text.h"

namespace {

std::optional<WideText> RealText(double number) {
    ProParamvalue value = {};
    value.type = PRO_PARAM_DOUBLE;
    value.value.d_val = number;
    return ParameterText(value);
}

std::optional<WideText> WholeText(int number) {
    ProParamvalue value = {};
    value.type = PRO_PARAM_INTEGER;
    value.value.i_val = number;
    return ParameterText(value);
}

TEST(ParameterText, GivesRealNumbersThreeDecimals) {
    EXPECT_EQ(RealText(1.5), WIDE("1.500"));
    EXPECT_EQ(RealText(0), WIDE("0.000"));
    EXPECT_EQ(RealText(-0.0004), WIDE("-0.000"));
    EXPECT_EQ(RealText(2.0006), WIDE("2.001"));
    EXPECT_EQ(RealText(0.0625), WIDE("0.062"));  // exactly between: to the even neighbour
    EXPECT_EQ(RealText(123456789.125), WIDE("123456789.125"));
}

TEST(ParameterText, WritesTheLargestNumberInFull) {
    const WideText text = RealText(std::ldexp(1.0, 1023)).value();
    EXPECT_EQ(text.size(), 308u + 4u);
    EXPECT_EQ(text.substr(0, 20), WIDE("89884656743115795386"));
    EXPECT_EQ(text.substr(308), WIDE(".000"));
}

TEST(ParameterText, WritesWholeNumbersAsTheyAre) {
    EXPECT_EQ(WholeText(0), WIDE("0"));
    EXPECT_EQ(WholeText(-42), WIDE("-42"));
    EXPECT_EQ(WholeText(2147483647), WIDE("2147483647"));
    EXPECT_EQ(WholeText(-2147483647 - 1), WIDE("-2147483648"));
}

TEST(ParameterText, LeavesTextsAsTheyStand) {
    ProParamvalue value = {};
    value.type = PRO_PARAM_STRING;
    PutText(WIDE(" Q235，热轧 "), value.value.s_val);
    EXPECT_EQ(ParameterText(value), WIDE(" Q235，热轧 "));
    PutText(WIDE(""), value.value.s_val);
    EXPECT_EQ(ParameterText(value), WIDE(""));
    // A record that is filled to its last place has no terminator.
    std::fill(std::begin(value.value.s_val), std::end(value.value.s_val), WideChar('x'));
    EXPECT_EQ(ParameterText(value), WideText(PRO_LINE_SIZE, 'x'));
}

TEST(ParameterText, AnswersYesAndNoInChinese) {
    ProParamvalue value = {};
    value.type = PRO_PARAM_BOOLEAN;
    value.value.l_val = 1;
    EXPECT_EQ(ParameterText(value), WIDE("是"));
    value.value.l_val = 0;
    EXPECT_EQ(ParameterText(value), WIDE("否"));
}

TEST(ParameterText, HasNoneForOtherTypes) {
    for (const ProParamvalueType type :
         {PRO_PARAM_NOTE_ID, PRO_PARAM_VOID, ProParamvalueType(49)}) {
        ProParamvalue value = {};
        value.type = type;
        EXPECT_EQ(ParameterText(value), std::nullopt) << type;
    }
}

}  // namespace
