// The model dialogs on the offscreen platform: opened as the program opens them, controls found by
// name, keys typed, boxes answered by a script.

#include "CoincidenceChecks.h"
#include "Forms.h"
#include "frmDiairesi.h"
#include "frmEPIKOMBIO.h"
#include "frmKomboi.h"
#include "frmKykliko.h"
#include "frmMETAKINISI.h"
#include "frmOmades.h"
#include "frmOMOIOMORFO.h"
#include "frmSigxonefsi.h"
#include "frmStoixeia.h"
#include "MainWindowTest.h"
#include "Models.h"
#include "ModelText.h"

#include <QClipboard>
#include <QScreen>
#include <QScrollArea>
#include <QSignalSpy>

#include <map>
#include <sstream>

namespace veskora {
namespace {

using testing::Contains;
using testing::ElementsAre;

class Dialogs : public StoreTest, protected Forms
{
protected:
    /// What is done in a form, and what these of its controls show then.
    struct Step
    {
        const char *acts, *controls, *show;
        std::string says = {}; ///< a box that comes
    };
    using In = void (Dialogs::*)(int row, const std::function<void()> &talk);

    /// On @p row; 0 is a new one, where the form has rows.
    template <typename Form>
    void in(int row, const std::function<void()> &talk)
    {
        Form dialog;
        Allagi_Montelou = false;
        const auto open = [&] {
            if constexpr (!requires { dialog.openRow(row); })
                dialog.exec();
            else if (row > 0)
                dialog.openRow(row);
            else if constexpr (requires { dialog.openNew(); })
                dialog.openNew();
            else
                dialog.openFirst();
        };
        during(open, [&] {
            EXPECT_EQ(form->windowModality(), Qt::WindowModal);
            talk();
        });
    }
    template <typename Form>
    void in(int row, std::initializer_list<Step> steps)
    {
        in<Form>(row, [&] {
            for (const Step &step : steps)
                does(step);
        });
    }
    void does(const Step &step)
    {
        SCOPED_TRACE(step.acts);
        if (!step.says.empty())
            desktop.expectMessage(step.says);
        act(step.acts);
        EXPECT_EQ(shownIn(step.controls), step.show);
    }
    /// The form is filled and applied, and nothing changes.
    void expectRefusal(In fill, const std::string &acts, const std::string &focus,
                       const std::string &says)
    {
        const std::string before = model();
        desktop.log.clear();
        desktop.events.clear();
        desktop.expectMessage(says);
        (this->*fill)(0, [&] {
            act(acts + " SSCommand3");
            EXPECT_TRUE(form->isVisible());
            EXPECT_EQ(valueOf("focus"), focus);
            EXPECT_EQ(line(focus)->selectedText(), line(focus)->text());
        });
        EXPECT_THAT(logged(), ElementsAre("red " + says));
        EXPECT_FALSE(Allagi_Montelou);
        EXPECT_EQ(redraws(), 0);
        EXPECT_EQ(model(), before);
    }

    /// The whole model, as its file.
    std::string model() { return modelText(); }
    std::string modelOf(const std::string &text)
    {
        buildModel(text);
        return model();
    }
    /// What was logged since the last call, after its colour where that is not the usual one.
    std::vector<std::string> logged()
    {
        const std::map<std::uint32_t, const char *> colours = {
            {8388608, ""}, {32768, "green "}, {255, "red "}};
        std::vector<std::string> lines;
        for (const LogLine &entry : std::exchange(desktop.log, {}))
            lines.push_back((entry.bold ? "bold " : "") + std::string(colours.at(entry.colour))
                            + entry.text);
        return lines;
    }
    int redraws() const
    {
        return static_cast<int>(std::ranges::count(desktop.events, std::string("redraw")));
    }

    QtDesktop resources; ///< for the pictures
};

// Group, four nodes, three elements, loads: with the keyboard alone, Enter after each field.
TEST_F(Dialogs, BuildAPortalByKeyboard)
{
    const std::string portal = modelOf("G 2.1e8 0.01 1e-4; N 0 0 xxx; N 0 4 ooo 10; N 6 4;"
                                       "N 6 0 xxo; S 4 0 0 1500; E 1 2 1; E 2 3 1 0 0 0 -12.5;"
                                       "E 4 3 1 0 1");
    resetStore();
    in<frmOmades>(0,
                  {{"", "Combo1 Label7", "1|(New)"},
                   {"Text1=2.1e8! Text2=,01! Text3=0.0001!", "Combo1 Label7 Text1", "2|(New)|"}});
    EXPECT_TRUE(Allagi_Montelou);
    EXPECT_EQ(redraws(), 1);
    in<frmKomboi>(0, [&] {
        does({"SSCheck1=x SSCheck2=x ssCheck3=x Text2=! Text3=!", "Combo1 Label7 SSCheck1",
              "2|(New)|o"});
        act("Text2=0! Text3=4!  Text2=6! Text3=4! SSCheck1=x SSCheck2=x TextKZ=1.5E3 Text2=6!");
        act("@Text3 [Enter]");
    });
    in<frmStoixeia>(0, {{"", "focus", "Combo3"}, // the group stands already
                        {"Combo3=1! Combo4=2!  Combo3=2! Combo4=3!  ssCheck6=x Combo3=4! Combo4=3!",
                         "Combo1 Combo2 Combo3 Combo4 ssCheck6", "4|1|||o"}});
    in<frmEPIKOMBIO>(1, {{"Combo1=2! Text1=10! Text2=! Text3=!", "", ""}});
    in<frmOMOIOMORFO>(2, {{"Text1=! Text2=-12,5!", "", ""}});

    EXPECT_EQ(model(), portal);
    EXPECT_THAT(logged(), Contains("New element #3, Node i: #4, Node j: #3, E,A,I Group: #1, P2' "
                                   "Type: Hinge at end j"));
}

TEST_F(Dialogs, RefuseInTheirOrderAndStoreNothing)
{
    const std::map<QString, In> forms = {{"frmOmades", &Dialogs::in<frmOmades>},
                                         {"frmKomboi", &Dialogs::in<frmKomboi>},
                                         {"frmStoixeia", &Dialogs::in<frmStoixeia>},
                                         {"frmEPIKOMBIO", &Dialogs::in<frmEPIKOMBIO>},
                                         {"frmMETAKINISI", &Dialogs::in<frmMETAKINISI>},
                                         {"frmSigxonefsi", &Dialogs::in<frmSigxonefsi>},
                                         {"frmDiairesi", &Dialogs::in<frmDiairesi>},
                                         {"frmKykliko", &Dialogs::in<frmKykliko>}};
    QString name;
    for (const QStringList &cells : rowsOf(contentOf(TEST_DATA "/form_refusals.txt"))) {
        const QString row = cells.join(" | "), argument = row.section(' ', 1);
        SCOPED_TRACE((name + ": " + row).toStdString());
        if (row.startsWith("model "))
            buildModel(argument.toStdString());
        else if (row.startsWith("elements "))
            while (Arithmos_Stoixeion < argument.toInt())
                putElement(1, 2);
        else if (forms.contains(row))
            name = row;
        else
            expectRefusal(forms.at(name), cells.at(0).toStdString(), cells.at(1).toStdString(),
                          QString(cells.at(2)).replace("\\r\\n", "\r\n").toStdString());
    }
}

// What a double, a Single and the kept own place of a node make of limits.
TEST_F(Dialogs, ChangeRowsAndWalkOnToTheNext)
{
    buildModel("G 1 1 1; G 2 2 2; N 0 0 oxo; N 1 1; N 2 2; E 1 2 1 0 0 7 8; E 2 3 2");
    in<frmKomboi>(1, {{"", "Combo1 Label7 Text2 Text3 SSCheck1 SSCheck2", "1|(Existing)|0|0|o|x"},
                      {"SSCommand3", "Combo1 Text2", "2|1"},
                      {"Text2=1.23456789 TextKY=1e-60 TextKX=2 TextKZ=3 SSCommand3 SSCommand3",
                       "Combo1 Label7 Text2 focus", "4|(New)||Text2"},
                      {"Combo1=150 Text2=4", "Label7", "(New)"},
                      {"SSCommand3", "Combo1", "5"}});
    EXPECT_THAT(logged(), ElementsAre("* Node #1, x=0, y=0, Constraints: oxo",
                                      "* Node #2, x=1.234568, y=1, Free, Kx= 2, Kz= 3",
                                      "* Node #3, x=2, y=2, Free", "New node #4, x=4, y=0, Free"));
    in<frmOmades>(2, {{"Text1=1.23456789012 SSCommand3 Combo1=1! Text3=1e-300 SSCommand3",
                       "Combo1 Text1", "2|1.23456789012"}});
    EXPECT_THAT(logged(), ElementsAre("* Group #2, E= 1.23456789012, A= 2, I= 2",
                                      "* Group #1, E= 1, A= 1, I= 1E-300"));
    const char *shown = "Combo1 Combo2 Combo3 Combo4 ssCheck3";
    in<frmStoixeia>(
        1, {{"", "Text1 Text4", "E= 1, A= 1, I= 1E-300|(0, 0) - (1.234568, 1), L= 1.58876"},
            {"ssCheck3=x ssCheck6=x Combo3=3 SSCommand3", shown, "2|2|2|3|o"},
            {"ssCheck3=x Combo4=1!", shown, "3|2|||o"},
            {"Combo3=2 Combo4=1 SSCommand3", "Combo1", "4"}}); // a second one on the same nodes
    EXPECT_THAT(logged(),
                ElementsAre("* Element #1, Node i: #3, Node j: #2, E,A,I Group: #1, P1 Type: "
                            "Hinges at both ends i,j",
                            "* Element #2, Node i: #2, Node j: #1, E,A,I Group: #2, P2' Type: "
                            "Hinge at end i",
                            "New element #3, Node i: #2, Node j: #1, E,A,I Group: #2, P2 Type"));
    EXPECT_EQ(Stoixeia(1, element::wy), 8);

    // Full tables: the list offers one number more, and Apply refuses it.
    buildModel("");
    for (int n = 1; n <= maxNodes; ++n)
        putNode(n, 0);
    in<frmKomboi>(0, [&] {
        EXPECT_EQ(control<QComboBox>("Combo1")->count(), 201);
        does({"SSCommand3", "", "", "The maximum number of nodes that can be defined is 200."});
        act("Combo1=200! Text3=5!");
    });
    EXPECT_EQ(Komboi(200, node::y), 5);
    EXPECT_EQ(Arithmos_Kombon, 200);
}

TEST_F(Dialogs, DeleteAndRenumber)
{
    const std::string before = modelOf("G 1 1 1; G 2 2 2; G 3 3 3; N 0 0 xxx; N 1 0 ooo 5; N 2 0;"
                                       "N 3 0 xxo; S 3 1 0 0; E 1 2 2; E 2 3 3 0 0 0 9; E 3 4 2");
    const std::string connected =
        "There are elements connected to the node, that must also be deleted.";
    const std::string question = connected + "\r\nDo you want the deletion process to proceed?";
    const std::string inUse =
        "Group # 2 cannot be deleted since there are elements belonging to it.";
    in<frmOmades>(0, {{"Combo1=9! SSCommand2", "", "", "There is no Group # 9 to delete."},
                      {"Combo1=2! SSCommand2", "", "", inUse}});
    in<frmStoixeia>(
        0, {{"Combo1=no! SSCommand2", "", "", "Element does not exist to be deleted #0."}});
    in<frmKomboi>(2, [&] {
        desktop.expectMessage(question, Icon::exclamation, Answer::cancel);
        does({"SSCommand2", "Combo1", "2"});
        does({"Combo1=7.5 SSCommand2", "Combo1 Label7 Text2", "7.5|(New)|",
              "There is no node to be deleted #7.5."});
    });
    EXPECT_THAT(logged(),
                ElementsAre("red There is no Group # 9 to delete.", "red " + inUse,
                            "red Element does not exist to be deleted #0.", "red " + connected,
                            "red There is no node to be deleted #7.5."));
    EXPECT_EQ(model(), before);
    EXPECT_EQ(redraws(), 0);

    in<frmOmades>(1, {{"SSCommand2", "Combo1 Label7 Text1", "3|(New)|"}});
    in<frmKomboi>(2, {{"SSCommand2", "Combo1 Label7 Text2", "4|(New)|", question},
                      {"Combo1=1! SSCommand2", "", ""}}); // nothing is attached any more
    EXPECT_EQ(model(), modelOf("G 2 2 2; G 3 3 3; N 2 0; N 3 0 xxo; S 1 1 0 0; E 1 2 1"));
    in<frmStoixeia>(1, {{"SSCommand2", "", ""}});
    EXPECT_TRUE(Allagi_Montelou);
    EXPECT_THAT(logged(), ElementsAre("green Group deleted: #1. Groups renumbered: #2 to # 3.",
                                      "red " + connected,
                                      "green Element deleted: #1. Elements renumbered: #2 to # 3.",
                                      "green Element deleted: #1. Elements renumbered: #2.",
                                      "green Node deleted: #2. Nodes renumbered: #3 to # 4.",
                                      "green Node deleted: #1. Nodes renumbered: #2 to # 3.",
                                      "green Element deleted: #1."));
}

TEST_F(Dialogs, EditTheLoadsOfRows)
{
    buildModel("G 1 1 1; N 0 0 ooo 1 2 3; N 1 0; N 2 0; E 1 2 1; E 2 3 1 0 0 0 -4.5");
    const char *fields = "Combo1 Text1 Text2 Text3 Label4 List1";
    in<frmEPIKOMBIO>(0, [&] {
        does({"", fields, "1|1|2|3|Nodes with loads on: 1|1"});
        does({"Combo1=3! Text2=-7.5 Text3=1e-60 SSCommand3", fields,
              "3||-7.5||Nodes with loads on: 2|1 3"});
        control<QListWidget>("List1")->setCurrentRow(0);
        does({"", "Combo1 Text1", "1|1"});
        does({"Text1=0 Text2=,5 SSCommand3 Text2= Text3=0 SSCommand3", "Label4 List1",
              "Nodes with loads on: 1|3"});
        Allagi_Montelou = false;
        desktop.events.clear();
        act("SSCommand3"); // nothing over nothing
        EXPECT_TRUE(Allagi_Montelou);
        EXPECT_EQ(redraws(), 1);
        // An emptied list stands for the row that is loaded.
        does({"Combo1=2! Combo1= SSCommand2", "", "", "There is no load to delete on node #2."});
        does({"Combo1=3! SSCommand2", "Combo1 Text2 Label4 List1", "3||Nodes with loads on: 0|"});
    });
    in<frmOMOIOMORFO>(2, [&] {
        does({"", "Combo1 Text1 Text2", "2||-4.5"});
        desktop.expectMessage("Elemental loads must be given as force / length of the element. "
                              "Directions x and y refer to system's global axes.",
                              Icon::information);
        act("Text1=2 SSCommand3 SSCommand1 SSCommand2");
        does({"SSCommand2", "Label4 List1", "Elements with loads on: 0|",
              "There is no load to be deleted on element #2."});
    });
    EXPECT_THAT(logged(),
                ElementsAre("New loads on node #3, Fy= -7.5", "* Loads on node #1, Fy= 0.5, M= 3",
                            "Loads deleted on node #1",
                            "red There is no load to delete on node #2.",
                            "Loads deleted on node #3", "* Loads on element #2, Fx= 2, Fy= -4.5",
                            "Loads deleted on element #2",
                            "red There is no load to be deleted on element #2."));
    EXPECT_EQ(model(), modelOf("G 1 1 1; N 0 0; N 1 0; N 2 0; E 1 2 1; E 2 3 1"));
}

TEST_F(Dialogs, ADirectionHasAConstraintOrASpring)
{
    buildModel("N 0 0 xoo; S 1 5 -6 7");
    in<frmKomboi>(1, [&] {
        const char *all = "SSCheck1 SSCheck2 ssCheck3 TextKX TextKY TextKZ";
        QApplication::clipboard()->setText("1e-60"); // no spring as a Single
        does({"", all, "x|o|o|5||7"});               // a row with both shows both
        act("TextKX=.0 TextKX=-3");
        line("TextKX")->selectAll();
        line("TextKX")->paste();
        does({"", all, "x|o|o|1e-60||7"});
        does({"TextKX=,2", all, "o|o|o|.2||7"});
        does({"ssCheck3", all, "o|o|x|.2||"});
        act("ssCheck3 TextKY=8 TextKZ=9"); // taken away again, nothing comes back

        std::vector<QImage> images;
        for (const char *codes : {"o|o|o|.2|8|9", "x|o|o||8|9", "o|x|o|||9", "o|o|x|||", "x|x|o|||",
                                  "x|o|x|||", "o|x|x|||", "x|x|x|||"}) {
            does({"", all, codes});
            const auto *picture = control<QAbstractButton>("Image1");
            images.push_back(picture->icon().pixmap(64).toImage());
            EXPECT_TRUE(picture->accessibleName().endsWith(
                QString::fromStdString(shownIn("SSCheck1 SSCheck2 ssCheck3")).remove('|')));
            act("Image1");
        }
        does({"", all, "o|o|o|||"});
        for (std::size_t i = 0; i < images.size(); ++i)
            EXPECT_EQ(std::ranges::count(images, images[i]), 1) << i;
    });
}

TEST_F(Dialogs, ShiftEnterAppliesAndGoesOnToTheNextRow)
{
    buildModel("G 1 1 1; N 0 0; N 1 0; N 2 0; E 1 2 1; E 2 3 1 0 0 3 -5");
    in<frmOMOIOMORFO>(
        1, {{"Text2=-20 [Shift+Return]", "focus Combo1 Text1 Text2 Note",
             "Text1|2|3|-5|New load on element #1, Fy= -20"},
            {"Text2=-7 Text1= [Shift+Return]", "focus Combo1", "Combo1|2"}, // there is no third
            {"Combo1=2-20 Text1=", "Combo1 Note", "2|There is no element #2-20."}});
    in<frmKomboi>(1, {{"@TextKX [Shift+Return]", "focus Combo1", "Text2|2"}});
    EXPECT_EQ(model(), modelOf("G 1 1 1; N 0 0; N 1 0; N 2 0; E 1 2 1 0 0 0 -20;"
                               "E 2 3 1 0 0 0 -7"));
}

// However the list is left: the row typed is the one that is shown, and Apply stores into it.
TEST_F(Dialogs, ATypedNumberIsTakenOverOnLeavingTheList)
{
    const char *nodes = "N 5 5 xxo 1; N 6 6 oxo 0 2; N 7 7; S 2 3 0 0";
    const std::string changed = modelOf("N 5 5 xxo 1; N 7 6 oxo 0 2; N 7 7; S 2 3 0 0");
    const auto letterOfCheck = [this] {
        const QString letter = control<QAbstractButton>("SSCheck2")->text().section('&', 1).left(1);
        pressKey("Alt+" + letter);
        EXPECT_TRUE(QTest::qWaitFor([&] { return valueOf("SSCheck2") == "o"; }));
        act("SSCheck2");
    };
    // Apply and Delete show the row and do no more.
    for (const std::string way :
         {"[Tab]", "[Return]", "@Text3", "letter", "SSCommand3", "SSCommand2"})
        for (const int row : {0, 1}) {
            SCOPED_TRACE(way);
            buildModel(nodes);
            in<frmKomboi>(row, [&] {
                act("Text2=1 TextKY=4 Combo1=2");
                way == "letter" ? letterOfCheck() : act(way);
                EXPECT_EQ(shownIn("Combo1 Label7 Text2 Text3 SSCheck2 TextKX TextKY"),
                          "2|(Existing)|6|6|x|3|");
                EXPECT_EQ(Arithmos_Kombon, 3);
                act("Text2=7 SSCommand3");
            });
            EXPECT_EQ(model(), changed);
        }
    desktop.log.clear();
    in<frmKomboi>(2, [&] { // a number behind the last row: a new row, with empty fields
        does({"Combo1=9 Text2=", "Combo1 Label7 Text3 SSCheck2", "9|(New)||o"});
        does({"Combo1=3 Text2= Combo1=99 SSCommand3", "Combo1 Label7 Text3", "99|(New)|"});
        EXPECT_EQ(Arithmos_Kombon, 3);
        act("SSCommand3");
    });
    EXPECT_THAT(logged(), ElementsAre("New node #4, x=0, y=0, Free"));
    const char *fields = "Combo1 Text1 Text2 Text3";
    in<frmEPIKOMBIO>(1, {{"Combo1=2 Text3=8", fields, "2||2|8"},
                         {"Combo1=31 Text1=9", fields, "2|9|2|8"}, // no row: that which is shown
                         {"Combo1=2.5 Text1=9", fields, "2|9|2|8"},
                         {"Combo1= Text1=9", fields, "2|9|2|8"},
                         {"Combo1=31!", "focus", "Combo1", "There is no node #31."},
                         {"Combo1=1 SSCommand2", "Combo1 Text1", "1|1"}});
    EXPECT_EQ(Komboi(1, node::Fx), 1);
}

TEST_F(Dialogs, NumberListsTakeTypedNumbers)
{
    buildModel("G 1 1 1; N 5 5; N 6 6; N 7 7; E 1 2 1");
    const auto wheel = [this](const char *list) {
        QWheelEvent down({5, 5}, control(list)->mapToGlobal(QPointF(5, 5)), {}, {0, -120},
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(control(list), &down);
    };
    in<frmKomboi>(0, [&] {
        does({"Text2=1 Combo1=4!", "Text2 Label7", "1|(New)"}); // still the new row
        does({"Combo1=2 [Down]", "Combo1 Text2", "3|7"});       // on from what is typed
        EXPECT_EQ(line("Combo1")->selectedText(), "3");
        act("Combo1=1");
        wheel("Combo1");
        does({"", "Combo1 Text2", "2|6"});
        EXPECT_EQ(line("Combo1")->selectedText(), "2");
        act("Text2=9");
        wheel("Combo1"); // without the focus
        does({"", "Combo1 Text2", "2|9"});
        does({"Combo1=2x! Combo1=2.5!", "Combo1 Text2", "2.5|9"}); // the row shown; no row
        EXPECT_EQ(control<QComboBox>("Combo1")->count(), 4);
        does({"SSCommand1", "Combo1 Label7 Text2 focus", "4|(New)||Text2"});
    });
    in<frmStoixeia>(1, [&] {
        wheel("Combo2");
        does({"Combo3=31x Combo4=-1 Combo2=2.5", "Combo2 Combo3 Combo4 Text1 Text4",
              "2.5|31x|-1||"});
    });
}

// The lines beside the lists are never cut inside a number.
TEST_F(Dialogs, LinesBesideTheListsAreWhole)
{
    buildModel("G 123456.789012345 1.23456789012345e-101 1.23456789012345e-102; G 1 2 3;"
               "N -1.234567e-30 -1.234567e-30; N -1.234567e-31 1.234567e-31; N 1 2; E 1 2 1");
    in<frmStoixeia>(1, [&] {
        does({"", "Text1", "E= 123457, A= 1.23457E-101, I= 1.23457E-102"});
        EXPECT_EQ(control("Text1")->toolTip(),
                  "E= 123456.789012345, A= 1.23456789012345E-101, I= 1.23456789012345E-102");
        const QWidget *places = control("Text4");
        EXPECT_LE(places->heightForWidth(places->width()), places->height());
        does({"Combo2=2", "Text1", "E= 1, A= 2, I= 3"});
        EXPECT_EQ(control("Text1")->toolTip(), "");
    });
}

TEST_F(Dialogs, EnterGoesFromFieldToFieldAndEscapeCloses)
{
    buildModel("G 1 1 1; N 0 0; N 1 0; E 1 2 1");
    const auto walk = [&](std::initializer_list<const char *> fields) {
        for (const auto *field = fields.begin(); field + 1 != fields.end(); ++field) {
            act("@" + std::string(*field) + " [Return]");
            EXPECT_EQ(valueOf("focus"), field[1]) << *field;
        }
    };
    in<frmKomboi>(0, [&] {
        does({"", "focus", "Text2"});
        walk({"Combo1", "Text2", "Text3"});
        EXPECT_EQ(Arithmos_Kombon, 2); // only Enter in the last one applies
        walk({"TextKX", "TextKY", "TextKZ"});
        walk({"SSCheck1", "SSCheck2", "ssCheck3"});
        // A key held down is one key; on an X server it is a release and a press of one moment.
        act("Text2=7");
        const std::tuple<QEvent::Type, bool, quint64> keys[] = {{QEvent::KeyPress, false, 0},
                                                                {QEvent::KeyPress, true, 0},
                                                                {QEvent::KeyPress, true, 0},
                                                                {QEvent::KeyRelease, false, 700},
                                                                {QEvent::KeyPress, false, 700}};
        for (const auto &[type, repeated, moment] : keys) {
            QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, {}, repeated);
            event.setTimestamp(moment);
            QCoreApplication::sendEvent(control("Text3"), &event);
        }
        EXPECT_EQ(Arithmos_Kombon, 3);
        walk({"SSCommand1", "Text2"}); // a button with the focus takes Enter
        act("@Text2 [Esc]");
        EXPECT_FALSE(form->isVisible());
    });
    in<frmOmades>(0, [&] { walk({"Combo1", "Text1", "Text2", "Text3"}); });
    in<frmStoixeia>(0, [&] { walk({"Combo1", "Combo2", "Combo3", "Combo4"}); });
    in<frmEPIKOMBIO>(1, [&] {
        walk({"Combo1", "Text1", "Text2", "Text3"});
        walk({"List1", "Text1", "Text2"});
    });
    in<frmOMOIOMORFO>(1, [&] {
        walk({"Combo1", "Text1", "Text2"});
        act("SSCommand29");
        EXPECT_FALSE(form->isVisible());
    });
}

TEST_F(Dialogs, ACommaTypedPastedOrOfTheKeypadIsAPoint)
{
    in<frmKomboi>(0, [&] {
        act("Text2=1,5");
        QTest::keyClick(control("Text3"), Qt::Key_2, Qt::KeypadModifier);
        QKeyEvent decimal(QEvent::KeyPress, Qt::Key_Comma, Qt::KeypadModifier, ",");
        QCoreApplication::sendEvent(control("Text3"), &decimal);
        QApplication::clipboard()->setText(QStringLiteral("\u22120,25"));
        line("TextKX")->paste();
        does({"", "Text2 Text3 TextKX", "1.5|2.|-0.25"});
        line("Text2")->setCursorPosition(1); // the caret stays behind what was typed
        QTest::keyClicks(control("Text2"), ",7");
        does({"", "Text2", "1.7.5"});
    });
}

TEST_F(Dialogs, MoveNodes)
{
    const std::string moved = modelOf("N 0 0; N 0.6 1; N 5 3");
    const std::string before = modelOf("N 0 0; N 0.1 1; N 4.5 3");
    in<frmMETAKINISI>(0, [&] {
        does({"", "Combo1 Combo2 Text1 Text2", "1|1||"});
        act("Combo1=2 Combo2=3 Text1=,5!"); // Enter goes on
        EXPECT_EQ(model(), before);
        act("[Return]"); // and applies
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(model(), moved);
        EXPECT_TRUE(Allagi_Montelou);
        does({"", "focus Note", "Combo1|Moved nodes: #2 to #3, dx=0.5, dy=0"});
        EXPECT_EQ(control("Combo1")->accessibleDescription().toStdString(), valueOf("Note"));
        does({"[Return]", "focus", "Combo2"}); // only goes on
        auto *moment = control<QTimer>("NoteTimer");
        moment->start(0);
        QSignalSpy(moment, &QTimer::timeout).wait();
        EXPECT_EQ(valueOf("Note") + control("Combo1")->accessibleDescription().toStdString(), "");
        // Nothing to do, nothing to say; and no node stands between them.
        act("Text1=0.0 SSCommand3 Combo1=3 Combo2=2 Text2=1 SSCommand3");
    });
    EXPECT_THAT(logged(), ElementsAre("Moved nodes: #2 to #3, dx=0.5, dy=0",
                                      "Moved nodes: #3 to #2, dx=0, dy=1"));
    EXPECT_EQ(model(), moved);
    EXPECT_EQ(redraws(), 2);
    for (const Step &step : {Step{"Combo2=2 Combo1=3! SSCommand3", "Combo1 Combo2", "3|3"},
                             Step{"Combo2=2 Combo1=3 SSCommand3", "Combo1 Combo2", "3|3"},
                             Step{"Combo2=3 Combo1=2! SSCommand3", "Combo1 Combo2", "2|3"}})
        in<frmMETAKINISI>(0, {step});
}

TEST_F(Dialogs, MergeNodes)
{
    // Nodes 2 and 4 are to be one; two elements stand between them.
    const std::string text = "G 1 1 1; N 0 0 xxx; N 2 0 ooo 7; N 4 2; N 3 1; N 9 9; S 4 1 1 1;";
    const std::string ends = "E 1 2 1; E 2 4 1; E 4 3 1; E 4 2 1; E 5 4 1 1";
    const std::string ask =
        ".\r\nDo you want this element to be deleted in order for the nodes to be merged?";
    for (const auto &[answers, rest] : std::initializer_list<std::pair<std::string, std::string>>{
             {"oo", "E 1 2 1; E 2 3 1; E 5 2 1 1"},
             {"c", ends},
             {"oc", "E 1 2 1; E 4 3 1; E 4 2 1; E 5 4 1 1"}}) {
        SCOPED_TRACE(answers); // o OK, c Cancel, to the question for each element
        const std::string expected = modelOf(text + rest);
        buildModel(text + ends);
        desktop.events.clear();
        // The second of them moves up when the first is deleted.
        for (int e = 2; const char answer : answers)
            desktop.expectMessage("Between nodes to be merged there is element #"
                                      + std::to_string(e++) + ask,
                                  Icon::question, answer == 'o' ? Answer::ok : Answer::cancel);
        in<frmSigxonefsi>(0, [&] {
            does({"", "Combo1 Combo2", "1|1"});
            act("Combo1=2 Combo2=2 Check1=o SSCommand3"); // a node and itself: nothing
            act("Combo2=4 SSCommand3");
            EXPECT_TRUE(form->isVisible());
        });
        EXPECT_EQ(model(), expected);
        EXPECT_EQ(Allagi_Montelou, answers != "c");
        EXPECT_EQ(redraws(), answers == "c" ? 0 : 1);
    }
    desktop.log.clear();
    buildModel("N 0 0; N 1 0; N 5 5");
    in<frmSigxonefsi>(0, [&] {
        does({"Combo1=3 Combo2=1 Check2=x SSCommand3", "Combo1 Combo2", "1|1"}); // of those left
        EXPECT_EQ(control<QComboBox>("Combo2")->count(), 2);
    });
    EXPECT_THAT(logged(), ElementsAre("Node # 1 merged in node #3.",
                                      "Node # 3 moved to the middle of segment A\u0392.",
                                      testing::StartsWith("green ")));
    EXPECT_EQ(model(), modelOf("N 1 0; N 2.5 2.5"));
}

TEST_F(Dialogs, DivideElements)
{
    const std::string divided =
        modelOf("G 1 1 1; N 0 0; N 3 6; N 1 2; N 2 4; E 1 3 1 1 0 7 8; E 3 4 1 0 0 7 8;"
                "E 4 2 1 0 1 7 8");
    buildModel("G 1 1 1; N 0 0; N 3 6; E 1 2 1 1 1 7 8");
    Katastasi_Provolis = view::Q;
    in<frmDiairesi>(0, [&] {
        act("Text1=1 SSCommand3 Text1=1.4 SSCommand3 Text1=0.6 SSCommand3"); // into one
        EXPECT_EQ(Arithmos_Stoixeion, 1);
        does({"Text1=3!", "Combo1 Combo2", "1|1"});
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(control<QComboBox>("Combo2")->count(), 3);
        EXPECT_EQ(model(), divided);
        EXPECT_EQ(Katastasi_Provolis, view::model);
        EXPECT_TRUE(Allagi_Montelou);
        act("Combo1=3 Combo2=1 Text1=5!"); // the first above the last
    });
    EXPECT_EQ(model(), divided);
    EXPECT_THAT(logged(), ElementsAre("Elements divided: #1 to #1 into 3 segments each.",
                                      "Elements divided: #3 to #1 into 5 segments each."));
}

TEST_F(Dialogs, CreateArc)
{
    const std::string quarter = "Text1=0 Text2=0 Text3=1 Text4=0 Text5=0 Text6=2 ";
    buildModel("G 1 1 1; G 2 2 2; N 5 5 xxx");
    in<frmKykliko>(0, [&] {
        does({"", "LabelR LabelTheta Combo1", "0|360|1"});
        does({quarter.c_str(), "LabelR LabelTheta", "1|90"});
        act("Text7=2 Combo1=2!");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_THAT(logged(), ElementsAre("New element #1, Node i: #2, Node j: #3, Group: #2, P2 Type",
                                      "New element #2, Node i: #3, Node j: #4, Group: #2, P2 Type",
                                      "New node #2, x=1, y=0, Free",
                                      "New node #3, x=0.7071068, y=0.7071068, Free",
                                      "New node #4, x=6.123234E-17, y=1, Free"));
    EXPECT_TRUE(Allagi_Montelou);
    EXPECT_EQ(redraws(), 1);

    buildModel("G 1 1 1; N 7 7");
    for (const Answer answer : {Answer::cancel, Answer::ok})
        desktop.expectMessage("Do you want to create a whole circle?", Icon::question, answer);
    in<frmKykliko>(0, [&] {
        does({"Text3=1 Text5=2 Text7=4", "LabelTheta", "360"});
        act("SSCommand3");
        EXPECT_EQ(Arithmos_Kombon, 1);
        act("SSCommand3");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_EQ(Arithmos_Kombon, 5);
}

TEST_F(Dialogs, ArcHelpUnfolds)
{
    buildModel("G 1 1 1");
    in<frmKykliko>(0, [&] {
        const int narrow = form->width();
        act("SSCommand1");
        EXPECT_EQ(control<QAbstractButton>("SSCommand1")->text().remove('&'), "Help <-");
        EXPECT_GE(form->width(), 7020 / 15);
        EXPECT_FALSE(control<QLabel>("Image1")->pixmap().isNull());
        act("SSCommand1");
        EXPECT_EQ(form->width(), narrow);
        // Higher than the screen, the contents scroll; the buttons stay, and so does the focus.
        control("Label7")->setMinimumHeight(3000);
        act("SSCommand1");
        EXPECT_TRUE(form->screen()->availableGeometry().contains(form->geometry()));
        const auto isInSight = [&](const char *name) {
            const QWidget *part = control(name);
            const QRect place(part->mapTo(form, QPoint()), part->size());
            return form->rect().contains(place) && !part->visibleRegion().isEmpty();
        };
        EXPECT_TRUE(isInSight("SSCommand3"));
        control<QScrollArea>("area")->ensureVisible(0, 3000);
        EXPECT_FALSE(isInSight("Text2"));
        control("Text2")->setFocus();
        EXPECT_TRUE(isInSight("Text2"));
    });
}

TEST_F(Dialogs, CoincidentNodes)
{
    const std::string question =
        "Give the value for tolerance (Max. distance for which two nodes are considered to "
        "coincide).\r\n\r\n(Value between [0 , 0.001], Default=10E-5)";
    struct Case
    {
        const char *answer, *note, *tolerance;
        std::vector<std::string> pairs;
    };
    std::vector<std::string> said;
    const std::string before =
        modelOf("N 1 1; N 1 1.0005; N 0 0; N 1 1; N 3e-6 4e-6; N 0.0009 0; N 3e38 0; N -3e38 0");
    for (const Case &c : std::initializer_list<Case>{
             {"", "Tolerance = 10E-5 (Default value).", "1E-05", {"#1 and #4", "#3 and #5"}},
             {"-1", "Tolerance = 0 (Minimum value).", "0", {"#1 and #4"}},
             {"abc", nullptr, "0", {"#1 and #4"}},
             {"0,0006", nullptr, "0.0006", {"#1 and #2", "#1 and #4", "#2 and #4", "#3 and #5"}},
             {"1",
              "Tolerance = 0.001 (Maximum value).",
              "0.001",
              {"#1 and #2", "#1 and #4", "#2 and #4", "#3 and #5", "#3 and #6", "#5 and #6"}},
         }) {
        SCOPED_TRACE(c.answer);
        desktop.expectQuestion(c.answer);
        if (c.note != nullptr)
            desktop.expectMessage(c.note, Icon::none);
        said.resize(c.pairs.size());
        for (std::string &text : said)
            desktop.expectAnyMessage(text);
        const std::string end =
            "The search for coincident nodes is completed. " + std::to_string(c.pairs.size())
            + " incidences of coincident nodes were found. (Tolerance = " + c.tolerance + ").";
        desktop.expectMessage(end, Icon::information);
        findCoincidentNodes();
        EXPECT_EQ(desktop.textQuestions.back(), question);
        for (std::size_t i = 0; i < said.size(); ++i)
            EXPECT_THAT(said[i], testing::StartsWith("Nodes: " + c.pairs[i]
                                                     + " theoretically coincide.\r\n\r\nDistance "
                                                       "between them D= "));
        EXPECT_THAT(logged(), ElementsAre("red " + end));
    }
    EXPECT_THAT(said.front(), testing::EndsWith(" D= 0.000499963760375977")); // of Singles
    EXPECT_EQ(model(), before);

    desktop.expectQuestion("0.000,5");
    desktop.expectMessage(
        "The number given has a separator of thousands, or more than one decimal separator.");
    findCoincidentNodes();
}

TEST_F(Dialogs, CoincidentElements)
{
    const std::string before =
        modelOf("G 1 1 1; G 2 2 2; N 0 0; N 1 0; N 2 0; E 1 2 1; E 2 3 1; E 2 1 2 1 1; E 1 2 1");
    std::vector<std::string> pairs;
    for (const char *pair :
         {"#1 and #3 between nodes #1 and #2", "#1 and #4 between nodes #1 and #2",
          "#3 and #4 between nodes #2 and #1"})
        pairs.push_back("The elements " + std::string(pair)
                        + " coincide. One of them must be deleted.");
    const std::string end = "The search for coincident elements is completed. 3 incidences of "
                            "coincident elements were found.";
    const auto asks = [&](std::size_t i, Answer answer) {
        desktop.expectMessage(pairs[i] + "\r\nShall the search for coincident elements continue?",
                              Icon::information, answer);
    };
    for (const std::size_t i : {0, 1, 2})
        asks(i, Answer::yes);
    desktop.expectMessage(end, Icon::information);
    findCoincidentElements();
    EXPECT_THAT(logged(),
                ElementsAre("red " + pairs[0], "red " + pairs[1], "red " + pairs[2], "red " + end));
    asks(0, Answer::yes);
    asks(1, Answer::no);
    findCoincidentElements();
    EXPECT_THAT(logged(), ElementsAre("red " + pairs[0], "red " + pairs[1]));
    EXPECT_EQ(model(), before);
}

class ToolsOfTheWindow : public MainWindow, protected Forms
{};

TEST_F(ToolsOfTheWindow, DividingGoesBackToTheModel)
{
    start(TEST_DATA "/small.vsk");
    const int elements = Arithmos_Stoixeion;
    Allagi_Montelou = false;
    trigger("mnuDIAG_Qitem");
    ASSERT_EQ(Katastasi_Provolis, view::Q);
    during([&] { trigger("mnuDIAIRESIitem"); }, [&] { act("Text1=2 SSCommand3"); });
    EXPECT_EQ(Arithmos_Stoixeion, elements + 1);
    EXPECT_EQ(panel("Panel7"), " Model");
    EXPECT_FALSE(find<QAbstractButton>("Command1")->isVisible());
}

} // namespace
} // namespace veskora
