// The window of the values along an element on the offscreen platform.

#include "AlongElement.h"
#include "ElementCurves.h"
#include "frmValues.h"
#include "Hand.h"
#include "MainWindowTest.h"
#include "Models.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>

namespace veskora {
namespace {

class ValuesWindow : public MainWindow
{
protected:
    /// A beam of 8 with a load of 6 on two hinges, and an upright on it.
    void openOnBeam()
    {
        start();
        buildModel("G 1000 1 1; N 0 1 xxx; N 8 1 xxx; N 8 5; E 1 2 1 1 1 0 -6; E 2 3 1");
        trigger("mnuEPILISIitem");
        qtDesktop->redraw();
        trigger("mnuTIMES_STOIXEIOU_item");
    }
    void look() { QMetaObject::invokeMethod(find<QTimer>("LookTimer"), "timeout"); }
    std::string shown(const char *label)
    {
        const auto *text = find<QLabel>(label);
        return text->isHidden() ? "" : text->text().replace(QChar::Nbsp, ' ').toStdString();
    }
    std::string cell(int row, int column)
    {
        return find<QTableWidget>("Values")->item(row, column)->text().toStdString();
    }
    int rows() { return find<QTableWidget>("Values")->rowCount(); }
    bool isPicking() { return find<QAbstractButton>("Pick")->isChecked(); }
};

TEST_F(ValuesWindow, IsRefusedWithoutElementsAndWithoutResults)
{
    start();
    desktop.expectMessage("No elements have been defined yet.");
    trigger("mnuTIMES_STOIXEIOU_item");
    buildModel("G 1 1 1; N 0 0 xxx; N 5 0; E 1 2 1");
    desktop.expectMessage("Model has been changed. Do you want to reanalyze before the process "
                          "goes on?",
                          Icon::exclamation, Answer::no);
    desktop.expectMessage("There are no results yet. Analyze the model; where that fails, see "
                          "Report, Check of the analysis.");
    trigger("mnuTIMES_STOIXEIOU_item");
    EXPECT_EQ(window->findChild<frmValues *>(), nullptr);
}

TEST_F(ValuesWindow, TableCursorAndLinesHaveTheValues)
{
    openOnBeam();
    EXPECT_EQ(rows(), 11);
    EXPECT_EQ(cell(5, 5), "48");    // q L^2 / 8
    EXPECT_EQ(cell(5, 6), "-0.32"); // 5 q L^4 / 384 EI
    EXPECT_EQ(cell(5, 2), "extreme of M, extreme of the deflection, zero of Q");
    EXPECT_EQ(shown("Largest"), "Largest deflection: -0.32 (x = 4). Largest M: 48 (x = 4).");

    auto *place = find<QLineEdit>("Place");
    auto *curves = find<ElementCurves>("Curves");
    auto *table = find<QTableWidget>("Values");
    const QPoint row2 = table->visualItemRect(table->item(2, 0)).center();
    for (const auto &[act, says] :
         std::initializer_list<std::pair<std::function<void()>, const char *>>{
             {[=] { place->clear(), QTest::keyClicks(place, "2,0"); }, "M = 36,"},
             {[=] { QTest::keyClick(curves, Qt::Key_Right); }, "Q = 11.52,"}, // at 2.08
             {[=] { QTest::keyClick(curves, Qt::Key_Right, Qt::ControlModifier); },
              "Q = 0,  M = 48,"},
             {[=] { table->setCurrentCell(2, 0); }, "x/L = 0.2,"},
             {[=] {
                  QTest::mouseClick(curves, Qt::LeftButton, {}, {0, 9});
              },
              "x/L = 0,"},
             {[=] { QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, row2); },
              "x/L = 0.2,"},
             {[=] { QTest::keyClick(curves, Qt::Key_End); }, "Q = -24,"},
             {[=] { QTest::keyClick(curves, Qt::Key_Right); }, "Q = -24,"},
             {[=] { QTest::mouseClick(curves, Qt::LeftButton, {}, curves->rect().center()); },
              "Q = "},
             {[=] { place->clear(), QTest::keyClicks(place, "8.1"); },
              "x is a number from 0 to 8, the length of the element."},
             {[=] { place->clear(), QTest::keyClicks(place, "1.000,5"); }, "x is a number"},
         }) {
        act();
        EXPECT_NE(shown("AtPlace").find(says), std::string::npos)
            << says << ": " << shown("AtPlace");
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
    look();
    EXPECT_EQ(rows(), 0);
    const std::string notice = "The model has been changed since these results.\n"
                               "Its values are shown when it has been analyzed.";
    EXPECT_EQ(shown("Notice"), notice);
    EXPECT_EQ(shown("AtPlace") + shown("Largest"), "");
    for (const char *way : {"Copy", "SaveTable"}) {
        desktop.expectMessage(notice);
        click(way);
    }
    trigger("mnuEPILISIitem");
    look();
    EXPECT_EQ(shown("Notice"), "");
    EXPECT_EQ(cell(5, 5), "96");
    find<QSpinBox>("Element")->setValue(2);
    buildModel("");
    hasResults = false;
    look();
    EXPECT_EQ(rows(), 0);
    EXPECT_EQ(shown("Notice"), "No elements have been defined yet.");
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
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    ASSERT_EQ(lines.size(), 1 + rows());
    EXPECT_EQ(lines[0], "x\tx/L\tPlace\tN\tQ\tM\tDeflection\tdx\tdy");
    EXPECT_TRUE(lines[2].startsWith("2.6666666666666665\t0.3333333333333333\t\t0\t8\t"));
    QApplication::setActiveWindow(window->findChild<frmValues *>());
    auto *table = find<QTableWidget>("Values");
    table->setFocus();
    table->selectRow(1);
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), lines[0] + '\n' + lines[2]);
    const std::string file = path("beam.csv");
    desktop.expectFileDialog(file);
    click("SaveTable");
    EXPECT_EQ(desktop.fileQuestions.back().proposed, "Untitled_values_1.csv");
    EXPECT_NE(contentOf(file).find("\n1,4,0.5,0,0,48,-0.32,0,-0.32,M_extreme deflection_extreme "
                                   "Q_zero\r\n"),
              std::string::npos);
}

} // namespace
} // namespace veskora
