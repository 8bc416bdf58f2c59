// Undo and redo of each kind of action, through the real window.

#include "History.h"
#include "MainWindowTest.h"
#include "Models.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

namespace veskora {
namespace {

/// All tables, byte for byte.
std::string bytes()
{
    std::string all;
    std::apply(
        [&all](const auto &...table) {
            (all.append(reinterpret_cast<const char *>(&table), sizeof table), ...);
        },
        modelTables());
    return all;
}

class Undo : public MainWindow
{
protected:
    Undo()
    {
        start();
        resize(1200, 900);
    }

    /// "Field=text Field=text" in a dialog, where a check box takes "x", and a button's name alone.
    static void fill(const QWidget &dialog, const QString &entries)
    {
        for (const QString &entry : entries.split(' ')) {
            const QString name = entry.section('=', 0, 0), text = entry.section('=', 1);
            if (auto *list = dialog.findChild<QComboBox *>(name))
                list->setEditText(text);
            else if (auto *field = dialog.findChild<QLineEdit *>(name))
                field->setText(text);
            else if (auto *check = dialog.findChild<QCheckBox *>(name))
                check->setChecked(text == "x");
            else
                QTest::mouseClick(dialog.findChild<QAbstractButton *>(name), Qt::LeftButton);
        }
    }

    const char *const frame = "G 1 2 3; N 0 0 xxx; N 3 0; N 6 0; E 1 2 1 0 0 0 -2; E 2 3 1;";
};

TEST_F(Undo, EachKindOfActionIsOneStepThatGoesBackAndForth)
{
    const auto in = [this](const char *command, const char *entries) {
        return [=, this] {
            answered([&] { trigger(command); },
                     [&](QWidget &dialog) {
                         fill(dialog, entries);
                         dialog.close();
                     });
        };
    };
    const auto fromMenu = [this](double x, double y, const char *entry) {
        return [=, this] { chooseInMenu(x, y, entry); };
    };
    desktop.answerAnything = [] { return Answer::ok; };
    const std::pair<const char *, std::function<void()>> actions[] = {
        // what the log says of each
        {"New node #4, x=9, y=1, Free", [this] { click(9, 1); }},
        {"New element #3, Node i: #4, Node j: #3, E,A,I Group: #1, P2 Type (further lines: 1)",
         [this] { dragModel(2, 2, 6, 0); }},
        {"* Node #2, x=3, y=0, Constraints: xoo", [this] { doubleClick(3, 0); }},
        {"* Node #1, x=0, y=0, Free", [this] { doubleClick(0, 0); }},
        {"* Node #4, x=8, y=4, Constraints: xoo (further lines: 1)", [this] { doubleClick(8, 4); }},
        {"* Node #2, x=3, y=0, Constraints: oox", fromMenu(3, 0, "HoldRotation")},
        {"Node deleted: #2. Nodes renumbered: #3. (further lines: 2)",
         fromMenu(3, 0, "DeleteNode")},
        {"* Element #1, Node i: #1, Node j: #2, E,A,I Group: #1, P1 Type: Hinges at both ends "
         "i,j",
         fromMenu(1, 0, "HingeBothEnds")},
        {"* Element #2, Node i: #2, Node j: #3, E,A,I Group: #1, P1 Type: Hinges at both ends "
         "i,j (further lines: 1)",
         fromMenu(1, 0, "HingeGroup")},
        {"New load on element #2, Fy= -2", fromMenu(1, 0, "ShareLoads")},
        {"New group #2, E= 5, A= 6, I= 7", in("EAI", "Text1=5 Text2=6 Text3=7 SSCommand3")},
        {"New node #4, x=1, y=7, Constraints: xoo, Ky= 8",
         in("Komboi", "Text2=1 Text3=7 SSCheck1=x TextKY=8 SSCommand3")},
        {"* Node #2, x=3, y=5, Free", in("Komboi", "Combo1=2 SSCommand3 Text3=5 SSCommand3")},
        {"Node deleted: #2. Nodes renumbered: #3. (further lines: 2)",
         in("Komboi", "Combo1=2 SSCommand2 SSCommand2")},
        {"New element #3, Node i: #1, Node j: #3, E,A,I Group: #1, P2 Type",
         in("Stoixeia", "Combo3=1 Combo4=3 SSCommand3")},
        {"Element deleted: #1. Elements renumbered: #2.",
         in("Stoixeia", "Combo1=1 SSCommand2 SSCommand2")},
        {"New loads on node #1, Fx= 4", in("Epikombia", "Text1=4 SSCommand3")},
        {"* Loads on element #1, Fy= -3", in("Omoiomorfa", "Text2=-3 SSCommand3")},
        {"Loads deleted on element #1", in("Omoiomorfa", "SSCommand2")},
        {"Moved nodes: #1 to #3, dx=1, dy=2",
         in("mnuMETAKINISIKOMBONitem", "Combo2=3 Text1=1 Text2=2 SSCommand3")},
        {"Node # 1 moved to the middle of segment A\u0392. (further lines: 3)",
         in("mnuSIGXONEFSIitem", "Combo2=2 Check2=x SSCommand3")},
        {"Elements divided: #1 to #2 into 3 segments each.",
         in("mnuDIAIRESIitem", "Combo2=2 Text1=3 SSCommand3")},
        {"New node #6, x=-5, y=6.123234E-16, Free (further lines: 4)",
         in("mnuKYKLIKOitem", "Text3=5 Text5=-5 Text7=2 SSCommand3")},
    };
    for (const auto &[line, act] : actions) {
        SCOPED_TRACE(line);
        buildModel(frame);
        const std::string before = bytes();
        act();
        const std::string after = bytes();
        EXPECT_TRUE(after != before);
        for (const auto &[command, leads, says] :
             {std::tuple{"mnuUNDOitem", before, std::string("Undo: ") + line},
              {"mnuUNDOitem", before, "There is nothing to undo."},
              {"mnuREDOitem", after, std::string("Redo: ") + line},
              {"mnuREDOitem", after, "There is nothing to redo."}}) {
            trigger(command);
            EXPECT_TRUE(bytes() == leads) << says;
            EXPECT_EQ(log().last().toStdString(), " " + says);
        }
        EXPECT_EQ(panel("Label1"), "There is nothing to redo.");
    }
}

TEST_F(Undo, ThatOfAnAnalysedModelMakesItsResultsCurrentAgain)
{
    buildModel(std::string(frame) + "N 9 9; N 9 8");
    const std::string before = bytes();
    qtDesktop->asksItself = true;
    answered([this] { trigger("Epilisi"); }, // asks twice and deletes a node each time
             [](QWidget &box) {
                 QTest::mouseClick(dynamic_cast<QMessageBox &>(box).button(QMessageBox::Yes),
                                   Qt::LeftButton);
             });
    EXPECT_FALSE(Allagi_Montelou);
    trigger("mnuUNDOitem");
    EXPECT_TRUE(bytes() == before);
    EXPECT_TRUE(Allagi_Montelou);
    trigger("mnuREDOitem");
    EXPECT_FALSE(Allagi_Montelou);
}

TEST_F(Undo, TheStepsEndWithTheirModel)
{
    write(path("m.vsk"), small);
    write(path("broken.vsk"), small.substr(0, 190));
    write(path("other.vsk"), std::string(small).replace(small.find("VESK!"), 5, "OTHER"));
    for (const auto &[file, ends] :
         {std::pair{"", true}, {"m.vsk", true}, {"broken.vsk", true}, {"other.vsk", false}}) {
        SCOPED_TRACE(file);
        buildModel(frame);
        const std::string before = bytes();
        click(9, 1);
        desktop.answerAnything = [] { return Answer::no; };
        if (*file != 0)
            desktop.expectFileDialog(path(file));
        trigger(*file != 0 ? "mnuANAGNOSIitem" : "mnuNEOitem");
        const std::string opened = bytes();
        trigger("mnuUNDOitem");
        EXPECT_TRUE(bytes() == (ends ? opened : before));
    }
}

TEST_F(Undo, GoesFromAnOpenDialogButNotFromItsFields)
{
    buildModel(frame);
    const auto press = [](const QWidget &dialog, const char *control, Qt::Key key) {
        auto *focus = dialog.findChild<QWidget *>(control);
        focus->setFocus();
        QTest::keyClick(focus, key, Qt::ControlModifier);
    };
    const auto shown = [](const QWidget &dialog) {
        return dialog.findChild<QComboBox *>("Combo1")->currentText().toStdString();
    };
    answered([this] { trigger("Komboi"); },
             [&](QWidget &dialog) {
                 for (const char *x : {"7", "8"})
                     fill(dialog, QString("Text2=%1 SSCommand3").arg(x));
                 for (const auto &[control, key, number] : {std::tuple{"Text2", Qt::Key_Z, "6"},
                                                            {"Text2", Qt::Key_Y, "6"},
                                                            {"SSCheck1", Qt::Key_Z, "5"},
                                                            {"SSCommand3", Qt::Key_Z, "4"},
                                                            {"SSCommand3", Qt::Key_Y, "5"}}) {
                     press(dialog, control, key);
                     EXPECT_EQ(shown(dialog), number) << control;
                 }
                 dialog.close();
             });
    buildModel("");
    click(2, 2);
    answered([this] { trigger("Epikombia"); },
             [&](QWidget &dialog) {
                 press(dialog, "List1", Qt::Key_Z);
                 EXPECT_FALSE(dialog.isVisible()) << "it has no row left to show";
                 dialog.close();
             });
    EXPECT_EQ(Arithmos_Kombon, 0);
}

TEST_F(Undo, WaitsForTheEndOfADragThatOpenedADialog)
{
    buildModel("N 0 0; N 3 0");
    const std::string before = bytes();
    desktop.answerAnything = [] { return Answer::yes; }; // to the main group
    answered([this] { dragModel(0, 0, 3, 0); },
             [this](QWidget &dialog) {
                 fill(dialog, "Text1=5 Text2=6 Text3=7 SSCommand3");
                 QTest::keyClick(&dialog, Qt::Key_Z, Qt::ControlModifier);
                 EXPECT_EQ(panel("Label1"),
                           "This can be done when the action that goes on has ended.");
                 dialog.close();
             });
    EXPECT_EQ(Arithmos_Stoixeion, 1);
    trigger("mnuUNDOitem");
    EXPECT_TRUE(bytes() == before);
}

} // namespace
} // namespace veskora
