#include "frmSelect.h"

#include "Functions.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "Text.h"
#include "ui_frmSelect.h"

namespace veskora {

frmSelect::frmSelect(const QString &caption, QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSelect>())
{
    ui_->setupUi(this);
    setWindowTitle(caption);
    for (const Section &section : sections()) {
        section.check->setText(qtText(sectionName(section.kind)));
        section.check->setChecked(*section.chosen || !sectionsChosen);
    }
    ui_->Label8->setText(qtText(Metafrasi(1208, "Results")));
    ui_->SSCommand1->setText(qtText(Metafrasi(2003, "Cancel")));
    ui_->SSCommand2->setText(qtText(Metafrasi(2002, "OK")));
    connect(ui_->SSCommand1, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->SSCommand2, &QPushButton::clicked, this, &QDialog::accept);
    assignDialogMnemonics(this);
    Anafora.clear();
}

frmSelect::~frmSelect() = default;

std::array<frmSelect::Section, 4> frmSelect::sections() const
{
    return {{{ui_->Check1, ReportSection::data, &Nai_Dedomena},
             {ui_->Check2, ReportSection::displacements, &Nai_Metakiniseis},
             {ui_->Check3, ReportSection::elementForces, &Nai_Entaseis},
             {ui_->Check4, ReportSection::reactions, &Nai_Antidraseis}}};
}

void frmSelect::accept()
{
    Anafora.clear();
    for (const Section &section : sections()) {
        *section.chosen = section.check->isChecked();
        if (*section.chosen)
            Anafora += Anafora_Keimenou(static_cast<int>(section.kind));
    }
    sectionsChosen = true;
    QDialog::accept();
}

std::string sectionName(ReportSection section)
{
    switch (section) {
    case ReportSection::data:
        return Metafrasi(1204, "Model data");
    case ReportSection::displacements:
        return Metafrasi(1205, "Node displacements");
    case ReportSection::elementForces:
        return Metafrasi(1206, "Element forces");
    case ReportSection::reactions:
        return Metafrasi(1207, "Constraint-Spring reactions");
    }
    return {};
}

} // namespace veskora
