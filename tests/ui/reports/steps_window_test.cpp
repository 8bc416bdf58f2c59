// The window of the steps of the analysis on the offscreen platform.

#include "AnalysisCommands.h"
#include "Files.h"
#include "MainWindowTest.h"
#include "Models.h"
#include "StepsFile.h"
#include "SystemPrograms.h"
#include "Text.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTextBrowser>
#include <QTextTable>
#include <QTreeWidget>
#include <QWheelEvent>

namespace veskora {
namespace {

class StepsWindow : public MainWindow
{
protected:
    StepsWindow() { ::setenv("CUPS_SERVER", path("nobody").c_str(), 1); } // nothing goes on paper

    void openOn(const std::string &model)
    {
        start(model);
        Button_Epilisi();
        trigger("mnuVIMATA_ANALYSIS_item");
    }
    QTextBrowser *text() { return find<QTextBrowser>("Steps"); }
    QLineEdit *field(const char *name) { return find<QLineEdit>(name); }
    std::string line(const char *name)
    {
        QMetaObject::invokeMethod(find<QTimer>("LookTimer"), "timeout");
        const auto *label = find<QLabel>(name);
        return label->isHidden() ? "" : label->text().toStdString();
    }
    /// Those that are shown, by the headings of their sections.
    std::vector<int> elementsShown()
    {
        std::vector<int> elements;
        for (QTreeWidgetItemIterator item(find<QTreeWidget>("Contents")); *item != nullptr; ++item)
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
    auto *contents = find<QTreeWidget>("Contents");
    QTreeWidgetItemIterator item(contents);
    const QString all = text()->toPlainText();
    for (const steps::Section &section : document.sections) {
        ASSERT_NE(*item, nullptr);
        EXPECT_EQ((*item)->text(0), qtText(section.heading));
        contents->setCurrentItem(*item);
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
    EXPECT_EQ(contents->currentItem()->text(0), qtText(document.sections.front().heading));

    const QTextCursor stiffness = text()->document()->find("361700");
    EXPECT_EQ(stiffness.charFormat().toolTip(), "elements 1 and 2");
}

TEST_F(StepsWindow, WhatIsShownIsAskedForAndAWrongListChangesNothing)
{
    const std::string noElements = "These are no elements of the model: %1. Its elements are "
                                   "numbered from 1 to 300; a list of them is typed as in 1-3, 7.";
    openOn(large);
    EXPECT_EQ(elementsShown(), std::vector{1});
    EXPECT_THAT(line("Told"), testing::StartsWith(
                                  "Of the 300 elements of this model these are shown in full: 1."));
    const struct
    {
        const char *asked;
        std::vector<int> shown;
        const char *refused = nullptr;
    } cases[] = {{" 7, 2 - 4,2 ", {2, 3, 4, 7}},
                 {"301", {2, 3, 4, 7}, "301"},
                 {"1, 298-302, 4-3,7", {2, 3, 4, 7}, "301-302, 4-3"},
                 {"1,", {2, 3, 4, 7}, "1,"},
                 {"1 2", {2, 3, 4, 7}, "1 2"},
                 {"0", {2, 3, 4, 7}, "0"},
                 {"300", {300}}};
    for (const auto &[asked, shown, refused] : cases) {
        SCOPED_TRACE(asked);
        field("Elements")->setText(asked);
        if (refused != nullptr)
            desktop.expectMessage(qtText(noElements).arg(refused).toStdString());
        QTest::keyClick(field("Elements"), Qt::Key_Return);
        EXPECT_EQ(elementsShown(), shown);
    }
    field("Elements")->setText("1-101");
    desktop.expectMessage(
        "These are too many for one window: 1-101. Up to 100 elements and up to 100 "
        "nodes can be shown in full at a time.");
    click("ShowSteps");
    field("Elements")->setText("");
    field("Nodes")->setText("x");
    desktop.expectMessage("These are no nodes of the model: x. Its nodes are numbered from 1 to "
                          "200; a list of them is typed as in 1-3, 7.");
    click("ShowSteps");
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
    desktop.expectMessage("No nodes have been defined yet.");
    trigger("mnuVIMATA_ANALYSIS_item");

    buildModel("G 1 1 1; N 0 0 oxo; N 5 0 oxo; E 1 2 1"); // it slides
    trigger("mnuVIMATA_ANALYSIS_item");
    EXPECT_TRUE(text()->toPlainText().contains("The steps end here"));
    EXPECT_EQ(line("Outdated"), "");
    ++analysesFinished;
    EXPECT_EQ(line("Outdated"), "The model has been analyzed since these steps were made. Show "
                                "makes them anew.");
    Komboi(2, node::x) = 4;
    EXPECT_EQ(line("Outdated"),
              "The model has changed since these steps were made. Show makes them anew.");
    click("ShowSteps");
    EXPECT_EQ(line("Outdated"), "");

    desktop.expectMessage("Nothing is selected in the steps. Drag over what is to be copied, or "
                          "press Ctrl+A in the text for all of it.");
    click("Copy");
}

TEST_F(StepsWindow, TheSearchGoesRoundBothWaysAndTellsWhereNothingIs)
{
    openOn(portal);
    field("Find")->setText("End forces of element");
    const char *fromEnd = "The search has gone on from the end.";
    const char *fromStart = "The search has gone on from the start.";
    const struct
    {
        const char *press;
        int element;
        const char *told = "";
    } cases[] = {{"FindNext", 1},
                 {"FindNext", 2},
                 {"FindPrevious", 1},
                 {"FindPrevious", 4, fromEnd},
                 {"FindNext", 1, fromStart}};
    for (const auto &[press, element, told] : cases) {
        click(press);
        EXPECT_TRUE(text()->textCursor().block().text().endsWith(QString::number(element)));
        EXPECT_EQ(line("FindTold"), told);
        EXPECT_TRUE(find<QTreeWidget>("Contents")
                        ->currentItem()
                        ->text(0)
                        .endsWith(QString::number(element)));
    }
    for (const char *typed : {"-12EI/L", "−12ei/l"}) {
        field("Find")->setText(typed);
        click("FindNext");
        EXPECT_EQ(text()->textCursor().selectedText(), "−12EI/L");
    }
    field("Find")->setText("no such thing");
    click("FindNext");
    EXPECT_EQ(line("FindTold"), "Not found in these steps.");
    EXPECT_TRUE(text()->textCursor().hasSelection()) << "the last find stays";
}

TEST_F(StepsWindow, TheyLeaveWholeAndNoMatrixIsTornByAPage)
{
    openOn(portal);
    desktop.expectFileDialog(path("p_steps.html"));
    click("SaveHtml");
    EXPECT_THAT(desktop.fileQuestions.back().proposed,
                testing::EndsWith("portal_frame_steps.html"));
    EXPECT_EQ(contentOf(path("p_steps.html")), stepsFile(steps::stepsOfAnalysis({})));

    desktop.expectFileDialog(path("p_steps.pdf"));
    click("SavePdf");
    const QString file = QString::fromStdString(path("p_steps.pdf"));
    const QStringList pages =
        output("pdftotext", {"-layout", file, "-"}).split('\f', Qt::SkipEmptyParts);
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
        for (const steps::Section &section : steps::stepsOfAnalysis({}).sections)
            headings += static_cast<int>(pages[page].count(qtText(section.heading)));
    }
    EXPECT_EQ(found, 1 + 4 + 2);
    EXPECT_GE(headings, static_cast<int>(steps::stepsOfAnalysis({}).sections.size()));

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
    EXPECT_TRUE(QApplication::clipboard()->text().contains(
        "\nKff =\t\t1\t2\t3\t4\t5\t6\t7\t8\t9\n\t1\t361700\t0\t15660\t-354700\t0\t0\t0\t0\t0\n"));
    QTextCursor cells = text()->document()->find("361700");
    QTextTable *table = cells.currentTable();
    cells = table->cellAt(1, 2).firstCursorPosition();
    cells.setPosition(table->cellAt(2, 3).firstPosition(), QTextCursor::KeepAnchor);
    text()->setTextCursor(cells);
    click("Copy");
    EXPECT_EQ(QApplication::clipboard()->text(), "361700\t0\n0\t700500");
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().contains("<table"));
}

TEST_F(StepsWindow, LongTablesGoOnUnderTheirHeadingsAndTheContentsNameThePages)
{
    openOn(large);
    field("Nodes")->setText("1-60");
    click("ShowSteps");
    desktop.expectFileDialog(path("l_steps.pdf"));
    click("SavePdf");
    const QString file = QString::fromStdString(path("l_steps.pdf"));
    const QStringList pages =
        output("pdftotext", {"-layout", file, "-"}).split('\f', Qt::SkipEmptyParts);
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
