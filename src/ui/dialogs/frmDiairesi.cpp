#include "frmDiairesi.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Text.h"
#include "ui_frmDiairesi.h"

#include <algorithm>
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
    chainEnter({ui_->Combo1, ui_->Combo2, ui_->Text1});
    lead(ui_->Combo1);
}

frmDiairesi::~frmDiairesi() = default;

void frmDiairesi::fillLists()
{
    for (NumberList *list : {ui_->Combo1, ui_->Combo2})
        list->fill(Arithmos_Stoixeion);
}

void frmDiairesi::apply()
{
    const auto first = chosenRow(ui_->Combo1, noSuchElement);
    const auto last = first ? chosenRow(ui_->Combo2, noSuchElement) : std::nullopt;
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
        divide(e, static_cast<int>(segments));
    fillLists();
    Grammi_Log(Metafrasi(410, "Elements divided: #") + numberText(*first) + " "
                   + Metafrasi(411, "to #") + numberText(*last) + " " + Metafrasi(412, "into") + " "
                   + numberText(segments) + " " + Metafrasi(413, "segments each."),
               logColour::navy);
    Katastasi_Provolis = 0;
    Allagi_Montelou = true;
    emit divided();
}

void frmDiairesi::divide(int e, int segments)
{
    const auto end = [e](int column, int coordinate) -> double {
        return Komboi(static_cast<int>(Stoixeia(e, column)), coordinate);
    };
    const double xi = end(element::nodeI, node::x), yi = end(element::nodeI, node::y);
    const double xj = end(element::nodeJ, node::x), yj = end(element::nodeJ, node::y);
    const float nodeJ = Stoixeia(e, element::nodeJ);
    const float hingeJ = Stoixeia(e, element::hingeJ);
    Stoixeia(e, element::nodeJ) = static_cast<float>(Arithmos_Kombon + 1);
    Stoixeia(e, element::hingeJ) = 0;
    for (int p = 1; p < segments; ++p) {
        const int n = Arithmos_Kombon + p;
        std::ranges::fill(Komboi.row(n), 0.0F);
        std::ranges::fill(Elatiria.row(n), 0.0F);
        Komboi(n, node::x) = static_cast<float>(xi + p * (xj - xi) / segments);
        Komboi(n, node::y) = static_cast<float>(yi + p * (yj - yi) / segments);

        const int piece = Arithmos_Stoixeion + p;
        std::ranges::copy(Stoixeia.row(e).first(element::used), Stoixeia.row(piece).begin());
        Stoixeia(piece, element::nodeI) = static_cast<float>(n);
        Stoixeia(piece, element::nodeJ) = p == segments - 1 ? nodeJ : static_cast<float>(n + 1);
        Stoixeia(piece, element::hingeI) = 0;
        Stoixeia(piece, element::hingeJ) = p == segments - 1 ? hingeJ : 0;
    }
    Arithmos_Kombon = static_cast<std::int16_t>(Arithmos_Kombon + segments - 1);
    Arithmos_Stoixeion = static_cast<std::int16_t>(Arithmos_Stoixeion + segments - 1);
}

} // namespace veskora
