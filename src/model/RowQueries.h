#pragma once
/// @file
/// What rows of the model are: which nodes an element joins, of what type it is, what is
/// restrained, held by springs, loaded. Rows count from 1.
///
/// References, restraints and hinges are numbers of small sets, held as floats; the model file and
/// the forms bring no others into the tables.

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace veskora {

/// @name Elements
/// @{

/// The node at an end of element @p e, @p end being `element::nodeI` or `element::nodeJ`; 0 where
/// the cell names no node that exists.
int nodeOf(int e, int end);
/// The group of element @p e; 0 where the cell names none that exists.
int groupOf(int e);
/// The first element that node @p n is an end of, 0 when there is none.
int elementAt(int n);
/// Whether element @p e lies between nodes @p a and @p b, in either direction.
bool joins(int e, int a, int b);
/// The first element between nodes @p a and @p b, 0 when there is none.
int elementBetween(int a, int b);
bool areJoined(int a, int b);
/// The first element of group @p g, 0 when there is none.
int elementOfGroup(int g);

/// The group of elements drawn on the canvas: the main one where the user has chosen none that
/// exists.
int groupToDraw();

enum class ElementType { P2, hingeAtJ, hingeAtI, P1, none };

/// Whether elements end at node @p n, all of them with a hinge: nothing there resists a rotation.
bool meetsOnlyHinges(int n);

/// The type that the two hinge columns name; `none` for a pair of other values than 0 and 1.
ElementType elementType(int e);
/// @}

/// @name Restraints
/// A code has one letter each for x, y and rotation: "x" restrained, "o" free.
/// @{

/// The order in which a support steps when it is clicked; "ooo" follows the last.
inline constexpr std::array<std::string_view, 8> restraintRing = {"ooo", "xoo", "oxo", "oox",
                                                                  "xxo", "xox", "oxx", "xxx"};
/// The code behind @p code in the ring, and the one before it.
std::string_view nextRestraint(std::string_view code);
std::string_view previousRestraint(std::string_view code);

std::string restraintCode(bool x, bool y, bool rotation);
/// The code of node @p n.
std::string restraintCode(int n);
/// The same for lists and labels: nothing for a free node.
std::string restraintText(int n);
/// Whether the restraints of node @p n are 0 and 1, as the codes have them.
bool areRestraintsValid(int n);
/// Whether a freedom of node @p n is restrained; springs do not count.
bool isRestrainedNode(int n);
/// @}

/// @name Springs
/// The analysis adds any constant, and the canvas shows any but 0. Negative ones, which only a file
/// can bring, are no springs to lists, reports and the file that is written.
/// @{

/// Whether node @p n has a spring in direction @p k: 1 x, 2 y, 3 rotation.
bool hasSpring(int n, int k);
/// Whether it has one in any.
bool hasSpring(int n);
/// The force of the spring of node @p n in direction @p k on the frame: minus its stiffness times
/// the displacement.
double springForce(int n, int k);
/// What lists show as the reaction of node @p n in direction @p k, from the last analysis: the
/// force of its spring, else that of its restraint; none where it has neither.
std::optional<double> reactionAt(int n, int k);
/// @}

/// @name Loads
/// @{
std::span<float> nodalLoads(int n);     ///< Fx, Fy, M
std::span<float> elementalLoads(int e); ///< wx, wy
bool isLoaded(std::span<const float> loads);
bool isLoadedNode(int n);
bool isLoadedElement(int e);
/// @}

/// The number of a freedom among all of the structure, from 1: component @p k (1 x, 2 y,
/// 3 rotation) of node @p n. Displacements, loads and reactions stand at these places.
constexpr int freedomOf(int n, int k)
{
    return 3 * (n - 1) + k;
}

/// The node and the component of a freedom.
constexpr int nodeOfFreedom(int freedom)
{
    return (freedom - 1) / 3 + 1;
}
constexpr int componentOf(int freedom)
{
    return (freedom - 1) % 3 + 1;
}

/// How many of the rows 1 to @p rows are so.
int countRows(int rows, bool (*holds)(int));
/// Those of the rows 1 to @p rows that are so, in ascending order.
std::vector<int> rowsWhere(int rows, const std::function<bool(int)> &holds);

/// @name Rows that belong together, in ascending order
/// @{
std::vector<int> elementsOfGroup(int g);
/// The nodes as high as node @p n, but for what rounding leaves, @p n among them.
std::vector<int> nodesAtHeightOf(int n);
/// Those where only hinges meet and no spring holds the rotation.
std::vector<int> nodesOfHinges();
/// @}

} // namespace veskora
