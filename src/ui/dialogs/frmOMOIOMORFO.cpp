#include "frmOMOIOMORFO.h"

#include "Desktop.h"
#include "Functions.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmOMOIOMORFO.h"

namespace veskora {

frmOMOIOMORFO::frmOMOIOMORFO(QWidget *parent)
    : LoadDialog(parent), ui_(std::make_unique<Ui::frmOMOIOMORFO>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(1001, "Elemental loads")));
    ui_->Label1->setText(qtText(Metafrasi(1002, "On element")));
    ui_->Label2->setText(qtText(Metafrasi(1003, "Force")));
    equipLoads({ui_->Text1, ui_->Text2}, ui_->Label4,
               {Metafrasi(1004, "Elements with loads on:"), elementalLoadWords(),
                Metafrasi(1008, "There is no load to be deleted on element #")});
    const auto explanation = [] {
        return Metafrasi(1009, "Elemental loads must be given as force / length of the element. "
                               "Directions x and y refer to system's global axes.");
    };
    ui_->SSCommand1->setAccessibleName(windowTitle());
    ui_->SSCommand1->setToolTip(qtText(explanation()));
    ui_->SSCommand1->setAccessibleDescription(qtText(explanation()));
    connect(ui_->SSCommand1, &QPushButton::clicked, this,
            [explanation] { desktop().message(explanation(), Icon::information); });
}

frmOMOIOMORFO::~frmOMOIOMORFO() = default;

std::string frmOMOIOMORFO::noSuchRow() const
{
    return noSuchElement(numbers());
}

int frmOMOIOMORFO::rowCount() const
{
    return Arithmos_Stoixeion;
}

std::span<float> frmOMOIOMORFO::loads(int e) const
{
    return elementalLoads(e);
}

} // namespace veskora

#include "moc_frmOMOIOMORFO.cpp"
