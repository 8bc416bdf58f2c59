#include "frmMETAKINISI.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ModelEdits.h"
#include "Text.h"
#include "ui_frmMETAKINISI.h"

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

void frmMETAKINISI::apply()
{
    const auto first = rowOrRefuse(ui_->Combo1, noSuchNode);
    const auto last = first ? rowOrRefuse(ui_->Combo2, noSuchNode) : std::nullopt;
    if (!last)
        return;
    const auto dx = typedSingle(ui_->Text1);
    const auto dy = typedSingle(ui_->Text2);
    if (!dx || !dy) {
        refuseOverflow(dx ? ui_->Text2 : ui_->Text1);
        return;
    }
    if (*dx == 0 && *dy == 0)
        return;
    if (const int tooLarge = moveNodes(*first, *last, *dx, *dy)) {
        refuseOverflow(tooLarge == node::x ? ui_->Text1 : ui_->Text2);
        return;
    }
    modelChanged();
    showDone(Metafrasi(805, "Moved nodes: #") + numberText(*first) + " " + Metafrasi(806, "to #")
                 + numberText(*last) + ", dx=" + numberText(*dx) + ", dy=" + numberText(*dy),
             ui_->Combo1);
}

} // namespace veskora
