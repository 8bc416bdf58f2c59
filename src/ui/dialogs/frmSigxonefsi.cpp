#include "frmSigxonefsi.h"

#include "Desktop.h"
#include "Diagrafes.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ModelEdits.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmSigxonefsi.h"

namespace veskora {

frmSigxonefsi::frmSigxonefsi(QWidget *parent)
    : ModelDialog(parent), ui_(std::make_unique<Ui::frmSigxonefsi>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(1301, "Merge nodes")));
    ui_->Label1->setText(qtText(Metafrasi(1302, "Merge node:")));
    ui_->Label2->setText(qtText(Metafrasi(1303, "in")));
    ui_->Check1->setText(qtText(Metafrasi(1304, "Delete node B")));
    ui_->Check2->setText(qtText(Metafrasi(1305, "Move node A to the middle of segment AB")));
    ui_->Check1->setChecked(true);
    fillLists();
    equip();
    equipNote();
    chainEnter({ui_->Combo1, ui_->Combo2, ui_->Check1, ui_->Check2});
    focusAndSelect(ui_->Combo1);
}

frmSigxonefsi::~frmSigxonefsi() = default;

void frmSigxonefsi::fillLists()
{
    for (NumberList *list : {ui_->Combo1, ui_->Combo2}) {
        list->fill(Arithmos_Kombon);
        list->showNumber(1);
    }
}

void frmSigxonefsi::apply()
{
    const auto a = rowOrRefuse(ui_->Combo1, noSuchNode);
    const auto b = a ? rowOrRefuse(ui_->Combo2, noSuchNode) : std::nullopt;
    if (!b || *a == *b)
        return;
    const bool isMoved = ui_->Check2->isChecked();
    const std::optional<Place> middle = isMoved ? middleOf(*a, *b) : std::nullopt;
    if (isMoved && !middle) {
        refuseOverflow(ui_->Combo1);
        return;
    }
    const int elements = Arithmos_Stoixeion;
    if (!deleteElementsBetween(*a, *b)) {
        if (Arithmos_Stoixeion < elements)
            modelChanged();
        return;
    }
    mergeNodes(*a, *b, middle);
    showDone(Metafrasi(1308, "Node #") + " " + numberText(*b) + " "
                 + Metafrasi(1309, "merged in node #") + numberText(*a) + ".",
             ui_->Combo1);
    if (isMoved) {
        // The B is the Greek capital, as it has always been in this line.
        Grammi_Log(Metafrasi(1310, "Node #") + " " + numberText(*a) + " "
                       + Metafrasi(1311, "moved to the middle of segment A\u0392."),
                   logColour::navy);
    }
    if (ui_->Check1->isChecked()) {
        Diagrafi_Kombou(static_cast<std::int16_t>(*b));
        fillLists();
        focusAndSelect(ui_->Combo1); // whose text is another now
    }
    modelChanged();
}

/// @return false as soon as the user wants to keep one
bool frmSigxonefsi::deleteElementsBetween(int a, int b)
{
    while (const int e = elementBetween(a, b)) {
        const std::string text =
            Metafrasi(1306, "Between nodes to be merged there is element #") + numberText(e) + ".";
        Grammi_Log(text, logColour::red);
        if (desktop().message(text + "\r\n"
                                  + Metafrasi(1307, "Do you want this element to be deleted in "
                                                    "order for the nodes to be merged?"),
                              Icon::question, Buttons::okCancel)
            != Answer::ok)
            return false;
        Diagrafi_Stoixeiou(static_cast<std::int16_t>(e));
    }
    return true;
}

} // namespace veskora

#include "moc_frmSigxonefsi.cpp"
