#include "MathFunc.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

namespace veskora {
namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Numbers, ValTakesTheLongestPrefixThatIsANumber)
{
    struct Case
    {
        const char *text;
        double value;
    };
    for (const Case &c : {
             Case{"", 0},
             {"abc", 0},
             {"12abc", 12},
             {"  -3.5 m", -3.5},
             {"+5", 5},
             {".5", .5},
             {"5.", 5},
             {"1.2.3", 1.2},
             {"1e3", 1000},
             {"1E-2x", .01},
             {"2E", 2},
             {"2E+", 2},
             {"-", 0},
             {".", 0},
             {"- 5", 0},
             {"1,5", 1},
             {"inf", 0},
             {"nan", 0},
             {"0x10", 0},
             {"&HE0E0E0", 14737632},
             {"&h10", 16},
             {"&H8000000E", -2147483634.},
             {"&HFFFFFFFF", -1},
             {"&H123456789", 305419896},
             {"&H", 0},
             {"&Hzz", 0},
             {"-&H10", 0},
             {"1e400", infinity},
             {"-1e400", -infinity},
             {"1e-400", 0},
             {"1.79769313486232E+308", largest},
             {"-17976931348623.2E+295", -largest},
             {"1.79769313486233E+308", infinity},
             {"1e99999999999999999999", infinity},
             {"1e-99999999999999999999", 0},
             {"0e999", 0},
             {"0.0000000001e300", 1e290},
         })
        EXPECT_EQ(Val(c.text), c.value) << c.text;
    EXPECT_EQ(Val("1" + std::string(400, '0')), infinity);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
}

TEST(Numbers, AWholeItemIsANumberOrNot)
{
    for (const char *text :
         {"", " ", "abc", "1x", "1 2", "inf", "nan", "1e400", "&H10", "1e", "--1"})
        EXPECT_FALSE(numberFromWholeText(text)) << text;
    EXPECT_EQ(numberFromWholeText(" 2.1E+08 "), 2.1e8);
    EXPECT_EQ(numberFromWholeText("-2147483634"), -2147483634.);
    EXPECT_EQ(numberFromWholeText(numberText(largest)), largest);
}

TEST(Numbers, ASeparatorOfThousandsOrASecondPointIsNoEndOfANumber)
{
    for (const char *text : {"1.2.3", "-210 000 000", "1\u00A0000.5", "1\u202F000", "1'000",
                             "2 \u20190", "2.1 E8", "2 e-4"})
        EXPECT_TRUE(breaksOffAtSeparator(text)) << text;
    for (const char *text : {"", "12abc", "12 kN", "12 e", "1.5 ", "7 '", "x 1"})
        EXPECT_FALSE(breaksOffAtSeparator(text)) << text;
}

TEST(Numbers, NarrowingRefusesWhatASingleCannotHold)
{
    EXPECT_EQ(toSingle(0.1), 0.1F);
    EXPECT_EQ(toSingle(1e-60), 0.0F);
    for (const double value : {1e39, -1e39, infinity, std::nan("")})
        EXPECT_FALSE(toSingle(value)) << value;
}

TEST(Numbers, RoundingTakesTiesToTheEvenIntegerOf32Bits)
{
    struct Case
    {
        double value;
        int decimals;
        double rounded;
    };
    for (const Case &c : {
             Case{2.5, 0, 2},
             {3.5, 0, 4},
             {-2.5, 0, -2},
             {1.2345, 3, 1.234},
             {1234.5678, 1, 1234.6},
             {2147483647, 0, 2147483647.},
             {2147483648., 0, 0},
             {-2147483648., 0, -2147483648.},
             {3e6, 3, 0},
             {infinity, 2, 0},
             {std::nan(""), 2, 0},
             {1, 60, 0},
             {1, -60, 0},
         })
        EXPECT_DOUBLE_EQ(Stroggylopoiisi(c.value, static_cast<std::int16_t>(c.decimals)), c.rounded)
            << c.value << " to " << c.decimals;
}

TEST(Numbers, TextHasTheDigitsOfTheTypeInEveryLocale)
{
    std::setlocale(LC_ALL, "");
    EXPECT_EQ(numberText(210000000.0F), "2.1E+08");
    EXPECT_EQ(numberText(210000000.0), "210000000");
    EXPECT_EQ(numberText(0.1F), "0.1");
    EXPECT_EQ(numberText(1.0F / 3), "0.3333333");
    EXPECT_EQ(numberText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(numberText(-0.0), "0");
    EXPECT_EQ(numberText(1e-5), "1E-05");
    EXPECT_EQ(numberText(-12345678.0F), "-1.234568E+07");
    EXPECT_EQ(signedNumberText(0.5), " .5");
    EXPECT_EQ(signedNumberText(-0.25F), "-.25");
    EXPECT_EQ(signedNumberText(1000.0F), " 1000");
    EXPECT_EQ(signedNumberText(-0.0), " 0");
    EXPECT_EQ(signedNumberText(10.5), " 10.5");
    std::setlocale(LC_ALL, "C");
}

} // namespace
} // namespace veskora
