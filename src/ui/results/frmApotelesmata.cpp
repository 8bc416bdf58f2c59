#include "frmApotelesmata.h"

#include "Colours.h"
#include "Ektiposi.h"
#include "ExportFlexGrid.h"
#include "Files.h"
#include "frmSelect.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "ModelTree.h"
#include "QtColour.h"
#include "QtDesktop.h"
#include "ResultGrid.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmApotelesmata.h"
#include "Units.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QIcon>
#include <QKeyEvent>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleFactory>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>
#include <string_view>

namespace veskora {

namespace {

constexpr QSize frame(8, 40); // logical pixels, about what a window manager adds

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

frmApotelesmata::frmApotelesmata()
    : model_(Onoma_Arxeiou), ui_(std::make_unique<Ui::frmApotelesmata>())
{
    ui_->setupUi(this);
    setCaptions();
    equipToolbar();
    connectCommands();
    ui_->Option2->setChecked(true);
    showView();
    auto *lines = new LinedBranches;
    lines->setParent(ui_->TreeView1);
    ui_->TreeView1->setStyle(lines);
    Ftiakse_treeview(*ui_->TreeView1);
    showCounts();
    for (auto &[view, header, grid] : filledGrids())
        view->present(grid.release(), header);
    assignWindowMnemonics();
    setLeastSize();
    constexpr QSize usual(820, 600); // logical pixels
    resize(usual.boundedTo(screen()->availableSize() - frame).expandedTo(minimumSize()));
    ui_->TreeView1->setFocus();
}

frmApotelesmata::~frmApotelesmata() = default;

std::vector<frmApotelesmata::FilledGrid> frmApotelesmata::filledGrids() const
{
    std::vector<FilledGrid> grids;
    const auto add = [&grids](GridView *view, GridView::Header header, std::vector<int> widths,
                              void (*fill)(ResultGrid &)) {
        grids.push_back({view, header, std::make_unique<ResultGrid>(std::move(widths))});
        fill(*grids.back().grid);
    };
    using enum GridView::Header;
    // Widths of the columns in twips.
    add(ui_->FLEXgrd3, inGrid, std::vector<int>(7, 1500), fillData);
    add(ui_->FLEXgrd1, fixed, std::vector<int>(4, 2500), fillDisplacements);
    add(ui_->FLEXgrd2, fixed, {2500, 700, 2500, 2500, 2500}, fillElementForces);
    add(ui_->FLEXgrd4, fixed, std::vector<int>(4, 2500), fillReactions);
    return grids;
}

bool frmApotelesmata::isUpToDate() const
{
    return model_ == Onoma_Arxeiou && std::ranges::all_of(filledGrids(), [](const FilledGrid &now) {
               return now.view->grid().hasCellsOf(*now.grid);
           });
}

void frmApotelesmata::showBeside(const QWidget &part)
{
    const QRect area = part.screen()->availableGeometry();
    const QRect taken(part.mapToGlobal(QPoint()), part.size());
    const QSize least = minimumSize() + frame;
    const QSize wished = size() + frame;
    // Right and left of the window, under and over the part; each as large as the screen is there.
    const QRect window = part.window()->frameGeometry();
    const int right = window.right() + 1, under = taken.bottom() + 1;
    for (const QRect &room :
         {QRect(right, area.top(), area.right() - right + 1, area.height()),
          QRect(area.left(), area.top(), window.left() - area.left(), area.height()),
          QRect(area.left(), under, area.width(), area.bottom() - under + 1),
          QRect(area.left(), area.top(), area.width(), taken.top() - area.top())})
        if (room.width() >= least.width() && room.height() >= least.height()) {
            QRect place(window.topLeft(), wished.boundedTo(room.size()));
            place.moveLeft(std::clamp(place.left(), room.left(), room.right() - place.width() + 1));
            place.moveTop(std::clamp(place.top(), room.top(), room.bottom() - place.height() + 1));
            resize(place.size() - frame);
            move(place.topLeft());
            break;
        }
    show();
}

void frmApotelesmata::setCaptions()
{
    const auto title = std::string(applicationTitle) + " - ";
    setWindowTitle(qtText(title + Metafrasi(301, "Data & Results")));
    const auto button = [](QAction *action, const std::string &caption, const std::string &tip) {
        action->setText(qtText(caption));
        action->setToolTip(qtText(tip));
        action->setWhatsThis(qtText(tip));
    };
    button(ui_->keyApothikefsi, Metafrasi(302, "Save"), Metafrasi(303, "Save to file"));
    button(ui_->keyClipboard, Metafrasi(304, "Clipboard"),
           Metafrasi(305, "Copy to Windows Clipboard"));
    button(ui_->keyExcel, Metafrasi(306, "Excel"), Metafrasi(307, "Export to MS Excel"));
    button(ui_->keyEktiposi, Metafrasi(308, "Print"), Metafrasi(308, "Print"));
    button(ui_->Eksodos, Metafrasi(309, "Exit"), Metafrasi(309, "Exit"));

    ui_->Frame1->setTitle(qtText(Metafrasi(310, "General data")));
    for (int tab = 0;
         const std::string &caption :
         {Metafrasi(311, "Data"), Metafrasi(312, "Node displacements"),
          Metafrasi(313, "Element forces"), Metafrasi(314, "Constraint-Spring reactions")})
        ui_->SSTab1->setTabText(tab++, qtText(caption));
    ui_->Option1->setText(qtText(Metafrasi(315, "Table view")));
    ui_->Option2->setText(qtText(Metafrasi(316, "Tree view")));
    ui_->Label3->setText(qtText(Metafrasi(317, "E,A,I groups:")));
    ui_->Label4->setText(qtText(Metafrasi(318, "Nodes:")));
    ui_->Label6->setText(qtText(Metafrasi(319, "Elements:")));
    ui_->Label12->setText(qtText(Metafrasi(320, "Constrained nodes:")));
    ui_->Label13->setText(qtText(Metafrasi(321, "Nodes with loads on:")));
    ui_->Label14->setText(qtText(Metafrasi(322, "Elements with loads on:")));
    ui_->Label10->setText(qtText(Metafrasi(323, "DOFs per node:")));
    ui_->Label11->setText(qtText(Metafrasi(324, "Degrees of freedom:")));
    ui_->Label5->setText(qtText(Metafrasi(325, "(always)")));
    ui_->Label7->setText(qtText(Metafrasi(326, "Analytical model data:")));
    ui_->Label1->setText(qtText(Metafrasi(312, "Node displacements")));
    ui_->Label2->setText(qtText(Metafrasi(313, "Element forces")));
    ui_->Label9->setText(qtText(Metafrasi(314, "Constraint-Spring reactions")));
    ui_->Label16->setText(qtText(Metafrasi(328, "Positive values:")));
    for (QLabel *label : {ui_->Label8, ui_->Label15})
        label->setText(qtText(Metafrasi(327, "(Positive values: Global axes)")));
    showLegend(ui_->lblMAX, "[max]", cellColour::maximum);
    showLegend(ui_->lblMIN, "[min]", cellColour::minimum);
    constexpr int iconSide = 16;
    ui_->axes->setPixmap(QIcon(":/icons/global_axes.svg").pixmap(iconSide, iconSide));

    // For screen readers: the captions stand beside what they name.
    ui_->TreeView1->setAccessibleName(ui_->Label7->text());
    ui_->FLEXgrd3->setAccessibleName(ui_->Label7->text());
    ui_->FLEXgrd1->setAccessibleName(ui_->Label1->text());
    ui_->FLEXgrd2->setAccessibleName(ui_->Label2->text());
    ui_->FLEXgrd4->setAccessibleName(ui_->Label9->text());
}

void frmApotelesmata::showCounts()
{
    const auto show = [](QLabel *label, int count) { label->setText(QString::number(count)); };
    show(ui_->lab1, Arithmos_Omadon);
    show(ui_->lab2, Arithmos_Kombon);
    show(ui_->lab3, Arithmos_Stoixeion);
    show(ui_->lab4, 3);
    show(ui_->lab5, 3 * Arithmos_Kombon);
    show(ui_->lab6, countRows(Arithmos_Kombon, isConstrainedNode));
    show(ui_->lab7, countRows(Arithmos_Kombon, isLoadedNode));
    show(ui_->lab8, countRows(Arithmos_Stoixeion, isLoadedElement));
}

void frmApotelesmata::equipToolbar()
{
    auto *stretch = new QWidget(ui_->Toolbar1);
    stretch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    ui_->Toolbar1->insertWidget(ui_->Eksodos, stretch); // the way out stands apart
    for (QAction *action : ui_->Toolbar1->actions())
        if (auto *button = qobject_cast<QToolButton *>(ui_->Toolbar1->widgetForAction(action))) {
            constexpr int width = 72; // logical pixels
            button->setObjectName(action->objectName());
            button->setMinimumWidth(width);
            button->setFocusPolicy(Qt::TabFocus);
        }
}

void frmApotelesmata::connectCommands()
{
    const auto command = [this](QAction *action, auto run) {
        connect(action, &QAction::triggered, this, run);
    };
    command(ui_->keyApothikefsi,
            [this] { takeOut(Metafrasi(1201, "Save to file"), &frmApotelesmata::save); });
    command(ui_->keyClipboard,
            [this] { takeOut(Metafrasi(1202, "Copy to Clipboard"), &frmApotelesmata::copy); });
    command(ui_->keyEktiposi,
            [this] { takeOut(Metafrasi(1203, "Print"), &frmApotelesmata::print); });
    command(ui_->keyExcel, [this] {
        takeOut(Metafrasi(1209, "Export to MS Excel"), &frmApotelesmata::exportSections);
    });
    command(ui_->Eksodos, [this] { close(); });
    connect(ui_->Option1, &QRadioButton::toggled, this, &frmApotelesmata::showView);
}

/// Letters for tabs, views and toolbar, each once.
void frmApotelesmata::assignWindowMnemonics()
{
    QObject owner;
    QList<QAction *> captions;
    const auto collect = [&](const QString &text) {
        captions << new QAction(QString(text).replace('&', "&&"), &owner);
        return captions.last();
    };
    QTabWidget *tabs = ui_->SSTab1;
    for (int tab = 0; tab < tabs->count(); ++tab)
        collect(tabs->tabText(tab));
    const QList<QRadioButton *> views = {ui_->Option1, ui_->Option2};
    for (const QRadioButton *view : views)
        collect(view->text());
    QList<QAction *> buttons = ui_->Toolbar1->actions();
    buttons.removeIf([](const QAction *action) { return action->objectName().isEmpty(); });
    for (const QAction *button : buttons)
        collect(button->text());
    assignMnemonics(captions);
    for (int tab = 0; tab < tabs->count(); ++tab)
        tabs->setTabText(tab, captions.takeFirst()->text());
    for (QRadioButton *view : views)
        view->setText(captions.takeFirst()->text());
    for (QAction *button : buttons)
        button->setIconText(captions.takeFirst()->text()); // a button takes letters from this only
}

// ----------------------------------------------------------------------------------------- layout

void frmApotelesmata::setLeastSize()
{
    constexpr int besideParts = 135 + 225;        // twips
    constexpr int aroundGrid = 1300 + 2235 + 900; // twips, the last of them for the grid
    int part = ui_->Frame1->minimumSizeHint().width();
    for (const QWidget *head :
         {ui_->headData, ui_->headDisplacements, ui_->headForces, ui_->headReactions})
        part = std::max(part, head->minimumSizeHint().width());
    setMinimumSize(
        std::max(part + pixels(besideParts), ui_->Toolbar1->sizeHint().width() + 2 * edge),
        pixels(aroundGrid));
}

void frmApotelesmata::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

/// The lengths in twips are the layout.
void frmApotelesmata::arrange()
{
    // A size that would be negative is not applied.
    const auto place = [](QWidget *part, int left, int top, int w, int h) {
        part->setGeometry(left, top, w > 0 ? w : part->width(), h > 0 ? h : part->height());
    };
    const int tabsWidth = width() - pixels(135);
    const int tabsHeight = height() - pixels(1300);
    const int gridWidth = tabsWidth - pixels(225);
    const int toolbarTop = height() - pixels(1180);
    place(ui_->SSTab1, edge, edge, tabsWidth, tabsHeight);
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
    const int resultHeight = tabsHeight - pixels(855);
    placeUnder(gap, ui_->headDisplacements, {ui_->FLEXgrd1}, resultHeight);
    placeUnder(gap, ui_->headForces, {ui_->FLEXgrd2}, resultHeight);
    placeUnder(gap, ui_->headReactions, {ui_->FLEXgrd4}, resultHeight);
}

void frmApotelesmata::showView()
{
    ui_->FLEXgrd3->setVisible(ui_->Option1->isChecked());
    ui_->TreeView1->setVisible(!ui_->Option1->isChecked());
}

/// Enter presses a button as Space does.
void frmApotelesmata::keyPressEvent(QKeyEvent *event)
{
    auto *button = qobject_cast<QAbstractButton *>(focusWidget());
    if (button != nullptr && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        button->click();
    else
        QWidget::keyPressEvent(event);
}

// ------------------------------------------------------------------------------------ the ways out

void frmApotelesmata::takeOut(const std::string &caption, void (frmApotelesmata::*act)())
{
    ui_->Toolbar1->update(); // a button pressed by its letter would look pressed all the while
    // What is said on the way must not bring the main window to the front.
    const BoxOwner owner(this);
    frmSelect(qtText(caption), this).exec();
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
    QStringList workbooks;
    const auto add = [this, &workbooks](bool chosen, const GridView *view, ReportSection section) {
        if (!chosen)
            return;
        const std::string path = ExportFlexGrid(view->grid(), sectionName(section), model_);
        if (!path.empty())
            workbooks << qtText(path);
    };
    add(Nai_Dedomena, ui_->FLEXgrd3, ReportSection::data);
    add(Nai_Metakiniseis, ui_->FLEXgrd1, ReportSection::displacements);
    add(Nai_Entaseis, ui_->FLEXgrd2, ReportSection::elementForces);
    add(Nai_Antidraseis, ui_->FLEXgrd4, ReportSection::reactions);
    if (!workbooks.isEmpty())
        openWorkbooks(workbooks, this);
}

} // namespace veskora
