#include "ModelTree.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ResultCells.h"
#include "RowQueries.h"
#include "Text.h"

#include <array>

#include <QTreeWidget>

namespace veskora {

namespace {

QTreeWidgetItem *add(QTreeWidgetItem *parent, const std::string &text, const std::string &key = {})
{
    auto *item = new QTreeWidgetItem(parent, {qtText(text)});
    if (!key.empty())
        item->setData(0, treeKeyRole, qtText(key));
    return item;
}

QString keyOf(const QTreeWidgetItem *item)
{
    return item->data(0, treeKeyRole).toString();
}

/// "#3 Node" under @p parent, whose key behind the number is the new item's key.
QTreeWidgetItem *addNumbered(QTreeWidgetItem *parent, int number, const std::string &word)
{
    const std::string digits = numberText(number);
    return add(parent, std::string("#").append(digits).append(" ").append(word),
               digits + plainText(keyOf(parent)));
}

void addUnlessZero(QTreeWidgetItem *parent, const char *label, float value,
                   const RegionalNumbers &number)
{
    if (value != 0)
        add(parent, label + number(value));
}

} // namespace

OpenBranches openBranches(const QTreeWidget &tree)
{
    OpenBranches open;
    for (QTreeWidgetItemIterator at(const_cast<QTreeWidget *>(&tree)); *at != nullptr; ++at)
        if ((*at)->isExpanded())
            open << keyOf(*at);
    return open;
}

void Ftiakse_treeview(QTreeWidget &tree, const OpenBranches &open)
{
    const RegionalNumbers number;
    // Items are hung into the tree when they are complete: it is told once and not of each.
    auto *root = new QTreeWidgetItem({qtText(Metafrasi(352, "Model"))});
    QTreeWidgetItem *groups = add(root, Metafrasi(353, "E,A,I Element Groups"), "omad");
    QTreeWidgetItem *nodes = add(root, Metafrasi(354, "Nodes"), "komb");
    QTreeWidgetItem *elements = add(root, Metafrasi(355, "Elements"), "stoi");
    QTreeWidgetItem *nodalLoads = add(root, Metafrasi(356, "Nodal loads"), "sigk");
    QTreeWidgetItem *elementalLoads = add(root, Metafrasi(357, "Elemental loads"), "omoi");

    for (int g = 1; g <= Arithmos_Omadon; ++g) {
        QTreeWidgetItem *item = addNumbered(groups, g, Metafrasi(336, "E,A,I Group"));
        add(item, "E = " + number(Omades(g, group::E)));
        add(item, "A = " + number(Omades(g, group::A)));
        add(item, "I = " + number(Omades(g, group::I)));
    }
    for (int n = 1, loads = 0; n <= Arithmos_Kombon; ++n) {
        QTreeWidgetItem *item = addNumbered(nodes, n, Metafrasi(340, "Node"));
        add(item, "x = " + number(Komboi(n, node::x)));
        add(item, "y = " + number(Komboi(n, node::y)));
        const std::string code = restraintText(n);
        add(item,
            code.empty() ? Metafrasi(360, "Free") : Metafrasi(361, "Constraints") + ": " + code);
        static constexpr std::array springs = {"Kx = ", "Ky = ", "Kz = "};
        for (int k = 1; k <= 3; ++k)
            if (hasSpring(n, k))
                add(item, springs.at(static_cast<std::size_t>(k - 1)) + number(Elatiria(n, k)));

        if (!isLoadedNode(n))
            continue;
        QTreeWidgetItem *load = addNumbered(nodalLoads, ++loads, Metafrasi(358, "Nodal load"));
        add(load, Metafrasi(364, "On node:") + " #" + numberText(n));
        addUnlessZero(load, "Fx = ", Komboi(n, node::Fx), number);
        addUnlessZero(load, "Fy = ", Komboi(n, node::Fy), number);
        addUnlessZero(load, "M = ", Komboi(n, node::M), number);
    }
    for (int e = 1, loads = 0; e <= Arithmos_Stoixeion; ++e) {
        QTreeWidgetItem *item = addNumbered(elements, e, Metafrasi(342, "Element"));
        add(item, Metafrasi(333, "Start node i") + ": " + number(Stoixeia(e, element::nodeI)));
        add(item, Metafrasi(334, "End node j") + ": " + number(Stoixeia(e, element::nodeJ)));
        add(item, Metafrasi(362, "Type:") + " " + elementTypeText(e));
        add(item,
            Metafrasi(363, "Belongs to E,A,I group:") + " " + number(Stoixeia(e, element::group)));

        if (!isLoadedElement(e))
            continue;
        QTreeWidgetItem *load =
            addNumbered(elementalLoads, ++loads, Metafrasi(359, "Elemental load"));
        add(load, Metafrasi(365, "On element:") + " #" + numberText(e));
        addUnlessZero(load, "Fx = ", Stoixeia(e, element::wx), number);
        addUnlessZero(load, "Fy = ", Stoixeia(e, element::wy), number);
    }
    tree.addTopLevelItem(root);
    for (QTreeWidgetItemIterator at(&tree, QTreeWidgetItemIterator::HasChildren); *at; ++at)
        (*at)->setExpanded(open.contains(keyOf(*at)));
    tree.scrollToItem(nodes);
}

} // namespace veskora
