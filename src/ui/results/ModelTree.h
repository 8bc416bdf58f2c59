#pragma once

#include <Qt>

class QTreeWidget;

namespace veskora {

/// Where a tree item keeps its key, such as "stoi" for the elements and "3stoi" for the third.
inline constexpr int treeKeyRole = Qt::UserRole;

/// Fills @p tree with all data of the model: groups, nodes, elements, nodal and elemental loads.
void Ftiakse_treeview(QTreeWidget &tree);

} // namespace veskora
