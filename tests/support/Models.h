#pragma once
/// @file
/// Models for tests and benchmarks, put straight into the store.

#include <random>
#include <string>
#include <vector>

namespace veskora {

/// An expected value of a model text: table 'u' displacements, 'r' reactions and forces of springs,
/// 'f' end forces.
struct Expectation
{
    char table;
    int row, column;
    std::string value; ///< as written

    double found() const; ///< what the result tables hold there
};

/// Empties the store and fills it from a text of records separated by ";" or line ends:
/// "G E A I", "N x y code Fx Fy M", "E i j group hinge_i hinge_j wx wy", "S node kx ky kz",
/// "= table row column value". Missing fields are 0, a missing code is "ooo"; "#" begins a comment.
/// @return the expectations
std::vector<Expectation> buildModel(const std::string &text);

/// Rows to add, returning the row number.
int putNode(double x, double y, const std::string &code = "ooo", double Fx = 0, double Fy = 0,
            double M = 0);
int putElement(int i, int j, int group = 1, int hingeI = 0, int hingeJ = 0, double wx = 0,
               double wy = 0);
int putGroup(double E, double A, double I);

/// A frame at the limit, 200 nodes and 300 elements: eight column lines of twenty-four storeys with
/// 108 beams, numbered storey by storey.
void buildStoreyFrame();

/// One of fewer storeys; the ground is one of the levels.
void buildStoreys(int levels);

/// Numbers the nodes of the store anew at random; elements follow.
void shuffleNodes(std::mt19937 &random);

/// A connected random frame with mixed hinges, springs, restraints and loads; mostly well posed.
void buildRandomFrame(std::mt19937 &random, int nodes);

} // namespace veskora
