#include "frmEPIKOMBIO.h"

#include "Functions.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmEPIKOMBIO.h"

namespace veskora {

frmEPIKOMBIO::frmEPIKOMBIO(QWidget *parent)
    : LoadDialog(parent), ui_(std::make_unique<Ui::frmEPIKOMBIO>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(501, "Nodal loads")));
    ui_->Label1->setText(qtText(Metafrasi(502, "On node")));
    ui_->Label2->setText(qtText(Metafrasi(503, "Force")));
    ui_->Label3->setText(qtText(Metafrasi(504, "Moment")));
    equipLoads({ui_->Text1, ui_->Text2, ui_->Text3}, ui_->Label4,
               {Metafrasi(505, "Nodes with loads on:"),
                {Metafrasi(506, "New loads on node #"), Metafrasi(507, "* Loads on node #"),
                 Metafrasi(508, "Loads deleted on node #")},
                Metafrasi(509, "There is no load to delete on node #")});
}

frmEPIKOMBIO::~frmEPIKOMBIO() = default;

std::string frmEPIKOMBIO::noSuchRow() const
{
    return noSuchNode(numbers());
}

int frmEPIKOMBIO::rowCount() const
{
    return Arithmos_Kombon;
}

std::span<float> frmEPIKOMBIO::loads(int n) const
{
    return nodalLoads(n);
}

} // namespace veskora

#include "moc_frmEPIKOMBIO.cpp"
