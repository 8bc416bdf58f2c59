#include "frmApotelesmata.h"

#include "Colours.h"
#include "Ektiposi.h"
#include "ExportFlexGrid.h"
#include "Files.h"
#include "frmSelect.h"
#include "Functions.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "QtColour.h"
#include "QtDesktop.h"
#include "ResultGrid.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmApotelesmata.h"
#include "Units.h"
#include "WindowParts.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QIcon>
#include <QKeyEvent>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>
#include <functional>

namespace veskora {

namespace {

constexpr int edge = 4; // logical pixels, around the tabs and inside them
constexpr int gap = 2;  // over and under what stands over a grid

/// A legend on a ground of its own: the colour is that of the cells, and so is the ground.
void showLegend(QLabel *legend, const char *text, std::uint32_t colour)
{
    setOwnColours(legend, qtColour(colour), Qt::white);
    legend->setContentsMargins(edge, 0, edge, 0);
    legend->setText(text);
}

/// A tree's branches as lines, which not every style draws.
class LinedBranches : public QProxyStyle
{
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element == PE_IndicatorBranch && lined_ != nullptr)
            lined_->drawPrimitive(element, option, painter, widget);
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

private:
    const std::unique_ptr<QStyle> lined_{QStyleFactory::create("windows")};
};

} // namespace

/// The tab of a section.
struct frmApotelesmata::Page
{
    GridView *view;
    QLabel *title;
    QWidget *head; ///< all that stands over the grid, the title among it
    GridView::Header header;
    std::vector<int> columnWidths; ///< twips
    TextTable (*cells)(const RegionalNumbers &);

    /// The grid as the tables now fill it.
    std::unique_ptr<ResultGrid> filledGrid() const
    {
        return std::make_unique<ResultGrid>(cells(RegionalNumbers()), columnWidths);
    }
};

frmApotelesmata::Pages frmApotelesmata::pages() const
{
    using enum GridView::Header;
    return std::to_array<Page>({
        {ui_->FLEXgrd3, ui_->Label7, ui_->headData, inGrid, std::vector<int>(7, 1500), dataCells},
        {ui_->FLEXgrd1, ui_->Label1, ui_->headDisplacements, fixed, std::vector<int>(4, 2500),
         displacementCells},
        {ui_->FLEXgrd2, ui_->Label2, ui_->headForces, fixed,
         std::vector<int>{2500, 700, 2500, 2500, 2500}, endForceCells},
        {ui_->FLEXgrd4, ui_->Label9, ui_->headReactions, fixed, std::vector<int>(4, 2500),
         reactionCells},
    });
}

frmApotelesmata::frmApotelesmata(ResultsPlace &place)
    : model_(Onoma_Arxeiou),
      results_(ResultState::ofStore()),
      analyses_(analysesFinished),
      place_(place),
      ui_(std::make_unique<Ui::frmApotelesmata>())
{
    ui_->setupUi(this);
    setCaptions();
    buildToolbar();
    pressButtonsByEnter(this);
    connect(ui_->Option1, &QRadioButton::toggled, this, &frmApotelesmata::showView);
    ui_->Option2->setChecked(true);
    showView();
    auto *lines = new LinedBranches;
    lines->setParent(ui_->TreeView1);
    ui_->TreeView1->setStyle(lines);
    Ftiakse_treeview(*ui_->TreeView1, place.open);
    showCounts();
    for (const Page &page : pages())
        page.view->present(page.filledGrid().release(), page.header);
    assignWindowMnemonics();
    setOwnColours(ui_->resultWarnings, qtColour(logColourWord(logColour::red)), Qt::white);
    showWarnings();
    setLeastSize();
    constexpr QSize usual(820, 600); // logical pixels
    resizeToScreen(this, usual);
    ui_->SSTab1->setCurrentIndex(place.section);
    if (place.section == 0)
        ui_->TreeView1->setFocus();
    else
        pages().at(static_cast<std::size_t>(place.section)).view->setFocus();
}

frmApotelesmata::~frmApotelesmata()
{
    place_ = {ui_->SSTab1->currentIndex(), openBranches(*ui_->TreeView1)};
}

bool frmApotelesmata::isUpToDate() const
{
    return model_ == Onoma_Arxeiou && showsTables();
}

bool frmApotelesmata::showsTables() const
{
    return std::ranges::all_of(
        pages(), [](const Page &page) { return page.view->grid().hasCellsOf(*page.filledGrid()); });
}

/// What is shown is of one moment; an analysis since then may have given the same again, and then
/// it is of that one.
std::vector<ResultWarning> frmApotelesmata::warnings() const
{
    const bool isAnotherAnalysis = analyses_ != analysesFinished;
    if (isAnotherAnalysis && showsTables())
        return resultWarnings();
    ResultState state = results_;
    state.isModelChanged = Allagi_Montelou || isAnotherAnalysis;
    return resultWarnings(state);
}

void frmApotelesmata::showWarnings()
{
    QStringList lines;
    for (const ResultWarning warning : warnings())
        lines << qtText(textOf(warning));
    ui_->resultWarnings->setText(lines.join('\n'));
    ui_->resultWarnings->setVisible(!lines.isEmpty());
    for (const Page &page : pages())
        if (page.view != ui_->FLEXgrd3) // the data are no results
            page.view->setNotice(lines.join('\n'));
    arrange();
}

void frmApotelesmata::setCaptions()
{
    setWindowTitle(applicationName() + " - " + qtText(Metafrasi(301, "Data & Results")));
    ui_->Frame1->setTitle(qtText(Metafrasi(310, "General data")));
    const Pages tabs = pages();
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        const QString title = qtText(reportSections[i].title.text());
        ui_->SSTab1->setTabText(static_cast<int>(i), title);
        tabs[i].title->setText(title);
    }
    ui_->Label7->setText(qtText(Metafrasi(326, "Analytical model data:")));
    for (const Page &page : tabs) // for screen readers
        page.view->setAccessibleName(page.title->text());
    ui_->TreeView1->setAccessibleName(ui_->Label7->text());
    ui_->Option1->setText(qtText(Metafrasi(315, "Table view")));
    ui_->Option2->setText(qtText(Metafrasi(316, "Tree view")));
    ui_->Label5->setText(qtText(Metafrasi(325, "(always)")));
    ui_->Label16->setText(qtText(Metafrasi(328, "Positive values:")));
    for (QLabel *label : {ui_->Label8, ui_->Label15})
        label->setText(qtText(Metafrasi(327, "(Positive values: Global axes)")));
    showLegend(ui_->lblMAX, "[max]", cellColour::maximum);
    showLegend(ui_->lblMIN, "[min]", cellColour::minimum);
    constexpr int iconSide = 16;
    ui_->axes->setPixmap(iconOf(":/icons/global_axes.svg").pixmap(iconSide, iconSide));
}

void frmApotelesmata::showCounts()
{
    const struct
    {
        QLabel *label;
        Phrase caption;
        QLabel *value;
        int count;
    } rows[] = {
        {ui_->Label3, Phrase{317, "E,A,I groups:"}, ui_->lab1, Arithmos_Omadon},
        {ui_->Label4, Phrase{318, "Nodes:"}, ui_->lab2, Arithmos_Kombon},
        {ui_->Label6, Phrase{319, "Elements:"}, ui_->lab3, Arithmos_Stoixeion},
        {ui_->Label10, Phrase{323, "DOFs per node:"}, ui_->lab4, 3},
        {ui_->Label11, Phrase{324, "Degrees of freedom:"}, ui_->lab5, 3 * Arithmos_Kombon},
        {ui_->Label12, Phrase{320, "Constrained nodes:"}, ui_->lab6,
         countRows(Arithmos_Kombon, isRestrainedNode)},
        {ui_->Label13, Phrase{321, "Nodes with loads on:"}, ui_->lab7,
         countRows(Arithmos_Kombon, isLoadedNode)},
        {ui_->Label14, Phrase{322, "Elements with loads on:"}, ui_->lab8,
         countRows(Arithmos_Stoixeion, isLoadedElement)},
    };
    for (const auto &[label, caption, value, count] : rows) {
        label->setText(qtText(caption.text()));
        value->setText(QString::number(count));
    }
}

void frmApotelesmata::buildToolbar()
{
    const struct
    {
        const char *name;
        Phrase caption;
        Phrase tip;
        const char *icon;
        std::function<void()> run;
    } commands[] = {
        {"keyApothikefsi", Phrase{302, "Save"}, Phrase{303, "Save to file"}, ":/icons/Save.svg",
         [this] {
             takeOut(Phrase{1201, "Save to file"}, &frmApotelesmata::save);
         }},
        {"keyClipboard", Phrase{304, "Clipboard"}, Phrase{305, "Copy to Windows Clipboard"},
         ":/icons/Clipboard.svg",
         [this] {
             takeOut(Phrase{1202, "Copy to Clipboard"}, &frmApotelesmata::copy);
         }},
        {"keyExcel", Phrase{306, "Excel"}, Phrase{307, "Export to MS Excel"}, ":/icons/Excel.svg",
         [this] {
             takeOut(Phrase{1209, "Export to MS Excel"}, &frmApotelesmata::exportSections);
         }},
        {"keyEktiposi", Phrase{308, "Print"}, Phrase{308, "Print"}, ":/icons/Print.svg",
         [this] {
             takeOut(Phrase{1203, "Print"}, &frmApotelesmata::print);
         }},
        {"Eksodos", Phrase{309, "Exit"}, Phrase{309, "Exit"}, ":/icons/Exit.svg",
         [this] { close(); }},
    };
    for (const auto &[name, caption, tip, icon, run] : commands) {
        QAction *action = ui_->Toolbar1->addAction(iconOf(icon), qtText(caption.text()), this, run);
        action->setObjectName(name);
        describe(action, qtText(tip.text()));
    }
    constexpr int width = 72; // logical pixels
    for (QToolButton *button : dressToolButtons(ui_->Toolbar1))
        button->setMinimumWidth(width);
    auto *stretch = new QWidget(ui_->Toolbar1); // the way out, the last, stands apart
    stretch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    ui_->Toolbar1->insertWidget(ui_->Toolbar1->actions().last(), stretch);
}

/// Letters for tabs, views and toolbar, each once.
void frmApotelesmata::assignWindowMnemonics()
{
    std::vector<Caption> captions;
    QTabWidget *tabs = ui_->SSTab1;
    captions.reserve(static_cast<std::size_t>(tabs->count()));
    for (int tab = 0; tab < tabs->count(); ++tab)
        captions.push_back({tabs->tabText(tab),
                            [tabs, tab](const QString &text) { tabs->setTabText(tab, text); }});
    for (QRadioButton *view : {ui_->Option1, ui_->Option2})
        captions.push_back(captionOf(view, &QRadioButton::text, &QRadioButton::setText));
    for (QAction *button : ui_->Toolbar1->actions()) // a button takes letters from this only
        captions.push_back(captionOf(button, &QAction::text, &QAction::setIconText));
    for (Caption &caption : captions)
        caption.text.replace('&', "&&"); // what stands in a pack is no mnemonic here
    assignMnemonics(captions);
}

// ----------------------------------------------------------------------------------------- layout

void frmApotelesmata::setLeastSize()
{
    constexpr int besideParts = 135 + 225;        // twips
    constexpr int aroundGrid = 1300 + 2235 + 900; // twips, the last of them for the grid
    int part = ui_->Frame1->minimumSizeHint().width();
    for (const Page &page : pages())
        part = std::max(part, page.head->minimumSizeHint().width());
    setMinimumSize(
        std::max(part + pixels(besideParts), ui_->Toolbar1->sizeHint().width() + 2 * edge),
        pixels(aroundGrid));
}

void frmApotelesmata::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void frmApotelesmata::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        showWarnings();
}

void frmApotelesmata::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel))
        close();
    else
        QWidget::keyPressEvent(event);
}

/// The lengths in twips are the layout.
void frmApotelesmata::arrange()
{
    // A size that would be negative is not applied.
    const auto place = [](QWidget *part, int left, int top, int w, int h) {
        part->setGeometry(left, top, w > 0 ? w : part->width(), h > 0 ? h : part->height());
    };
    const int tabsWidth = width() - pixels(135);
    QLabel *warnings = ui_->resultWarnings;
    const int told = warnings->isHidden() ? 0 : warnings->heightForWidth(tabsWidth) + gap;
    const int tabsHeight = height() - pixels(1300) - told;
    const int gridWidth = tabsWidth - pixels(225);
    const int toolbarTop = height() - pixels(1180);
    place(warnings, edge, edge, tabsWidth, told - gap);
    place(ui_->SSTab1, edge, edge + told, tabsWidth, tabsHeight);
    place(ui_->Toolbar1, edge, toolbarTop, width() - 2 * edge, height() - toolbarTop - edge);

    // With a large font the heads take more than the usual room, and the grids give it.
    const int pageHeight = tabsHeight - ui_->SSTab1->tabBar()->sizeHint().height() - edge;
    const auto placeUnder = [&](int top, QWidget *head, std::initializer_list<QWidget *> grids,
                                int usualHeight) {
        const int headHeight = head->sizeHint().height();
        place(head, edge, top, gridWidth, headHeight);
        top += headHeight + gap;
        for (QWidget *grid : grids)
            place(grid, edge, top, gridWidth, std::min(usualHeight, pageHeight - top - edge));
    };
    const int frameHeight = ui_->Frame1->sizeHint().height();
    place(ui_->Frame1, edge, edge, gridWidth, frameHeight);
    placeUnder(edge + frameHeight + gap, ui_->headData, {ui_->FLEXgrd3, ui_->TreeView1},
               tabsHeight - pixels(2235));
    for (const Page &page : pages())
        if (page.head != ui_->headData)
            placeUnder(gap, page.head, {page.view}, tabsHeight - pixels(855));
}

void frmApotelesmata::showView()
{
    ui_->FLEXgrd3->setVisible(ui_->Option1->isChecked());
    ui_->TreeView1->setVisible(!ui_->Option1->isChecked());
}

// ------------------------------------------------------------------------------------ the ways out

void frmApotelesmata::takeOut(const Phrase &caption, void (frmApotelesmata::*act)())
{
    ui_->Toolbar1->update(); // a button pressed by its letter would look pressed all the while
    // What is said on the way must not bring the main window to the front.
    const BoxOwner owner(this);
    frmSelect dialog(qtText(caption.text()), this);
    dialog.exec();
    Anafora = dialog.answer().value_or("");
    (this->*act)();
    Anafora.clear();
}

void frmApotelesmata::save()
{
    if (!Anafora.empty())
        Apothikefsi_Anaforas(Onoma_Arxeiou);
}

void frmApotelesmata::copy()
{
    if (!Anafora.empty())
        QApplication::clipboard()->setText(QString::fromStdString(Anafora));
}

void frmApotelesmata::print()
{
    if (!Anafora.empty())
        Ektiposi(Anafora);
}

/// The sections last confirmed, which a cancelled dialog leaves as they were.
void frmApotelesmata::exportSections()
{
    std::vector<std::string> told;
    for (const ResultWarning warning : warnings())
        told.push_back(textOf(warning));
    QStringList workbooks;
    const Pages tabs = pages();
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        const ReportSection &section = reportSections[i];
        if (!*section.chosen)
            continue;
        const std::string path =
            ExportFlexGrid(tabs[i].view->grid(), section.name.text(), model_,
                           i == 0 ? std::vector<std::string>() : told); // data are no results
        if (!path.empty())
            workbooks << qtText(path);
    }
    if (!workbooks.isEmpty())
        openWorkbooks(workbooks, this);
}

} // namespace veskora

#include "moc_frmApotelesmata.cpp"
