#include "frmStoixeia.h"

#include "Diagrafes.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "NumberList.h"
#include "RowLines.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmStoixeia.h"

#include <cmath>

namespace veskora {

namespace {

std::string singleText(float value)
{
    return numberText(value);
}

/// In 6 digits: "1.23457E-05".
std::string shortText(double value)
{
    constexpr int digits = 6;
    return plainText(QString::number(value, 'g', digits).toUpper());
}

std::string placeText(int n, auto text)
{
    const std::string x = text(Komboi(n, node::x));
    return "(" + x + ", " + text(Komboi(n, node::y)) + ")";
}

/// "(0, 0) - (3, 4), L= 5", as much of it as is known.
std::string nodesText(std::optional<int> i, std::optional<int> j, auto text)
{
    std::string line = i ? placeText(*i, text) : "";
    if (j)
        line += (i ? " - " : "- ") + placeText(*j, text);
    if (i && j)
        line += ", L= "
                + text(std::hypot(Komboi(*j, node::x) - Komboi(*i, node::x),
                                  Komboi(*j, node::y) - Komboi(*i, node::y)));
    return line;
}

/// Shows @p full in the two lines of @p label, or @p shortened if it needs more.
void showLines(QLabel *label, const std::string &full, const std::string &shortened)
{
    const QString text = qtText(full);
    const QRect lines(QPoint(), label->minimumSize());
    const bool fits = lines.contains(
        label->fontMetrics().boundingRect(lines, Qt::TextWordWrap | Qt::AlignTop, text));
    label->setText(fits ? text : qtText(shortened));
    label->setToolTip(fits ? QString() : text);
}

} // namespace

frmStoixeia::frmStoixeia(QWidget *parent)
    : RowDialog(parent), ui_(std::make_unique<Ui::frmStoixeia>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(1403, "Elements")));
    ui_->Label16->setText(qtText(Metafrasi(1404, "Element")));
    ui_->SSCommand1->setText(qtText(Metafrasi(1406, "New")));
    ui_->Label1->setText(qtText(Metafrasi(1407, "Belongs to E,A,I Group:")));
    ui_->Label2->setText(qtText(Metafrasi(1408, "Connects nodes")));
    ui_->Label3->setText(qtText(Metafrasi(1409, "Rotation releases")));
    ui_->Text1->setAccessibleName(ui_->Label1->text());
    ui_->Text4->setAccessibleName(ui_->Label2->text());
    for (QCheckBox *check : {ui_->ssCheck3, ui_->ssCheck6})
        check->setAccessibleName(ui_->Label3->text() + ' ' + check->text());
    // Any place of a node, of few digits, and the length go into one line.
    for (QLabel *label : {ui_->Text1, ui_->Text4})
        label->setMinimumSize(
            label->fontMetrics().horizontalAdvance("(-1.23457E+08, -1.23457E+08), L= 1.23457E+08 "),
            2 * label->fontMetrics().lineSpacing());
    equipRows(Metafrasi(1405, "(New)"), Metafrasi(1414, "(Existing)"));
    chainEnter({numbers(), ui_->Combo2, ui_->Combo3, ui_->Combo4});
    chainEnter({ui_->ssCheck3, ui_->ssCheck6});

    connect(ui_->Combo2, &QComboBox::editTextChanged, this, &frmStoixeia::showGroup);
    connect(ui_->Combo3, &QComboBox::editTextChanged, this, &frmStoixeia::showNodes);
    connect(ui_->Combo4, &QComboBox::editTextChanged, this, &frmStoixeia::showNodes);
}

frmStoixeia::~frmStoixeia() = default;

int frmStoixeia::rowCount() const
{
    return Arithmos_Stoixeion;
}

QWidget *frmStoixeia::firstField() const
{
    return ui_->Combo2->row() ? ui_->Combo3 : ui_->Combo2;
}

void frmStoixeia::fillOtherLists()
{
    ui_->Combo2->fill(Arithmos_Omadon);
    ui_->Combo3->fill(Arithmos_Kombon);
    ui_->Combo4->fill(Arithmos_Kombon);
    if (!ui_->Combo2->row())
        ui_->Combo2->showNumber(1); // the main group
}

void frmStoixeia::clearFields()
{
    ui_->Combo3->showNumber({});
    ui_->Combo4->showNumber({});
    ui_->ssCheck3->setChecked(false);
    ui_->ssCheck6->setChecked(false);
    showGroup();
    showNodes();
}

void frmStoixeia::loadFields(int e)
{
    ui_->Combo2->showNumber(groupOf(e));
    ui_->Combo3->showNumber(nodeOf(e, element::nodeI));
    ui_->Combo4->showNumber(nodeOf(e, element::nodeJ));
    ui_->ssCheck3->setChecked(Stoixeia(e, element::hingeI) == 1);
    ui_->ssCheck6->setChecked(Stoixeia(e, element::hingeJ) == 1);
    showGroup();
    showNodes();
}

void frmStoixeia::showGroup()
{
    const auto g = ui_->Combo2->row();
    showLines(ui_->Text1, g ? groupConstants(*g) : "", g ? groupConstants(*g, shortText) : "");
}

void frmStoixeia::showNodes()
{
    const auto i = ui_->Combo3->row();
    const auto j = ui_->Combo4->row();
    showLines(ui_->Text4, nodesText(i, j, singleText), nodesText(i, j, shortText));
}

bool frmStoixeia::elegxos_stoixeion()
{
    const double number = numbers()->number();
    const auto i = ui_->Combo3->row();
    const auto j = ui_->Combo4->row();
    if (number > maxElements)
        return refuse(Metafrasi(1419, "The maximum number of elements that can be defined is") + " "
                          + numberText(maxElements) + ".",
                      numbers());
    if (!isRowNumber(number))
        return refuse(Metafrasi(1420, "The value given for element number is unacceptable."),
                      numbers());
    if (!ui_->Combo2->row())
        return refuse(Metafrasi(1421, "The value given for E,A,I Group number is unacceptable."),
                      ui_->Combo2);
    if (!i)
        return refuse(Metafrasi(1422, "The value given for node i number is unacceptable."),
                      ui_->Combo3);
    if (!j)
        return refuse(Metafrasi(1423, "The value given for node j number is unacceptable."),
                      ui_->Combo4);
    if (i == j)
        return refuse(Metafrasi(1424, "Given nodes i and j coincide."), ui_->Combo4);
    return true;
}

void frmStoixeia::store(int e, bool isNew)
{
    Stoixeia(e, element::nodeI) = static_cast<float>(ui_->Combo3->number());
    Stoixeia(e, element::nodeJ) = static_cast<float>(ui_->Combo4->number());
    Stoixeia(e, element::group) = static_cast<float>(ui_->Combo2->number());
    Stoixeia(e, element::hingeI) = ui_->ssCheck3->isChecked() ? 1 : 0;
    Stoixeia(e, element::hingeJ) = ui_->ssCheck6->isChecked() ? 1 : 0;
    if (isNew)
        ++Arithmos_Stoixeion;
    logElement(e, isNew);
}

std::string frmStoixeia::nothingToDelete(const std::string &number) const
{
    return Metafrasi(1428, "Element does not exist to be deleted #") + number + ".";
}

bool frmStoixeia::deleteRow(int e)
{
    Diagrafi_Stoixeiou(static_cast<std::int16_t>(e));
    return true;
}

} // namespace veskora

#include "moc_frmStoixeia.cpp"
