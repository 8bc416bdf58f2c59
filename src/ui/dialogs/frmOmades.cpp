#include "frmOmades.h"

#include "Diagrafes.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "NumberList.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmOmades.h"

#include <cmath>

namespace veskora {

namespace {

bool isPositive(const QLineEdit *field)
{
    const double value = typedNumber(field);
    return value > 0 && std::isfinite(value);
}

} // namespace

frmOmades::frmOmades(QWidget *parent) : RowDialog(parent), ui_(std::make_unique<Ui::frmOmades>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(901, "E,A,I Element Groups")));
    ui_->Label16->setText(qtText(Metafrasi(902, "Group")));
    ui_->Label1->setText(qtText(Metafrasi(904, "Youngs Modulus")));
    ui_->Label2->setText(qtText(Metafrasi(905, "Section area")));
    ui_->Label3->setText(qtText(Metafrasi(907, "Section mom. of inertia")));
    ui_->SSCommand1->setText(qtText(Metafrasi(908, "New")));
    equipRows(Metafrasi(903, "(New)"), Metafrasi(909, "(Existing)"));
    chainEnter({numbers(), ui_->Text1, ui_->Text2, ui_->Text3});
}

frmOmades::~frmOmades() = default;

int frmOmades::rowCount() const
{
    return Arithmos_Omadon;
}

QWidget *frmOmades::firstField() const
{
    return ui_->Text1;
}

void frmOmades::clearFields()
{
    for (QLineEdit *field : {ui_->Text1, ui_->Text2, ui_->Text3})
        field->clear();
}

void frmOmades::loadFields(int g)
{
    ui_->Text1->setText(qtText(numberText(Omades(g, group::E))));
    ui_->Text2->setText(qtText(numberText(Omades(g, group::A))));
    ui_->Text3->setText(qtText(numberText(Omades(g, group::I))));
}

bool frmOmades::elegxos_omadon()
{
    const double number = numbers()->number();
    if (number > maxGroups)
        return refuse(Metafrasi(917, "The maximum number of Groups that can be defined is") + " "
                          + numberText(maxGroups) + ".",
                      numbers());
    if (!isRowNumber(number))
        return refuse(Metafrasi(918, "The value given for Group number is unacceptable."),
                      numbers());
    if (!isPositive(ui_->Text1))
        return refuse(Metafrasi(919, "The value given for Youngs Modulus E is unacceptable."),
                      ui_->Text1);
    if (!isPositive(ui_->Text2))
        return refuse(Metafrasi(920, "The value given for Section area A is unacceptable."),
                      ui_->Text2);
    if (!isPositive(ui_->Text3))
        return refuse(
            Metafrasi(921, "The value given for Section moment of inertia I is unacceptable."),
            ui_->Text3);
    return true;
}

void frmOmades::store(int g, bool isNew)
{
    Omades(g, group::E) = typedNumber(ui_->Text1);
    Omades(g, group::A) = typedNumber(ui_->Text2);
    Omades(g, group::I) = typedNumber(ui_->Text3);
    if (isNew)
        ++Arithmos_Omadon;
    Grammi_Log((isNew ? Metafrasi(916, "New group #") : Metafrasi(922, "* Group #")) + numberText(g)
                   + ", " + groupConstants(g),
               logColour::navy);
}

std::string frmOmades::nothingToDelete(const std::string &number) const
{
    return Metafrasi(910, "There is no Group #") + " " + number + " "
           + Metafrasi(911, "to delete.");
}

bool frmOmades::deleteRow(int g)
{
    if (elementOfGroup(g) != 0)
        // The caption serves here as well: "Group #".
        return refuse(Metafrasi(902, "Group") + " # " + numberText(g) + " "
                          + Metafrasi(912, "cannot be deleted since there are elements belonging "
                                           "to it."),
                      numbers());
    deleteGroup(g);
    return true;
}

} // namespace veskora

#include "moc_frmOmades.cpp"
