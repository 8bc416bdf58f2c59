// Undo and redo of each kind of action, through the real window.

#include "Gestures.h"
#include "History.h"

#include <QMessageBox>

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

class Undo : public Gestures
{
protected:
    const char *const frame = "G 1 2 3; N 0 0 xxx; N 3 0; N 6 0; E 1 2 1 0 0 0 -2; E 2 3 1;";
};

TEST_F(Undo, EachKindOfActionIsOneStepThatGoesBackAndForth)
{
    desktop.answerAnything = [] { return Answer::ok; };
    for (const auto &[given, line] : dataCases("actions.txt")) {
        SCOPED_TRACE(given);
        const std::size_t bar = given.find(" | ");
        buildModel(bar == std::string::npos ? frame : given.substr(0, bar));
        const std::string before = bytes();
        act(bar == std::string::npos ? given : given.substr(bar + 3));
        const std::string after = bytes();
        EXPECT_TRUE(after != before);
        for (const auto &[command, leads, says] :
             {std::tuple{"mnuUNDOitem", before, "Undo: " + line},
              {"mnuUNDOitem", before, "There is nothing to undo."},
              {"mnuREDOitem", after, "Redo: " + line},
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
                     fill(dialog, {"Text2=" + QString(x), "SSCommand3"});
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
                 fill(dialog, {"Text1=5", "Text2=6", "Text3=7", "SSCommand3"});
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
