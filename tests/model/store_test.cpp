#include "Fault.h"
#include "Functions.h"
#include "Metablites.h"
#include "Models.h"
#include "ModelText.h"
#include "Registry.h"
#include "ScriptedDesktop.h"

namespace veskora {
namespace {

TEST(Tables, AnIndexOutOfRangeIsAFault)
{
    for (const auto &[row, column] : {std::pair{0, 1}, {201, 1}, {1, 0}, {1, 9}, {-1, -1}})
        EXPECT_THROW(Komboi(row, column) = 1, Fault) << row << ", " << column;
    EXPECT_THROW(K_ff(1, 602) = 1, Fault);
    EXPECT_THROW((void)K_ff.read(1, 0, 5), Fault);
    EXPECT_NO_THROW(P_Eleftheroi(0) = 0);
}

TEST(Tables, AClearedWorkingTableIsZeroWhereverItWasWritten)
{
    K_Oliko(3, 600) = 1;
    K_Oliko(3, 5) = 2;
    K_Oliko.write(600, 1, 600)[0] = 3;
    K_Oliko.unmarked(7)[99] = 4;
    K_Oliko.markWritten(7, 100, 100);
    K_Oliko.clear();
    for (int row = 1; row <= 600; ++row)
        for (const double value : K_Oliko.read(row, 1, 600))
            ASSERT_TRUE(isPositiveZero(value)) << row;
}

using Store = StoreTest;

TEST_F(Store, LogLinesBeginWithALineEndABlankAndTheirColour)
{
    Grammi_Log("first", logColour::navy, true, true);
    Grammi_Log("second", logColour::red);
    Grammi_Log("more", logColour::black, false, true);
    Grammi_Log("third", logColour::grey);
    EXPECT_EQ(
        desktop.log,
        (std::vector<LogLine>{{"first", 8388608, true}, {"second more", 255}, {"third", 8421504}}));
}

TEST_F(Store, APackGivesEveryTextAndAnEmptyOneForWhatItLeavesOut)
{
    Pinakas_Glossas(2500) = "letzter";
    EXPECT_EQ(Metafrasi(2500, "last"), "last");
    Nai_Agglika = false;
    EXPECT_EQ(Metafrasi(2500, "last"), "letzter");
    EXPECT_EQ(Metafrasi(1, "first"), "");
}

// The text of a new user's settings as a file of the start values has them, and a store in which
// every table was written to.
TEST_F(Store, EverythingGoesBackToItsStart)
{
    Akrotata(1) = Akrotata(19) = Metatopiseis(600) = Entasi_Topiki(300, 6) = Antidraseis(200, 3) =
        Seira_Vathmon(600) = 5;
    Istoriko_Zoom(100, 3) = Entasi_Oliki(1, 1) = U_Eleftheroi(1) = P_Oliko(1) = 5;
    Omades(300, 3) = 1;
    Elatiria(200, 3) = Stoixeia(300, 9) = 1;
    for (const Setting &setting : settings)
        std::visit([](auto *value) { *value = 0; }, setting.value);
    Glossa = "Deutsch";
    Nai_Agglika = false;
    Pinakas_Glossas(1) = "Datei";
    resetStore();
    EXPECT_EQ(Glossa + Metafrasi(1, " File") + Pinakas_Glossas(1), "English File");
    const double sum = Akrotata(1) + Akrotata(19) + Metatopiseis(600) + Entasi_Topiki(300, 6)
                       + Antidraseis(200, 3) + Seira_Vathmon(600) + Istoriko_Zoom(100, 3)
                       + Entasi_Oliki(1, 1) + U_Eleftheroi(1) + P_Oliko(1) + Omades(300, 3)
                       + Elatiria(200, 3) + Stoixeia(300, 9);
    EXPECT_EQ(sum, 0);
    EXPECT_EQ(Istoriko_Zoom(0, 1), 100);
    buildModel("G 2.1e8 .01 1e-4; N 0 0 xxx; N 4 0 ooo 0 -10; S 2 0 5000 0; E 1 2 1");
    EXPECT_EQ(modelText(), contentOf(TEST_DATA "/small.vsk"));
}

TEST_F(Store, SettingsComeFromTheUsersStoreAndADamagedOneIsMended)
{
    desktop.settingsStore = {
        {"Rithmiseis/nai_grid", "FALSE"}, {"Rithmiseis/nai_miki", "yes"},
        {"Rithmiseis/kannab", "2.5 m"},   {"Rithmiseis/Ena_cm_posa_KN_Q", "0"},
        {"Rithmiseis/dekadika_M", "13"},  {"Rithmiseis/dekadika_Q", "14"},
        {"Rithmiseis/dekadika_N", "x"},   {"Rithmiseis/xroma_M", "&HFF"},
        {"Rithmiseis/xroma_Q", "1e300"},  {"Rithmiseis/Ena_cm_posa_KN_N", "1e60"},
        {"Rithmiseis/xroma_N", "&H red"}, {"Rithmiseis/xroma_kombon", "blue"},
    };
    Fortosi_Rithmiseon();
    EXPECT_FALSE(nai_grid || nai_miki);
    EXPECT_EQ((std::vector<double>{kannab, Ena_cm_posa_KN_Q, Ena_cm_posa_KN_N}),
              (std::vector<double>{2.5, 100, 100}));
    EXPECT_EQ((std::vector{dekadika_M, dekadika_Q, dekadika_N}),
              (std::vector<std::int16_t>{13, 3, 3}));
    EXPECT_EQ((std::vector{xroma_M, xroma_Q, xroma_N, xroma_kombon}),
              (std::vector<double>{255, 10499638, 2852397, 16711680}));
}

} // namespace
} // namespace veskora
