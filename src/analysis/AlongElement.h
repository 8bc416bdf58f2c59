#pragma once
/// @file
/// Stress resultants between the ends of an element, in closed form.
///
/// Signs are those of the diagrams; x is measured along the element from end i, in the model's
/// units of length. Source: the equilibrium of the part from i to x.

#include <optional>

namespace veskora {

/// One element under its end forces and its uniform load, with q along local y, n along local x.
struct AlongElement
{
    double length;
    double Ni, Qi, Mi; ///< at end i
    double n, q;       ///< load per unit of length

    double N(double x) const { return Ni - n * x; }
    double Q(double x) const { return Qi + q * x; }
    double M(double x) const { return Mi + Qi * x + q * x * x / 2; }

    /// Where M has its extreme between the ends; none where it is straight or has it at an end.
    std::optional<double> placeOfExtremeM() const;
};

/// Of element @p e and the results in the store, which belong together.
/// Fault: a node row outside 1 to count, zero length.
AlongElement alongElement(int e);

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
