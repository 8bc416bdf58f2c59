// The windows of the menu Report on the offscreen platform.

#include "AnalysisCommands.h"
#include "ElementCurves.h"
#include "Files.h"
#include "Forms.h"
#include "frmCalculation.h"
#include "frmElegxos.h"
#include "frmValues.h"
#include "Hand.h"
#include "MainWindowTest.h"
#include "ModelCheck.h"
#include "Models.h"
#include "QtColour.h"
#include "Settings.h"
#include "StepsFile.h"
#include "SystemPrograms.h"
#include "Text.h"

#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableWidget>
#include <QTextBrowser>
#include <QTextTable>
#include <QTreeWidget>
#include <QWheelEvent>

namespace veskora {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class Reports : public MainWindow, protected Forms
{
protected:
    Reports() { ::setenv("CUPS_SERVER", path("nobody").c_str(), 1); } // nothing goes on paper

    /// What a label tells when the window has looked at the model again; nothing where it is
    /// hidden.
    std::string told(const char *name)
    {
        QMetaObject::invokeMethod(find<QTimer>("LookTimer"), "timeout");
        const auto *label = find<QLabel>(name);
        return label->isHidden() ? "" : label->text().replace(QChar::Nbsp, ' ').toStdString();
    }
    static QString clipboard() { return QApplication::clipboard()->text(); }
    /// Presses @p button, which asks for a file.
    /// @return the file
    std::string saved(const char *button, const std::string &proposed)
    {
        desktop.expectFileDialog(path("saved"));
        click(button);
        EXPECT_THAT(desktop.fileQuestions.back().proposed, EndsWith(proposed));
        return path("saved" + std::filesystem::path(proposed).extension().string());
    }
    QStringList savedPages(const std::string &proposed)
    {
        const QString file = QString::fromStdString(saved("SavePdf", proposed));
        return output("pdftotext", {"-layout", file, "-"}).split('\f', Qt::SkipEmptyParts);
    }
};

TEST_F(Reports, AreRefusedWithoutWhatTheyAreOf)
{
    start();
    const char *noNodes = "No nodes have been defined yet.";
    for (const auto &[command, says] :
         {std::pair{"mnuELEGXOS_ANALYSIS_item", noNodes},
          {"mnuVIMATA_ANALYSIS_item", noNodes},
          {"mnuCALCULATION_item", noNodes},
          {"mnuTIMES_STOIXEIOU_item", "No elements have been defined yet."}}) {
        desktop.expectMessage(says);
        trigger(command);
    }
    buildModel("G 1 1 1; N 0 0 xxx; N 5 0; E 1 2 1");
    desktop.expectMessage("Model has been changed. Do you want to reanalyze before the process "
                          "goes on?",
                          Icon::exclamation, Answer::no);
    desktop.expectMessage("There are no results yet. Analyze the model; where that fails, see "
                          "Report, Check of the analysis.");
    trigger("mnuTIMES_STOIXEIOU_item");
    EXPECT_EQ(QApplication::activeWindow(), window.get());
}

TEST_F(Reports, TheFormOfTheCalculationRemembersAndWritesUnlessCancelled)
{
    start(TEST_DATA "/small.vsk");
    Button_Epilisi();
    const auto open = [this](auto talk) {
        during([this] { trigger("mnuCALCULATION_item"); }, talk);
    };
    const std::string file = path("r.pdf");
    write(file, "before");
    open([&] {
        control<QLineEdit>("ReportTitle")->setText(" Halle ");
        control<QComboBox>("ReportPaper")->setCurrentText("Letter");
        control<QComboBox>("ReportDigits")->setCurrentText("all");
        desktop.expectFileDialog(file);
        QTimer::singleShot(0, [&] { act("CancelReport"); });
        act("SaveReport");
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(contentOf(file), "before");
    });
    EXPECT_THAT(desktop.fileQuestions.back().proposed, EndsWith("/small_report.pdf"));
    open([&] {
        EXPECT_EQ(valueOf("ReportTitle"), "Halle");
        EXPECT_EQ(control<QComboBox>("ReportPaper")->currentText(), "Letter");
        EXPECT_EQ(control<QComboBox>("ReportDigits")->currentText(), "all");
        desktop.expectFileDialog(file);
        act("SaveReport");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_THAT(contentOf(file), StartsWith("%PDF"));
    EXPECT_THAT(log().back().toStdString(), HasSubstr("Calculation report: " + file));
}

class CheckWindow : public Reports
{
protected:
    /// A beam that nothing keeps from sliding, and a group of no element.
    void openOnSlidingBeam()
    {
        start();
        buildModel("G 1 1 1; G 1 1 1; N 0 0 oxo; N 5 0 oxo; N 2 2; E 1 2 1");
        qtDesktop->redraw();
        trigger("mnuELEGXOS_ANALYSIS_item");
    }
    QListWidget *findings() { return find<QListWidget>("Findings"); }
    QImage picture() { return canvas().kanvas().image().copy(); }
    QImage plainPicture()
    {
        qtDesktop->redraw();
        return picture();
    }
};

TEST_F(CheckWindow, WhatIsPickedIsSeenOverTheModelUntilTheNextRedraw)
{
    start();
    Katastasi_Provolis = view::M;
    openOnSlidingBeam();
    EXPECT_EQ(Katastasi_Provolis, view::model);
    const QImage motion = picture();
    const auto vectors = [this](const std::string &name) {
        desktop.expectFileDialog(path(name));
        trigger("mnuEIKONA_SVG_PDF_item");
        return contentOf(path(name));
    };
    const std::string motionAsVectors = vectors("m.svg");
    const QImage plain = plainPicture();
    EXPECT_LT(vectors("p.svg").size(), motionAsVectors.size());
    EXPECT_NE(motion, plain);
    QTest::keyClick(findings(), Qt::Key_Return);
    EXPECT_EQ(picture(), motion);

    const std::vector<Finding> checked = checkModel();
    int marked = 0;
    for (int row = 1; row < findings()->count(); ++row) {
        QTest::keyClick(findings(), Qt::Key_Down);
        EXPECT_NE(picture(), motion) << row;
        EXPECT_EQ(find<QPlainTextEdit>("Explanation")->toPlainText(),
                  qtText(textOf(checked[static_cast<std::size_t>(row)]).explanation));
        marked += picture() != plain;
    }
    EXPECT_GE(marked, 1) << "the node without an element";
    QApplication::setActiveWindow(window->findChild<frmElegxos *>());
    QTest::keyClick(findings(), Qt::Key_Home);
    EXPECT_EQ(picture(), motion);
    QTest::keyClick(findings(), Qt::Key_Escape);
    EXPECT_EQ(picture(), plain);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window->findChild<frmElegxos *>(), nullptr);
}

TEST_F(CheckWindow, ItTellsThatModelOrResultsHaveBecomeOthersAndMarksNoRowsOfBefore)
{
    openOnSlidingBeam();
    const auto *opened = window->findChild<frmElegxos *>();
    const std::string changed = "The model has changed since this check. Refresh checks it anew.";
    EXPECT_EQ(told("Outdated"), "");
    Komboi(3, node::x) = 4;
    EXPECT_EQ(told("Outdated"), changed);
    Komboi(3, node::x) = 2; // as by undo
    EXPECT_EQ(told("Outdated"), "");
    ++analysesFinished;
    EXPECT_EQ(told("Outdated"),
              "The model has been analyzed since this check. Refresh checks it anew.");
    click("Refresh");
    EXPECT_EQ(told("Outdated"), "");

    buildModel("");
    desktop.expectMessage("No nodes have been defined yet.");
    click("Refresh");
    EXPECT_GT(findings()->count(), 1) << "what is there stays";

    buildModel("N 7 7 xxx");
    const QImage plain = plainPicture();
    for (int row = 0; row < findings()->count(); ++row) {
        QTest::keyClick(findings(), Qt::Key_Down);
        EXPECT_EQ(picture(), plain);
    }
    EXPECT_EQ(told("Outdated"), changed);
    trigger("mnuELEGXOS_ANALYSIS_item");
    EXPECT_EQ(told("Outdated"), "");
    EXPECT_EQ(window->findChild<frmElegxos *>(), opened);
    EXPECT_EQ(findings()->currentRow(), 0);
}

TEST_F(CheckWindow, TheTextLeavesWhole)
{
    openOnSlidingBeam();
    click("Copy");
    for (int row = 0; row < findings()->count(); ++row)
        EXPECT_TRUE(
            clipboard().simplified().contains(findings()->item(row)->text().section(": ", 1)))
            << row;
    EXPECT_EQ(contentOf(saved("SaveText", "Untitled_check.txt")),
              clipboard().toStdString() + "\r\n");
}

class ValuesWindow : public Reports
{
protected:
    /// A beam of 8 with a load of 6 on two hinges, and an upright on it.
    void openOnBeam()
    {
        start();
        buildModel("G 1000 1 1; N 0 1 xxx; N 8 1 xxx; N 8 5; E 1 2 1 1 1 0 -6; E 2 3 1");
        Button_Epilisi();
        qtDesktop->redraw();
        trigger("mnuTIMES_STOIXEIOU_item");
    }
    QTableWidget *table() { return find<QTableWidget>("Values"); }
    std::string cell(int row, int column)
    {
        return table()->item(row, column)->text().toStdString();
    }
    bool isPicking() { return find<QAbstractButton>("Pick")->isChecked(); }
};

TEST_F(ValuesWindow, TableCursorAndLinesHaveTheValues)
{
    openOnBeam();
    EXPECT_EQ(table()->rowCount(), 11);
    EXPECT_EQ(cell(5, 5), "48");    // q L^2 / 8
    EXPECT_EQ(cell(5, 6), "-0.32"); // 5 q L^4 / 384 EI
    EXPECT_EQ(cell(5, 2), "extreme of M, extreme of the deflection, zero of Q");
    EXPECT_EQ(told("Largest"), "Largest deflection: -0.32 (x = 4). Largest M: 48 (x = 4).");

    auto *place = find<QLineEdit>("Place");
    auto *curves = find<ElementCurves>("Curves");
    const QImage drawn = curves->grab().toImage();
    for (const double colour : {xroma_N, xroma_Q, xroma_M, xroma_paramorfosis}) {
        int pixels = 0;
        for (int pixel = 0; pixel < drawn.width() * drawn.height(); ++pixel)
            pixels +=
                drawn.pixelColor(pixel % drawn.width(), pixel / drawn.width()) == qtColour(colour);
        EXPECT_GT(pixels, 0) << "no curve of the colour " << colour;
    }
    const auto types = [place](const char *text) {
        return [=] { place->clear(), QTest::keyClicks(place, text); };
    };
    const auto presses = [curves](Qt::Key key, Qt::KeyboardModifiers held = {}) {
        return [=] { QTest::keyClick(curves, key, held); };
    };
    const auto clicks = [](QWidget *part, QPoint at) {
        return [=] { QTest::mouseClick(part, Qt::LeftButton, {}, at); };
    };
    const QPoint row2 = table()->visualItemRect(table()->item(2, 0)).center();
    const std::pair<std::function<void()>, const char *> cases[] = {
        {types("2,0"), "M = 36,"},
        {presses(Qt::Key_Right), "Q = 11.52,"}, // at 2.08
        {presses(Qt::Key_Right, Qt::ControlModifier), "Q = 0,  M = 48,"},
        {[this] { table()->setCurrentCell(2, 0); }, "x/L = 0.2,"},
        {clicks(curves, {0, 9}), "x/L = 0,"},
        {clicks(table()->viewport(), row2), "x/L = 0.2,"},
        {presses(Qt::Key_End), "Q = -24,"},
        {presses(Qt::Key_Right), "Q = -24,"},
        {clicks(curves, curves->rect().center()), "Q = "},
        {types("8.1"), "x is a number from 0 to 8, the length of the element."},
        {types("1.000,5"), "x is a number"}};
    for (const auto &[act, says] : cases) {
        act();
        EXPECT_THAT(told("AtPlace"), HasSubstr(says));
    }
}

TEST_F(ValuesWindow, AClickOnTheCanvasChoosesAndDrawsNothingUntilEsc)
{
    openOnBeam();
    auto *element = find<QSpinBox>("Element");
    const auto *mark = find<QWidget>("ChosenElement");
    EXPECT_TRUE(isPicking());
    const QRect first = mark->geometry();
    for (const std::int16_t shown : {view::model, view::M}) {
        Katastasi_Provolis = shown;
        element->setValue(1);
        click(8, 3);
        EXPECT_EQ(element->value(), 2) << shown;
        EXPECT_NE(mark->geometry(), first);
        click(3, 4); // nothing lies there
        EXPECT_EQ(Arithmos_Kombon, 3);
    }
    trigger("mnuEKSODOS2item");
    EXPECT_FALSE(isPicking());
    EXPECT_TRUE(find<QWidget>("Line_Stoixeio")->isHidden()) << "of the pointer, over a diagram";
    Katastasi_Provolis = view::model;
    dragModel(3, 4, 5, 4);
    EXPECT_EQ(Arithmos_Kombon, 5);
    click("Pick");
    EXPECT_TRUE(isPicking());
    auto *values = window->findChild<frmValues *>();
    QApplication::setActiveWindow(values);
    QTest::keyClick(values, Qt::Key_Escape);
    EXPECT_TRUE(mark->isHidden());
    click(1, 4);
    EXPECT_EQ(Arithmos_Kombon, 6);
}

TEST_F(ValuesWindow, ShowsNoValuesOfAModelThatHasChanged)
{
    openOnBeam();
    Stoixeia(1, element::wy) = -12;
    Allagi_Montelou = true;
    const std::string notice = "The model has been changed since these results.\n"
                               "Its values are shown when it has been analyzed.";
    EXPECT_EQ(told("Notice"), notice);
    EXPECT_EQ(table()->rowCount(), 0);
    EXPECT_EQ(told("AtPlace") + told("Largest"), "");
    for (const char *way : {"Copy", "SaveTable"}) {
        desktop.expectMessage(notice);
        click(way);
    }
    trigger("mnuEPILISIitem");
    EXPECT_EQ(told("Notice"), "");
    EXPECT_EQ(cell(5, 5), "96");
    find<QSpinBox>("Element")->setValue(2);
    buildModel("");
    hasResults = false;
    EXPECT_EQ(told("Notice"), "No elements have been defined yet.");
    EXPECT_EQ(table()->rowCount(), 0);
    EXPECT_TRUE(find<QWidget>("ChosenElement")->isHidden());
}

TEST_F(ValuesWindow, UndoIsTheModelsUnlessAFieldHasSomethingTyped)
{
    openOnBeam();
    const auto press = [](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);
    };
    QApplication::setActiveWindow(window->findChild<frmValues *>());
    auto *place = find<QLineEdit>("Place");
    for (const char *field : {"Element", "Parts", "Place"}) {
        Stoixeia(1, element::wy) = -12;
        find<QWidget>(field)->setFocus();
        press(Qt::Key_Z);
        EXPECT_EQ(Stoixeia(1, element::wy), -6) << field;
        press(Qt::Key_Y);
        EXPECT_EQ(Stoixeia(1, element::wy), -12) << field;
    }
    Stoixeia(1, element::wy) = -12;
    const QString before = place->text();
    QTest::keyClicks(place, "7");
    press(Qt::Key_Z);
    EXPECT_EQ(place->text(), before);
    press(Qt::Key_Y);
    EXPECT_NE(place->text(), before) << "typing comes back before edits";
    EXPECT_EQ(Stoixeia(1, element::wy), -12);
}

TEST_F(ValuesWindow, FitsALowScreenWithTheTableBesideTheDiagrams)
{
    openOnBeam();
    auto *values = window->findChild<frmValues *>();
    values->resize(values->minimumSize());
    QApplication::processEvents();
    EXPECT_LT(values->height(), 360); // of a screen of 1280 x 800 at scale factor 2
    EXPECT_LT(find<QWidget>("Curves")->geometry().right(), find<QWidget>("Values")->x());
}

TEST_F(ValuesWindow, TheTableLeavesWhole)
{
    openOnBeam();
    find<QSpinBox>("Parts")->setValue(3);
    click("Copy");
    const QStringList lines = clipboard().split('\n');
    ASSERT_EQ(lines.size(), 1 + table()->rowCount());
    EXPECT_EQ(lines[0], "x\tx/L\tPlace\tN\tQ\tM\tDeflection\tdx\tdy");
    EXPECT_TRUE(lines[2].startsWith("2.6666666666666665\t0.3333333333333333\t\t0\t8\t"));
    QApplication::setActiveWindow(window->findChild<frmValues *>());
    table()->setFocus();
    table()->selectRow(1);
    QTest::keyClick(table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), lines[0] + '\n' + lines[2]);
    EXPECT_THAT(
        contentOf(saved("SaveTable", "Untitled_values_1.csv")),
        HasSubstr("\n1,4,0.5,0,0,48,-0.32,0,-0.32,M_extreme deflection_extreme Q_zero\r\n"));
}

class StepsWindow : public Reports
{
protected:
    void openOn(const std::string &model)
    {
        start(model);
        Button_Epilisi();
        trigger("mnuVIMATA_ANALYSIS_item");
    }
    QTextBrowser *text() { return find<QTextBrowser>("Steps"); }
    QTreeWidget *contents() { return find<QTreeWidget>("Contents"); }
    QLineEdit *field(const char *name) { return find<QLineEdit>(name); }
    /// Those that are shown, by the headings of their sections.
    std::vector<int> elementsShown()
    {
        std::vector<int> elements;
        for (QTreeWidgetItemIterator item(contents()); *item != nullptr; ++item)
            if (const QString heading = (*item)->text(0); heading.startsWith("Element "))
                elements.push_back(heading.section(' ', 1).toInt());
        return elements;
    }
};

const std::string portal = EXAMPLES "/portal_frame.vsk", large = EXAMPLES "/limit.vsk";

TEST_F(StepsWindow, ItHasEverySectionEveryNumberAndWhereEntriesComeFrom)
{
    openOn(portal);
    const steps::Document document = steps::stepsOfAnalysis({});
    QTreeWidgetItemIterator item(contents());
    const QString all = text()->toPlainText();
    for (const steps::Section &section : document.sections) {
        ASSERT_NE(*item, nullptr);
        EXPECT_EQ((*item)->text(0), qtText(section.heading));
        contents()->setCurrentItem(*item);
        EXPECT_EQ(text()->textCursor().block().text(), qtText(section.heading));
        for (const steps::Block &block : section.blocks)
            if (const auto *grid = std::get_if<steps::Grid>(&block)) {
                for (const steps::GridRow &row : grid->rows)
                    for (const steps::Cell &cell : row.cells)
                        EXPECT_TRUE(all.contains(qtText(cell.text.plainText())));
            }
        ++item;
    }
    EXPECT_EQ(*item, nullptr);
    text()->verticalScrollBar()->setValue(0);
    EXPECT_EQ(contents()->currentItem()->text(0), qtText(document.sections.front().heading));

    const QTextCursor stiffness = text()->document()->find("361700");
    EXPECT_EQ(stiffness.charFormat().toolTip(), "elements 1 and 2");
}

TEST_F(StepsWindow, WhatIsShownIsAskedForAndAWrongListChangesNothing)
{
    openOn(large);
    EXPECT_EQ(elementsShown(), std::vector{1});
    EXPECT_THAT(told("Told"),
                StartsWith("Of the 300 elements of this model these are shown in full: 1."));
    const auto no = [](const char *rows, const char *which, const char *last) {
        return QString("These are no %1 of the model: %2. Its %1 are numbered from 1 to %3; a list "
                       "of them is typed as in 1-3, 7.")
            .arg(rows, which, last)
            .toStdString();
    };
    const std::vector<int> four = {2, 3, 4, 7};
    const std::tuple<const char *, const char *, std::vector<int>, std::string> cases[] = {
        {" 7, 2 - 4,2 ", "", four, ""},
        {"301", "", four, no("elements", "301", "300")},
        {"1, 298-302, 4-3,7", "", four, no("elements", "301-302, 4-3", "300")},
        {"1,", "", four, no("elements", "1,", "300")},
        {"1 2", "", four, no("elements", "1 2", "300")},
        {"0", "", four, no("elements", "0", "300")},
        {"300", "", {300}, ""},
        {"1-101",
         "",
         {300},
         "These are too many for one window: 1-101. Up to 100 elements and up to 100 nodes can be "
         "shown in full at a time."},
        {"", "x", {300}, no("nodes", "x", "200")}};
    for (const auto &[elements, nodes, shows, says] : cases) {
        SCOPED_TRACE(elements);
        field("Elements")->setText(elements);
        field("Nodes")->setText(nodes);
        if (!says.empty())
            desktop.expectMessage(says);
        QTest::keyClick(field("Elements"), Qt::Key_Return);
        EXPECT_EQ(elementsShown(), shows);
    }
    trigger("mnuVIMATA_ANALYSIS_item"); // the menu refuses nothing
    EXPECT_EQ(field("Nodes")->text(), "x");
    Onoma_Arxeiou = path("other.vsk");
    ++modelsBegun;
    trigger("mnuVIMATA_ANALYSIS_item");
    EXPECT_EQ(field("Nodes")->text(), "");
    field("Elements")->setText("1");
    Arithmos_Stoixeion = 0;
    desktop.expectMessage("No elements have been defined yet.");
    click("ShowSteps");
}

TEST_F(StepsWindow, ItTellsWhatHasBecomeOtherAndWhatCannotRun)
{
    start();
    buildModel("G 1 1 1; N 0 0 oxo; N 5 0 oxo; E 1 2 1"); // it slides
    trigger("mnuVIMATA_ANALYSIS_item");
    EXPECT_TRUE(text()->toPlainText().contains("The steps end here"));
    EXPECT_EQ(told("Outdated"), "");
    ++analysesFinished;
    EXPECT_EQ(told("Outdated"), "The model has been analyzed since these steps were made. Show "
                                "makes them anew.");
    Komboi(2, node::x) = 4;
    EXPECT_EQ(told("Outdated"),
              "The model has changed since these steps were made. Show makes them anew.");
    click("ShowSteps");
    EXPECT_EQ(told("Outdated"), "");

    desktop.expectMessage("Nothing is selected in the steps. Drag over what is to be copied, or "
                          "press Ctrl+A in the text for all of it.");
    click("Copy");
}

TEST_F(StepsWindow, TheSearchGoesRoundBothWaysAndTellsWhereNothingIs)
{
    openOn(portal);
    field("Find")->setText("End forces of element");
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"FindNext", " 1", ""},
        {"FindNext", " 2", ""},
        {"FindPrevious", " 1", ""},
        {"FindPrevious", " 4", "The search has gone on from the end."},
        {"FindNext", " 1", "The search has gone on from the start."}};
    for (const auto &[button, element, says] : cases) {
        click(button);
        EXPECT_TRUE(text()->textCursor().block().text().endsWith(element)) << element;
        EXPECT_TRUE(contents()->currentItem()->text(0).endsWith(element)) << element;
        EXPECT_EQ(told("FindTold"), says);
    }
    for (const char *typed : {"-12EI/L", "−12ei/l"}) {
        field("Find")->setText(typed);
        click("FindNext");
        EXPECT_EQ(text()->textCursor().selectedText(), "−12EI/L");
    }
    field("Find")->setText("no such thing");
    click("FindNext");
    EXPECT_EQ(told("FindTold"), "Not found in these steps.");
    EXPECT_TRUE(text()->textCursor().hasSelection()) << "the last find stays";
}

TEST_F(StepsWindow, TheyLeaveWholeAndNoMatrixIsTornByAPage)
{
    openOn(portal);
    const steps::Document document = steps::stepsOfAnalysis({});
    EXPECT_EQ(contentOf(saved("SaveHtml", "portal_frame_steps.html")), stepsFile(document));
    const QStringList pages = savedPages("portal_frame_steps.pdf");
    ASSERT_GT(pages.size(), 3);
    const std::pair<const char *, const char *> rowsOfMatrices[] = {
        {"1 2 3 4 5 6 7 8 9 1 361700 0 15660", "0 11660 19430 15660 -11660 85840"}, // K_ff
        {" 354700 0 0 -354700 0 0", "0 11660 19430 0 -11660 38860"},  // k and K_e of the beams
        {" 695800 0 0 -695800 0 0", "0 15660 23490 0 -15660 46980"}}; // k of the columns
    int headings = 0, found = 0;
    for (qsizetype page = 0; page < pages.size(); ++page) {
        EXPECT_TRUE(pages[page].contains(QString("Page %1 of %2").arg(page + 1).arg(pages.size())));
        // The last row of the structure's matrix stands on the page of its first, and so do those
        // of the four elements.
        const QString plain = pages[page].simplified();
        for (const auto &[first, last] : rowsOfMatrices) {
            EXPECT_EQ(plain.count(first), plain.count(last)) << first;
            found += static_cast<int>(plain.count(first));
        }
        for (const steps::Section &section : document.sections)
            headings += static_cast<int>(pages[page].count(qtText(section.heading)));
    }
    EXPECT_EQ(found, 1 + 4 + 2);
    EXPECT_GE(headings, static_cast<int>(document.sections.size()));

    desktop.expectMessage("There is no default printer. Do you want to save the steps as a PDF "
                          "file instead?",
                          Icon::question, Answer::no);
    click("PrintSteps");
}

TEST_F(StepsWindow, LargerLettersAndOtherDigitsKeepThePlaceAndCopiesTheirCells)
{
    openOn(portal);
    EXPECT_TRUE(
        find<QWidget>("frmSteps")->actions().contains(find<QAction>("mnuTIMES_STOIXEIOU_item")));
    const auto top = [this] { return text()->cursorForPosition({0, 0}).blockNumber(); };
    const auto letters = [this] {
        return text()->document()->find("361700").charFormat().fontPointSize();
    };
    const double usual = letters();
    text()->verticalScrollBar()->setValue(1500);
    const int before = top();
    const auto turn = [this](int by) {
        QWheelEvent event({}, {}, {}, {0, by}, Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(text()->viewport(), &event);
    };
    turn(240);
    EXPECT_NEAR(letters() / usual, 1.21, 1e-6);
    EXPECT_EQ(top(), before);
    find<QSpinBox>("Digits")->setValue(3);
    click("ShowSteps");
    find<QSpinBox>("Digits")->setValue(4);
    click("ShowSteps");
    EXPECT_NEAR(letters() / usual, 1.21, 1e-6) << "kept by the window";
    EXPECT_EQ(top(), before);

    text()->selectAll();
    click("Copy");
    EXPECT_TRUE(clipboard().contains(
        "\nKff =\t\t1\t2\t3\t4\t5\t6\t7\t8\t9\n\t1\t361700\t0\t15660\t-354700\t0\t0\t0\t0\t0\n"));
    QTextCursor cells = text()->document()->find("361700");
    QTextTable *table = cells.currentTable();
    cells = table->cellAt(1, 2).firstCursorPosition();
    cells.setPosition(table->cellAt(2, 3).firstPosition(), QTextCursor::KeepAnchor);
    text()->setTextCursor(cells);
    click("Copy");
    EXPECT_EQ(clipboard(), "361700\t0\n0\t700500");
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().contains("<table"));
}

TEST_F(StepsWindow, LongTablesGoOnUnderTheirHeadingsAndTheContentsNameThePages)
{
    openOn(large);
    field("Nodes")->setText("1-60");
    click("ShowSteps");
    const QStringList pages = savedPages("limit_steps.pdf");
    int headed = 0;
    for (const QString &page : pages)
        headed += page.trimmed().startsWith("Freedom") ? 1 : 0;
    EXPECT_GT(headed, 2); // the right-hand side and the pivots of 168 freedoms
    for (const steps::Section &section : steps::stepsOfAnalysis({{}, {1}}).sections) {
        const QString heading = qtText(section.heading);
        const QRegularExpression line(QRegularExpression::escape(heading) + "\\s+(\\d+)\n");
        const int page = line.match(pages[0]).captured(1).toInt();
        ASSERT_GT(page, 0) << section.heading;
        EXPECT_TRUE(pages[page - 1].contains(heading + '\n')) << section.heading;
    }
}

} // namespace
} // namespace veskora
