#include "Anafora.h"
#include "Csv.h"
#include "Metablites.h"
#include "Models.h"
#include "ScriptedDesktop.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <gmock/gmock.h>
#include <locale.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#endif
#endif

namespace veskora {
namespace {

/// A model with every kind of row, and results that no analysis gave but that try every field.
void buildEveryField()
{
    buildModel("G 2.1e8 .01 1e-4; G .333333333333333333 1e20 1.5e-5;"
               "N 0 0 xxx; N 4 -.5 ooo 0 -10 0; N 2.1e8 0 xoo; N 2.1e8 1 oxo 5 0 .125; N 0 5 oox;"
               "N 4 5 xxo; N 0 9 xox; N 4 9 oxx 0 0 -3; S 2 -1 -1 -1; S 4 2.5 7 0; S 7 0 2.1e8 0;"
               "S 8 0 0 .5; E 1 2 1; E 3 4 2 1 0; E 5 6 1 0 1 0 -12; E 7 8 2 1 1 .5 0");
    for (const auto &[freedom, value] :
         {std::pair{2, -.25}, {3, 1e-7}, {4, 123456789.}, {10, 2.}, {11, 3.}, {24, 4.}})
        Metatopiseis(freedom) = value;
    for (int e = 1; e <= 4; ++e) {
        const std::array<double, 6> forces = {e + .5, -e / 3., 0, -e - .5, 1 / 3., e * 1e15};
        std::ranges::copy(forces, Entasi_Topiki.row(e).begin());
    }
    for (int n = 1; n <= 8; ++n)
        for (int k = 1; k <= 3; ++k)
            Antidraseis(n, k) = n + k / 10.;
}

std::string wholeReport()
{
    std::string text;
    for (int kind = 0; kind <= 5; ++kind)
        text += Anafora_Keimenou(kind);
    return text;
}

using Report = StoreTest;

TEST_F(Report, EveryFieldStandsWhereItBelongs)
{
    buildEveryField();
    EXPECT_EQ(reportFileText(wholeReport()), contentOf(TEST_DATA "/reports/every_field.txt"));
}

TEST_F(Report, TextsOfAPackAreCutAndPaddedByCharacters)
{
    buildEveryField();
    Nai_Agglika = false;
    Pinakas_Glossas(318) = "Κόμβοι:";
    Pinakas_Glossas(319) = "A label of more than twenty-eight characters";
    Pinakas_Glossas(375) = "Ράβδος με αρθρώσεις στα δύο άκρα";
    const std::string text = Anafora_Keimenou(1);
    EXPECT_THAT(text, testing::HasSubstr("\r\nΚόμβοι:                     8\r\n"));
    EXPECT_THAT(text, testing::HasSubstr("\r\nA label of more than twenty-4\r\n"));
    EXPECT_THAT(text, testing::HasSubstr("      Ράβδος με αρθρώσεις στα δ2       \r\n"));
}

TEST_F(Report, NumbersHaveTheSeparatorOfTheRegion)
{
    buildEveryField();
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    ::setenv("LOCPATH", LOCALES, 1);
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
    const __lsan::ScopedDisabler libraryLosesPaths; // a few bytes for each look into LOCPATH
#endif
#endif
    const locale_t german = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    const std::string text = wholeReport();
    const CsvTable table = {{"a,b", "x;y", "2.5", "-1e-05", "3 to 4.5"}};
    const std::string regional = csvText(table, {.isRegional = true}),
                      international = csvText(table, {.lineEnd = CsvForm::lf});
    ::unsetenv("LC_ALL");
    ::unsetenv("LOCPATH");
    EXPECT_STREQ(std::localeconv()->decimal_point, ".");
    if (german == nullptr)
        GTEST_SKIP() << "needs the locale de_DE.UTF-8";
    ::freelocale(german);
    EXPECT_THAT(text, testing::HasSubstr(" ,333333333333333 "));
    EXPECT_THAT(text, testing::HasSubstr("2,1E+08"));
    EXPECT_EQ(regional, "a,b;\"x;y\";2,5;-1e-05;3 to 4.5\r\n");
    EXPECT_EQ(international, "\"a,b\",x;y,2.5,-1e-05,3 to 4.5\n");
}

} // namespace
} // namespace veskora
