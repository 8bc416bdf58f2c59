#include "frmMETAKINISI.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ModelEdits.h"
#include "RowLines.h"
#include "Text.h"
#include "ui_frmMETAKINISI.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace veskora {

frmMETAKINISI::frmMETAKINISI(QWidget *parent)
    : ModelDialog(parent), ui_(std::make_unique<Ui::frmMETAKINISI>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(801, "Move nodes")));
    ui_->Label1->setText(qtText(Metafrasi(802, "Move nodes:")));
    ui_->Label2->setText(qtText(Metafrasi(803, "from")));
    ui_->Label3->setText(qtText(Metafrasi(804, "to")));
    fillLists();
    for (NumberList *list : {ui_->Combo1, ui_->Combo2})
        list->showNumber(1);
    equip();
    equipNote();
    keepInOrder(ui_->Combo1, ui_->Combo2);
    chainEnter({ui_->Combo1, ui_->Combo2, ui_->Text1, ui_->Text2});
    focusAndSelect(ui_->Combo1);
}

frmMETAKINISI::~frmMETAKINISI() = default;

void frmMETAKINISI::fillLists()
{
    for (NumberList *list : {ui_->Combo1, ui_->Combo2})
        list->fill(Arithmos_Kombon);
}

std::optional<std::vector<int>> frmMETAKINISI::nodesToMove() const
{
    const auto first = rowOrRefuse(ui_->Combo1, noSuchNode);
    const auto last = first ? rowOrRefuse(ui_->Combo2, noSuchNode) : std::nullopt;
    if (!last)
        return std::nullopt;
    std::vector<int> nodes(static_cast<std::size_t>(std::max(0, *last - *first + 1)));
    std::iota(nodes.begin(), nodes.end(), *first);
    return nodes;
}

void frmMETAKINISI::apply()
{
    const auto nodes = nodesToMove();
    if (!nodes)
        return;
    const auto dx = typedSingle(ui_->Text1);
    const auto dy = typedSingle(ui_->Text2);
    if (!dx || !dy) {
        refuseOverflow(dx ? ui_->Text2 : ui_->Text1);
        return;
    }
    if (*dx == 0 && *dy == 0)
        return;
    if (const int tooLarge = moveNodes(*nodes, *dx, *dy)) {
        refuseOverflow(tooLarge == node::x ? ui_->Text1 : ui_->Text2);
        return;
    }
    modelChanged();
    tellMoved(", dx=" + numberText(*dx) + ", dy=" + numberText(*dy));
}

void frmMETAKINISI::tellMoved(const std::string &by)
{
    showDone(Metafrasi(805, "Moved nodes: #") + numberText(*ui_->Combo1->row()) + " "
                 + Metafrasi(806, "to #") + numberText(*ui_->Combo2->row()) + by,
             ui_->Combo1);
}

// -------------------------------------------------------------------------------- for given nodes

void MoveGivenNodes::openFor(std::vector<int> nodes)
{
    nodes_ = std::move(nodes);
    for (QWidget *part : std::initializer_list<QWidget *>{ui_->Combo1, ui_->Combo2, ui_->Label3})
        part->hide();
    ui_->Label2->setBuddy(nullptr);
    ui_->Label2->setText(qtText(numbersShown()));
    ui_->Label2->setWordWrap(true);
    focusAndSelect(ui_->Text1);
    exec();
}

std::string MoveGivenNodes::numbersShown() const
{
    std::string numbers;
    for (const int n : nodes_)
        numbers += (numbers.empty() ? "#" : ", #") + numberText(n);
    return numbers;
}

void MoveGivenNodes::tellMoved(const std::string &by)
{
    for (const int n : nodes_)
        logNode(n, false);
    ui_->SSCommand29->setFocus(); // Enter must not move them again
    note(numbersShown() + by);
}

} // namespace veskora

#include "moc_frmMETAKINISI.cpp"
