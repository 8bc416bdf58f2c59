#pragma once
/// @file
/// Changes of the model: they write the tables, set `Allagi_Montelou` where they changed something,
/// and give facts. They ask nothing and say nothing. Rows exist and limits are kept: the caller
/// tests that.

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace veskora {

/// Coordinates as the tables hold them.
struct Place
{
    float x, y;
    bool operator==(const Place &) const = default;
};

/// Adds a free node without loads and springs.
/// @return its number
int addNode(float x, float y);

/// Adds a P2 element without loads.
/// @return its number
int addElement(int nodeI, int nodeJ, int group);

/// Gives node @p n the next support of `restraintRing`, or the one before. Springs stay.
/// @return false, and no change, for a row whose restraints are not 0 and 1
bool stepSupport(int n, bool backwards = false);

/// Gives node @p n the support @p code. A direction that is restrained now loses its spring.
/// @return false where it has that support already, and no change
bool setSupport(int n, std::string_view code);

/// @name What many rows need at a time
/// They return the rows that were changed.
/// @{

/// Holds the rotation of each of @p nodes that can rotate.
std::vector<int> holdRotations(std::span<const int> nodes);
/// Gives each of @p elements hinges at both ends.
std::vector<int> hingeBothEnds(std::span<const int> elements);
/// Gives each of @p elements the loads of element @p e.
std::vector<int> shareLoads(int e, std::span<const int> elements);
/// @}

/// Moves @p nodes, all or none.
/// @return 0, or else `node::x` or `node::y`: the coordinate that a Single would not hold
int moveNodes(std::span<const int> nodes, float dx, float dy);

/// The middle between two nodes; none where a Single cannot hold it.
std::optional<Place> middleOf(int a, int b);

/// Leads the elements of node @p b to node @p a, and moves that to @p place where there is one. No
/// element lies between the two; node @p b stays.
void mergeNodes(int a, int b, std::optional<Place> place);

/// Cuts element @p e into equal segments, at least two. It keeps end i, the new elements follow in
/// order, and the hinge at j goes to the last of them.
void divideElement(int e, int segments);

/// @name Coincidences
/// Each pair once, @p i before @p j.
/// @{
/// The farthest that nodes may lie apart and still be said to coincide, world units.
inline constexpr double atOnePlace = 0.001;

struct NodePair
{
    int i, j;
    double distance;
};
struct ElementPair
{
    int i, j;
};
/// Nodes no farther apart than @p tolerance.
std::vector<NodePair> coincidentNodes(double tolerance);
/// Elements between the same two nodes.
std::vector<ElementPair> coincidentElements();
/// @}

} // namespace veskora
