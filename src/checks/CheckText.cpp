#include "CheckText.h"

#include "CorrectDigits.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "MotionText.h"
#include "Sentences.h"

#include <algorithm>
#include <filesystem>

namespace veskora {

namespace {

constexpr std::size_t widestLine = 100; ///< characters
constexpr std::size_t mostPairs = 20;
constexpr int digitsOfDouble = 16; ///< results that are equal have no more to show

FindingText titled(const std::string &text, const std::vector<std::string> &values = {})
{
    return {filled(part(text, 0), values), filled(part(text, 1), values)};
}

double numberOf(const Finding &finding)
{
    const double *number = std::get_if<double>(&finding.facts);
    return number ? *number : 0;
}

FindingText noFreeMotionText(const Finding &finding)
{
    const double *eigenvalue = std::get_if<double>(&finding.facts);
    return {Metafrasi(1677, "The structure cannot move freely"),
            eigenvalue
                ? eigenvalueText(*eigenvalue)
                : Metafrasi(1678, "Nothing is left free, so there is nothing to solve and no "
                                  "analysis: release something or divide an element.")};
}

std::string sumText(const std::string &text, const Equilibrium::Sum &sum)
{
    return filled(text, {roundedText(sum.loads, 6), roundedText(sum.reactions, 6),
                         roundedText(sum.imbalance, 3), roundedText(sum.relative, 2)});
}

std::string imbalanceText(const std::string &text, const Equilibrium::Node &node)
{
    return node.node == 0 ? ""
                          : filled(text, {roundedText(node.imbalance, 3), numberText(node.node),
                                          roundedText(node.relative, 2)});
}

FindingText equilibriumText(const Finding &finding)
{
    const auto &found = std::get<Equilibrium>(finding.facts);
    FindingText text = titled(
        finding.severity == Severity::good
            ? Metafrasi(1679,
                        "Loads and reactions are in equilibrium|All loads and reactions, those "
                        "of springs too, add up to 0 but for rounding:")
            : Metafrasi(1680, "The forces are not in equilibrium|Do not use these results. "
                              "Stiffnesses far apart, or a motion that is nearly free, are the "
                              "usual cause."));
    const std::string sums =
        Metafrasi(1681, "Along x: loads %1, reactions %2, together %3 (relative %4)|"
                        "Along y: loads %1, reactions %2, together %3 (relative %4)|"
                        "About the origin: loads %1, reactions %2, together %3 (relative %4)");
    const std::string imbalances =
        Metafrasi(1682, "Largest force left over at a node: %1 at node %2 (relative %3)|"
                        "Largest moment left over at a node: %1 at node %2 (relative %3)");
    text.explanation = paragraphs(
        {text.explanation, sumText(part(sums, 0), found.x), sumText(part(sums, 1), found.y),
         sumText(part(sums, 2), found.moment), imbalanceText(part(imbalances, 0), found.force),
         imbalanceText(part(imbalances, 1), found.nodeMoment)});
    return text;
}

FindingText digitsText(const Finding &finding)
{
    const auto &found = std::get<CorrectDigits>(finding.facts);
    const auto shown = [](int digits) { return numberText(std::min(digits, digitsOfDouble)); };
    FindingText text = titled(
        Metafrasi(1683, "The displacements agree to %1 digits, the end forces to %2, the reactions "
                        "to %3|They were compared with a second computation of more digits "
                        "(relative differences %4, %5, %6). Coordinates and loads themselves are "
                        "kept to about 7 digits: what agrees beyond is of the computing, not of "
                        "the data."),
        {shown(found.displacements), shown(found.endForces), shown(found.reactions),
         roundedText(found.displacementsDifference, 2), roundedText(found.endForcesDifference, 2),
         roundedText(found.reactionsDifference, 2)});
    if (finding.severity != Severity::good)
        text.explanation = paragraphs(
            {filled(Metafrasi(1684, "Fewer than %1 digits are right: do not rely on these numbers. "
                                    "Stiffnesses far apart, or a motion that is nearly free, are "
                                    "the usual cause."),
                    {numberText(enoughDigits)}),
             text.explanation});
    return text;
}

std::string pairText(FindingKind kind, const RowPair &pair)
{
    if (kind == FindingKind::nodesOnElements)
        return nodesText({pair.first}) + ", " + elementsText({pair.second});
    return rowList({pair.first, pair.second});
}

std::string rowsText(const Finding &finding)
{
    const auto *pairs = std::get_if<Pairs>(&finding.facts);
    if (!pairs)
        return paragraphs(
            {nodesText(finding.nodes), elementsText(finding.elements), groupsText(finding.groups)});
    std::vector<std::string> items;
    for (const RowPair &pair : *pairs)
        items.push_back(pairText(finding.kind, pair));
    const std::string list = itemList(items, "; ", mostPairs);
    switch (finding.kind) {
    case FindingKind::coincidentNodes:
        return Metafrasi(1518, "Nodes") + " " + list;
    case FindingKind::crossings:
    case FindingKind::coincidentElements:
        return Metafrasi(1525, "Elements") + " " + list;
    default:
        return list;
    }
}

/// What kind of slip it is, without its rows.
FindingText slipText(const Finding &finding)
{
    const std::string tools = Metafrasi(17, "Tools") + ", ";
    const std::string merge = tools + Metafrasi(19, "Merge nodes");
    const std::string divide = tools + Metafrasi(20, "Divide elements");
    switch (finding.kind) {
    case FindingKind::brokenElements:
        return titled(Metafrasi(1687, "Elements that cannot be computed|They have no length, or a "
                                      "node or group that is not there, and this check leaves them "
                                      "out. Correct or delete them."));
    case FindingKind::nodesWithoutElement:
        return titled(nodesWithoutElementText());
    case FindingKind::nodesOnElements:
        return titled(
            Metafrasi(1689,
                      "Nodes on elements that pass them by|They look joined and are not. If they "
                      "should be, divide the element (%1; its "
                      "parts are equal) and make one node of the two (%2): A keeps its place."),
            {divide, merge});
    case FindingKind::crossings:
        return titled(
            Metafrasi(1690,
                      "Elements that cross without a common node|They pass each "
                      "other, as crossing diagonals often should. If they should be "
                      "joined, divide both (%1; the parts are equal) and make one node of the new "
                      "ones (%2)."),
            {divide, merge});
    case FindingKind::coincidentNodes:
        return {
            Metafrasi(23, "Coincident nodes"),
            filled(Metafrasi(
                       1691,
                       "They stand at one place without being one node: the frame is "
                       "cut there. Make one of them (%1): A keeps its support, springs and loads, "
                       "those of B go."),
                   {merge})};
    case FindingKind::coincidentElements:
        return {Metafrasi(24, "Coincident elements"),
                Metafrasi(1692,
                          "They join the same two nodes and both act, so the frame is stiffer "
                          "there. If you do not mean that, delete one.")};
    case FindingKind::loadsOnSupports:
        return titled(Metafrasi(1693,
                                "Loads along held freedoms|They go straight into the support "
                                "and strain nothing. Are support and load at the right nodes?"));
    case FindingKind::rotationsHeldAlone:
        return titled(Metafrasi(1641, "Rotations held without another support|Rigid ends meet "
                                      "there, so each holds a moment like a clamp in mid-air. If "
                                      "you do not mean that, free the rotation."));
    case FindingKind::unusedGroups:
        return titled(Metafrasi(1694,
                                "Groups that no element uses|They do no harm. Do all elements "
                                "have the group that you mean?"));
    case FindingKind::stiffnessRange:
        return titled(Metafrasi(1695,
                                "Stiffnesses far apart|The stiffest element is %1 times as "
                                "stiff as the softest, and digits are lost. Look at the units "
                                "of E, A and I; for a rigid part a thousand times is enough."),
                      {roundedText(numberOf(finding), 2)});
    case FindingKind::shortElements:
        return titled(Metafrasi(1696,
                                "Very short elements|They are shorter than a thousandth of the "
                                "model, often a slip of drawing. If so, make one node of "
                                "their two (%1)."),
                      {merge});
    default:
        return titled(Metafrasi(1697, "No slips of modelling|Looked for: elements that cannot be "
                                      "computed, cross, coincide or are very short; nodes without "
                                      "elements, beside one or at one place; loads on supports; "
                                      "groups not used; stiffnesses far apart."));
    }
}

} // namespace

FindingText textOf(const Finding &finding)
{
    switch (finding.kind) {
    case FindingKind::freeMotion:
    case FindingKind::nearlyFree:
    case FindingKind::unstable:
        return motionText(finding);
    case FindingKind::noFreeMotion:
        return noFreeMotionText(finding);
    case FindingKind::equilibrium:
        return equilibriumText(finding);
    case FindingKind::digits:
        return digitsText(finding);
    case FindingKind::notAnalysed:
        return titled(Metafrasi(1685, "Equilibrium and digits are not checked|There are no results "
                                      "of this model as it stands. Press %1, then check again."),
                      {Metafrasi(25, "Analyze")});
    case FindingKind::digitsUnknown:
        return titled(Metafrasi(1686,
                                "How many digits are right cannot be told|No number is sure where "
                                "the structure can move freely, or where a second computation "
                                "finds no single answer. Mend that, analyze, and check again."));
    case FindingKind::noNodes:
        return {Metafrasi(97, "No nodes have been defined yet."), ""};
    case FindingKind::analysisFailed:
        return titled(Metafrasi(1699, "Equilibrium and digits are not checked|The analysis of this "
                                      "model fails, so there are no results. Mend what is told "
                                      "here. If nothing else is: numbers may be far too large or "
                                      "too small, or nothing may be left free."));
    case FindingKind::excessiveDisplacement:
        return titled(Metafrasi(1704,
                                "A displacement of %1 at node %2|Nothing can move freely, yet "
                                "a displacement is beyond all measure. Look at the units of "
                                "E, A, I and the loads."),
                      {roundedText(numberOf(finding), 3), numberText(finding.nodes.front())});
    default:
        break;
    }
    FindingText text = slipText(finding);
    text.explanation = paragraphs({rowsText(finding), text.explanation});
    return text;
}

std::string motionWarning(FreeMotion motion)
{
    switch (motion) {
    case FreeMotion::unloaded:
        return Metafrasi(1702, "The structure can move freely although its loads do not move it: "
                               "see Report, Check of the analysis.");
    case FreeMotion::unstable:
        return Metafrasi(1643, "The structure is unstable, by negative springs or stiffnesses: "
                               "see Report, Check of the analysis.");
    case FreeMotion::loaded:
        return Metafrasi(1703, "The structure can move freely, and rounding alone holds it against "
                               "its loads: see Report, Check of the analysis.");
    case FreeMotion::none:
        break;
    }
    return {};
}

std::string textOf(Severity severity)
{
    return part(Metafrasi(1698, "Fault|Warning|Note|In order"), static_cast<std::size_t>(severity));
}

std::string checkText(std::span<const Finding> findings)
{
    std::string text = paragraphs({Metafrasi(1618, "Check of the analysis"),
                                   std::filesystem::path(Onoma_Arxeiou).filename().string()});
    text += nl;
    for (const Finding &finding : findings) {
        const FindingText words = textOf(finding);
        text.append(nl).append(textOf(finding.severity)).append(": ");
        text.append(words.title).append(nl).append(words.explanation).append(nl);
    }
    return wrapped(text, widestLine);
}

} // namespace veskora
