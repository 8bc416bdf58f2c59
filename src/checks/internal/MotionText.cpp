#include "MotionText.h"

#include "FreeMotions.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Sentences.h"

#include <algorithm>

namespace veskora {

namespace {

using Way = Motion::Way;
using Cause = Motion::Cause;

constexpr std::size_t largestMovers = 8; ///< of a linkage, in its title

std::vector<int> nodesOf(const std::vector<Motion::Move> &moves)
{
    std::vector<int> nodes;
    nodes.reserve(moves.size());
    for (const Motion::Move &move : moves)
        nodes.push_back(move.node);
    std::ranges::sort(nodes);
    return nodes;
}

std::string wayText(Way way)
{
    return part(Metafrasi(1658, "along x|along y|obliquely"), static_cast<std::size_t>(way));
}

/// The direction of a shift, the centre of a turn, the way of the one node that moves.
std::string courseText(const Motion &motion)
{
    const std::string texts = Metafrasi(1659, "in the direction (%1, %2)|round the point (%1, %2)|"
                                              "round node %1");
    if (motion.shape == Motion::Shape::turn)
        return motion.centre > 0
                   ? filled(part(texts, 2), {numberText(motion.centre)})
                   : filled(part(texts, 1), {roundedText(motion.x, 6), roundedText(motion.y, 6)});
    const Way way = motion.moves.front().way;
    return way == Way::oblique && motion.shape == Motion::Shape::shift
               ? filled(part(texts, 0), {roundedText(motion.x, 3), roundedText(motion.y, 3)})
               : wayText(way);
}

/// The largest movers, those that go the same way together: "nodes 2 and 3 along x, node 4 turns".
std::string moversText(const Motion &motion)
{
    std::vector<std::string> clauses;
    std::vector<Motion::Move> left = motion.moves;
    left.resize(std::min(left.size(), largestMovers), {});
    while (!left.empty()) {
        const Way way = left.front().way;
        std::vector<Motion::Move> together;
        std::ranges::copy_if(left, std::back_inserter(together),
                             [&](const Motion::Move &move) { return move.way == way; });
        std::erase_if(left, [&](const Motion::Move &move) { return move.way == way; });
        const std::string list = rowList(nodesOf(together));
        clauses.push_back(
            way == Way::turns
                ? filled(forRows(Metafrasi(1657, "node %1 turns|nodes %1 turn"), together.size()),
                         {list})
                : filled(forRows(Metafrasi(1656, "node %1 %2|nodes %1 %2"), together.size()),
                         {list, wayText(way)}));
    }
    if (motion.moves.size() > largestMovers)
        clauses.emplace_back("...");
    return itemList(clauses, ", ", clauses.size());
}

/// All that move, without a node that they turn about.
std::vector<int> movingNodes(const Motion &motion)
{
    std::vector<int> nodes = nodesOf(motion.moves);
    if (motion.shape == Motion::Shape::turn && nodes.size() > 1)
        std::erase(nodes, motion.centre);
    return nodes;
}

/// The subject is one node, several that move as one, or several parts that move on their own.
std::string motionTitle(const Motion &motion)
{
    const std::vector<int> nodes = movingNodes(motion);
    const std::string list = rowList(nodes);
    // Of unstable motions the first alone is told.
    const std::size_t several = motion.count > 1 && motion.cause != Cause::negative ? 1 : 0;
    if (motion.cause == Cause::noElement)
        return part(nodesWithoutElementText(), 0);
    if (motion.shape == Motion::Shape::turning)
        return filled(forRows(Metafrasi(1652, "Node %1 turns freely|"
                                              "%2 nodes turn freely, each by itself: %1"),
                              nodes.size()),
                      {list, numberText(static_cast<int>(nodes.size()))});
    if (motion.shape == Motion::Shape::linkage && nodes.size() > 1)
        return filled(part(Metafrasi(1655, "A part of the structure moves: %1|"
                                           "Parts of the structure move, each by itself: nodes %1"),
                           several),
                      {several == 0 ? moversText(motion) : list});
    const std::string shifts = Metafrasi(1653, "Node %1 moves %2|Nodes %1 move together %2|"
                                               "Nodes %1 move %2, each part by itself");
    const std::string turns = Metafrasi(1654, "Nodes %1 turn together %2|"
                                              "Nodes %1 turn, each part round a place of its own");
    const bool isShift = motion.shape == Motion::Shape::shift;
    return filled(nodes.size() == 1 ? part(shifts, 0)
                  : isShift         ? part(shifts, 1 + several)
                                    : part(turns, several),
                  {list, courseText(motion)});
}

std::string noSupportText(const Motion &motion)
{
    const auto moving = static_cast<int>(motion.moves.size());
    const bool isAll = moving + (motion.centre > 0 ? 1 : 0) >= Arithmos_Kombon;
    const std::size_t parts = motion.count > 1 ? 2 : motion.moves.size() > 1 ? 1 : 0;
    return paragraphs(
        {motion.shape == Motion::Shape::shift
             ? part(Metafrasi(1668,
                              "Nothing holds it in this direction. Hold it by a support or a "
                              "spring.|Nothing holds them in this direction. Hold one of them by a "
                              "support or a spring.|Nothing holds these parts in this direction. "
                              "Hold one node of each part by a support or a spring."),
                    parts)
             : Metafrasi(1669,
                         "The supports do not hold what turns. Each part needs at least three "
                         "held directions or springs that are not all parallel and do not "
                         "all meet in one point; a held rotation counts as one."),
         isAll ? ""
               : Metafrasi(1670, "If this part looks joined to the rest, see what else is told "
                                 "here: coincident nodes, and nodes on elements that pass them "
                                 "by.")});
}

std::string hingesText(const std::vector<int> &elements)
{
    return paragraphs(
        {Metafrasi(1671,
                   "The hinges let this motion pass without straining anything. Make a corner "
                   "rigid (rigid ends at a node whose rotation is free), or add a diagonal "
                   "or a support."),
         elements.empty() ? ""
                          : filled(Metafrasi(1672, "Elements that turn in their hinges: %1."),
                                   {rowList(elements)})});
}

std::string springsText(const std::vector<int> &nodes)
{
    return nodes.empty() ? "" : filled(Metafrasi(1640, "Springs of: %1."), {nodesText(nodes)});
}

/// Why the motion is possible, and the likely cures.
std::string causeText(const Motion &motion, const Finding &finding)
{
    switch (motion.cause) {
    case Cause::noElement:
        return forRows(
            Metafrasi(1665,
                      "No element is joined there, so it moves freely. Join one, hold what is "
                      "free, or delete the node.|No elements are joined there, so they move "
                      "freely. Join some, hold what is free, or delete the nodes."),
            motion.moves.size());
    case Cause::onlyHinges:
        return forRows(
            Metafrasi(1666, "Only hinged ends meet there and its rotation is not held. Hold its "
                            "rotation or make one end rigid.|Only hinged ends meet there and the "
                            "rotations are not held. Hold the rotation of each, as a truss needs "
                            "it at all nodes, or make one end at each of them rigid."),
            motion.moves.size());
    case Cause::noStiffness:
        return Metafrasi(1667, "It strains only elements whose E, A or I is 0. Give their groups "
                               "the true values.");
    case Cause::noSupport:
        return noSupportText(motion);
    case Cause::hinges:
        return hingesText(finding.elements);
    case Cause::softness:
        return Metafrasi(1673,
                         "What resists it is far too soft beside the rest. Look for a spring, "
                         "an E, A or I that is wrong by powers of ten.");
    case Cause::negative:
        break;
    }
    return Metafrasi(1674,
                     "A negative spring constant, or a negative E, A or I, drives this motion "
                     "instead of resisting it. Correct the sign.");
}

} // namespace

std::string nodesWithoutElementText()
{
    return Metafrasi(1688, "Nodes without elements|Nothing carries what acts on them. Delete them, "
                           "or join them by elements.");
}

std::string nodesText(const std::vector<int> &rows)
{
    if (rows.empty())
        return {};
    return (rows.size() == 1 ? Metafrasi(340, "Node") : Metafrasi(1518, "Nodes")) + " "
           + rowList(rows);
}

std::string elementsText(const std::vector<int> &rows)
{
    if (rows.empty())
        return {};
    return (rows.size() == 1 ? Metafrasi(1404, "Element") : Metafrasi(1525, "Elements")) + " "
           + rowList(rows);
}

std::string groupsText(const std::vector<int> &rows)
{
    if (rows.empty())
        return {};
    return (rows.size() == 1 ? Metafrasi(902, "Group") : Metafrasi(1529, "E,A,I Groups")) + " "
           + rowList(rows);
}

std::string eigenvalueText(double eigenvalue)
{
    return filled(part(Metafrasi(1675, "Smallest eigenvalue of the scaled stiffness: %1 (a free "
                                       "motion below %2, nearly one below %3).|Smallest "
                                       "eigenvalue of the scaled stiffness: %1. Where it is "
                                       "negative, nothing balances the structure."),
                       eigenvalue <= -freeBelow ? 1 : 0),
                  {roundedText(eigenvalue, 2), numberText(freeBelow), numberText(nearlyFreeBelow)});
}

FindingText motionText(const Finding &finding)
{
    const auto &motion = std::get<Motion>(finding.facts);
    std::string title = motionTitle(motion);
    std::string verdict;
    if (finding.kind == FindingKind::nearlyFree) {
        const std::string text =
            Metafrasi(1663, "Nearly a mechanism: %1|Next to nothing resists this motion. Rounding "
                            "may spoil the numbers: see how many digits are right.");
        title = filled(part(text, 0), {title});
        verdict = part(text, 1);
    }
    if (finding.kind == FindingKind::unstable)
        title = filled(Metafrasi(1664, "Unstable: %1"), {title});
    const bool isCut = motion.shape == Motion::Shape::linkage && motion.count == 1
                       && motion.moves.size() > largestMovers;
    const bool isListed = isCut || motion.cause == Cause::noElement;
    // Of what nodes do each by itself the title has said how many do so.
    const bool isCounted =
        motion.count > 1 && motion.cause != Cause::noElement
        && (motion.shape != Motion::Shape::turning || motion.cause == Cause::negative);
    return {
        title,
        paragraphs(
            {verdict, isListed ? nodesText(nodesOf(motion.moves)) : "", causeText(motion, finding),
             springsText(motion.springs), groupsText(finding.groups),
             motion.cause == Cause::hinges ? "" : elementsText(finding.elements),
             isCounted ? filled(Metafrasi(1676, "%1 independent motions are told "
                                                "here as one."),
                                {numberText(motion.count)})
                       : "",
             finding.kind == FindingKind::freeMotion ? "" : eigenvalueText(motion.eigenvalue)})};
}

} // namespace veskora
