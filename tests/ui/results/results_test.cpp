// The results window on the offscreen platform: opened by its button, read cell by cell, its ways
// out taken as a user takes them.

#include "Batch.h"
#include "Ektiposi.h"
#include "epilisi.h"
#include "ExportFlexGrid.h"
#include "Files.h"
#include "frmApotelesmata.h"
#include "frmSelect.h"
#include "GridView.h"
#include "MainWindowTest.h"
#include "Models.h"
#include "ModelTree.h"
#include "ResultGrid.h"
#include "SystemPrograms.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QPdfWriter>
#include <QPrinter>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>

#include <gmock/gmock.h>

#include <sstream>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace veskora {
namespace {

class Results : public MainWindow
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
    template <typename Object = QWidget>
    Object *part(const char *name)
    {
        return results()->findChild<Object *>(name);
    }

    /// A grid, one line to a row; colours as (b)lue, (r)ed and (g)reen before their texts.
    std::string shown(const char *name)
    {
        const ResultGrid &grid = part<GridView>(name)->grid();
        std::string lines;
        for (int row = 0; row < grid.rowCount(); ++row) {
            for (int column = 0; column < grid.columnCount(); ++column) {
                const QModelIndex cell = grid.index(row, column);
                const QColor colour = cell.data(Qt::ForegroundRole).value<QColor>();
                lines += column > 0 ? "|" : "";
                lines += colour == Qt::blue             ? "(b)"
                         : colour == Qt::red            ? "(r)"
                         : colour == QColor(0, 0x80, 0) ? "(g)"
                         : colour == QColor(Qt::black)  ? ""
                                                        : "(?)";
                lines += cell.data().toString().toStdString();
            }
            lines += "\n";
        }
        return lines;
    }

    /// Presses a button of the toolbar and ticks, in the dialog that comes, the boxes marked "x".
    /// @param answer  "x" and "o" for the four boxes, then OK; empty for Cancel
    void takeOut(const char *button, const QString &answer)
    {
        QTimer::singleShot(0, results(), [this, answer] {
            auto *dialog = qobject_cast<frmSelect *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            caption = dialog->windowTitle().toStdString();
            ticked.clear();
            for (int box = 0; box < 4; ++box) {
                auto *check = dialog->findChild<QCheckBox *>("Check" + QString::number(box + 1));
                ticked += check->isChecked() ? "x" : "o";
                if (!answer.isEmpty())
                    check->setChecked(answer[box] == 'x');
            }
            EXPECT_EQ(Anafora, "");
            EXPECT_EQ(dialog->focusWidget(), dialog->findChild<QCheckBox *>("Check1"));
            QTest::keyClick(dialog, answer.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
        part<QAction>(button)->trigger();
        EXPECT_EQ(Anafora, "") << button;
    }
    std::string caption, ticked; ///< of the last dialog

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
        return output("python3",
                      QStringList{"-c",
                                  "import openpyxl, sys\n"
                                  "for file in sys.argv[1:]:\n"
                                  "    book = openpyxl.load_workbook(file)\n"
                                  "    assert len(book.sheetnames) == 1\n"
                                  "    print(book.active.title)\n"
                                  "    for row in book.active.iter_rows():\n"
                                  "        print('|'.join('' if c.value is None else c.value if "
                                  "c.data_type == 's' else '?' for c in row))\n"}
                          + files)
            .toStdString();
    }
};

TEST_F(Results, GridsAndTreeShowEveryCase)
{
    start();
    buildEveryCase();
    open();
    EXPECT_EQ(shown("FLEXgrd3"), "Groups|E|A|I|||\n1|210000000|0.01|0.0001|||\n||||||\n"
                                 "Nodes|x|y|Constraints|Kx|Ky|Kz\n1|0|0|xxx|||\n2|4|-0.5||||\n"
                                 "3|2.1E+08|0|xoo|2.5|7|\n4|0|5|||2.1E+08|\n5|1|1|oxo|||\n||||||\n"
                                 "Elements|Start node i|End node j|Type|E,A,I Group||\n"
                                 "1|1|2|P2|1||\n2|3|4|P2' (Hinge i)|1||\n3|2|4|P2' (Hinge j)|1||\n"
                                 "4|1|3|P1|1||\n||||||\n"
                                 "Nodal L.|Node|Fx|Fy|M||\n1|2||-10|||\n2|4|5||0.125||\n||||||\n"
                                 "Elem. L.|Element|Fx|Fy|||\n1|3||-12|||\n2|4|0.5||||\n||||||\n");
    EXPECT_EQ(shown("FLEXgrd1"), "Node|x - Displacement|y - Displacement|z - Rotation\n1|||\n"
                                 "2|(b)2.5|-2|7\n3||(g)-3|7\n4|(b)2.5|(g)0.333333333333333|7\n"
                                 "5|(r)-1||7\n");
    EXPECT_EQ(shown("FLEXgrd2"),
              "Element|i, j|Axial force|Shear force|Moment\n"
              "1|1|11|12|13\n|2|14|15|16\n||||\n2|3|21|22|23\n|4|24|25|26\n||||\n"
              "3|2|31|32|33\n|4|34|35|36\n||||\n4|1|41|42|43\n|3|44|45|46\n||||\n");
    EXPECT_EQ(shown("FLEXgrd4"), "Node|Force Fx|Force Fy|Moment M\n1|1.1|1.2|1.3\n"
                                 "3|(g)2.5|(g)21|\n4||(g)-70000000|\n5||5.2|\n");
    std::string counts;
    for (const char *label : {"lab1", "lab2", "lab3", "lab4", "lab5", "lab6", "lab7", "lab8"})
        counts += part<QLabel>(label)->text().toStdString() + " ";
    EXPECT_EQ(counts, "1 5 4 3 15 3 2 2 ");

    std::string tree;
    for (QTreeWidgetItemIterator at(part<QTreeWidget>("TreeView1")); *at != nullptr; ++at) {
        for (const QTreeWidgetItem *up = (*at)->parent(); up != nullptr; up = up->parent())
            tree += " ";
        const std::string key = (*at)->data(0, treeKeyRole).toString().toStdString();
        tree += (*at)->text(0).toStdString() + (key.empty() ? "" : " [" + key + "]") + "\n";
    }
    EXPECT_EQ(tree,
              "Model\n"
              " E,A,I Element Groups [omad]\n"
              "  #1 E,A,I Group [1omad]\n   E = 210000000\n   A = 0.01\n   I = 0.0001\n"
              " Nodes [komb]\n"
              "  #1 Node [1komb]\n   x = 0\n   y = 0\n   Constraints: xxx\n"
              "  #2 Node [2komb]\n   x = 4\n   y = -0.5\n   Free\n"
              "  #3 Node [3komb]\n   x = 2.1E+08\n   y = 0\n   Constraints: xoo\n   Kx = 2.5\n"
              "   Ky = 7\n"
              "  #4 Node [4komb]\n   x = 0\n   y = 5\n   Free\n   Ky = 2.1E+08\n"
              "  #5 Node [5komb]\n   x = 1\n   y = 1\n   Constraints: oxo\n"
              " Elements [stoi]\n"
              "  #1 Element [1stoi]\n   Start node i: 1\n   End node j: 2\n   Type: P2\n"
              "   Belongs to E,A,I group: 1\n"
              "  #2 Element [2stoi]\n   Start node i: 3\n   End node j: 4\n"
              "   Type: P2' (Hinge i)\n   Belongs to E,A,I group: 1\n"
              "  #3 Element [3stoi]\n   Start node i: 2\n   End node j: 4\n"
              "   Type: P2' (Hinge j)\n   Belongs to E,A,I group: 1\n"
              "  #4 Element [4stoi]\n   Start node i: 1\n   End node j: 3\n   Type: P1\n"
              "   Belongs to E,A,I group: 1\n"
              " Nodal loads [sigk]\n"
              "  #1 Nodal load [1sigk]\n   On node: #2\n   Fy = -10\n"
              "  #2 Nodal load [2sigk]\n   On node: #4\n   Fx = 5\n   M = 0.125\n"
              " Elemental loads [omoi]\n"
              "  #1 Elemental load [1omoi]\n   On element: #3\n   Fy = -12\n"
              "  #2 Elemental load [2omoi]\n   On element: #4\n   Fx = 0.5\n");
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
    open();
    const QPointer<frmApotelesmata> first = results();
    EXPECT_EQ(first->windowTitle(), "Kalvorn Veskora ML - Data & Results");
    EXPECT_FALSE(first->isModal());
    EXPECT_TRUE(part("TreeView1")->isVisible() && !part("FLEXgrd3")->isVisible());
    part<QRadioButton>("Option1")->click();
    EXPECT_TRUE(!part("TreeView1")->isVisible() && part("FLEXgrd3")->isVisible());
    EXPECT_EQ(part<GridView>("FLEXgrd3")->grid().rowCount(), 10);
    EXPECT_EQ(part<GridView>("FLEXgrd2")->grid().rowCount(), 1);
    ++Arithmos_Kombon;
    EXPECT_EQ(part<GridView>("FLEXgrd1")->grid().rowCount(), 1);
    open();
    EXPECT_EQ(first, nullptr);
    EXPECT_EQ(part<GridView>("FLEXgrd1")->grid().rowCount(), 2);
    const QPointer<frmApotelesmata> second = results();
    std::string stops;
    for (int key = 0; key < 8; ++key) {
        stops += second->focusWidget()->objectName().toStdString() + " ";
        QTest::keyClick(second->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(stops, "TreeView1 keyApothikefsi keyClipboard keyExcel keyEktiposi Eksodos "
                     "qt_tabwidget_tabbar Option1 ");
    part("Eksodos")->setFocus();
    QTest::keyClick(second->focusWidget(), Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(second, nullptr);
    open();
    const QPointer<frmApotelesmata> third = results();
    part<QTabWidget>("SSTab1")->setCurrentIndex(2);
    window->activateWindow();
    third->showMinimized();
    QCoreApplication::processEvents();
    open(); // nothing has changed: it was only covered
    EXPECT_EQ(results(), third);
    EXPECT_TRUE(third->isActiveWindow() && !third->isMinimized());
    EXPECT_EQ(part<QTabWidget>("SSTab1")->currentIndex(), 2);
    window->activateWindow();
    QCoreApplication::processEvents();
    Metatopiseis(2) = 1;
    open();
    EXPECT_EQ(third, nullptr);
    for (const int height : {400, 800}) { // of a screen of 800: with room under the canvas, without
        window->setGeometry(0, 0, 800, height);
        window->activateWindow();
        QCoreApplication::processEvents();
        Metatopiseis(2) += 1;
        open();
        const QRect drawing(canvas().mapToGlobal(QPoint()), canvas().size());
        EXPECT_EQ(results()->frameGeometry().intersects(drawing), height == 800);
    }
    Katharismos_Montelou();
    trigger("mnuEKSODOSitem");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
        EXPECT_EQ(part("FLEXgrd3")->size(), QSize(w - 15, h - 149));
        EXPECT_EQ(part("TreeView1")->size(), QSize(w - 15, h - 149));
        EXPECT_EQ(part("Frame1")->width(), w - 15);
        auto *tabs = part<QTabWidget>("SSTab1");
        for (const auto &[tab, name] :
             {std::pair{0, "FLEXgrd3"}, {1, "FLEXgrd1"}, {2, "FLEXgrd2"}, {3, "FLEXgrd4"}}) {
            tabs->setCurrentIndex(tab);
            const QWidget *grid = part(name);
            EXPECT_LE(grid->geometry().bottom(), grid->parentWidget()->height()) << name;
            if (tab > 0) {
                EXPECT_EQ(grid->size(), QSize(w - 15, h - 57)) << name;
            }
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
    start();
    buildEveryCase();
    open();
    part<QTabWidget>("SSTab1")->setCurrentIndex(3);
    auto *grid = part<GridView>("FLEXgrd4");
    const auto copied = [&] {
        results()->activateWindow();
        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text().toStdString();
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
    EXPECT_EQ(copied(), "1.1\t1.2\t1.3\n2.5\t21\t");
    grid->setNotice("Beware.");
    EXPECT_EQ(copied(), "Beware.\n1.1\t1.2\t1.3\n2.5\t21\t");
    grid->setNotice({});
    select(4, 2, 4, 2);
    EXPECT_EQ(copied(), "1.1\t1.2\t1.3\n2.5\t21\t\n\t5.2\t");
}

TEST_F(Results, TheChoiceOfSectionsDecidesWhatLeavesTheWindow)
{
    start();
    buildEveryCase();
    open();
    QApplication::clipboard()->setText("old");
    const auto clipboard = [] { return QApplication::clipboard()->text().toStdString(); };
    for (const auto &[button, says] : {std::pair{"keyApothikefsi", "Save to file"},
                                       {"keyClipboard", "Copy to Clipboard"},
                                       {"keyEktiposi", "Print"},
                                       {"keyExcel", "Export to MS Excel"}})
        for (const char *answer : {"", "oooo"}) { // nothing comes of it, and nothing is asked
            reopen();
            start();
            buildEveryCase();
            open();
            takeOut(button, answer);
            EXPECT_EQ(caption, says);
            EXPECT_EQ(ticked, "xxxx");
            takeOut(button, "");
            EXPECT_EQ(ticked, *answer == '\0' ? "xxxx" : "oooo");
        }
    EXPECT_EQ(clipboard(), "old");
    takeOut("keyClipboard", "oxox");
    EXPECT_EQ(clipboard(), Anafora_Keimenou(2) + Anafora_Keimenou(4));
    takeOut("keyClipboard", "");
    EXPECT_EQ(ticked, "oxox");
    const std::string none = "There is no default printer. Do you want to save the report as a PDF "
                             "file instead?";
    desktop.expectMessage(none, Icon::question, Answer::no);
    takeOut("keyEktiposi", "xooo");
    desktop.expectMessage(none, Icon::question, Answer::yes);
    desktop.expectFileDialog(path("r"));
    takeOut("keyEktiposi", "xooo");
    EXPECT_EQ(desktop.fileQuestions.back().proposed, "Untitled.pdf");
    EXPECT_TRUE(
        output("pdftotext", {QString::fromStdString(path("r.pdf")), "-"}).contains("210000000"));
}

TEST_F(Results, TheNextWindowOpensWhereTheLastWasLeft)
{
    start();
    buildEveryCase();
    const auto nodes = [&] { return part<QTreeWidget>("TreeView1")->topLevelItem(0)->child(1); };
    open();
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
    for (const bool named : {true, false}) {
        reopen();
        start(named ? path("a.vsk") : "");
        if (named)
            Epilisi();
        else
            Allagi_Montelou = false;
        open();
        struct Case
        {
            std::optional<std::string> chosen;
            std::string written;
        };
        for (const Case &c :
             {Case{path("r.txt"), "r.txt"}, Case{path("results.dat"), "results.dat.txt"},
              Case{path("R.TXT"), "R.TXT.txt"}, Case{std::nullopt, "none"}}) {
            desktop.fileQuestions.clear();
            desktop.expectFileDialog(c.chosen);
            takeOut("keyApothikefsi", "xxxx");
            ASSERT_EQ(desktop.fileQuestions.size(), 1U);
            EXPECT_EQ(desktop.fileQuestions[0].proposed, named ? path("a.txt") : "Untitled.txt");
            EXPECT_EQ(desktop.fileQuestions[0].filter,
                      "Text files (*.txt)|*.txt|All files (*.*)|*.*");
            if (named && c.chosen) {
                EXPECT_EQ(contentOf(path(c.written)), contentOf(path("batch/a.txt")));
            }
            fs::remove(path(c.written));
        }
    }
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
    for (const char *number : {"", " (2)"})
        for (const auto &[section, grid] : {std::pair{"Model data", "FLEXgrd3"},
                                            {"Node displacements", "FLEXgrd1"},
                                            {"Element forces", "FLEXgrd2"},
                                            {"Constraint-Spring reactions", "FLEXgrd4"}}) {
            const std::string name = std::string("my.frame ") + section + number + ".xlsx";
            expected += std::string(section) + "\n" + shown(grid);
            files << QString::fromStdString(path(name));
            if (name == "my.frame Element forces.xlsx")
                files.last().replace(".xlsx", " (3).xlsx"); // the first name was taken
            EXPECT_TRUE(log().contains(" Workbook: " + files.last()));
        }
    for (const char *colour : {"(b)", "(r)", "(g)"})
        for (std::size_t at; (at = expected.find(colour)) != std::string::npos;)
            expected.erase(at, 3);
    EXPECT_EQ(workbooks(files), expected);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return std::ranges::count(contentOf(path("opened")), '\n') == 8; }));
    EXPECT_THAT(contentOf(path("opened")),
                testing::HasSubstr(path("my.frame Model data (2).xlsx")));
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
    struct Case
    {
        QString text;
        int pages;
        bool landscape;
    };
    const QString longest = QString(87, 'm'); // characters that fit A4 upright
    QString many;
    for (int line = 1; line <= 150; ++line) // 60 to 66 on a page, as the font is
        many += QString("%1 %2\n").arg(line % 2 == 0 ? "Κόμβος" : "Node i").arg(line);
    for (const Case &c : {Case{longest + "\nend\n\n", 1, false}, Case{longest + "mmm", 1, true},
                          Case{longest + QString(100, ' '), 1, false}, Case{many, 3, false},
                          Case{QString(300, 'm') + "end", 1, true}}) {
        const QString file = QString::fromStdString(path("page.pdf"));
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        printer.setPageSize(QPageSize(QPageSize::A4));
        ASSERT_TRUE(printPages(printer, c.text));
        const QString info = output("pdfinfo", {file});
        EXPECT_TRUE(info.contains(QRegularExpression(QString("Pages: +%1\n").arg(c.pages))))
            << info.toStdString();
        EXPECT_EQ(info.contains(QRegularExpression("Page size: +84\\d(\\.\\d+)? x 595")),
                  c.landscape)
            << info.toStdString();
        const auto words = [](const QString &text) {
            return text.split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
        };
        EXPECT_EQ(words(output("pdftotext", {"-layout", file, "-"})).join(""),
                  words(c.text).join(""));
        // Every page: nothing in the first 2 cm, something right behind them; a page that goes on
        // ends within a line of the 1.5 cm at its foot.
        const QString boxes = output("pdftotext", {"-bbox", file, "-"});
        constexpr double mm = 72 / 25.4;
        const auto places = [](const QString &page, const char *edge) {
            std::vector<double> all;
            const QRegularExpression place(QString(" %1=\"([0-9.]+)\"").arg(edge));
            for (auto at = place.globalMatch(page); at.hasNext();)
                all.push_back(at.next().captured(1).toDouble());
            return all;
        };
        const QStringList pages = boxes.split("<page ").mid(1);
        for (const QString &page : pages) {
            for (const char *edge : {"xMin", "yMin"})
                EXPECT_NEAR(std::ranges::min(places(page, edge)), 20 * mm, 4) << edge;
            const double foot = places(" " + page, "height").front() - 15 * mm;
            const double end = std::ranges::max(places(page, "yMax"));
            EXPECT_LT(end, foot + 1);
            EXPECT_TRUE(end > foot - 14 || &page == &pages.last()) << end;
        }
        // Letters of every alphabet are of one width: what follows them stands in one column.
        if (c.pages == 3) {
            QSet<QString> ends;
            const QRegularExpression end("xMin=\"([0-9.]+)\" [^>]*>1[0-9][0-9]<");
            for (auto at = end.globalMatch(boxes); at.hasNext();)
                ends << at.next().captured(1);
            EXPECT_EQ(ends.size(), 1) << boxes.toStdString();
        }
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

TEST_F(Results, EveryTextComesFromTheLanguagePack)
{
    start();
    buildEveryCase();
    Nai_Agglika = false;
    for (int slot = 1; slot <= languageSlots; ++slot)
        Pinakas_Glossas(slot) = "Wörd" + std::to_string(slot) + ", longer than English";
    open();
    QStringList texts = {results()->windowTitle().section(" - ", 1)};
    auto *tabs = part<QTabWidget>("SSTab1");
    for (int tab = tabs->count() - 1; tab >= 0; --tab)
        tabs->setCurrentIndex(tab); // a page is laid out when it is shown
    for (const QLabel *label : results()->findChildren<QLabel *>()) {
        texts << label->text();
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->objectName().toStdString();
    }
    for (const QAbstractButton *view : results()->findChildren<QRadioButton *>())
        texts << view->text();
    QStringList buttons;
    for (const QAction *action : part<QToolBar>("Toolbar1")->actions())
        texts << action->text() << action->toolTip();
    for (int tab = 0; tab < tabs->count(); ++tab)
        texts << tabs->tabText(tab);
    for (QTreeWidgetItemIterator at(part<QTreeWidget>("TreeView1")); *at != nullptr; ++at)
        texts << (*at)->text(0);
    const QRegularExpression sign("^(\\d*|\\[m..\\]|(x|y|Kx|Ky|E|A|I|Fx|Fy|M) = .*)$");
    for (QString text : texts) {
        text.remove('&').remove(QRegularExpression("^#\\d+ "));
        EXPECT_TRUE(text.startsWith("Wörd") || sign.match(text).hasMatch()) << text.toStdString();
    }
    // Letters for the keyboard, each once.
    QStringList captions = {part<QRadioButton>("Option1")->text(),
                            part<QRadioButton>("Option2")->text()};
    for (int tab = 0; tab < tabs->count(); ++tab)
        captions << tabs->tabText(tab);
    for (const char *key : {"keyApothikefsi", "keyClipboard", "keyExcel", "keyEktiposi", "Eksodos"})
        captions << part<QAbstractButton>(key)->text();
    QSet<QChar> letters;
    for (const QString &text : captions)
        letters << text.at(text.indexOf('&') + 1).toLower();
    EXPECT_EQ(letters.size(), captions.size()) << captions.join(' ').toStdString();
}

} // namespace
} // namespace veskora
