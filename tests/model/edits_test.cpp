#include "Analysis.h"
#include "ArcEdit.h"
#include "Diagrafes.h"
#include "Metablites.h"
#include "ModelEdits.h"
#include "Models.h"
#include "ModelText.h"
#include "RowQueries.h"
#include "ScriptedDesktop.h"

#include <functional>
#include <numeric>

namespace veskora {
namespace {

using Edits = StoreTest;

TEST_F(Edits, ChangeTheRowsAndSayWhatCannotBe)
{
    const std::string frame = "G 1 1 1; G 2 2 2; N 0 0 xox 5; N 3 6; N 3e38 0; S 1 0 7;";
    // Nothing but hinges meets at 3 and 5, where a spring holds the rotation; 4 has no element.
    const std::string truss = "G 1 1 1; G 2 2 2; N 0 0 xxo; N 3 0; N 3 3; N 9 9; N 0 3; S 5 0 0 5;";
    const std::string rigid = "E 1 2 1 0 0 0 -2; E 2 3 2 0 1; E 3 5 1 1 1 0 -2; E 1 5 1 0 1";
    const std::string hinged = "E 1 2 1 1 1 0 -2; E 2 3 2 0 1; E 3 5 1 1 1 0 -2; E 1 5 1 1 1";
    const std::string loaded = "E 1 2 1 1 1 0 -2; E 2 3 2 0 1; E 3 5 1 1 1 0 -2; E 1 5 1 1 1 0 -2";
    const auto rows = [](const std::vector<int> &changed) { // 13 for rows 1 and 3
        return std::accumulate(changed.begin(), changed.end(), 0,
                               [](int digits, int row) { return 10 * digits + row; });
    };
    const auto done = [](auto edit) { return [edit] { return edit(), 0; }; };
    const auto arc = [](bool closes) {
        return [closes] { return addArc({{1, 0}, {0, 1}, {-1, 0}}, closes, 2), 0; };
    };
    const auto move = [](const std::vector<int> &nodes, float dx, float dy) {
        return [=] { return moveNodes(nodes, dx, dy); };
    };
    // Deletions are named as the log tells them; a reference to the deleted row itself stays.
    const std::string groups = "G 1 1 1; G 2 2 2; G 3 3 3;", nodes = "N 2 0 oxo 2; N 3 0; ";
    const std::string three = groups + "N 1 0 xoo 1; " + nodes;
    const std::string four = three + "N 4 0 xxx 4; S 4 7 8 9; ";
    const std::string whole = four + "E 2 4 3 0 1 5 6; E 4 2 1 1 0 7 8; E 1 2 3";
    // Name, model before, edit, its answer, and model after, empty where nothing changes.
    using Case = std::tuple<const char *, std::string, std::function<int()>, int, std::string>;
    for (const auto &[name, before, edit, answer, expected] : {
             Case{"node", frame, [] { return addNode(1, 2); }, 4, frame + "N 1 2"},
             {"element", frame, [] { return addElement(3, 1, 2); }, 1, frame + "E 3 1 2"},
             {"support", "N 0 0 xox 5", [] { return stepSupport(1); }, 1, "N 0 0 oxx 5"},
             {"support before", "N 0 0 oxx", [] { return stepSupport(1, true); }, 1, "N 0 0 xox"},
             {"support before the first", "N 0 0", [] { return stepSupport(1, true); }, 1,
              "N 0 0 xxx"},
             {"a support for springs", "N 0 0 xoo; S 1 1 2 3", [] { return setSupport(1, "xxo"); },
              1, "N 0 0 xxo; S 1 1 0 3"},
             {"the same support", "N 0 0 xxo; S 1 1 2 3", [] { return setSupport(1, "xxo"); }, 0,
              ""},
             {"rotations at hinges", truss + rigid,
              [rows] { return rows(holdRotations(nodesOfHinges())); }, 3,
              "G 1 1 1; G 2 2 2; N 0 0 xxo; N 3 0; N 3 3 oox; N 9 9; N 0 3; S 5 0 0 5;" + rigid},
             {"hinges of a group", truss + rigid,
              [rows] { return rows(hingeBothEnds(elementsOfGroup(1))); }, 14, truss + hinged},
             {"no new hinges", truss + hinged,
              [rows] { return rows(hingeBothEnds(elementsOfGroup(1))); }, 0, ""},
             {"loads of a group", truss + hinged,
              [rows] { return rows(shareLoads(1, elementsOfGroup(1))); }, 4, truss + loaded},
             {"a height", "N 0 1; N 0 2; N 5 1.0005", [rows] { return rows(nodesAtHeightOf(1)); },
              13, ""},
             {"last support", "N 0 0 xxx", [] { return stepSupport(1); }, 1, "N 0 0"},
             {"move", "N 0 0; N .1 1; N 16777216 3", move({2, 3}, .5F, 0), 0,
              "N 0 0; N .6 1; N 16777216 3"}, // a Single keeps no half
             {"too far in x", frame, move({1, 3}, 3e38F, 1), node::x, ""},
             {"too far in y", "N 0 3e38", move({1}, 0, 3e38F), node::y, ""},
             {"merge", "G 1 1 1; N 0 0; N 2 0; N 4 2; E 1 2 1; E 3 1 1 1",
              done([] { mergeNodes(3, 1, middleOf(3, 1)); }), 0,
              "G 1 1 1; N 0 0; N 2 0; N 2 1; E 3 2 1; E 3 3 1 1"},
             {"no middle", frame, [] { return middleOf(3, 3) ? 1 : 0; }, 0, ""},
             {"divide", frame + "E 1 2 2 1 1 7 8", done([] { divideElement(1, 3); }), 0,
              frame + "N 1 2; N 2 4; E 1 4 2 1 0 7 8; E 4 5 2 0 0 7 8; E 5 2 2 0 1 7 8"},
             {"arc", frame, arc(false), 0, frame + "N 1 0; N 0 1; N -1 0; E 4 5 2; E 5 6 2"},
             {"circle", frame, arc(true), 0,
              frame + "N 1 0; N 0 1; N -1 0; E 4 5 2; E 5 6 2; E 6 4 2"},
             {"Node deleted: #1. Nodes renumbered: #2 to # 4.", whole,
              done([] { Diagrafi_Kombou(1); }), 0,
              groups + nodes + "N 4 0 xxx 4; S 3 7 8 9; E 1 3 3 0 1 5 6; E 3 1 1 1 0 7 8; E 1 1 3"},
             {"Node deleted: #4.", whole, done([] { Diagrafi_Kombou(4); }), 0,
              three + "E 2 4 3 0 1 5 6; E 4 2 1 1 0 7 8; E 1 2 3"},
             {"Element deleted: #1. Elements renumbered: #2 to # 3.", whole,
              done([] { Diagrafi_Stoixeiou(1); }), 0, four + "E 4 2 1 1 0 7 8; E 1 2 3"},
             {"Group deleted: #2. Groups renumbered: #3.", whole, done([] { deleteGroup(2); }), 0,
              "G 1 1 1; G 3 3 3; N 1 0 xoo 1; " + nodes
                  + "N 4 0 xxx 4; S 4 7 8 9; E 2 4 2 0 1 5 6; E 4 2 1 1 0 7 8; E 1 2 2"},
         }) {
        SCOPED_TRACE(name);
        buildModel(expected.empty() ? before : expected);
        const std::string after = modelText();
        buildModel(before);
        // Rows behind the last are new ones whatever they held.
        Komboi(Arithmos_Kombon + 1, node::Fx) = Elatiria(Arithmos_Kombon + 1, 1) = 9;
        Stoixeia(Arithmos_Stoixeion + 1, element::hingeI) = 1;
        Stoixeia(2, element::used + 1) = 4; // a column that nobody uses
        Allagi_Montelou = false;
        desktop.log.clear();
        EXPECT_EQ(edit(), answer);
        EXPECT_EQ(modelText(), after);
        EXPECT_EQ(Allagi_Montelou, !expected.empty());
        EXPECT_EQ(Stoixeia(2, element::used + 1), 4);
        if (desktop.log.empty())
            continue;
        EXPECT_EQ(desktop.log.back(), (LogLine{name, 32768}));
        EXPECT_EQ(Komboi(Arithmos_Kombon + 1, node::x), 0);
        EXPECT_EQ(Elatiria(4, 1), Arithmos_Kombon == 4 ? 7 : 0);
        EXPECT_EQ(Stoixeia(Arithmos_Stoixeion + 1, element::group), 0);
        EXPECT_EQ(Omades(Arithmos_Omadon + 1, group::E), 0);
    }
}

TEST_F(Edits, ElementsAreDrawnInTheGroupThatWasChosenWhileItIsThere)
{
    buildModel("G 1 1 1; G 2 2 2; G 3 3 3; G 4 4 4");
    drawnGroup = 3;
    for (const auto &[gone, left] : {std::pair{4, 3}, {1, 2}, {2, 1}}) {
        deleteGroup(gone);
        EXPECT_EQ(groupToDraw(), left) << gone;
    }
    drawnGroup = 2; // whose making was taken back
    EXPECT_EQ(groupToDraw(), 1);
}

// Dividing is not to change the structure: end forces at the old ends stay.
TEST_F(Edits, ADividedElementKeepsItsEndForces)
{
    buildModel("G 2e8 .01 1e-4; N 0 0 xxx; N 1 4; N 7 5 oxo; N 7 0 xxx; E 1 2 1; "
               "E 2 3 1 0 1 -3 -20; E 4 3 1 1 0 2 0");
    analyse();
    const auto before = Entasi_Topiki;
    divideElement(2, 4);
    divideElement(3, 4);
    analyse();
    // Elements 2 and 3 keep end i; 4 to 6 and 7 to 9 are their new pieces.
    for (const auto &[e, last] : {std::pair{1, 1}, {2, 6}, {3, 9}})
        for (int i = 1; i <= 3; ++i) {
            constexpr double roundOff = 1e-4; // kN, kNm; the new coordinates are Singles
            EXPECT_NEAR(Entasi_Topiki(e, i), before(e, i), roundOff) << e << " " << i;
            EXPECT_NEAR(Entasi_Topiki(last, 3 + i), before(e, 3 + i), roundOff) << e << " " << i;
        }
}

TEST_F(Edits, AnArcRunsCounterClockwiseOrIsRefused)
{
    const Arc quarter = arcAround(0, 0, 1, 0, 0, 2);
    // In one direction, but for the last digits of the angles.
    const Arc circle = arcAround(0, 0, .1, .3, .2, .6);
    using enum ArcRefusal;
    using Case = std::tuple<Arc, double, ArcRefusal, Place>; // and the last of its nodes
    for (const auto &[arc, elements, expected, end] :
         {Case{quarter, 1, none, {6.123234e-17F, 1}},
          {arcAround(1, 1, 1, 3, 5, 1), 3, none, {3, 1}},
          {circle, 2, none, {-.1F, -.3F}},
          {circle, 1, badNumber, {}},
          {arcAround(2, 2, 2, 2, 5, 5), 3, noLength, {}},
          {arcAround(1e7, 1e7, 10000000.1, 1e7, 1e7, 2e7), 2, noLength, {}},
          {quarter, 200, nodeLimit, {}},
          {circle, 201, nodeLimit, {}},
          {arcAround(3e38, 0, 1e37, 0, 3.3e38, 0), 9, overflow, {}}}) {
        SCOPED_TRACE(testing::Message() << arc.start << " " << arc.R << " " << elements);
        const auto [refusal, places] = arcNodes(arc, elements);
        EXPECT_EQ(refusal, expected);
        const Place last = places.empty() ? Place{} : places.back();
        EXPECT_FLOAT_EQ(last.x, end.x);
        EXPECT_FLOAT_EQ(last.y, end.y);
    }
}

} // namespace
} // namespace veskora
