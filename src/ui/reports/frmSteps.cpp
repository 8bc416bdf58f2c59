#include "frmSteps.h"

#include "CalculationReport.h"
#include "Desktop.h"
#include "Files.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Mnemonics.h"
#include "Printing.h"
#include "QtDesktop.h"
#include "Sentences.h"
#include "StepsPages.h"
#include "Text.h"
#include "ui_frmSteps.h"
#include "WindowParts.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QLocale>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>

#include <algorithm>
#include <cmath>
#include <utility>

namespace veskora {

namespace {

/// "1-3, 7"
QString listText(const std::vector<int> &rows)
{
    QStringList runs;
    for (std::size_t first = 0, end = 0; first < rows.size(); first = end) {
        for (end = first + 1; end < rows.size() && rows[end] == rows[end - 1] + 1;)
            ++end;
        runs << QString::number(rows[first]);
        if (end - first > 1)
            runs.back() += "-" + QString::number(rows[end - 1]);
    }
    return runs.join(", ");
}

QPageSize pageOfRegion()
{
    return QPageSize(usualPaper(QLocale::system().territory()) == Paper::A4 ? QPageSize::A4
                                                                            : QPageSize::Letter);
}

struct WaitPointer
{
    WaitPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { QGuiApplication::restoreOverrideCursor(); }
    WaitPointer(const WaitPointer &) = delete;
    WaitPointer &operator=(const WaitPointer &) = delete;
};

} // namespace

frmSteps::frmSteps(QWidget *parent)
    : QWidget(parent, Qt::Dialog), ui_(std::make_unique<Ui::frmSteps>())
{
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    ui_->setupUi(this);
    // The letters have colours made for a light ground, as the canvas has.
    ui_->Steps->setStyleSheet("QTextEdit { background-color: white; color: black; }");
    ui_->Digits->setRange(1, steps::mostDigits);
    ui_->Digits->setValue(steps::Choice().digits);
    for (QLineEdit *field : {ui_->Elements, ui_->Nodes, ui_->Find}) {
        QPalette colours = field->palette(); // what stands in an empty field is read in dark themes
        QColor ink = colours.color(QPalette::Text);
        ink.setAlphaF(0.6F);
        colours.setColor(QPalette::PlaceholderText, ink);
        field->setPalette(colours);
    }
    setCaptions();
    connectParts();
    connectKeys();
    pressButtonsByEnter(this);
    ui_->Splitter->setStretchFactor(1, 1); // a larger window is for the text
    constexpr QSize usual(1000, 720);      // logical pixels
    setMinimumSize(minimumSizeHint());
    resizeToScreen(this, usual);
}

frmSteps::~frmSteps() = default;

void frmSteps::setCaptions()
{
    const QString title = qtText(Metafrasi(1971, "Steps of the analysis"));
    setWindowTitle(applicationName() + " - " + title);
    ui_->Steps->setAccessibleName(title);
    ui_->Contents->setAccessibleName(qtText(Metafrasi(2172, "Contents")));
    ui_->ElementsLabel->setText(qtText(Metafrasi(14, "Elements")));
    ui_->NodesLabel->setText(qtText(Metafrasi(13, "Nodes")));
    ui_->DigitsLabel->setText(qtText(Metafrasi(2103, "Digits")));
    const QString how = qtText(Metafrasi(2104, "Numbers such as 1-3, 7, or none"));
    describe(ui_->Elements, how);
    describe(ui_->Nodes, how);
    ui_->ShowSteps->setText(qtText(Metafrasi(2105, "Show")));
    ui_->Find->setPlaceholderText(qtText(Metafrasi(2106, "Find in these steps")));
    ui_->Find->setAccessibleName(ui_->Find->placeholderText());
    ui_->FindPrevious->setText(qtText(Metafrasi(2107, "Previous")));
    ui_->FindNext->setText(qtText(Metafrasi(2108, "Next")));
    ui_->Copy->setText(qtText(Metafrasi(1622, "Copy")));
    ui_->SaveHtml->setText(qtText(Metafrasi(2109, "Save as HTML")));
    ui_->SavePdf->setText(qtText(Metafrasi(2110, "Save as PDF")));
    ui_->PrintSteps->setText(qtText(Metafrasi(1203, "Print")));
    ui_->ShowHelp->setText(qtText(Metafrasi(33, "Help")));
    assignDialogMnemonics(this);
}

void frmSteps::connectParts()
{
    connect(ui_->ShowSteps, &QPushButton::clicked, this, &frmSteps::refreshWanted);
    for (const QLineEdit *field :
         {ui_->Elements, ui_->Nodes, ui_->Digits->findChild<QLineEdit *>()})
        connect(field, &QLineEdit::returnPressed, this, &frmSteps::refreshWanted);
    connect(ui_->Contents, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
        if (item != nullptr && !isGoing_)
            goTo(item->data(0, Qt::UserRole).toInt());
    });
    connect(ui_->Contents, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *item) { goTo(item->data(0, Qt::UserRole).toInt()); });
    connect(ui_->Steps->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &frmSteps::markSection);
    connect(ui_->Steps, &QTextBrowser::anchorClicked, this,
            [this](const QUrl &link) { goTo(sectionOf(link.fragment().toStdString())); });
    connect(ui_->Steps, &StepsBrowser::zoomWanted, this, &frmSteps::zoom);
    connect(ui_->Find, &QLineEdit::textEdited, ui_->FindTold, &QLabel::clear);
    connect(ui_->Find, &QLineEdit::returnPressed, this, [this] { find({}); });
    connect(ui_->FindNext, &QPushButton::clicked, this, [this] { find({}); });
    connect(ui_->FindPrevious, &QPushButton::clicked, this,
            [this] { find(QTextDocument::FindBackward); });
    connect(ui_->Copy, &QPushButton::clicked, this, &frmSteps::copy);
    connect(ui_->SaveHtml, &QPushButton::clicked, this, &frmSteps::saveHtml);
    connect(ui_->SavePdf, &QPushButton::clicked, this, [this] {
        const BoxOwner owner(this);
        savePdf(printJob());
    });
    connect(ui_->PrintSteps, &QPushButton::clicked, this, [this] {
        const BoxOwner owner(this);
        printOut(printJob());
    });
    connect(ui_->ShowHelp, &QPushButton::clicked, this, &frmSteps::helpWanted);
    lookOften(this, &frmSteps::lookAtModel);
}

void frmSteps::connectKeys()
{
    const auto key = [this](const QKeySequence &keys, auto command) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, command);
    };
    key(QKeySequence::Find, [this] {
        ui_->Find->setFocus();
        ui_->Find->selectAll();
    });
    key(QKeySequence::FindNext, [this] { find({}); });
    key(QKeySequence::FindPrevious, [this] { find(QTextDocument::FindBackward); });
    key(QKeySequence::ZoomIn, [this] { zoom(1); });
    key(Qt::CTRL | Qt::Key_Equal, [this] { zoom(1); }); // the same key, without Shift
    key(QKeySequence::ZoomOut, [this] { zoom(-1); });
    key(Qt::CTRL | Qt::Key_0, [this] { zoom(0); });
    key(Qt::Key_Escape, [this] { close(); });
}

namespace {

/// A field for rows of the model.
struct RowsField
{
    QLineEdit *field;
    int last;                ///< row of the model
    std::string none, wrong; ///< refusals: where there is no row; of those that are none

    QString text() const { return field->text().trimmed(); }
    std::optional<std::vector<int>> rows() const
    {
        return text().isEmpty() ? std::vector<int>() : rowsFromList(text().toStdString(), last);
    }
};

constexpr std::size_t mostRowsShown = 100; // more take seconds, and nobody reads them

/// What is wrong of a list: its rows that the model lacks, and what is no row.
QString wrongOf(const QString &list, int last)
{
    constexpr int any = 9999; // no model has more rows
    QStringList wrong;
    for (const QString &item : list.split(',')) {
        if (item.trimmed().isEmpty())
            return list;
        auto rows = rowsFromList(item.toStdString(), any);
        if (rows)
            rows->erase(
                std::remove_if(rows->begin(), rows->end(), [last](int row) { return row <= last; }),
                rows->end());
        if (!rows)
            wrong << item.trimmed();
        else if (!rows->empty())
            wrong << listText(*rows);
    }
    return wrong.join(", ");
}

/// Empty where the list can be shown.
std::string refusalOf(const RowsField &asked)
{
    const std::optional<std::vector<int>> rows = asked.rows();
    if (rows && rows->size() > mostRowsShown)
        return filled(Metafrasi(2121, "These are too many for one window: %1. Up to %2 "
                                      "elements and up to %2 nodes can be shown in full at "
                                      "a time."),
                      {asked.text().toStdString(), numberText(static_cast<int>(mostRowsShown))});
    if (rows)
        return "";
    return asked.last == 0 ? asked.none
                           : filled(asked.wrong, {wrongOf(asked.text(), asked.last).toStdString(),
                                                  numberText(asked.last)});
}

RowsField elementsField(QLineEdit *field)
{
    return {field, Arithmos_Stoixeion, Metafrasi(98, "No elements have been defined yet."),
            Metafrasi(2111, "These are no elements of the model: %1. Its elements are numbered "
                            "from 1 to %2; a list of them is typed as in 1-3, 7.")};
}

RowsField nodesField(QLineEdit *field)
{
    return {field, Arithmos_Kombon, Metafrasi(97, "No nodes have been defined yet."),
            Metafrasi(2112, "These are no nodes of the model: %1. Its nodes are numbered from "
                            "1 to %2; a list of them is typed as in 1-3, 7.")};
}

} // namespace

void frmSteps::refresh()
{
    const RowsField elements = elementsField(ui_->Elements), nodes = nodesField(ui_->Nodes);
    for (const RowsField &asked : {elements, nodes})
        if (const std::string refusal = refusalOf(asked); !refusal.empty()) {
            const BoxOwner owner(this);
            showRefusal(refusal);
            asked.field->setFocus();
            return asked.field->selectAll();
        }
    showSteps({*elements.rows(), *nodes.rows(), ui_->Digits->value()});
}

void frmSteps::showAgain()
{
    if (shown_->moment.isOfOtherFile()) {
        ui_->Elements->clear();
        ui_->Nodes->clear();
    }
    if (refusalOf(elementsField(ui_->Elements)).empty()
        && refusalOf(nodesField(ui_->Nodes)).empty())
        refresh();
}

/// What is in sight, for when the text becomes another one.
struct frmSteps::Place
{
    std::string marked;  ///< the section in the contents
    std::string section; ///< that which the top of the view belongs to
    int blocks = 0;      ///< from its heading to the top of the view
    int pixels = 0;      ///< from the top of that block
};

frmSteps::Place frmSteps::place() const
{
    const auto &sections = shown_->steps.document.sections;
    const QTextBlock top = ui_->Steps->cursorForPosition({0, 0}).block();
    const auto section = static_cast<std::size_t>(sectionAt(top.position()));
    const int marked = ui_->Contents->currentItem()->data(0, Qt::UserRole).toInt();
    return {sections[static_cast<std::size_t>(marked)].id, sections[section].id,
            top.blockNumber()
                - top.document()->findBlock(shown_->text.sections[section]).blockNumber(),
            ui_->Steps->verticalScrollBar()->value() - static_cast<int>(blockPlace(top).top())};
}

void frmSteps::goBackTo(const Place &place)
{
    goTo(sectionOf(place.marked));
    const auto section = static_cast<std::size_t>(sectionOf(place.section));
    if (shown_->steps.document.sections[section].id != place.section)
        return;
    const QScopedValueRollback quiet(isGoing_, true);
    const QTextDocument &text = *shown_->text.text;
    const auto &sections = shown_->text.sections;
    const int end = section + 1 < sections.size()
                        ? text.findBlock(sections[section + 1]).blockNumber()
                        : text.blockCount();
    const int block = text.findBlock(sections[section]).blockNumber() + place.blocks;
    const QRectF top = blockPlace(text.findBlockByNumber(std::min(block, end - 1)));
    ui_->Steps->verticalScrollBar()->setValue(
        static_cast<int>(top.top() + std::min(1.0 * place.pixels, top.height())));
}

void frmSteps::showSteps(const steps::Choice &choice)
{
    const WaitPointer waiting;
    const Place before = shown_ && !shown_->moment.isOfOtherFile() ? place() : Place();
    auto shown = std::make_unique<Shown>();
    shown->steps = drawn(steps::stepsOfAnalysis(choice));
    shown->html = stepsFile(shown->steps.document);
    {
        const QScopedValueRollback quiet(isGoing_, true);
        const std::unique_ptr<Shown> old = std::exchange(shown_, std::move(shown));
        layOut();
        fillContents();
    }
    showChoice(steps::completed(choice));
    ui_->FindTold->clear();
    lookAtModel();
    goBackTo(before);
}

void frmSteps::layOut()
{
    QFont letters = font();
    letters.setPointSizeF(letters.pointSizeF() * std::pow(1.1, zoom_));
    StepsText text = stepsText(shown_->steps, ui_->Steps->viewport(), letters);
    ui_->Steps->setDocument(text.text.get());
    shown_->text = std::move(text);
}

/// @param steps  0: back to the usual size
void frmSteps::zoom(int steps)
{
    constexpr int least = -5, most = 12; // 0.6 and 3.1 times the usual
    const int wanted = steps == 0 ? 0 : std::clamp(zoom_ + steps, least, most);
    if (wanted == zoom_ || !shown_)
        return;
    zoom_ = wanted;
    const WaitPointer waiting;
    const Place before = place();
    const QTextCursor selected = ui_->Steps->textCursor();
    const int anchor = selected.anchor(), position = selected.position();
    {
        const QScopedValueRollback quiet(isGoing_, true);
        layOut();
    }
    goBackTo(before);
    QTextCursor cursor(ui_->Steps->document());
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    const int top = ui_->Steps->verticalScrollBar()->value();
    ui_->Steps->setTextCursor(cursor);
    ui_->Steps->verticalScrollBar()->setValue(top);
}

void frmSteps::showChoice(const steps::Choice &shown)
{
    ui_->Elements->setPlaceholderText(listText(shown.elements));
    ui_->Nodes->setPlaceholderText(listText(shown.nodes));
    const bool isPart = static_cast<int>(shown.elements.size()) < Arithmos_Stoixeion;
    ui_->Told->setVisible(isPart && !shown.elements.empty());
    ui_->Told->setText(qtText(
        filled(Metafrasi(2113, "Of the %1 elements of this model these are shown in full: %2. For "
                               "others, type the numbers of elements and nodes above, such as "
                               "1-3, 7."),
               {numberText(Arithmos_Stoixeion), rowList(shown.elements)})));
}

void frmSteps::fillContents()
{
    ui_->Contents->clear();
    QTreeWidgetItem *above = nullptr;
    int number = 0;
    for (const steps::Section &section : shown_->steps.document.sections) {
        auto *item = section.level > 1 && above != nullptr ? new QTreeWidgetItem(above)
                                                           : new QTreeWidgetItem(ui_->Contents);
        item->setText(0, qtText(section.heading));
        item->setToolTip(0, item->text(0));
        item->setData(0, Qt::UserRole, number++);
        above = section.level > 1 ? above : item;
    }
    ui_->Contents->expandAll();
}

int frmSteps::sectionOf(const std::string &id) const
{
    const auto &sections = shown_->steps.document.sections;
    const auto found =
        std::find_if(sections.begin(), sections.end(),
                     [&id](const steps::Section &section) { return section.id == id; });
    return found == sections.end() ? 0 : static_cast<int>(found - sections.begin());
}

int frmSteps::sectionAt(int position) const
{
    const auto &sections = shown_->text.sections;
    const auto next = std::upper_bound(sections.begin(), sections.end(), position);
    return std::max(0, static_cast<int>(next - sections.begin()) - 1);
}

namespace {

QTreeWidgetItem *itemOf(const QTreeWidget &contents, int section)
{
    for (QTreeWidgetItemIterator item(const_cast<QTreeWidget *>(&contents)); *item != nullptr;
         ++item)
        if ((*item)->data(0, Qt::UserRole).toInt() == section)
            return *item;
    return nullptr;
}

} // namespace

void frmSteps::mark(int section)
{
    const QScopedValueRollback quiet(isGoing_, true);
    ui_->Contents->setCurrentItem(itemOf(*ui_->Contents, section));
}

void frmSteps::goTo(int section)
{
    const QScopedValueRollback quiet(isGoing_, true); // near its end the text cannot scroll as far
    QTextCursor cursor(ui_->Steps->document());
    cursor.setPosition(shown_->text.sections[static_cast<std::size_t>(section)]);
    ui_->Steps->setTextCursor(cursor);
    ui_->Steps->verticalScrollBar()->setValue(
        section == 0 ? 0 : static_cast<int>(blockPlace(cursor.block()).top()));
    mark(section);
}

/// That which the top of the text in sight belongs to.
void frmSteps::markSection()
{
    constexpr int below = 8; // pixels; a heading at the top counts
    if (!isGoing_ && shown_)
        mark(sectionAt(ui_->Steps->cursorForPosition({0, below}).position()));
}

void frmSteps::lookAtModel()
{
    if (!shown_->moment.isOfModel())
        ui_->Outdated->setText(qtText(Metafrasi(2114, "The model has changed since these steps "
                                                      "were made. Show makes them anew.")));
    else if (!shown_->moment.isOfResults())
        ui_->Outdated->setText(qtText(Metafrasi(2115, "The model has been analyzed since these "
                                                      "steps were made. Show makes them anew.")));
    else
        return ui_->Outdated->hide();
    ui_->Outdated->show();
}

namespace {

/// Formulas have a minus of their own, which no keyboard has.
QRegularExpression patternOf(const QString &text)
{
    QStringList parts;
    for (const QString &part : QString(text).replace(QChar(0x2212), u'-').split('-'))
        parts << QRegularExpression::escape(part);
    return QRegularExpression(parts.join("[-\\x{2212}]"),
                              QRegularExpression::CaseInsensitiveOption);
}

} // namespace

/// Shows what is found with some of the text above it.
bool frmSteps::findFrom(const QTextCursor &start, QTextDocument::FindFlags direction)
{
    const QTextCursor found =
        ui_->Steps->document()->find(patternOf(ui_->Find->text()), start, direction);
    if (found.isNull())
        return false;
    const QScopedValueRollback quiet(isGoing_, true);
    ui_->Steps->setTextCursor(found);
    const int height = ui_->Steps->viewport()->height(), top = ui_->Steps->cursorRect().top();
    if (top < height / 8 || top > height * 3 / 4)
        ui_->Steps->verticalScrollBar()->setValue(ui_->Steps->verticalScrollBar()->value() + top
                                                  - height / 3);
    mark(sectionAt(found.selectionStart()));
    return true;
}

void frmSteps::find(QTextDocument::FindFlags direction)
{
    ui_->FindTold->clear();
    if (ui_->Find->text().isEmpty())
        return ui_->Find->setFocus();
    if (findFrom(ui_->Steps->textCursor(), direction))
        return;
    QTextCursor around(ui_->Steps->document());
    if (direction != 0)
        around.movePosition(QTextCursor::End);
    if (!findFrom(around, direction))
        ui_->FindTold->setText(qtText(Metafrasi(2117, "Not found in these steps.")));
    else if (direction == 0)
        ui_->FindTold->setText(qtText(Metafrasi(2123, "The search has gone on from the start.")));
    else
        ui_->FindTold->setText(qtText(Metafrasi(2124, "The search has gone on from the end.")));
}

void frmSteps::copy()
{
    const BoxOwner owner(this);
    if (ui_->Steps->textCursor().hasSelection())
        ui_->Steps->copy();
    else
        showRefusal(Metafrasi(2118, "Nothing is selected in the steps. Drag over what is to be "
                                    "copied, or press Ctrl+A in the text for all of it."));
}

void frmSteps::saveHtml()
{
    const BoxOwner owner(this);
    const std::string path = writeAskedFile([this] { return shown_->html; },
                                            Metafrasi(2119, "HTML files") + " (*.html)|*.html",
                                            shown_->moment.path, "_steps", ".html");
    if (!path.empty())
        Grammi_Log(Metafrasi(2120, "HTML file:") + " " + path, logColour::black);
}

PrintJob frmSteps::printJob() const
{
    return {qtText(shown_->steps.document.title),
            shown_->moment.path,
            "_steps",
            [this](QPagedPaintDevice &device) {
                const WaitPointer waiting;
                return printSteps(device, shown_->steps);
            },
            pageOfRegion(),
            Metafrasi(2125, "There is no default printer. Do you want to save the steps as a PDF "
                            "file instead?")};
}

} // namespace veskora

#include "moc_frmSteps.cpp"
