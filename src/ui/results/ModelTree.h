#pragma once

#include <QSet>
#include <QString>

class QTreeWidget;

namespace veskora {

/// Where a tree item keeps its key, such as "stoi" for the elements and "3stoi" for the third.
inline constexpr int treeKeyRole = Qt::UserRole;

/// The keys of branches that are open; that of the root is empty.
using OpenBranches = QSet<QString>;

/// Fills @p tree with all data of the model: groups, nodes, elements, nodal and elemental loads.
void Ftiakse_treeview(QTreeWidget &tree, const OpenBranches &open);

OpenBranches openBranches(const QTreeWidget &tree);

} // namespace veskora
