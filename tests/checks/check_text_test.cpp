#include "CheckText.h"
#include "Metablites.h"
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

class CheckText : public StoreTest
{};

Finding motion(FindingKind kind, Shape shape, Cause cause, const std::vector<Motion::Move> &moves,
               double x = 0, double y = 0, int centre = 0, int count = 1)
{
    Motion motion;
    motion.shape = shape;
    motion.cause = cause;
    motion.count = count;
    motion.moves = moves;
    motion.x = x;
    motion.y = y;
    motion.centre = centre;
    return {kind, Severity::fault, {}, {2, 3}, {}, motion};
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

TEST_F(CheckText, TitlesAndExplanationsAreWholeSentencesAboutTheRows)
{
    Arithmos_Kombon = maxNodes; // what moves is a part of the structure
    const std::vector<Motion::Move> linkage = {
        {3, Way::alongX}, {2, Way::alongX}, {4, Way::turns}, {1, Way::oblique}};
    std::vector<int> scattered(30);
    for (int i = 0; i < 30; ++i)
        scattered[static_cast<std::size_t>(i)] = 2 * i + 1;
    struct Case
    {
        Finding finding;
        const char *title, *explanation; ///< the latter begins so
    };
    for (const Case &c : std::vector<Case>{
             {motion(freeMotion, Shape::turning, Cause::onlyHinges, {{4, Way::turns}}),
              "Node 4 turns freely",
              "Only hinged ends meet there and its rotation is not held. Hold its rotation or make "
              "one end rigid."},
             {motion(freeMotion, Shape::turning, Cause::onlyHinges, moves(1, 100, Way::turns)),
              "100 nodes turn freely, each by itself: 1 to 100", "Only hinged ends meet there"},
             {motion(freeMotion, Shape::shift, Cause::noSupport, moves(2, 4, Way::alongX), 1, 0),
              "Nodes 2 to 4 move together along x",
              "Nothing holds them in this direction. Hold one of them by a support or a "
              "spring.\r\nIf this part looks joined to the rest, see what else is told here"},
             {motion(freeMotion, Shape::shift, Cause::noSupport, moves(2, 3, Way::oblique), .6, .8),
              "Nodes 2 and 3 move together in the direction (0.6, 0.8)", "Nothing holds them"},
             {motion(freeMotion, Shape::turn, Cause::noSupport, moves(1, 3, Way::oblique), 1. / 3,
                     4),
              "Nodes 1 to 3 turn together round the point (0.333333, 4)", "The supports do not"},
             {motion(freeMotion, Shape::turn, Cause::hinges, moves(1, 3, Way::oblique), 0, 4, 2),
              "Nodes 1 and 3 turn together round node 2", "The hinges let"},
             {motion(freeMotion, Shape::turn, Cause::hinges, moves(6, 7, Way::alongY), 0, 4, 7),
              "Node 6 moves round node 7", "The hinges let"},
             {motion(freeMotion, Shape::shift, Cause::hinges, moves(1, 8, Way::alongY), 0, 1, 0, 7),
              "Nodes 1 to 8 move along y, each part by itself", "The hinges let"},
             {motion(freeMotion, Shape::shift, Cause::noElement, {{6, Way::alongX}}, 1, 0, 0, 3),
              "Nodes without elements",
              "Node 6\r\nNo element is joined there, so it moves freely."},
             {motion(freeMotion, Shape::linkage, Cause::hinges, linkage),
              "A part of the structure moves: nodes 2 and 3 along x, node 4 turns, node 1 "
              "obliquely",
              "The hinges let this motion pass without straining anything. Make a corner "
              "rigid (rigid ends at a node whose rotation is free), or add a diagonal or a "
              "support.\r\nElements that turn in their hinges: 2 and 3."},
             {motion(freeMotion, Shape::linkage, Cause::hinges, moves(1, 9, Way::alongY), 0, 0, 0,
                     7),
              "Parts of the structure move, each by itself: nodes 1 to 9",
              "The hinges let this motion pass without straining anything. Make a corner "
              "rigid (rigid ends at a node whose rotation is free), or add a diagonal or a "
              "support.\r\nElements that turn in their hinges: 2 and 3.\r\n7 "
              "independent motions are told here as one."},
             {motion(nearlyFree, Shape::linkage, Cause::softness, moves(1, 9, Way::alongY)),
              "Nearly a mechanism: A part of the structure moves: nodes 1 to 8 along y, ...",
              "Next to nothing resists this motion"},
             {motion(unstable, Shape::linkage, Cause::negative, {{7, Way::alongY}}),
              "Unstable: Node 7 moves along y", "A negative spring constant"},
             {motion(unstable, Shape::shift, Cause::negative, moves(1, 2, Way::alongY), 0, 1, 0, 3),
              "Unstable: Nodes 1 and 2 move together along y", "A negative spring constant"},
             {slip(nodesWithoutElement, {1, 2, 3, 5, 7, 8}), "Nodes without elements",
              "Nodes 1 to 3, 5, 7 and 8\r\nNothing carries"},
             {slip(nodesWithoutElement, scattered), "Nodes without elements",
              "Nodes 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31, 33, 35, 37, 39 and "
              "10 more\r\n"},
             {{nodesOnElements, Severity::warning, {6}, {2}, {}, Pairs{{6, 2}, {6, 3}}},
              "Nodes on elements that pass them by",
              "Node 6, Element 2; Node 6, Element 3\r\n"},
             {{crossings, Severity::note, {}, {}, {}, Pairs{{1, 7}, {3, 9}}},
              "Elements that cross without a common node",
              "Elements 1 and 7; 3 and 9\r\n"},
             {{stiffnessRange, Severity::warning, {}, {3, 5}, {}, 2.345e9},
              "Stiffnesses far apart",
              "Elements 3 and 5\r\nThe stiffest element is 2300000000 times as stiff"},
             {{digits, Severity::warning, {}, {}, {}, CorrectDigits{11, 18, 3, 1e-12, 0, 4.44e-4}},
              "The displacements agree to 11 digits, the end forces to 16, the reactions to 3",
              "Fewer than 4 digits are right"},
             {{equilibrium,
               Severity::good,
               {},
               {},
               {},
               Equilibrium{{30, -30, 0, 0},
                           {-200, 200, 1.234e-14, 3e-17},
                           {},
                           {2, 1.5e-14, 2e-16},
                           {3, NAN, 1}}},
              "Loads and reactions are in equilibrium",
              "All loads and reactions, those of springs too, add up to 0 but for rounding:\r\n"
              "Along x: loads 30, reactions -30, together 0 (relative 0)\r\n"
              "Along y: loads -200, reactions 200, together 1.23E-14 (relative 3E-17)\r\n"
              "About the origin: loads 0, reactions 0, together 0 (relative 0)\r\n"
              "Largest force left over at a node: 1.5E-14 at node 2 (relative 2E-16)\r\n"
              "Largest moment left over at a node: nan at node 3 (relative 1)"}}) {
        const FindingText text = textOf(c.finding);
        EXPECT_EQ(text.title, c.title);
        EXPECT_THAT(text.explanation, testing::StartsWith(c.explanation));
    }
}

TEST_F(CheckText, EveryFindingReadsWellInTheDocument)
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
    for (const Finding &finding : findings) {
        const FindingText text = textOf(finding);
        EXPECT_FALSE(text.title.empty());
        EXPECT_EQ(text.explanation.empty(), finding.kind == noNodes);
        EXPECT_THAT(text.title + text.explanation,
                    Not(testing::ContainsRegex("%[1-9]|[|]|  |\n\r")));
        EXPECT_THAT(text.title, Not(HasSubstr("\n")));
    }

    Onoma_Arxeiou = "/home/" + std::string(120, 'x') + "/" + std::string(101, 'x') + ".vsk";
    std::istringstream document(checkText(findings));
    std::string line;
    for (const std::string &first :
         {std::string("Check of the analysis"), std::string(100, 'x'), std::string("x.vsk"),
          std::string(), std::string("Fault: Nodes without elements")}) {
        std::getline(document, line);
        EXPECT_EQ(line, first + "\r");
    }
    while (std::getline(document, line))
        EXPECT_TRUE(line.size() <= 101 && line.ends_with('\r') && !line.starts_with(' ')) << line;
}

TEST_F(CheckText, LinesAreMeasuredInCharacters)
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
