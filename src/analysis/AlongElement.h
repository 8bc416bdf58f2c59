#pragma once
/// @file
/// Stress resultants and displacements between the ends of an element, in closed form.
///
/// Signs are those of the diagrams and of the deformed shape; x is measured along the element from
/// end i, in the model's units of length. Sources: the equilibrium of the part from i to x; the
/// elastic line EI v'' = M and EA u' = N, integrated between the displacements of the ends
/// (Timoshenko and Young, Theory of Structures, 2nd ed., chapter 6; Przemieniecki, Theory of Matrix
/// Structural Analysis, chapter 5).

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace veskora {

/// One element under its end forces and its uniform load, with q along local y, n along local x,
/// between the displacements of its nodes. Hinges need no case: where an end has one, its rotation
/// is what the elastic line leaves there.
struct AlongElement
{
    double length;
    double c, s;       ///< cosine and sine of the angle from global to local x
    double Ni, Qi, Mi; ///< at end i
    double n, q;       ///< load per unit of length
    double ui, uj;     ///< displacements of the ends along local x
    double vi, vj;     ///< along local y, which points to the left, seen from i to j
    double EA, EI;     ///< not a number where the element has no group
    /// @name What is not larger is 0 but for rounding
    /// @{
    double leastN, leastQ, leastM;
    double leastMove; ///< of displacements
    /// @}

    double N(double x) const { return Ni - n * x; }
    double Q(double x) const { return Qi + q * x; }
    double M(double x) const { return Mi + Qi * x + q * x * x / 2; }

    /// @name Displacements along the element and across it
    /// None where they cannot be computed, as without a stiffness against what acts.
    /// @{
    std::optional<double> u(double x) const;
    std::optional<double> v(double x) const;
    /// @}

    /// Where M has its extreme between the ends; none where it is straight or has it at an end.
    std::optional<double> placeOfExtremeM() const;

    /// How far off a place may lie: coordinates are Singles.
    double nearness() const;
};

/// Of element @p e and the results in the store, which belong together.
/// Fault: a node row outside 1 to count, zero length.
AlongElement alongElement(int e);

/// What a place along an element is, as bits.
namespace placeMark {
inline constexpr unsigned extremeM = 1;
inline constexpr unsigned extremeV = 2; ///< of the displacement across the element
inline constexpr unsigned zeroQ = 4;
inline constexpr unsigned zeroM = 8;
} // namespace placeMark

/// Those of @p names whose marks are set, in the order of the bits.
std::string markNames(unsigned marks, const std::array<std::string, 4> &names,
                      const char *separator);

/// Equal parts of an element: what is usual, and the most.
inline constexpr int usualParts = 10, maxParts = 100;

struct Station
{
    double x;
    unsigned marks = 0;
};

/// The ends of @p parts equal parts of the element and every place with a mark, by x, each once: a
/// special place that cannot be told from one that is there already is that one. An extreme stands
/// between the ends, a zero may stand at one. What is 0 all along, or turns without standing out
/// from rounding, has no mark.
std::vector<Station> stations(const AlongElement &along, int parts);

/// That of @p all at @p x, or else one without marks there.
Station stationAt(const AlongElement &along, const std::vector<Station> &all, double x);

/// All that is to be known at a station; none where it is not finite, 0 where it is rounding.
struct StationValues
{
    std::optional<double> N, Q, M;
    std::optional<double> v;      ///< across the element
    std::optional<double> dx, dy; ///< along the global axes
};
/// Q and M are 0 at their zeros, where the closed form leaves a rest of rounding.
StationValues valuesAt(const AlongElement &along, const Station &station);

/// A moment between the ends of an element.
struct SpanMoment
{
    int e;
    double x, M;
};

/// The greatest and the least of all elements' extremes of M between their ends; none where no
/// element has one. An element that cannot be computed is left out.
struct SpanMoments
{
    std::optional<SpanMoment> greatest, least;
};
SpanMoments spanMoments();

/// The extreme of M between the ends of element @p e; none where there is none or the element
/// cannot be computed.
std::optional<SpanMoment> extremeBetweenEnds(int e);

/// Whether a moment is larger than another by more than rounding: of equal ones the first is told.
bool isLarger(double M, double other);

} // namespace veskora
