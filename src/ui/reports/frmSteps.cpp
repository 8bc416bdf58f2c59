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
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>

#include <algorithm>

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
            [this](const QUrl &link) { goTo(sectionOf(link.fragment())); });
    connect(ui_->Find, &QLineEdit::textEdited, ui_->NotFound, &QLabel::clear);
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
    key(Qt::Key_Escape, [this] { close(); });
}

/// None where a list is refused.
std::optional<steps::Choice> frmSteps::wished()
{
    steps::Choice choice;
    choice.digits = ui_->Digits->value();
    if (take(ui_->Elements, Arithmos_Stoixeion, choice.elements,
             Metafrasi(2111, "These are no elements of the model: %1. Its elements are numbered "
                             "from 1 to %2; a list of them is typed as in 1-3, 7."))
        && take(ui_->Nodes, Arithmos_Kombon, choice.nodes,
                Metafrasi(2112, "These are no nodes of the model: %1. Its nodes are numbered from "
                                "1 to %2; a list of them is typed as in 1-3, 7.")))
        return choice;
    return std::nullopt;
}

/// @return whether @p field has a list of rows, or nothing
bool frmSteps::take(QLineEdit *field, int last, std::vector<int> &rows, const std::string &refusal)
{
    constexpr std::size_t most = 100; // more take seconds, and nobody reads them
    const std::string text = field->text().trimmed().toStdString();
    const auto given = text.empty() ? std::vector<int>() : rowsFromList(text, last);
    rows = given.value_or(std::vector<int>());
    if (given && rows.size() <= most)
        return true;
    const BoxOwner owner(this);
    showRefusal(given
                    ? filled(Metafrasi(2121, "These are too many for one window: %1. Up to %2 "
                                             "elements and up to %2 nodes can be shown in full at "
                                             "a time."),
                             {text, numberText(static_cast<int>(most))})
                    : filled(refusal, {text, numberText(last)}));
    field->setFocus();
    field->selectAll();
    return false;
}

void frmSteps::refresh()
{
    const std::optional<steps::Choice> choice = wished();
    if (!choice)
        return;
    const int section = ui_->Contents->currentItem() == nullptr
                            ? 0
                            : ui_->Contents->currentItem()->data(0, Qt::UserRole).toInt();
    const QString before =
        shown_ ? QString::fromStdString(
            shown_->steps.document.sections[static_cast<std::size_t>(section)].id)
               : QString();
    const WaitPointer waiting;
    auto shown = std::make_unique<Shown>();
    shown->steps = drawn(steps::stepsOfAnalysis(*choice));
    shown->html = stepsFile(shown->steps.document);
    shown->text = stepsText(shown->steps, ui_->Steps->viewport(), font());
    {
        const QScopedValueRollback quiet(isGoing_, true);
        ui_->Steps->setDocument(shown->text.text.get());
        shown_ = std::move(shown);
        fillContents();
    }
    showChoice(steps::completed(*choice));
    ui_->NotFound->clear();
    lookAtModel();
    goTo(sectionOf(before));
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

int frmSteps::sectionOf(const QString &id) const
{
    const auto &sections = shown_->steps.document.sections;
    const auto found = std::find_if(
        sections.begin(), sections.end(),
        [id = id.toStdString()](const steps::Section &section) { return section.id == id; });
    return found == sections.end() ? 0 : static_cast<int>(found - sections.begin());
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

void frmSteps::goTo(int section)
{
    const QScopedValueRollback quiet(isGoing_, true); // near its end the text cannot scroll as far
    QTextCursor cursor(ui_->Steps->document());
    cursor.setPosition(shown_->text.sections[static_cast<std::size_t>(section)]);
    ui_->Steps->setTextCursor(cursor);
    const QRectF heading =
        ui_->Steps->document()->documentLayout()->blockBoundingRect(cursor.block());
    ui_->Steps->verticalScrollBar()->setValue(section == 0 ? 0 : static_cast<int>(heading.top()));
    ui_->Contents->setCurrentItem(itemOf(*ui_->Contents, section));
}

/// That which the top of the text in sight belongs to.
void frmSteps::markSection()
{
    if (isGoing_ || !shown_)
        return;
    const QScopedValueRollback quiet(isGoing_, true);
    constexpr int below = 8; // pixels; a heading at the top counts
    const int position = ui_->Steps->cursorForPosition({0, below}).position();
    const auto &sections = shown_->text.sections;
    const auto next = std::upper_bound(sections.begin(), sections.end(), position);
    ui_->Contents->setCurrentItem(
        itemOf(*ui_->Contents, std::max(0, static_cast<int>(next - sections.begin()) - 1)));
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

void frmSteps::find(QTextDocument::FindFlags direction)
{
    const QString text = ui_->Find->text();
    ui_->NotFound->clear();
    if (text.isEmpty())
        return ui_->Find->setFocus();
    if (ui_->Steps->find(text, direction))
        return;
    const QTextCursor before = ui_->Steps->textCursor();
    // Around the end.
    ui_->Steps->moveCursor(direction == 0 ? QTextCursor::Start : QTextCursor::End);
    if (ui_->Steps->find(text, direction))
        return;
    ui_->Steps->setTextCursor(before);
    ui_->NotFound->setText(qtText(Metafrasi(2117, "Not found in these steps.")));
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
    return {qtText(shown_->steps.document.title), shown_->moment.path, "_steps",
            [this](QPagedPaintDevice &device) { return printSteps(device, shown_->steps); },
            pageOfRegion()};
}

} // namespace veskora
