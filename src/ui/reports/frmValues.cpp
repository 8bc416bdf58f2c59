#include "frmValues.h"

#include "Csv.h"
#include "Desktop.h"
#include "Files.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "Moment.h"
#include "NumberField.h"
#include "QtDesktop.h"
#include "ResultTables.h"
#include "ResultWarnings.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmValues.h"
#include "WindowParts.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

std::string marksText(unsigned marks)
{
    return markNames(marks,
                     {Metafrasi(1861, "extreme of M"), Metafrasi(1862, "extreme of the deflection"),
                      Metafrasi(1863, "zero of Q"), Metafrasi(1864, "zero of M")},
                     ", ");
}

QStringList headings()
{
    return {"x", "x/L", qtText(Metafrasi(1865, "Place")),      "N",
            "Q", "M",   qtText(Metafrasi(1860, "Deflection")), "dx",
            "dy"};
}
constexpr int markColumn = 2;

bool hasOneHinge(int e)
{
    const ElementType type = elementType(e);
    return type == ElementType::hingeAtI || type == ElementType::hingeAtJ;
}

} // namespace

frmValues::frmValues(QWidget *parent)
    : QWidget(parent, Qt::Dialog), ui_(std::make_unique<Ui::frmValues>())
{
    ui_->setupUi(this);
    setCaptions();
    for (QSpinBox *number : {ui_->Element, ui_->Parts})
        number->setKeyboardTracking(false); // a number half typed is none
    ui_->Parts->setMaximum(maxParts);
    ui_->Parts->setValue(usualParts);
    takeRegionalSeparator(ui_->Place);
    ui_->AtPlace->setMinimumHeight(2 * fontMetrics().lineSpacing());
    connectParts();
    pressButtonsByEnter(this);
    ui_->Splitter->setStretchFactor(0, 3);
    ui_->Splitter->setStretchFactor(1, 2);
    limitSizes();
    constexpr QSize usual(620, 700); // logical pixels
    resizeToScreen(this, usual);
}

frmValues::~frmValues() = default;

void frmValues::setCaptions()
{
    setWindowTitle(applicationName() + " - " + qtText(Metafrasi(1853, "Values along an element")));
    ui_->ElementLabel->setText(qtText(Metafrasi(1856, "Element")));
    ui_->Pick->setText(qtText(Metafrasi(1857, "Pick on the drawing")));
    describe(ui_->Pick,
             qtText(Metafrasi(1858, "While this is down, a click on the drawing chooses an "
                                    "element. Esc in the main window lets you draw again.")));
    ui_->PartsLabel->setText(qtText(Metafrasi(1859, "Equal parts")));
    ui_->Place->setAccessibleName("x");
    ui_->Curves->setAccessibleName(qtText(Metafrasi(1866, "Diagrams along the element")));
    ui_->Values->setAccessibleName(qtText(Metafrasi(1867, "Table of values")));
    constexpr int rowPadding = 8; // logical pixels
    ui_->Values->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    ui_->Values->setColumnCount(static_cast<int>(headings().size()));
    ui_->Values->setHorizontalHeaderLabels(headings());
    ui_->Copy->setText(qtText(Metafrasi(1622, "Copy")));
    ui_->SaveTable->setText(qtText(Metafrasi(1871, "Save as CSV")));
    ui_->ShowHelp->setText(qtText(Metafrasi(33, "Help")));
    assignDialogMnemonics(this);
}

void frmValues::limitSizes()
{
    constexpr int leastRows = 4, leastWidth = 420, moreLines = 2; // of text under the table
    QTableWidget &table = *ui_->Values;
    table.setMinimumHeight(table.horizontalHeader()->sizeHint().height()
                           + leastRows * table.verticalHeader()->defaultSectionSize()
                           + table.horizontalScrollBar()->sizeHint().height()
                           + 2 * table.frameWidth());
    ui_->Splitter->setMinimumHeight(std::max(ui_->Curves->minimumHeight(), table.minimumHeight()));
    ui_->Splitter->installEventFilter(this);
    const QSize least = minimumSizeHint() + QSize(0, moreLines * fontMetrics().lineSpacing());
    setMinimumSize(least.expandedTo({leastWidth, 0}));
}

/// On a low screen the table stands beside the diagrams.
bool frmValues::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui_->Splitter && event->type() == QEvent::Resize) {
        const int both = ui_->Curves->minimumHeight() + ui_->Values->minimumHeight()
                         + ui_->Splitter->handleWidth();
        ui_->Splitter->setOrientation(ui_->Splitter->height() < both ? Qt::Horizontal
                                                                     : Qt::Vertical);
    }
    return QWidget::eventFilter(watched, event);
}

void frmValues::connectParts()
{
    connect(ui_->Element, &QSpinBox::valueChanged, this, &frmValues::present);
    connect(ui_->Parts, &QSpinBox::valueChanged, this, &frmValues::present);
    connect(ui_->Pick, &QPushButton::clicked, this, &frmValues::pickWanted);
    connect(ui_->Place, &QLineEdit::textEdited, this, &frmValues::takeTypedPlace);
    connect(ui_->Curves, &ElementCurves::placeMoved, this, [this](double x) {
        leaveRow();
        showPlace(x);
    });
    connect(ui_->Values, &QTableWidget::currentCellChanged, this, &frmValues::goToRow);
    // The cursor may have gone elsewhere since.
    connect(ui_->Values, &QTableWidget::cellClicked, this, &frmValues::goToRow);
    connect(new QShortcut(QKeySequence::Copy, ui_->Values, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, [this] { copy(false); });
    connect(ui_->Copy, &QPushButton::clicked, this, [this] { copy(true); });
    connect(ui_->SaveTable, &QPushButton::clicked, this, &frmValues::save);
    connect(ui_->ShowHelp, &QPushButton::clicked, this, &frmValues::helpWanted);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    lookOften(this, &frmValues::lookAtModel);
}

// -------------------------------------------------------------------------------- what is shown

void frmValues::choose(int e)
{
    lookAtModel();
    ui_->Element->setValue(e);
    ui_->Element->selectAll(); // for another number
}

void frmValues::lookAgain()
{
    lookAtModel();
    ui_->Curves->update();
}

void frmValues::showPicking(bool isOn)
{
    ui_->Pick->setChecked(isOn);
}

void frmValues::lookAtModel()
{
    const std::array<int, 5> now = {analysesFinished, Arithmos_Stoixeion, Allagi_Montelou,
                                    veskora::hasResults, mechanismSuspected};
    if (std::exchange(seen_, now) == now)
        return;
    const QSignalBlocker quiet(ui_->Element); // it is shown below
    ui_->Element->setMaximum(std::max<int>(1, Arithmos_Stoixeion));
    present();
}

/// Where the model has changed, its loads and lengths are not those of the end forces.
void frmValues::present()
{
    const int e = ui_->Element->value();
    const bool hasValues = veskora::hasResults && !Allagi_Montelou && e <= Arithmos_Stoixeion;
    along_ = hasValues ? std::optional(alongElement(e)) : std::nullopt;
    stations_ = hasValues ? stations(*along_, ui_->Parts->value()) : std::vector<Station>{};
    tellNotice();
    ui_->Curves->present(along_, stations_);
    fillTable();
    tellLargest();
    showPlace(hasValues ? part_ * along_->length : 0);
    emit chosen(e <= Arithmos_Stoixeion ? e : 0);
}

void frmValues::tellNotice()
{
    QStringList notice;
    if (Arithmos_Stoixeion == 0)
        notice << qtText(Metafrasi(98, "No elements have been defined yet."));
    else if (!veskora::hasResults)
        notice << qtText(Metafrasi(1854, "There are no results yet. Analyze the model; where that "
                                         "fails, see Report, Check of the analysis."));
    else {
        for (const ResultWarning warning : resultWarnings())
            notice << qtText(textOf(warning));
        if (!along_)
            notice << qtText(Metafrasi(1876, "Its values are shown when it has been analyzed."));
    }
    ui_->Notice->setText(notice.join('\n'));
    ui_->Notice->setVisible(!notice.isEmpty());
}

/// One text for each column; what cannot be computed is empty.
std::vector<std::string> frmValues::cellsOf(const Station &station,
                                            const std::function<std::string(double)> &text) const
{
    const StationValues at = valuesAt(*along_, station);
    std::vector<std::string> cells = {text(station.x), text(station.x / along_->length),
                                      marksText(station.marks)};
    for (const auto &value : {at.N, at.Q, at.M, at.v, at.dx, at.dy})
        cells.push_back(value ? text(*value) : "");
    return cells;
}

void frmValues::fillTable()
{
    QTableWidget &table = *ui_->Values;
    const QSignalBlocker quiet(table);
    table.selectionModel()->clear();
    table.setRowCount(static_cast<int>(stations_.size()));
    for (int row = 0; row < table.rowCount(); ++row) {
        const Station &station = stations_[static_cast<std::size_t>(row)];
        const auto cells =
            cellsOf(station, [](double value) { return plainText(shortNumber(value)); });
        for (int column = 0; column < table.columnCount(); ++column) {
            auto *cell = new QTableWidgetItem(qtText(cells[static_cast<std::size_t>(column)]));
            QFont font = table.font();
            font.setBold(station.marks != 0);
            cell->setFont(font);
            cell->setToolTip(qtText(cells[markColumn])); // it may lie out of sight
            if (column != markColumn)
                cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table.setItem(row, column, cell);
        }
    }
    table.resizeColumnsToContents();
}

void frmValues::tellLargest()
{
    const auto largest = [this](std::optional<double> StationValues::*which) {
        double most = 0, place = 0;
        for (const Station &station : stations_) {
            const auto value = valuesAt(*along_, station).*which;
            if (!value)
                return qtText(Metafrasi(1869, "no value"));
            if (isLarger(std::abs(*value), std::abs(most))) {
                most = *value;
                place = station.x;
            }
        }
        return shortNumber(most) + " (x = " + shortNumber(place) + ")";
    };
    ui_->Largest->setVisible(along_.has_value());
    if (!along_)
        return ui_->Largest->clear();
    ui_->Largest->setText(
        qtText(Metafrasi(1868, "Largest deflection: %1. Largest M: %2."))
            .arg(largest(&StationValues::v), largest(&StationValues::M))
        + (hasOneHinge(ui_->Element->value())
               ? '\n'
                     + qtText(Metafrasi(1877, "This element has one hinge: between its ends the "
                                              "deformed model on the drawing is a simpler curve "
                                              "than this deflection."))
               : QString()));
}

// ------------------------------------------------------------------------------------- the cursor

void frmValues::showPlace(double x)
{
    ui_->Place->setText(along_ ? shortNumber(x) : "");
    showValuesAt(x);
}

void frmValues::showValuesAt(double x)
{
    if (!along_)
        return ui_->AtPlace->clear();
    part_ = x / along_->length;
    ui_->Curves->setPlace(x);
    const auto cells = cellsOf(stationAt(*along_, stations_, x),
                               [](double value) { return plainText(shortNumber(value)); });
    QStringList texts;
    constexpr QChar unbroken(QChar::Nbsp);
    for (std::size_t k = 1; k < cells.size(); ++k) // x itself stands in its field
        if (k != markColumn)
            texts << headings()[static_cast<qsizetype>(k)] + unbroken + '=' + unbroken
                         + (cells[k].empty() ? qtText(Metafrasi(1869, "no value"))
                                             : qtText(cells[k]));
    ui_->AtPlace->setText(texts.join(",  "));
}

void frmValues::takeTypedPlace()
{
    if (!along_)
        return;
    leaveRow();
    constexpr double sixDigits = 1 + 5e-6; // of the length, as it is shown
    const auto x = wholeTypedNumber(ui_->Place);
    if (x && *x >= 0 && *x <= along_->length * sixDigits)
        return showValuesAt(std::min(*x, along_->length));
    ui_->AtPlace->setText(
        qtText(Metafrasi(1870, "x is a number from 0 to %1, the length of the element."))
            .arg(shortNumber(along_->length)));
}

void frmValues::goToRow(int row)
{
    if (along_ && row >= 0 && row < static_cast<int>(stations_.size()))
        showPlace(stations_[static_cast<std::size_t>(row)].x);
}

/// The cursor is not there any more. Several rows may wait to be copied.
void frmValues::leaveRow()
{
    QItemSelectionModel &rows = *ui_->Values->selectionModel();
    if (rows.selectedRows().size() > 1)
        rows.setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    else
        rows.clear();
}

// -------------------------------------------------------------------------------------- ways out

bool frmValues::refuseWithoutValues()
{
    if (!along_)
        showRefusal(plainText(ui_->Notice->text()));
    return !along_;
}

/// Where no row is selected, all of them.
void frmValues::copy(bool isWhole)
{
    const BoxOwner owner(this);
    lookAtModel();
    if (refuseWithoutValues())
        return;
    const std::string separator = regionalDecimalSeparator();
    QStringList lines;
    if (!ui_->Notice->isHidden())
        lines << ui_->Notice->text();
    lines << headings().join('\t');
    const QItemSelectionModel &rows = *ui_->Values->selectionModel();
    isWhole = isWhole || !rows.hasSelection();
    for (std::size_t row = 0; row < stations_.size(); ++row) {
        if (!isWhole && !rows.isRowSelected(static_cast<int>(row)))
            continue;
        QStringList texts;
        for (const std::string &cell : cellsOf(stations_[row], [&separator](double value) {
                 return withSeparator(csvNumber(value), separator);
             }))
            texts << qtText(cell);
        lines << texts.join('\t');
    }
    QApplication::clipboard()->setText(lines.join('\n'));
}

void frmValues::save()
{
    const BoxOwner owner(this);
    lookAtModel();
    if (refuseWithoutValues())
        return;
    enum { international, regional, cancel };
    std::size_t form = international;
    if (regionalDecimalSeparator() == ",")
        form = desktop().choose(Metafrasi(1872, "How are the values to be written?"),
                                {Metafrasi(1873, "Points in numbers, commas between them"),
                                 Metafrasi(1874, "Commas in numbers, semicolons between them"),
                                 Metafrasi(2003, "Cancel")},
                                cancel);
    if (form == cancel)
        return;
    const int e = ui_->Element->value();
    const std::string path =
        saveTable(csvText(valuesTable(ui_->Parts->value(), e), {.isRegional = form == regional}),
                  Onoma_Arxeiou, "_values_" + numberText(e));
    if (!path.empty())
        Grammi_Log(Metafrasi(1875, "Table of values:") + " " + path, logColour::black);
}

/// The mark on the canvas and the tool go with the window.
void frmValues::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    emit pickWanted(false);
    emit chosen(0);
}

} // namespace veskora

#include "moc_frmValues.cpp"
