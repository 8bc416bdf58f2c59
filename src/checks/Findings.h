#pragma once
/// @file
/// What the check of the analysis finds: data, which window, batch runner and documents put into
/// words by `CheckText.h`. Rows count from 1.

#include <cstddef>
#include <variant>
#include <vector>

namespace veskora {

/// The worst first.
enum class Severity {
    fault,   ///< the structure does not stand
    warning, ///< the numbers, or the model, are probably not what was meant
    note,    ///< may well be meant
    good     ///< looked for, and nothing found
};

enum class FindingKind {
    // Facts: Motion.
    freeMotion,   ///< moves without resistance
    nearlyFree,   ///< with next to none
    unstable,     ///< with a negative one, as of negative springs
    noFreeMotion, ///< good. Facts: double, the smallest scaled eigenvalue; none without free
                  ///< freedoms

    // Facts: Equilibrium.
    equilibrium, ///< good or warning
    // Facts: CorrectDigits.
    digits, ///< good or warning

    // No facts: why others are missing.
    notAnalysed,    ///< there are no results of this model as it stands
    noNodes,        ///< there is nothing to check
    analysisFailed, ///< and there will be none: the last analysis failed, or has to
    digitsUnknown,  ///< no numbers can be told right where the structure can move freely

    // Facts: double, the displacement; the node with it.
    excessiveDisplacement, ///< beyond all measure, although nothing moves freely

    // Slips of modelling. Facts: none, or Pairs.
    brokenElements, ///< no length, or a node or group that is not there; left out of the check
    nodesWithoutElement,
    nodesOnElements,    ///< Pairs: node, element
    crossings,          ///< Pairs: elements
    coincidentNodes,    ///< Pairs: nodes
    coincidentElements, ///< Pairs: elements
    loadsOnSupports,    ///< nodes with a load along a held freedom
    rotationsHeldAlone, ///< nodes where rigid ends meet and nothing but the rotation is held
    unusedGroups,
    stiffnessRange, ///< elements: the stiffest and the softest. Facts: double, their ratio
    shortElements,
    noSlips ///< good
};

/// One way in which the structure, or a part of it, can move.
struct Motion
{
    enum class Shape {
        turning, ///< each node by itself turns where it stands
        shift,   ///< all go the same way by the same length
        turn,    ///< all go round one point
        linkage  ///< anything else
    };
    enum class Cause {
        noElement,   ///< nothing is joined to the nodes
        onlyHinges,  ///< nothing but hinged ends meets there, and the rotation is not held
        noStiffness, ///< members of `groups` are strained, and E, A or I is 0
        noSupport,   ///< all that hangs together moves
        hinges,      ///< `elements` turn in their hinges
        softness,    ///< held, but far too softly beside the rest, by `elements` and `springs`
        negative     ///< the stiffness of `elements` or of `springs` is negative
    };
    enum class Way { alongX, alongY, oblique, turns };
    struct Move
    {
        int node;
        Way way;
    };

    Shape shape = Shape::linkage;
    Cause cause = Cause::hinges;
    /// Independent motions that this one stands for: what many nodes do each by itself is told
    /// once.
    int count = 1;
    double eigenvalue = 0;    ///< of the stiffness scaled to a unit diagonal; the smallest of them
    std::vector<Move> moves;  ///< largest first
    double x = 0, y = 0;      ///< of a shift its direction, of length 1; of a turn its centre
    int centre = 0;           ///< of a turn the node that stands there, 0 where none does
    std::vector<int> springs; ///< nodes whose springs are the cause
    /// At `freedomOf(n, k) - 1`, model axes; the largest translation is 1, of a mere turning the
    /// rotations are. Signs mean nothing: it goes both ways.
    std::vector<double> displacements;
};

/// The sums of all forces, and what is left at the nodes. Moments are about the origin and
/// anticlockwise. Springs count with the reactions. What is next to nothing beside all other forces
/// ought to be 0 and is held against those instead: else rounding alone would be the whole of it.
struct Equilibrium
{
    struct Sum
    {
        double loads, reactions;
        double imbalance; ///< their sum
        double relative;  ///< to the sum of the absolute values of all that was added
    };
    Sum x, y, moment;
    /// The largest of all nodes; 0 for the node where all are exactly 0.
    struct Node
    {
        int node;
        double imbalance;
        double relative; ///< to the largest that meets there, of its kind; 0 where nothing does
    };
    Node force, nodeMoment;
};

/// To how many decimal digits the results agree with a second computation, each number held
/// against the largest of its kind (translations, rotations; forces, moments), or against the rest
/// where that is next to nothing beside it. 0 to 18.
struct CorrectDigits
{
    int displacements, endForces, reactions;
    double displacementsDifference, endForcesDifference, reactionsDifference; ///< relative
};

struct RowPair
{
    int first, second;
    bool operator==(const RowPair &) const = default;
};
using Pairs = std::vector<RowPair>;

struct Finding
{
    FindingKind kind;
    Severity severity;
    std::vector<int> nodes, elements, groups; ///< rows it concerns, in rising order
    std::variant<std::monostate, double, Pairs, Motion, Equilibrium, CorrectDigits> facts;
};

} // namespace veskora
