// The results window on the offscreen platform: opened by its button, read cell by cell, its ways
// out taken as a user takes them.

#include "Batch.h"
#include "Ektiposi.h"
#include "epilisi.h"
#include "ExportFlexGrid.h"
#include "Fault.h"
#include "Files.h"
#include "Forms.h"
#include "frmApotelesmata.h"
#include "GridView.h"
#include "MainWindowTest.h"
#include "Models.h"
#include "ModelTree.h"
#include "ResultGrid.h"
#include "SystemPrograms.h"
#include "WorkbookCheck.h"

#include <QClipboard>
#include <QPdfWriter>
#include <QPrinter>
#include <QTabWidget>
#include <QTreeWidget>

#include <sstream>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace veskora {
namespace {

class Results : public MainWindow, protected Forms
{
protected:
    Results() { ::setenv("CUPS_SERVER", path("nobody").c_str(), 1); } // nothing goes on paper
    /// Nobody owns the programs of the desktop that were started: they end by themselves.
    ~Results() override
    {
        EXPECT_TRUE(QTest::qWaitFor([] {
            siginfo_t ended;
            return ::waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) != 0; // no child is left
        }));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// One of every case, with results that no analysis gave: a fixed node, free ones, springs with
    /// and without a restraint, ties at an extreme, a column of equal values, every element type,
    /// loads with and without each component.
    static void buildEveryCase()
    {
        buildModel("G 2.1e8 .01 1e-4; N 0 0 xxx; N 4 -.5 ooo 0 -10 0; N 2.1e8 0 xoo;"
                   "N 0 5 ooo 5 0 .125; N 1 1 oxo; S 3 2.5 7 0; S 4 0 2.1e8 0;"
                   "E 1 2 1; E 3 4 1 1; E 2 4 1 0 1 0 -12; E 1 3 1 1 1 .5 0");
        for (int n = 1; n <= 5; ++n) {
            Metatopiseis(3 * n - 2) = n == 2 || n == 4 ? 2.5 : -1;
            Metatopiseis(3 * n - 1) = n == 4 ? 1. / 3 : -n;
            Metatopiseis(3 * n) = 7;
            for (int k = 1; k <= 3; ++k)
                Antidraseis(n, k) = n + k / 10.;
        }
        for (const auto &[place, value] : {std::pair{2, 2.5}, {3, -1.}, {5, 1. / 3}, {6, -5.}})
            Akrotata(place) = value;
        Akrotata(9) = Akrotata(10) = 7;
        for (int e = 1; e <= 4; ++e)
            for (int k = 1; k <= 6; ++k)
                Entasi_Topiki(e, k) = 10 * e + k;
        Allagi_Montelou = false;
    }

    frmApotelesmata *results()
    {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *open = qobject_cast<frmApotelesmata *>(widget))
                return open;
        return nullptr;
    }
    void open()
    {
        trigger("Apotelesmata");
        QCoreApplication::processEvents();
    }
    void openOnEveryCase()
    {
        start();
        buildEveryCase();
        open();
    }
    static std::string clipboard() { return QApplication::clipboard()->text().toStdString(); }
    template <typename Object = QWidget>
    Object *part(const char *name)
    {
        return results()->findChild<Object *>(name);
    }

    /// A grid, one line to a row; colours as (b)lue, (r)ed and (g)reen before their texts.
    std::string shownGrid(const char *name)
    {
        static const std::map<QString, const char *> colours = {
            {"#000000", ""}, {"#0000ff", "(b)"}, {"#ff0000", "(r)"}, {"#008000", "(g)"}};
        const ResultGrid &grid = part<GridView>(name)->grid();
        std::string lines;
        for (int row = 0; row < grid.rowCount(); ++row)
            for (int column = 0; column < grid.columnCount(); ++column) {
                const QModelIndex cell = grid.index(row, column);
                lines += colours.at(cell.data(Qt::ForegroundRole).value<QColor>().name());
                lines += cell.data().toString().toStdString();
                lines += column + 1 < grid.columnCount() ? "|" : "\n";
            }
        return lines;
    }

    /// Presses a button of the toolbar and ticks, in the dialog that comes, the boxes marked "x".
    /// @param answer  "x" and "o" for the four boxes, then OK; empty for Cancel
    void takeOut(const char *button, const std::string &answer)
    {
        during([&] { part<QAction>(button)->trigger(); },
               [&] {
                   const char *boxes = "Check1 Check2 Check3 Check4";
                   asked = form->windowTitle().toStdString() + ": " + shownIn(boxes);
                   EXPECT_EQ(Anafora, "");
                   EXPECT_EQ(valueOf("focus"), "Check1");
                   for (std::size_t box = 0; box < answer.size(); ++box)
                       act("Check" + std::to_string(box + 1) + "=" + answer[box]);
                   QTest::keyClick(form, answer.empty() ? Qt::Key_Escape : Qt::Key_Return);
               });
        EXPECT_EQ(Anafora, "") << button;
    }
    std::string asked; ///< caption and boxes of the last dialog

    /// A spreadsheet program that the desktop knows of: what it is given goes to a file.
    void installSpreadsheet()
    {
        fs::create_directory(path("bin"));
        write(path("bin/xdg-mime"),
              "#!/bin/sh\necho calc.desktop\necho asked >>" + path("asked") + "\n");
        // Nothing that ends with this program may hang on the user's spreadsheet.
        write(path("bin/xdg-open"),
              "#!/bin/sh\n[ ! -p /dev/stdout ] && echo \"$1\" >>" + path("opened") + "\n");
        for (const char *tool : {"bin/xdg-mime", "bin/xdg-open"})
            fs::permissions(path(tool), fs::perms::owner_all);
        ::setenv("PATH", path("bin").c_str(), 1);
    }
    /// Of each workbook "sheet name\nrow\nrow...", cells joined by "|"; "?" for one that is no
    /// text.
    static std::string workbooks(const QStringList &files)
    {
        constexpr const char *print = R"(
import openpyxl, sys
for file in sys.argv[1:]:
    book = openpyxl.load_workbook(file)
    assert len(book.sheetnames) == 1
    print(book.active.title)
    for row in book.active.iter_rows():
        print('|'.join('' if c.value is None else c.value if c.data_type == 's' else '?' for c in row))
)";
        return output("python3", QStringList{"-c", print} + files).toStdString();
    }
};

TEST_F(Results, GridsAndTreeShowEveryCase)
{
    openOnEveryCase();
    std::string all;
    for (const char *grid : {"FLEXgrd3", "FLEXgrd1", "FLEXgrd2", "FLEXgrd4"})
        all += shownGrid(grid);
    all += "Counts";
    for (const char *label : {"lab1", "lab2", "lab3", "lab4", "lab5", "lab6", "lab7", "lab8"})
        all += " " + part<QLabel>(label)->text().toStdString();
    all += "\n";
    for (QTreeWidgetItemIterator at(part<QTreeWidget>("TreeView1")); *at != nullptr; ++at) {
        for (const QTreeWidgetItem *up = (*at)->parent(); up != nullptr; up = up->parent())
            all += " ";
        const std::string key = (*at)->data(0, treeKeyRole).toString().toStdString();
        all += (*at)->text(0).toStdString() + (key.empty() ? "" : " [" + key + "]") + "\n";
    }
    EXPECT_EQ(all, contentOf(TEST_DATA "/results_window.txt"));
    for (const char *name : {"FLEXgrd1", "FLEXgrd3"}) { // headers, on a ground of their own
        const ResultGrid &grid = part<GridView>(name)->grid();
        EXPECT_EQ(grid.index(0, 1).data(Qt::BackgroundRole), QColor(240, 240, 240));
        EXPECT_EQ(grid.index(0, 0).data(Qt::BackgroundRole), QColor(Qt::white));
        EXPECT_EQ(grid.index(1, 1).data(Qt::BackgroundRole), QColor(Qt::white));
    }
}

TEST_F(Results, TheWindowIsASnapshotThatTheButtonMakesAnewAndTheMainWindowTakesAlong)
{
    start();
    Allagi_Montelou = false;
    const auto rows = [this](const char *grid) { return part<GridView>(grid)->grid().rowCount(); };
    const auto sendDeletions = [] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    open();
    QPointer<frmApotelesmata> before = results();
    EXPECT_EQ(before->windowTitle(), "Kalvorn Veskora ML - Data & Results");
    EXPECT_FALSE(before->isModal());
    EXPECT_TRUE(part("TreeView1")->isVisible() && !part("FLEXgrd3")->isVisible());
    part<QAbstractButton>("Option1")->click();
    EXPECT_TRUE(!part("TreeView1")->isVisible() && part("FLEXgrd3")->isVisible());
    EXPECT_EQ(rows("FLEXgrd3"), 10);
    EXPECT_EQ(rows("FLEXgrd2"), 1);
    ++Arithmos_Kombon;
    EXPECT_EQ(rows("FLEXgrd1"), 1);
    open();
    EXPECT_EQ(before, nullptr);
    EXPECT_EQ(rows("FLEXgrd1"), 2);

    before = results();
    std::string stops;
    for (int key = 0; key < 8; ++key) {
        stops += before->focusWidget()->objectName().toStdString() + " ";
        QTest::keyClick(before->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(stops, "TreeView1 keyApothikefsi keyClipboard keyExcel keyEktiposi Eksodos "
                     "qt_tabwidget_tabbar Option1 ");
    part("Eksodos")->setFocus();
    QTest::keyClick(before->focusWidget(), Qt::Key_Return);
    sendDeletions();
    EXPECT_EQ(before, nullptr);

    open();
    before = results();
    part<QTabWidget>("SSTab1")->setCurrentIndex(2);
    window->activateWindow();
    before->showMinimized();
    QCoreApplication::processEvents();
    open(); // nothing has changed: it was only covered
    EXPECT_EQ(results(), before);
    EXPECT_TRUE(before->isActiveWindow() && !before->isMinimized());
    EXPECT_EQ(part<QTabWidget>("SSTab1")->currentIndex(), 2);
    for (const int height : {400, 800}) { // of a screen of 800: with room under the canvas, without
        window->setGeometry(0, 0, 800, height);
        window->activateWindow();
        QCoreApplication::processEvents();
        Metatopiseis(2) += 1;
        open();
        EXPECT_EQ(before, nullptr);
        const QRect drawing(canvas().mapToGlobal(QPoint()), canvas().size());
        EXPECT_EQ(results()->frameGeometry().intersects(drawing), height == 800);
    }
    Katharismos_Montelou();
    trigger("mnuEKSODOSitem");
    sendDeletions();
    EXPECT_EQ(results(), nullptr);
}

TEST_F(Results, EveryPartKeepsItsPlaceAtAnySize)
{
    start();
    buildEveryCase();
    Metatopiseis(1) = 0;
    Komboi(1, node::fixedX) = 0;
    Metatopiseis(4) = -0.000136808448785253;
    open();
    for (const QSize size : {QSize(820, 600), QSize(1280, 950), QSize(10, 10)}) {
        results()->resize(size);
        QCoreApplication::processEvents();
        const int w = results()->width() - 9, h = results()->height() - 1300 / 15;
        EXPECT_EQ(part("SSTab1")->size(), QSize(w, h));
        EXPECT_EQ(part("Toolbar1")->y(), results()->height() - 1180 / 15);
        EXPECT_LE(part("Toolbar1")->sizeHint().height(), part("Toolbar1")->height());
        EXPECT_EQ(part("TreeView1")->size(), QSize(w - 15, h - 149));
        EXPECT_EQ(part("Frame1")->width(), w - 15);
        auto *tabs = part<QTabWidget>("SSTab1");
        for (int tab = 0; const char *name : {"FLEXgrd3", "FLEXgrd1", "FLEXgrd2", "FLEXgrd4"}) {
            tabs->setCurrentIndex(tab);
            const QWidget *grid = part(name);
            EXPECT_LE(grid->geometry().bottom(), grid->parentWidget()->height()) << name;
            EXPECT_EQ(grid->size(), QSize(w - 15, tab++ == 0 ? h - 149 : h - 57)) << name;
        }
    }
    const auto *forces = part<GridView>("FLEXgrd2");
    EXPECT_EQ(forces->columnWidth(1), 700 / 15);
    EXPECT_EQ(forces->columnWidth(2), 2500 / 15);
    EXPECT_EQ(forces->rowHeight(3), 140 / 15);
    EXPECT_GT(forces->rowHeight(2), 140 / 15);
    const auto *displacements = part<GridView>("FLEXgrd1");
    EXPECT_GT(displacements->columnWidth(1), // grown for the long number
              displacements->fontMetrics().horizontalAdvance("-0.000136808448785253"));
}

TEST_F(Results, SelectedCellsAreCopiedAsText)
{
    openOnEveryCase();
    part<QTabWidget>("SSTab1")->setCurrentIndex(3);
    auto *grid = part<GridView>("FLEXgrd4");
    const auto copied = [&] {
        results()->activateWindow();
        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
        return clipboard();
    };
    const auto select = [&](int top, int left, int bottom, int right) {
        const ResultGrid &cells = grid->grid();
        grid->selectionModel()->select(
            QItemSelection(cells.index(top, left), cells.index(bottom, right)),
            QItemSelectionModel::Select);
    };
    grid->setCurrentIndex({});
    EXPECT_NO_THROW(copied());
    select(1, 1, 2, 3);
    grid->setNotice("Beware.");
    EXPECT_EQ(copied(), "Beware.\n1.1\t1.2\t1.3\n2.5\t21\t");
    grid->setNotice({});
    select(4, 2, 4, 2);
    EXPECT_EQ(copied(), "1.1\t1.2\t1.3\n2.5\t21\t\n\t5.2\t");
}

TEST_F(Results, TheChoiceOfSectionsDecidesWhatLeavesTheWindow)
{
    openOnEveryCase();
    QApplication::clipboard()->setText("old");
    for (const std::string answer : {"", "oooo"}) { // nothing comes of it, and nothing is asked
        std::string boxes = ": x|x|x|x";            // at first
        for (const auto &[button, says] : {std::pair{"keyApothikefsi", "Save to file"},
                                           {"keyClipboard", "Copy to Clipboard"},
                                           {"keyEktiposi", "Print"},
                                           {"keyExcel", "Export to MS Excel"}}) {
            takeOut(button, answer);
            EXPECT_EQ(asked, says + boxes);
            boxes = answer.empty() ? ": x|x|x|x" : ": o|o|o|o";
        }
        EXPECT_EQ(clipboard(), "old");
    }
    takeOut("keyClipboard", "oxox");
    EXPECT_EQ(clipboard(), Anafora_Keimenou(2) + Anafora_Keimenou(4));
    takeOut("keyClipboard", "");
    EXPECT_EQ(asked, "Copy to Clipboard: o|x|o|x");
    for (const Answer answer : {Answer::no, Answer::yes}) {
        desktop.expectMessage("There is no default printer. Do you want to save the report as a "
                              "PDF file instead?",
                              Icon::question, answer);
        if (answer == Answer::yes)
            desktop.expectFileDialog(path("r"));
        takeOut("keyEktiposi", "xooo");
    }
    EXPECT_EQ(desktop.fileQuestions.back().proposed, "Untitled.pdf");
    EXPECT_TRUE(
        output("pdftotext", {QString::fromStdString(path("r.pdf")), "-"}).contains("210000000"));
}

TEST_F(Results, TheNextWindowOpensWhereTheLastWasLeft)
{
    openOnEveryCase();
    const auto nodes = [&] { return part<QTreeWidget>("TreeView1")->topLevelItem(0)->child(1); };
    EXPECT_FALSE(nodes()->isExpanded());
    nodes()->setExpanded(true);
    nodes()->child(2)->setExpanded(true);
    for (const int section : {0, 2}) { // Esc in the tree, in a grid
        part<QTabWidget>("SSTab1")->setCurrentIndex(section);
        const QPointer<frmApotelesmata> left = results();
        QTest::keyClick(left->focusWidget(), Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(left, nullptr);
        open();
        EXPECT_EQ(part<QTabWidget>("SSTab1")->currentIndex(), section);
        EXPECT_TRUE(nodes()->isExpanded() && nodes()->child(2)->isExpanded());
        EXPECT_FALSE(nodes()->child(1)->isExpanded());
    }
}

TEST_F(Results, AReportIsSavedAsTheBatchRunnerWritesIt)
{
    fs::copy(EXAMPLES "/hinged_frame.vsk", path("a.vsk"));
    std::ostringstream out, err;
    ASSERT_EQ(runBatch({"--out", path("batch"), path("a.vsk")}, out, err),
              batchStatus::allAnalysed);
    setDesktop(qtDesktop.get());
    reopen();
    start(path("a.vsk"));
    Epilisi();
    open();
    desktop.expectFileDialog(path("r"));
    takeOut("keyApothikefsi", "xxxx");
    EXPECT_EQ(desktop.fileQuestions.back().proposed, path("a.txt"));
    EXPECT_EQ(desktop.fileQuestions.back().filter, "Text files (*.txt)|*.txt|All files (*.*)|*.*");
    EXPECT_EQ(contentOf(path("r.txt")), contentOf(path("batch/a.txt")));
    desktop.expectFileDialog(std::nullopt);
    takeOut("keyApothikefsi", "xxxx"); // nothing more is said
    desktop.expectFileDialog(path("nowhere/r.txt"));
    desktop.expectMessage("There was an error saving the file: " + path("nowhere/r.txt")
                              + ": No such file or directory",
                          Icon::critical);
    takeOut("keyApothikefsi", "ooox");
}

TEST_F(Results, SectionsBecomeWorkbooksBesideTheModel)
{
    installSpreadsheet();
    start();
    buildEveryCase();
    Onoma_Arxeiou = path("my.frame.vsk");
    open();
    Onoma_Arxeiou = path("another.vsk"); // the window shows the one before
    write(path("my.frame Element forces.xlsx"), "the user's");
    takeOut("keyExcel", "xxxx");
    takeOut("keyExcel", ""); // repeats
    EXPECT_EQ(contentOf(path("my.frame Element forces.xlsx")), "the user's");
    QStringList files;
    std::string expected;
    for (const auto &[name, grid] : {std::pair{"Model data", "FLEXgrd3"},
                                     {"Node displacements", "FLEXgrd1"},
                                     {"Element forces (2)", "FLEXgrd2"},
                                     {"Constraint-Spring reactions", "FLEXgrd4"},
                                     {"Model data (2)", "FLEXgrd3"},
                                     {"Node displacements (2)", "FLEXgrd1"},
                                     {"Element forces (3)", "FLEXgrd2"},
                                     {"Constraint-Spring reactions (2)", "FLEXgrd4"}}) {
        const std::string file = path(std::string("my.frame ") + name + ".xlsx");
        expected += QString(name).section(" (", 0, 0).toStdString() + "\n" + shownGrid(grid);
        files << QString::fromStdString(file);
        EXPECT_TRUE(log().contains(" Workbook: " + files.last()));
        const ResultGrid &cells = part<GridView>(grid)->grid();
        const int count = cells.rowCount() * cells.columnCount();
        QStringList texts;
        for (int cell = 0; cell < count; ++cell)
            texts << cells.text(cell / cells.columnCount(), cell % cells.columnCount());
        texts.removeAll(QString());
        EXPECT_NO_THROW(requireWholeWorkbook(file, texts, count));
        EXPECT_THROW(requireWholeWorkbook(file, texts, count + 1), Fault);
        EXPECT_THROW(requireWholeWorkbook(file, texts.mid(1), count), Fault);
    }
    static const QRegularExpression colour(R"(\((b|r|g)\))");
    EXPECT_EQ(workbooks(files), QString::fromStdString(expected).remove(colour).toStdString());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QStringList opened = QString::fromStdString(contentOf(path("opened"))).split('\n');
        return std::ranges::is_permutation(opened, files + QStringList(""));
    }));
    EXPECT_EQ(contentOf(path("asked")), "asked\nasked\n"); // once for all sections

    // No program for them: the files are there all the same. Nowhere to write: there is none.
    for (const auto &[tool, script, says] :
         {std::tuple{"xdg-open", "#!/bin/sh\nexit 3\n", "no program opens it: "},
          {"xdg-mime", "#!/bin/sh\n", "no program opens them:\r\n"},
          {"", "", "no program opens them:\r\n"}}) {
        if (*tool != 0)
            write(path("bin/") + tool, script);
        else
            ::setenv("PATH", "", 1);
        std::string said;
        desktop.expectAnyMessage(said); // once
        takeOut("keyExcel", "ooxx");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !said.empty(); }));
        EXPECT_THAT(said, testing::HasSubstr(says + path("my.frame ")));
    }
    const std::string refusal =
        "An error occured while trying to export file. The operation cannot be completed.";
    EXPECT_TRUE(fs::exists(path("my.frame Constraint-Spring reactions (5).xlsx")));
    fs::create_directory(path("examples"));
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QByteArray::fromStdString(path("no home")));
    for (const char *model : {"gone/m.vsk", "examples/m.vsk"}) {
        Onoma_Arxeiou = path(model);
        open();
        desktop.expectMessage(refusal, Icon::critical);
        takeOut("keyExcel", "ooox");
    }
    qputenv("HOME", home);
    EXPECT_TRUE(fs::is_empty(path("examples"))) << "nothing of the user's stands there";
}

TEST_F(Results, WhatMustBeToldOfThemStandsOverTheTabsAndFirstInEveryWayOut)
{
    installSpreadsheet();
    start(EXAMPLES "/hinged_frame.vsk");
    Onoma_Arxeiou = path("a.vsk");
    Epilisi();
    open();
    const std::string changed = "The model has been changed since these results.";
    const auto told = [this] {
        auto *label = part<QLabel>("resultWarnings");
        EXPECT_EQ(label->isVisible(), part("SSTab1")->y() > 4);
        return label->isVisible() ? label->text().toStdString() : "";
    };
    const auto copied = [this] {
        takeOut("keyClipboard", "xoox");
        return QApplication::clipboard()->text().section("Data", 0, 0).toStdString();
    };
    Onoma_Arxeiou = path("saved_as.vsk");
    window->redraw();
    EXPECT_EQ(told() + copied(), "");
    Komboi(1, node::Fx) += 1;
    Allagi_Montelou = true;
    window->redraw();
    EXPECT_EQ(told() + copied(), changed + changed + "\r\n\r\n");
    takeOut("keyExcel", "oxoo");
    EXPECT_THAT(workbooks({QString::fromStdString(path("a Node displacements.xlsx"))}),
                testing::StartsWith("Node displacements\n" + changed + "|||\nNode|x - "));
    Epilisi(); // what the window shows is of the model before, what it prints is not
    window->redraw();
    EXPECT_EQ(told() + copied(), changed);
    mechanismSuspected = true;
    open();
    EXPECT_EQ(told(), "The structure is probably a mechanism.");
    EXPECT_EQ(copied(), "The structure is probably a mechanism.\r\n\r\n");
}

TEST_F(Results, SheetNamesAreWhatAWorkbookCanHold)
{
    for (const auto &[section, name] :
         {std::pair{"Element forces", "Element forces"},
          {"a/b:c*d?e\\f[g]h", "a b c d e f g h"},
          {"'quoted'", "quoted"},
          {"Αντιδράσεις στηρίξεων και ελατηρίων", "Αντιδράσεις στηρίξεων και ελατη"},
          {"", ""}})
        EXPECT_EQ(sheetName(section), name);
}

TEST_F(Results, PagesHaveTheirMarginsAndAllLines)
{
    const QString longest(87, 'm'); // characters that fit A4 upright
    QString many;
    for (int line = 1; line <= 150; ++line) // 60 to 66 on a page, as the font is
        many += QString("%1 %2\n").arg(line % 2 == 0 ? "Κόμβος" : "Node i").arg(line);
    const std::tuple<QString, qsizetype, bool> cases[] = {{longest + "\nend\n\n", 1, false},
                                                          {longest + "mmm", 1, true},
                                                          {longest + QString(100, ' '), 1, false},
                                                          {many, 3, false},
                                                          {QString(300, 'm') + "end", 1, true}};
    const auto captured = [](const QString &page, const QString &pattern) {
        QStringList all;
        const QRegularExpression expression(pattern);
        for (auto at = expression.globalMatch(page); at.hasNext();)
            all << at.next().captured(1);
        return all;
    };
    const auto places = [&](const QString &page, const char *edge) {
        std::vector<double> all;
        for (const QString &place : captured(page, QString("\\b%1=\"([0-9.]+)\"").arg(edge)))
            all.push_back(place.toDouble());
        return all;
    };
    for (const auto &[text, pageCount, landscape] : cases) {
        const QString file = QString::fromStdString(path("page.pdf"));
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        printer.setPageSize(QPageSize(QPageSize::A4));
        ASSERT_TRUE(printPages(printer, text));
        const QString words = output("pdftotext", {"-bbox", file, "-"});
        EXPECT_EQ(captured(words, ">([^<>]+)</word>").join(""), text.simplified().remove(' '));
        const QStringList pages = words.split("<page ").mid(1);
        ASSERT_EQ(pages.size(), pageCount);
        EXPECT_EQ(pages.front().startsWith("width=\"84"), landscape) << pages.front().toStdString();
        // Every page: nothing in the first 2 cm, something right behind them; a page that goes on
        // ends within a line of the 1.5 cm at its foot.
        constexpr double mm = 72 / 25.4;
        for (const QString &page : pages) {
            for (const char *edge : {"xMin", "yMin"})
                EXPECT_NEAR(std::ranges::min(places(page, edge)), 20 * mm, 4) << edge;
            const double foot = places(page, "height").front() - 15 * mm;
            const double end = std::ranges::max(places(page, "yMax"));
            EXPECT_LT(end, foot + 1);
            EXPECT_TRUE(end > foot - 14 || &page == &pages.last()) << end;
        }
        // Letters of every alphabet are of one width: what follows them stands in one column.
        const QStringList columns = captured(words, "xMin=\"([0-9.]+)\" [^>]*>1[0-9][0-9]<");
        EXPECT_EQ(columns.count(columns.value(0)), columns.size()) << words.toStdString();
    }
}

// Some printers cannot come nearer to an edge than the margins asked for.
TEST_F(Results, AWideLeastMarginLeavesTheOthers)
{
    QPdfWriter paper(QString::fromStdString(path("page.pdf")));
    QPageLayout layout = paper.pageLayout();
    layout.setMinimumMargins(QMarginsF(20, 20, 20, 60)); // points; 60 are 21 mm
    paper.setPageLayout(layout);
    ASSERT_TRUE(printPages(paper, "a line"));
    const QMarginsF margins = paper.pageLayout().margins(QPageLayout::Millimeter);
    EXPECT_NEAR(margins.left(), 20, 0.1);
    EXPECT_NEAR(margins.top(), 20, 0.1);
    EXPECT_NEAR(margins.bottom(), 60 * 25.4 / 72, 0.1);
}

} // namespace
} // namespace veskora
