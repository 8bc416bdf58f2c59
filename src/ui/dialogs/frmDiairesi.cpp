#include "frmDiairesi.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ModelEdits.h"
#include "Text.h"
#include "ui_frmDiairesi.h"

#include <cmath>

namespace veskora {

frmDiairesi::frmDiairesi(QWidget *parent)
    : ModelDialog(parent), ui_(std::make_unique<Ui::frmDiairesi>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(401, "Divide elements")));
    ui_->Label1->setText(qtText(Metafrasi(402, "Divide elements:")));
    ui_->Label2->setText(qtText(Metafrasi(403, "from")));
    ui_->Label3->setText(qtText(Metafrasi(404, "to")));
    ui_->Label4->setText(qtText(Metafrasi(405, "into")));
    ui_->Label5->setText(qtText(Metafrasi(406, "elements each")));
    fillLists();
    for (NumberList *list : {ui_->Combo1, ui_->Combo2})
        list->showNumber(1);
    equip();
    equipNote();
    keepInOrder(ui_->Combo1, ui_->Combo2);
    chainEnter({ui_->Combo1, ui_->Combo2, ui_->Text1});
    focusAndSelect(ui_->Combo1);
}

frmDiairesi::~frmDiairesi() = default;

void frmDiairesi::fillLists()
{
    for (NumberList *list : {ui_->Combo1, ui_->Combo2})
        list->fill(Arithmos_Stoixeion);
}

void frmDiairesi::apply()
{
    const auto first = rowOrRefuse(ui_->Combo1, noSuchElement);
    const auto last = first ? rowOrRefuse(ui_->Combo2, noSuchElement) : std::nullopt;
    if (!last)
        return;
    const double segments = typedNumber(ui_->Text1);
    if (std::nearbyint(segments) == 1)
        return;
    if (!isRowNumber(segments)) {
        refuse(Metafrasi(407, "The value of segments that you have given is unacceptable."),
               ui_->Text1);
        return;
    }
    const double added = (*last - *first + 1) * (segments - 1);
    if (const double nodes = Arithmos_Kombon + added; nodes > maxNodes) {
        refuse(Metafrasi(408, "This division operation requires more nodes than the maximum number "
                              "of nodes.")
                   + "\r\n\r\n" + numberText(nodes) + " > Max.nodes = " + numberText(maxNodes),
               ui_->Text1);
        return;
    }
    if (const double elements = Arithmos_Stoixeion + added; elements > maxElements) {
        refuse(Metafrasi(409, "This division operation requires more elements than the maximum "
                              "number of elements.")
                   + "\r\n\r\n" + numberText(elements)
                   + " > Max.elements = " + numberText(maxElements),
               ui_->Text1);
        return;
    }
    for (int e = *first; e <= *last; ++e)
        divideElement(e, static_cast<int>(segments));
    fillLists();
    showDone(Metafrasi(410, "Elements divided: #") + numberText(*first) + " "
                 + Metafrasi(411, "to #") + numberText(*last) + " " + Metafrasi(412, "into") + " "
                 + numberText(segments) + " " + Metafrasi(413, "segments each."),
             ui_->Combo1);
    Katastasi_Provolis = view::model;
    Allagi_Montelou = true;
    emit divided();
}

} // namespace veskora

#include "moc_frmDiairesi.cpp"
