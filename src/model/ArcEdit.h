#pragma once
/// @file
/// Nodes and straight elements along an arc.

#include "ModelEdits.h"

namespace veskora {

/// An arc that runs counter-clockwise.
struct Arc
{
    double x, y;   ///< the centre k
    double R;      ///< the radius
    double start;  ///< direction angle of its beginning from k, radians
    double theta;  ///< radians, up to 2 pi
    bool isCircle; ///< it ends where it begins
};

/// The arc around (@p x, @p y) from point 1 to the direction of point 2; the whole circle where the
/// two lie in one direction.
Arc arcAround(double x, double y, double x1, double y1, double x2, double y2);

/// Why an arc cannot be made.
enum class ArcRefusal {
    none,
    noLength,  ///< the radius is 0, or the elements have no length in Singles
    badNumber, ///< of elements: a circle of one would join a node to itself
    nodeLimit,
    elementLimit,
    overflow, ///< a coordinate that a Single cannot hold
};

/// What an arc is to add.
struct ArcNodes
{
    ArcRefusal refusal;
    std::vector<Place> places; ///< in order; nothing when refused
};

/// How many nodes there will be with @p arc in @p elements elements.
double nodesWithArc(const Arc &arc, double elements);

/// The places of the nodes of @p arc cut into @p elements equal elements, a whole number from 1.
ArcNodes arcNodes(const Arc &arc, double elements);

/// Adds a node at each of @p places and P2 elements of @p group between neighbours, for a circle
/// also from the last to the first.
void addArc(const std::vector<Place> &places, bool isCircle, int group);

} // namespace veskora
