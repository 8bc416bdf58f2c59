#pragma once
/// @file
/// How a structure can move, in the user's words.

#include "CheckText.h"

namespace veskora {

/// Of a free, a nearly free or an unstable motion.
FindingText motionText(const Finding &finding);

/// What the smallest eigenvalue says to an engineer.
std::string eigenvalueText(double eigenvalue);

/// What a node without elements is called, parted from what becomes of its loads.
std::string nodesWithoutElementText();

/// The rows of the three tables, such as "Nodes 1 to 4 and 7"; empty where there are none.
std::string nodesText(const std::vector<int> &rows);
std::string elementsText(const std::vector<int> &rows);
std::string groupsText(const std::vector<int> &rows);

} // namespace veskora
