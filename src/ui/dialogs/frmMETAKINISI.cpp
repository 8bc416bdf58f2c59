#include "frmMETAKINISI.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Text.h"
#include "ui_frmMETAKINISI.h"

#include <cmath>

namespace veskora {

frmMETAKINISI::frmMETAKINISI(QWidget *parent)
    : ModelDialog(parent), ui_(std::make_unique<Ui::frmMETAKINISI>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(801, "Move nodes")));
    ui_->Label1->setText(qtText(Metafrasi(802, "Move nodes:")));
    ui_->Label2->setText(qtText(Metafrasi(803, "from")));
    ui_->Label3->setText(qtText(Metafrasi(804, "to")));
    for (NumberList *list : {ui_->Combo1, ui_->Combo2}) {
        list->fill(Arithmos_Kombon);
        list->showNumber(1);
    }
    equip();
    chainEnter({ui_->Combo1, ui_->Combo2, ui_->Text1, ui_->Text2});
    lead(ui_->Combo1);
}

frmMETAKINISI::~frmMETAKINISI() = default;

void frmMETAKINISI::apply()
{
    const auto first = chosenRow(ui_->Combo1, noSuchNode);
    const auto last = first ? chosenRow(ui_->Combo2, noSuchNode) : std::nullopt;
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
    for (int n = *first; n <= *last; ++n) {
        const bool xFits = std::isfinite(Komboi(n, node::x) + *dx);
        if (!xFits || !std::isfinite(Komboi(n, node::y) + *dy)) {
            refuseOverflow(xFits ? ui_->Text2 : ui_->Text1);
            return;
        }
    }
    for (int n = *first; n <= *last; ++n) {
        Komboi(n, node::x) += *dx;
        Komboi(n, node::y) += *dy;
    }
    modelChanged();
    Grammi_Log(Metafrasi(805, "Moved nodes: #") + numberText(*first) + " " + Metafrasi(806, "to #")
                   + numberText(*last) + ", dx=" + numberText(*dx) + ", dy=" + numberText(*dy),
               logColour::navy);
}

} // namespace veskora
