#include "frmKomboi.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "NodeDeletion.h"
#include "NumberList.h"
#include "RowLines.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmKomboi.h"
#include "WindowParts.h"

#include <QIcon>

#include <algorithm>

namespace veskora {

namespace {

std::unique_ptr<Ui::frmKomboi> built(QDialog *dialog)
{
    auto ui = std::make_unique<Ui::frmKomboi>();
    ui->setupUi(dialog);
    return ui;
}

} // namespace

frmKomboi::frmKomboi(QWidget *parent)
    : RowDialog(parent),
      ui_(built(this)),
      springs_{ui_->TextKX, ui_->TextKY, ui_->TextKZ},
      checks_{ui_->SSCheck1, ui_->SSCheck2, ui_->ssCheck3}
{
    setWindowTitle(qtText(Metafrasi(601, "Nodes")));
    ui_->Label16->setText(qtText(Metafrasi(602, "Node")));
    ui_->SSCommand1->setText(qtText(Metafrasi(604, "New")));
    ui_->Label17->setText(qtText(Metafrasi(605, "Coordinates:")));
    ui_->Label10->setText(qtText(Metafrasi(606, "Elastic constants:")));
    ui_->Label3->setText(qtText(Metafrasi(607, "Constraints:")));
    ui_->SSCheck1->setText(qtText(Metafrasi(608, "x - Displacement")));
    ui_->SSCheck2->setText(qtText(Metafrasi(609, "y - Displacement")));
    ui_->ssCheck3->setText(qtText(Metafrasi(610, "z - Rotation")));
    equipRows(Metafrasi(603, "(New)"), Metafrasi(611, "(Existing)"));
    chainEnter({numbers(), ui_->Text2, ui_->Text3});
    chainEnter({ui_->TextKX, ui_->TextKY, ui_->TextKZ});
    chainEnter({ui_->SSCheck1, ui_->SSCheck2, ui_->ssCheck3});

    for (std::size_t i = 0; i < checks_.size(); ++i) {
        QCheckBox *check = checks_[i];
        QLineEdit *spring = springs_[i];
        connect(check, &QCheckBox::clicked, this, [this, spring](bool on) {
            if (on)
                spring->clear();
            eikones();
        });
        connect(spring, &QLineEdit::textEdited, this, [this, check, spring] {
            if (typedNumber(spring) > 0 && typedSingle(spring) != 0.0F) {
                check->setChecked(false);
                eikones();
            }
        });
    }
    connect(ui_->Image1, &QToolButton::clicked, this, &frmKomboi::stepSupport);
}

frmKomboi::~frmKomboi() = default;

int frmKomboi::rowCount() const
{
    return Arithmos_Kombon;
}

QWidget *frmKomboi::firstField() const
{
    return ui_->Text2;
}

void frmKomboi::clearFields()
{
    ui_->Text2->clear();
    ui_->Text3->clear();
    for (QLineEdit *spring : springs_)
        spring->clear();
    setSupport("ooo");
}

void frmKomboi::loadFields(int n)
{
    ui_->Text2->setText(qtText(numberText(Komboi(n, node::x))));
    ui_->Text3->setText(qtText(numberText(Komboi(n, node::y))));
    for (int k = 1; k <= 3; ++k)
        showNonZero(springs_.at(static_cast<std::size_t>(k - 1)), std::max(0.0F, Elatiria(n, k)));
    setSupport(restraintCode(n));
}

std::string frmKomboi::code() const
{
    return restraintCode(checks_[0]->isChecked(), checks_[1]->isChecked(), checks_[2]->isChecked());
}

void frmKomboi::setSupport(std::string_view code)
{
    for (std::size_t i = 0; i < checks_.size(); ++i)
        checks_[i]->setChecked(code[i] == 'x');
    eikones();
}

void frmKomboi::eikones()
{
    const QString support = qtText(code());
    ui_->Image1->setIcon(iconOf(":/icons/support_" + support + ".svg"));
    ui_->Image1->setAccessibleName(qtText(Metafrasi(607, "Constraints:")) + ' ' + support);
    ui_->Image1->setToolTip(ui_->Image1->accessibleName());
}

void frmKomboi::stepSupport()
{
    const std::string before = code();
    const std::string_view after = nextRestraint(before);
    for (std::size_t i = 0; i < springs_.size(); ++i)
        if (after[i] == 'x' && before[i] != 'x')
            springs_[i]->clear();
    setSupport(after);
}

bool frmKomboi::elegxos_kombon()
{
    const double number = numbers()->number();
    if (number > maxNodes)
        return refuse(Metafrasi(616, "The maximum number of nodes that can be defined is") + " "
                          + numberText(maxNodes) + ".",
                      numbers());
    const auto x = typedSingle(ui_->Text2);
    const auto y = typedSingle(ui_->Text3);
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        if (n != number && x == Komboi(n, node::x) && y == Komboi(n, node::y))
            return refuse(Metafrasi(617, "At (") + numberText(*x) + ", " + numberText(*y)
                              + Metafrasi(618, ") there is already node #") + numberText(n) + ". ",
                          ui_->Text2);
    if (!isRowNumber(number))
        return refuse(Metafrasi(619, "The value given for node number is unacceptable."),
                      numbers());
    for (QLineEdit *spring : springs_)
        if (typedNumber(spring) < 0)
            return refuse(Metafrasi(623, "The elastic constants cannot have negative values."),
                          spring);
    for (QLineEdit *field : {ui_->Text2, ui_->Text3, springs_[0], springs_[1], springs_[2]})
        if (!typedSingle(field))
            return refuseOverflow(field);
    return true;
}

void frmKomboi::store(int n, bool isNew)
{
    Komboi(n, node::x) = typedSingle(ui_->Text2).value();
    Komboi(n, node::y) = typedSingle(ui_->Text3).value();
    for (int k = 0; k < 3; ++k) {
        const auto at = static_cast<std::size_t>(k);
        Elatiria(n, k + 1) = typedSingle(springs_[at]).value();
        Komboi(n, node::fixedX + k) = checks_[at]->isChecked() ? 1 : 0;
    }
    if (isNew)
        ++Arithmos_Kombon;
    logNode(n, isNew);
}

std::string frmKomboi::nothingToDelete(const std::string &number) const
{
    return Metafrasi(615, "There is no node to be deleted #") + number + ".";
}

bool frmKomboi::deleteRow(int n)
{
    return deleteNodeWithElements(n);
}

} // namespace veskora

#include "moc_frmKomboi.cpp"
