// Undo and redo of each kind of action, through the real window.

#include "Fault.h"
#include "MainWindowTest.h"
#include "Models.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <array>
#include <functional>
#include <random>

namespace veskora {
namespace {

/// What a run of the actions has to bring back, byte for byte.
std::string bytes()
{
    std::string all;
    const auto append = [&all](const auto &table) {
        all.append(reinterpret_cast<const char *>(&table), sizeof table);
    };
    append(Arithmos_Kombon);
    append(Arithmos_Stoixeion);
    append(Arithmos_Omadon);
    append(Komboi);
    append(Elatiria);
    append(Omades);
    append(Stoixeia);
    return all;
}

class Undo : public MainWindow
{
protected:
    Undo()
    {
        start();
        window->resize(1200, 900);
        QCoreApplication::processEvents();
    }

    void dragModel(double x1, double y1, double x2, double y2)
    {
        mouse(QEvent::MouseMove, Qt::NoButton, Kosmos_X(x1), Kosmos_Y(y1));
        drag(Kosmos_X(x1), Kosmos_Y(y1), Kosmos_X(x2), Kosmos_Y(y2));
    }
    void doubleClick(double x, double y)
    {
        dragModel(x, y, x, y);
        mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, Kosmos_X(x), Kosmos_Y(y));
        mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Kosmos_X(x), Kosmos_Y(y));
    }
    /// Talks to the dialog that @p command opens, if it does, from inside its event loop.
    void inDialog(const char *command, const std::function<void(QWidget &)> &talk)
    {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            timer.stop();
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            talk(*dialog);
            dialog->close();
        });
        timer.start(0);
        trigger(command);
    }
    /// "Field=text Field=text" in a dialog, where a check box takes "x" or "o".
    static void fill(const QWidget &dialog, const QString &entries)
    {
        for (const QString &entry : entries.split(' ', Qt::SkipEmptyParts)) {
            const QString name = entry.section('=', 0, 0), text = entry.section('=', 1);
            if (auto *list = dialog.findChild<QComboBox *>(name))
                list->setEditText(text);
            else if (auto *check = dialog.findChild<QCheckBox *>(name))
                check->setChecked(text == "x");
            else
                dialog.findChild<QLineEdit *>(name)->setText(text);
        }
    }
    static void press(const QWidget &dialog, const char *button)
    {
        QTest::mouseClick(dialog.findChild<QAbstractButton *>(button), Qt::LeftButton);
    }
    /// An action in a dialog: a row that is there is shown by the first press.
    std::function<void()> applied(const char *command, const char *entries,
                                  const char *button = "SSCommand3", const char *row = nullptr)
    {
        return [=, this] {
            inDialog(command, [=](QWidget &dialog) {
                if (row != nullptr) {
                    fill(dialog, row);
                    press(dialog, button);
                }
                fill(dialog, entries);
                press(dialog, button);
            });
        };
    }
    void answer(Answer first, Answer then = Answer::ok)
    {
        desktop.answerAnything = [=, next = first]() mutable { return std::exchange(next, then); };
    }

    struct Action
    {
        const char *name; ///< what the log says was undone
        std::function<void()> act;
    };
    std::vector<Action> actions()
    {
        return {
            {"New node #4, x=9, y=1, Free", [this] { dragModel(9, 1, 9, 1); }},
            {"New element #3, Node i: #4, Node j: #3, E,A,I Group: #1, P2 Type (further lines: 1)",
             [this] { dragModel(2, 2, 6, 0); }},
            {"* Node #2, Constraints: xoo", [this] { doubleClick(3, 0); }},
            {"* Node #1, Free", [this] { doubleClick(0, 0); }},
            {"New node #4, x=8, y=4, Free", [this] { doubleClick(8, 4); }},
            {"New group #2, E= 5, A= 6, I= 7", applied("EAI", "Text1=5 Text2=6 Text3=7")},
            {"New node #4, x=1, y=7, Constraints: xoo, Ky= 8",
             applied("Komboi", "Text2=1 Text3=7 SSCheck1=x TextKY=8")},
            {"* Node #2, x=3, y=5, Free", applied("Komboi", "Text3=5", "SSCommand3", "Combo1=2")},
            {"Node deleted: #2. Nodes renumbered: #3. (further lines: 2)",
             applied("Komboi", "", "SSCommand2", "Combo1=2")},
            {"New element #3, Node i: #1, Node j: #3, E,A,I Group: #1, P2 Type",
             applied("Stoixeia", "Combo3=1 Combo4=3")},
            {"Element deleted: #1. Elements renumbered: #2.",
             applied("Stoixeia", "", "SSCommand2", "Combo1=1")},
            {"New loads on node #1, Fx= 4", applied("Epikombia", "Text1=4")},
            {"* Loads on element #1, Fy= -3", applied("Omoiomorfa", "Text2=-3")},
            {"Loads deleted on element #1", applied("Omoiomorfa", "", "SSCommand2")},
            {"Moved nodes: #1 to #3, dx=1, dy=2",
             applied("mnuMETAKINISIKOMBONitem", "Combo2=3 Text1=1 Text2=2")},
            {"Node # 1 moved to the middle of segment A\u0392. (further lines: 3)",
             applied("mnuSIGXONEFSIitem", "Combo2=2 Check2=x")},
            {"Elements divided: #1 to #2 into 3 segments each.",
             applied("mnuDIAIRESIitem", "Combo2=2 Text1=3")},
            {"New node #7, x=-9.18485E-16, y=-5, Free (further lines: 7)",
             applied("mnuKYKLIKOitem", "Text3=5 Text5=5 Text7=4")},
        };
    }

    const char *const frame = "G 1 2 3; N 0 0 xxx; N 3 0; N 6 0; E 1 2 1 0 0 0 -2; E 2 3 1;";
};

TEST_F(Undo, EachKindOfActionIsOneStepThatGoesBackAndForth)
{
    for (const auto &[line, act] : actions()) {
        SCOPED_TRACE(line);
        buildModel(frame);
        answer(Answer::ok);
        const std::string before = bytes();
        act();
        const std::string after = bytes();
        EXPECT_TRUE(after != before);
        trigger("mnuUNDOitem");
        EXPECT_TRUE(bytes() == before);
        EXPECT_EQ(log().last().toStdString(), std::string(" Undo: ") + line);
        trigger("mnuREDOitem");
        EXPECT_TRUE(bytes() == after);
        EXPECT_EQ(log().last().toStdString(), std::string(" Redo: ") + line);
        for (const auto &[command, says] : {std::pair{"mnuREDOitem", "There is nothing to redo."},
                                            {"mnuUNDOitem", nullptr},
                                            {"mnuUNDOitem", "There is nothing to undo."}}) {
            trigger(command);
            if (says != nullptr) {
                EXPECT_EQ(log().last().toStdString(), std::string(" ") + says);
                EXPECT_EQ(panel("Label1"), says);
            }
        }
        EXPECT_TRUE(bytes() == before);
    }
}

TEST_F(Undo, ThatOfAnAnalysedModelMakesItsResultsCurrentAgain)
{
    buildModel(std::string(frame) + "N 9 9; N 9 8");
    const std::string before = bytes();
    qtDesktop->asksItself = true; // boxes come on the screen, and end by a press
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [] {
        if (const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
            QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    timer.start(0);
    trigger("Epilisi"); // deletes one free node, asks once more, deletes the other
    timer.stop();
    qtDesktop->asksItself = false;
    EXPECT_EQ(Arithmos_Kombon, 3);
    EXPECT_FALSE(Allagi_Montelou);
    trigger("mnuUNDOitem");
    EXPECT_TRUE(bytes() == before);
    EXPECT_TRUE(Allagi_Montelou);
    trigger("mnuREDOitem");
    EXPECT_FALSE(Allagi_Montelou);
    trigger("M"); // asks nothing
}

TEST_F(Undo, TheStepsEndWithTheirModel)
{
    write(path("m.vsk"), small);
    write(path("broken.vsk"), small.substr(0, 190));
    write(path("other.vsk"), std::string(small).replace(small.find("VESK!"), 5, "OTHER"));
    struct Case
    {
        const char *command, *file;
        bool ends;
    };
    for (const auto &[command, file, ends] : {Case{"mnuNEOitem", "", true},
                                              {"mnuANAGNOSIitem", "m.vsk", true},
                                              {"mnuANAGNOSIitem", "broken.vsk", true},
                                              {"mnuANAGNOSIitem", "other.vsk", false},
                                              {"mnuANAGNOSIitem", "", false}}) {
        SCOPED_TRACE(file);
        buildModel(frame);
        const std::string before = bytes();
        dragModel(9, 1, 9, 1);
        answer(Answer::no);
        if (command == std::string("mnuANAGNOSIitem"))
            desktop.expectFileDialog(*file != 0 ? std::optional(path(file)) : std::nullopt);
        trigger(command);
        const std::string opened = bytes();
        trigger("mnuUNDOitem");
        EXPECT_TRUE(bytes() == (ends ? opened : before));
    }
}

TEST_F(Undo, GoesFromAnOpenDialogButNotFromItsFields)
{
    buildModel(frame);
    inDialog("Epikombia", [&](const QWidget &dialog) {
        for (const char *row : {"Combo1=1 Text1=5", "Combo1=2 Text1=6"}) {
            fill(dialog, QString(row).section(' ', 0, 0));
            press(dialog, "SSCommand3"); // shows the row
            fill(dialog, QString(row).section(' ', 1));
            press(dialog, "SSCommand3");
        }
        const auto undo = [&](const char *control) {
            auto *focus = dialog.findChild<QWidget *>(control);
            focus->setFocus();
            QTest::keyClick(focus, Qt::Key_Z, Qt::ControlModifier);
        };
        undo("Text1");
        EXPECT_EQ(Komboi(2, node::Fx), 6);
        for (const char *control : {"SSCommand3", "List1"}) {
            undo(control);
            const auto *shown = dialog.findChild<QLineEdit *>("Text1");
            const int row = control == std::string("List1") ? 1 : 2;
            EXPECT_EQ(Komboi(row, node::Fx), 0) << control;
            if (row == 2) {
                EXPECT_EQ(shown->text(), "");
            }
        }
        EXPECT_EQ(dialog.findChild<QLineEdit *>("Text1")->text(), "");
    });
    const auto gone = [this](const char *command, const char *text, const char *button) {
        inDialog(command, [text, button](const QWidget &dialog) {
            QTest::keyClick(dialog.findChild<QWidget *>(button), Qt::Key_Y, Qt::ControlModifier);
            EXPECT_EQ(dialog.findChild<QComboBox *>("Combo1")->currentText(), text);
        });
    };
    gone("Komboi", "4", "SSCommand3");
}

TEST_F(Undo, ARefusedKeyOfADialogThatADragOpenedSaysWhy)
{
    buildModel("N 0 0; N 3 0");
    answer(Answer::yes); // to the main group
    QTimer::singleShot(0, window.get(), [this] {
        QWidget *dialog = QApplication::activeModalWidget();
        fill(*dialog, "Text1=5 Text2=6 Text3=7");
        press(*dialog, "SSCommand3");
        QTest::keyClick(dialog->findChild<QWidget *>("SSCommand3"), Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(panel("Label1"), "This can be done when the action that goes on has ended.");
        dialog->close();
    });
    const std::string before = bytes();
    dragModel(0, 0, 3, 0);
    EXPECT_EQ(Arithmos_Stoixeion, 1);
    trigger("mnuUNDOitem"); // the group with the element
    EXPECT_TRUE(bytes() == before);
}

/// VESKORA_ACTIONS says how many, in a longer run than that of every day.
TEST_F(Undo, AMonkeyFindsEveryStepAgain)
{
    std::mt19937 random(7);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution(low, high)(random);
    };
    buildModel(frame);
    desktop.answerAnything = [&] {
        constexpr std::array answers = {Answer::ok, Answer::yes, Answer::no, Answer::cancel};
        return Arithmos_Omadon == 0 ? Answer::no : answers.at(static_cast<std::size_t>(pick(0, 3)));
    };
    const auto all = actions();
    std::vector<std::string> states = {bytes()};
    std::size_t now = 0, analysed = states.max_size();
    int undone = 0;
    const char *count = std::getenv("VESKORA_ACTIONS");
    for (int i = 0; i < (count != nullptr ? std::atoi(count) : 250); ++i) {
        const int kind = pick(0, 9);
        if (kind < 3) {
            const bool back = pick(0, 2) > 0;
            if (back ? now > 0 : now + 1 < states.size()) {
                now += back ? -1 : 1;
                ++undone;
                trigger(back ? "mnuUNDOitem" : "mnuREDOitem");
                ASSERT_EQ(Allagi_Montelou, now != analysed) << i;
            } else {
                trigger(back ? "mnuUNDOitem" : "mnuREDOitem");
            }
            ASSERT_TRUE(bytes() == states[now]) << i;
            continue;
        }
        if (kind == 3)
            try {
                trigger("Epilisi");
            } catch (const Fault &) {
                Allagi_Montelou = true; // an element without length
            }
        else if (kind < 6)
            dragModel(pick(0, 9), pick(0, 9), pick(0, 9), pick(0, 9));
        else
            all.at(static_cast<std::size_t>(pick(0, static_cast<int>(all.size()) - 1))).act();
        if (bytes() != states[now]) {
            states.resize(++now);
            states.push_back(bytes());
            if (analysed != states.max_size() && analysed >= now)
                analysed = states.max_size();
        }
        if (!Allagi_Montelou)
            analysed = now;
    }
    EXPECT_GT(undone, 40);
    EXPECT_GT(states.size(), 20U);
}

} // namespace
} // namespace veskora
