#pragma once
/// @file
/// Changes of the model: they write the tables, set `Allagi_Montelou` where they changed something,
/// and give facts. They ask nothing and say nothing; rows and limits are for the caller to test.

namespace veskora {

/// Adds a free node without loads and springs.
/// @return its number
int addNode(float x, float y);

/// Adds a P2 element without loads.
/// @return its number
int addElement(int nodeI, int nodeJ, int group);

/// Gives node @p n the next support of `restraintRing`.
/// @return false, and no change, for a row whose restraints are not 0 and 1
bool stepSupport(int n);

} // namespace veskora
