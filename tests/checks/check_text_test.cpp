#include "CheckText.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "ScriptedDesktop.h"

#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

namespace veskora {
namespace {

using testing::HasSubstr;
using testing::Not;

using enum FindingKind;
using Shape = Motion::Shape;
using Cause = Motion::Cause;
using Way = Motion::Way;

using CheckTexts = StoreTest;

Finding motion(FindingKind kind, Shape shape, Cause cause, const std::vector<Motion::Move> &moves,
               double x = 0, double y = 0, int centre = 0, int count = 1)
{
    return {kind, Severity::fault,
            {},   {2, 3},
            {},   Motion{shape, cause, count, 0, moves, x, y, centre, {}, {}}};
}

Finding slip(FindingKind kind, std::vector<int> nodes, std::vector<int> elements = {},
             std::vector<int> groups = {})
{
    return {kind, Severity::note, nodes, elements, groups, {}};
}

std::vector<Motion::Move> moves(int first, int last, Way way)
{
    std::vector<Motion::Move> all;
    for (int n = first; n <= last; ++n)
        all.push_back({n, way});
    return all;
}

// The same words from nodes near and far, one and many; the accepted text is for people to read.
TEST_F(CheckTexts, TellsTheRowsInWholeSentences)
{
    Arithmos_Kombon = maxNodes; // what moves is a part of the structure
    using enum Motion::Shape;
    using enum Motion::Cause;
    const auto scattered = rowsWhere(60, [](int row) { return row % 2 == 1; });
    std::vector<Finding> findings = {
        motion(freeMotion, turning, onlyHinges, {{4, Way::turns}}),
        motion(freeMotion, turning, onlyHinges, moves(1, 100, Way::turns)),
        motion(freeMotion, shift, noSupport, moves(2, 4, Way::alongX), 1, 0),
        motion(freeMotion, shift, noSupport, moves(2, 3, Way::oblique), .6, .8),
        motion(freeMotion, turn, noSupport, moves(1, 3, Way::oblique), 1. / 3, 4),
        motion(freeMotion, turn, hinges, moves(1, 3, Way::oblique), 0, 4, 2),
        motion(freeMotion, turn, hinges, moves(6, 7, Way::alongY), 0, 4, 7),
        motion(freeMotion, shift, hinges, moves(1, 8, Way::alongY), 0, 1, 0, 7),
        motion(freeMotion, shift, noElement, {{6, Way::alongX}}, 1, 0, 0, 3),
        motion(freeMotion, linkage, hinges,
               {{3, Way::alongX}, {2, Way::alongX}, {4, Way::turns}, {1, Way::oblique}}),
        motion(freeMotion, linkage, hinges, moves(1, 9, Way::alongY), 0, 0, 0, 7),
        motion(nearlyFree, linkage, softness, moves(1, 9, Way::alongY)),
        motion(unstable, linkage, negative, {{7, Way::alongY}}),
        motion(unstable, shift, negative, moves(1, 2, Way::alongY), 0, 1, 0, 3),
        slip(nodesWithoutElement, {1, 2, 3, 5, 7, 8}),
        slip(nodesWithoutElement, scattered),
        {nodesOnElements, Severity::warning, {6}, {2}, {}, Pairs{{6, 2}, {6, 3}}},
        {crossings, Severity::note, {}, {}, {}, Pairs{{1, 7}, {3, 9}}},
        {stiffnessRange, Severity::warning, {}, {3, 5}, {}, 2.345e9},
        {digits, Severity::warning, {}, {}, {}, CorrectDigits{11, 18, 3, 1e-12, 0, 4.44e-4}},
        {equilibrium,
         Severity::good,
         {},
         {},
         {},
         Equilibrium{{30, -30, 0, 0},
                     {-200, 200, 1.234e-14, 3e-17},
                     {},
                     {2, 1.5e-14, 2e-16},
                     {3, NAN, 1}}}};
    for (int kind = static_cast<int>(notAnalysed); kind <= static_cast<int>(noSlips); ++kind)
        findings.push_back(slip(static_cast<FindingKind>(kind), {1, 2, 4}, {3}, {9}));
    for (const FindingKind kind : {coincidentNodes, coincidentElements, nodesOnElements})
        findings.push_back({kind, Severity::warning, {}, {}, {}, Pairs(50, RowPair{123, 124})});
    findings.push_back({noFreeMotion, Severity::good, {}, {}, {}, 0.5});
    findings.push_back({noFreeMotion, Severity::good, {}, {}, {}, {}});
    for (const Severity severity : {Severity::good, Severity::warning}) {
        findings.push_back({equilibrium, severity, {}, {}, {}, Equilibrium{}});
        findings.push_back({digits, severity, {}, {}, {}, CorrectDigits{}});
    }
    EXPECT_EQ(checkText(findings), contentOf(TEST_DATA "/reports/check.txt"));
}

TEST_F(CheckTexts, EveryFindingReadsWellInTheDocument)
{
    std::vector<Finding> findings;
    for (const auto &[kind, lastCause] : {std::pair{freeMotion, Cause::hinges},
                                          {nearlyFree, Cause::softness},
                                          {unstable, Cause::negative}})
        for (int shape = 0; shape <= static_cast<int>(Shape::linkage); ++shape)
            for (int cause = 0; cause <= static_cast<int>(lastCause); ++cause)
                for (const int last : {5, 6, 199})
                    findings.push_back(motion(kind, static_cast<Shape>(shape),
                                              static_cast<Cause>(cause),
                                              moves(5, last, Way::oblique), .28, .96));
    for (const Finding &finding : findings) {
        const FindingText text = textOf(finding);
        EXPECT_FALSE(text.title.empty() || text.explanation.empty());
        EXPECT_THAT(text.title + text.explanation,
                    Not(testing::ContainsRegex("%[1-9]|[|]|  |\n\r")));
        EXPECT_THAT(text.title, Not(HasSubstr("\n")));
    }

    Onoma_Arxeiou = "/home/" + std::string(120, 'x') + "/" + std::string(101, 'x') + ".vsk";
    const std::string text = checkText(findings), full(100, 'x');
    EXPECT_THAT(text, testing::StartsWith("Check of the analysis\r\n" + full
                                          + "\r\nx.vsk\r\n\r\nFault: Nodes without elements\r\n"));
    std::istringstream document(text);
    std::string line;
    while (std::getline(document, line))
        EXPECT_TRUE(line.size() <= 101 && line.ends_with('\r') && !line.starts_with(' ')) << line;
}

TEST_F(CheckTexts, LinesAreMeasuredInCharacters)
{
    Onoma_Arxeiou = std::string(50, 'a');
    for (int i = 0; i < 49; ++i)
        Onoma_Arxeiou += "ω";
    EXPECT_THAT(checkText({}), testing::EndsWith("ω\r\n"));
    Onoma_Arxeiou += " ωω";
    EXPECT_THAT(checkText({}), testing::EndsWith("ω\r\nωω\r\n"));
}

} // namespace
} // namespace veskora
