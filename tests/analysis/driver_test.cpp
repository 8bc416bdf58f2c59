// The course of an analysis: what is said, in which order, and what is left behind.

#include "Analysis.h"
#include "AnalysisCommands.h"
#include "DataCases.h"
#include "Functions_Bres_Megista.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace veskora {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t black = 0, green = 32768, red = 255;

const std::string notSolved = "An error occured during the analysis process. Make sure that the "
                              "structure is well defined (not a mechanism) and can be analyzed.";
const std::string mechanism =
    "The analysis has been carried out successfully, yet some of the resultant displacements have "
    "excessive values. The structure is probably a mechanism.";
const std::string changedSince =
    "Model has been changed. Do you want to reanalyze before the process goes on?";

const std::string cantilever = "G 2.1e8 .01 1e-4; N 0 0 xxx; N 4 0 ooo 0 -10; E 1 2 1;";

std::string unconnected(int n)
{
    return "Node #" + std::to_string(n)
           + " is not connected to other nodes with elements and "
             "could probably cause problems to the solution process.";
}

std::string question(int n)
{
    return unconnected(n) + " Do you want that node to be deleted before starting the analysis?";
}

using Driver = StoreTest;

TEST_F(Driver, AFinishedAnalysisLogsItsTimesAndClearsItsTables)
{
    for (const auto &[start, finish, took] :
         {std::tuple{TimeOfDay{"09:59:59", 35999.25}, TimeOfDay{"10:00:01", 36000.5}, "1.25"},
          {{"23:59:59", 86399.5}, {"00:00:00", .25}, "0.75"}}) { // over midnight
        buildModel(cantilever);
        desktop.times = {start, finish};
        desktop.log.clear();
        desktop.events.clear();
        Epilisi();
        EXPECT_THAT(desktop.log,
                    ElementsAre(LogLine{"ANALYSIS", black, true},
                                LogLine{"Start:  " + start.text, black},
                                LogLine{"Finish:  " + finish.text, black},
                                LogLine{std::string("Total time:  ") + took + " sec", black}));
        EXPECT_THAT(desktop.events, ElementsAre("analysing", "repaint window", "repaint log",
                                                "hourglass", "pointer", "idle"));
        EXPECT_FALSE(Allagi_Montelou);
        EXPECT_NEAR(Akrotata(6), -10 * 64 / 3.0 / 21000, 1e-12);
        for (int d = 1; d <= 600; ++d) {
            EXPECT_GT(K_Oliko.stretch(d).first, K_Oliko.stretch(d).last);
            EXPECT_GT(K_ff.stretch(d).first, K_ff.stretch(d).last);
        }
        EXPECT_EQ(std::as_const(K_sf)(1, 1) + Seira_Vathmon(1) + U_Eleftheroi(2) + T_Pinakas(1, 1),
                  0);
    }
}

TEST_F(Driver, WhatCannotBeSolvedIsSaidAndLeavesTheOldResults)
{
    for (const auto &[model, reason] : dataCases("not_solved.txt")) {
        SCOPED_TRACE(reason);
        buildModel(model);
        Allagi_Montelou = true;
        Metatopiseis(1) = 42;
        Akrotata(1) = 43;
        desktop.log.clear();
        desktop.times = {{"10:00:00", 0}, {"10:00:05", 5}};
        desktop.expectMessage(notSolved, Icon::critical);
        Epilisi();
        EXPECT_THAT(desktop.log,
                    ElementsAre(LogLine{"ANALYSIS", black, true},
                                LogLine{"Start:  10:00:00 , Termination: 10:00:05", black},
                                LogLine{notSolved, red}));
        EXPECT_TRUE(Sfalma_Epilisis && Allagi_Montelou);
        EXPECT_EQ(Metatopiseis(1), 42);
        EXPECT_EQ(Akrotata(1), 43);
        EXPECT_EQ(desktop.events.back(), "idle");
    }
}

TEST_F(Driver, AFaultOutsideTheSolverLeavesTheAnalysisWithPointerAndToolbarRestored)
{
    for (const auto &[model, says] : dataCases("analysis_faults.txt")) {
        buildModel(model);
        desktop.events.clear();
        EXPECT_THAT(Epilisi, testing::ThrowsMessage<Fault>(testing::HasSubstr(says))) << model;
        EXPECT_THAT(desktop.events, testing::IsSupersetOf({"pointer", "idle"}));
    }
}

TEST_F(Driver, ResultsThatAreNoNumbersAreNeverShown)
{
    buildModel("G 1e-160 1 1; N 0 0 xxx; N 1 0 oxx 1; E 1 2 1"); // no square can take this u
    desktop.expectMessage(mechanism + "\r\n\r\nmax.(u) = u(4) = 1E+160", Icon::critical);
    EXPECT_THROW(Epilisi(), Fault);
    EXPECT_TRUE(Allagi_Montelou);
}

TEST_F(Driver, AProbableMechanismIsReportedAboveTenMillion)
{
    for (const double load : {-1e7, -10000001.}) { // on a spring of 1: u = load
        buildModel("N 0 0 xox 0 " + std::to_string(load) + "; S 1 0 1 0");
        desktop.log.clear();
        const bool warns = load < -1e7;
        if (warns)
            desktop.expectMessage(mechanism + "\r\n\r\nmax.(u) = u(2) = 10000001", Icon::critical);
        Epilisi();
        EXPECT_EQ(desktop.log.back() == (LogLine{mechanism, red}), warns);
        EXPECT_FALSE(Allagi_Montelou);
        EXPECT_EQ(Akrotata(6), load);
    }
}

// Displacements of three nodes, and M, Q, N as diagrams show them at six ends; one of each is all
// above 0, one all below.
TEST_F(Driver, ExtremesAreThoseOfWhateverRowHasThem)
{
    constexpr double u[3][3] = {{3, -1, 2}, {5, -4, -9}, {12, -5, 8}};
    constexpr double resultants[6][3] = {{1, -6, 4},  {-2, -3, 6}, {7, -8, 9},
                                         {-9, -1, 2}, {3, -9, 3},  {5, -7, 1}};
    Arithmos_Kombon = Arithmos_Stoixeion = 3;
    for (int turn = 0; turn < 6; ++turn) {
        for (int n = 0; n < 3; ++n)
            for (int k = 0; k < 3; ++k)
                Metatopiseis(freedomOf(n + 1, k + 1)) = u[(n + turn) % 3][k];
        for (int end = 0; end < 6; ++end) {
            const auto &[M, Q, N] = resultants[(end + turn) % 6];
            const int sign = end % 2 == 0 ? 1 : -1, column = end % 2 == 0 ? 1 : 4;
            Entasi_Topiki(end / 2 + 1, column) = -sign * N;
            Entasi_Topiki(end / 2 + 1, column + 1) = sign * Q;
            Entasi_Topiki(end / 2 + 1, column + 2) = -sign * M;
        }
        storeExtremes();
        std::vector<double> all;
        for (int number = 1; number <= 19; ++number)
            all.push_back(Akrotata(number));
        EXPECT_THAT(all, ElementsAre(12, 12, 3, 5, -1, -5, 13, 9, 8, -9, // of x, y, both, rotation
                                     9, 7, -9, 9, -1, -9, 9, 9, 1))      // of M, Q, N
            << turn;
    }
    buildModel("N 0 0 oox 5; S 1 1 1"); // without elements
    Epilisi();
    EXPECT_EQ(Akrotata(extreme::maxUx), 5);
    // A cantilever pulled and pressed down at its end: M and Q by the drawing's sign rule.
    buildModel("G 2.1e8 .01 1e-4; N 0 0 xxx; N 4 0 ooo 7 -10; E 1 2 1;");
    Epilisi();
    const std::array<double, 9> ofCantilever = {40, 0, -40, 10, 10, 10, 7, 7, 7};
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(Akrotata(11 + i), ofCantilever[static_cast<std::size_t>(i)], 1e-9) << 11 + i;
}

using Commands = StoreTest;

TEST_F(Commands, AnEmptyModelIsNotAnalysed)
{
    Button_Epilisi();
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(Commands, UnconnectedNodesAreOfferedFromTheFirstOnAfterEachDeletion)
{
    const std::string loose =
        "G 2.1e8 .01 1e-4; N 9 9 xxx; N 0 0 xxx; N 8 8 xxx; N 4 0 ooo 0 -10; E 2 4 1;";
    buildModel(loose);
    desktop.expectMessage(question(1), Icon::question, Answer::yes);
    desktop.expectMessage(question(2), Icon::question, Answer::yes);
    Button_Epilisi();
    EXPECT_EQ(Arithmos_Kombon, 2);
    EXPECT_EQ(std::ranges::count(desktop.events, "redraw"), 2);
    EXPECT_EQ(desktop.log[0], (LogLine{unconnected(1), red}));
    EXPECT_EQ(desktop.log[1], (LogLine{"Node deleted: #1. Nodes renumbered: #2 to # 4.", green}));
    EXPECT_EQ(desktop.log[2], (LogLine{"Nodes 2 to 4 are now 1 to 3.", green}));
    EXPECT_EQ(desktop.log[5], (LogLine{"Node 3 is now 2.", green}));
    EXPECT_FALSE(Allagi_Montelou);

    buildModel(loose); // No looks no further
    desktop.events.clear();
    desktop.expectMessage(question(1), Icon::question, Answer::no);
    Katastasi_Provolis = view::M;
    Button_Epilisi();
    EXPECT_EQ(Arithmos_Kombon, 4);
    EXPECT_FALSE(Allagi_Montelou);
    EXPECT_EQ(desktop.events.back(), "redraw"); // the diagram on show is the new one

    buildModel(loose);
    Allagi_Montelou = true;
    desktop.expectMessage(question(1), Icon::question, Answer::cancel);
    Button_Epilisi();
    EXPECT_TRUE(Allagi_Montelou);

    buildModel("N 0 0"); // the last node goes, and there is nothing to solve
    desktop.events.clear();
    desktop.expectMessage(question(1), Icon::question, Answer::yes);
    desktop.expectMessage(notSolved, Icon::critical);
    Button_Epilisi();
    EXPECT_EQ(Arithmos_Kombon, 0);
    EXPECT_EQ(std::ranges::count(desktop.events, "redraw"), 1); // of the deletion alone
}

TEST_F(Commands, WhatCanMoveFreelyIsTold)
{
    desktop.answerAnything = [] { return Answer::ok; };
    for (const auto &[model, said] : dataCases("motion_log.txt")) {
        buildModel(model);
        desktop.log.clear();
        Button_Epilisi();
        EXPECT_EQ(mechanismSuspected, said.starts_with("suspected")) << model;
        auto line = desktop.log.end();
        for (auto end = said.size(), bar = said.rfind(" | "); bar != std::string::npos;
             end = bar, bar = said.rfind(" | ", bar - 1))
            EXPECT_THAT((--line)->text, testing::StartsWith(said.substr(bar + 3, end - bar - 3)))
                << model;
    }
}

TEST_F(Commands, OldResultsAreOfferedANewAnalysis)
{
    buildModel(cantilever);
    desktop.expectMessage(changedSince, Icon::exclamation, Answer::no);
    Erotisi_Epanepilisis();
    EXPECT_TRUE(Allagi_Montelou);
    desktop.expectMessage(changedSince, Icon::exclamation, Answer::yes);
    Erotisi_Epanepilisis();
    EXPECT_FALSE(Allagi_Montelou);
    Erotisi_Epanepilisis(); // asks nothing
}

} // namespace
} // namespace veskora
