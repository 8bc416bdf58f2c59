#include "DataCases.h"
#include "MathFunc.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>

namespace veskora {
namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Numbers, ValTakesTheLongestPrefixThatIsANumber)
{
    for (const auto &[text, value] : dataCases("leading_numbers.txt"))
        EXPECT_EQ(Val(text), std::strtod(value.c_str(), nullptr)) << text;
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
    for (const auto &[given, rounded] : dataCases("rounded_numbers.txt")) {
        std::istringstream words(given);
        std::string value;
        std::int16_t decimals = 0;
        words >> value >> decimals;
        EXPECT_DOUBLE_EQ(Stroggylopoiisi(std::stod(value), decimals), std::stod(rounded)) << given;
    }
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
