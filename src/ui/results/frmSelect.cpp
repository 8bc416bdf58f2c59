#include "frmSelect.h"

#include "Anafora.h"
#include "Functions.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "Text.h"
#include "ui_frmSelect.h"

#include <QCheckBox>

namespace veskora {

frmSelect::frmSelect(const QString &caption, QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSelect>())
{
    ui_->setupUi(this);
    setWindowTitle(caption);
    for (const ReportSection &section : reportSections) {
        auto *check = new QCheckBox(qtText(section.name.text()), ui_->Frame1);
        check->setChecked(*section.chosen || !sectionsChosen);
        if (checks_.empty())
            ui_->sections->insertWidget(0, check);
        else
            ui_->results->addWidget(check);
        checks_.push_back(check);
        check->setObjectName("Check" + QString::number(checks_.size()));
    }
    checks_.front()->setFocus();
    ui_->Label8->setText(qtText(Metafrasi(1208, "Results")));
    ui_->SSCommand1->setText(qtText(Metafrasi(2003, "Cancel")));
    ui_->SSCommand2->setText(qtText(Metafrasi(2002, "OK")));
    connect(ui_->SSCommand1, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->SSCommand2, &QPushButton::clicked, this, &QDialog::accept);
    assignDialogMnemonics(this);
}

frmSelect::~frmSelect() = default;

void frmSelect::accept()
{
    for (std::size_t i = 0; i < checks_.size(); ++i)
        *reportSections[i].chosen = checks_[i]->isChecked();
    answer_ = reportOf([](const ReportSection &section) { return *section.chosen; });
    sectionsChosen = true;
    QDialog::accept();
}

} // namespace veskora

#include "moc_frmSelect.cpp"
