// The model dialogs on the offscreen platform: opened as the program opens them, controls found by
// name, keys typed, boxes answered by a script.

#include "Desktop.h"
#include "DialogTest.h"
#include "frmEPIKOMBIO.h"
#include "frmKomboi.h"
#include "frmOmades.h"
#include "frmOMOIOMORFO.h"
#include "frmStoixeia.h"
#include "Metablites.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <gmock/gmock.h>

#include <set>

namespace veskora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Group, four nodes, three elements, loads: with the keyboard alone, Enter after each field.
TEST_F(Dialogs, BuildAPortalByKeyboard)
{
    const std::string portal = modelOf("G 2.1e8 0.01 1e-4; N 0 0 xxx; N 0 4 ooo 10; N 6 4;"
                                       "N 6 0 xxo; S 4 0 0 1500; E 1 2 1; E 2 3 1 0 0 0 -12.5;"
                                       "E 4 3 1 0 1");
    resetStore();
    Allagi_Montelou = false;
    withNew<frmOmades>([&] {
        EXPECT_EQ(shownIn("Combo1 Label7"), "1|(New)");
        fill("Text1=2.1e8! Text2=,01! Text3=0.0001!");
        EXPECT_EQ(shownIn("Combo1 Label7 Text1"), "2|(New)|");
    });
    EXPECT_TRUE(Allagi_Montelou);
    EXPECT_EQ(redraws(), 1);
    withNew<frmKomboi>([&] {
        fill("SSCheck1=x SSCheck2=x ssCheck3=x Text2=! Text3=!");
        EXPECT_EQ(shownIn("Combo1 Label7 SSCheck1"), "2|(New)|o");
        fill("Text2=0! Text3=4!  Text2=6! Text3=4! SSCheck1=x SSCheck2=x TextKZ=1.5E3 Text2=6!");
        key("Text3", Qt::Key_Enter);
    });
    withNew<frmStoixeia>([&] {
        EXPECT_EQ(focus(), "Combo3"); // the group stands already
        fill("Combo3=1! Combo4=2!  Combo3=2! Combo4=3!  ssCheck6=x Combo3=4! Combo4=3!");
        EXPECT_EQ(shownIn("Combo1 Combo2 Combo3 Combo4 ssCheck6"), "4|1|||o");
    });
    withRow<frmEPIKOMBIO>(1, [&] { fill("Combo1=2! Text1=10! Text2=! Text3=!"); });
    withRow<frmOMOIOMORFO>(2, [&] { fill("Text1=! Text2=-12,5!"); });

    EXPECT_EQ(model(), portal);
    EXPECT_THAT(logged(navy),
                ElementsAre("New group #1, E= 210000000, A= 0.01, I= 0.0001",
                            "New node #1, x=0, y=0, Constraints: xxx",
                            "New node #2, x=0, y=4, Free", "New node #3, x=6, y=4, Free",
                            "New node #4, x=6, y=0, Constraints: xxo, Kz= 1500",
                            "New element #1, Node i: #1, Node j: #2, E,A,I Group: #1, P2 Type",
                            "New element #2, Node i: #2, Node j: #3, E,A,I Group: #1, P2 Type",
                            "New element #3, Node i: #4, Node j: #3, E,A,I Group: #1, P2' Type: "
                            "Hinge at end j",
                            "New loads on node #2, Fx= 10", "New load on element #2, Fy= -12.5"));
}

TEST_F(Dialogs, RefuseInTheirOrderAndStoreNothing)
{
    struct Case
    {
        enum { groups, nodes, elements, nodeLoads } dialog;
        const char *entries;
        const char *says;
        const char *focus;
    };
    const char *Emod = "The value given for Youngs Modulus E is unacceptable.";
    const char *group = "The value given for Group number is unacceptable.";
    const char *node = "The value given for node number is unacceptable.";
    const char *spring = "The elastic constants cannot have negative values.";
    const char *there = "At (6, 0.1) there is already node #2. ";
    const char *large = "The number given is too large.";
    const char *separators =
        "The number given has a separator of thousands, or more than one decimal separator.";
    const std::string before =
        modelOf("G 1 1 1; G 2 2 2; N 0 0 xxo; N 6 .1; N 9 9; E 1 2 1; E 2 3 2 1 1 5 6");
    for (const Case &c : {
             Case{Case::groups, "Combo1=301 Text1=0",
                  "The maximum number of Groups that can be defined is 300.", "Combo1"},
             Case{Case::groups, "Combo1=300.5",
                  "The maximum number of Groups that can be defined is 300.", "Combo1"},
             Case{Case::groups, "Combo1=1,5 Text1=0", group, "Combo1"},
             Case{Case::groups, "Combo1=", group, "Combo1"},
             Case{Case::groups, "Text1=-1 Text2=0", Emod, "Text1"},
             Case{Case::groups, "Text1=1e-400", Emod, "Text1"},
             Case{Case::groups, "Text1=1e999", Emod, "Text1"},
             Case{Case::groups, "Text1=1 Text3=0",
                  "The value given for Section area A is unacceptable.", "Text2"},
             Case{Case::groups, "Text1=1 Text2=1 Text3=x",
                  "The value given for Section moment of inertia I is unacceptable.", "Text3"},
             Case{Case::nodes, "Combo1=201 Text2=6 Text3=.1",
                  "The maximum number of nodes that can be defined is 200.", "Combo1"},
             Case{Case::nodes, "Combo1=2.5 Text2=6 Text3=0.10000000001 TextKX=-1", there, "Text2"},
             Case{Case::nodes, "Combo1=1 Text2=6 Text3=.1", there, "Text2"},
             Case{Case::nodes, "Combo1=-1 Text2=5 TextKX=-1", node, "Combo1"},
             Case{Case::nodes, "Text2=5 TextKX=1 TextKY=-1 TextKZ=-2", spring, "TextKY"},
             Case{Case::nodes, "Text2=5 TextKZ=-1e40", spring, "TextKZ"},
             Case{Case::nodes, "Text2=5 Text3=1e39", large, "Text3"},
             Case{Case::nodes, "Text2=5 TextKZ=1e39", large, "TextKZ"},
             Case{Case::nodes, "Text2=1.234,56 TextKX=-1", separators, "Text2"},
             Case{Case::nodes, "Text2=1'000", separators, "Text2"},
             Case{Case::nodes, "Combo1=1,000.5 Text2=5", separators, "Combo1"},
             Case{Case::elements, "Combo1=301 Combo2=",
                  "The maximum number of elements that can be defined is 300.", "Combo1"},
             Case{Case::elements, "Combo1=0 Combo2=",
                  "The value given for element number is unacceptable.", "Combo1"},
             Case{Case::elements, "Combo1=1 Combo2=",
                  "The value given for E,A,I Group number is unacceptable.", "Combo2"},
             Case{Case::elements, "Combo4=1", "The value given for node i number is unacceptable.",
                  "Combo3"},
             Case{Case::elements, "Combo2=3 Combo3=31", // there are two groups
                  "The value given for E,A,I Group number is unacceptable.", "Combo2"},
             Case{Case::elements, "Combo3=31 Combo4=4", // there are three nodes
                  "The value given for node i number is unacceptable.", "Combo3"},
             Case{Case::elements, "Combo3=1 Combo4=4",
                  "The value given for node j number is unacceptable.", "Combo4"},
             Case{Case::elements, "Combo3=1 Combo4=2.5",
                  "The value given for node j number is unacceptable.", "Combo4"},
             Case{Case::elements, "Combo3=2 Combo4=2", "Given nodes i and j coincide.", "Combo4"},
             Case{Case::nodeLoads, "Text1=1 Text2=-1e39", large, "Text2"},
             Case{Case::nodeLoads, "Text1=1 Combo1=31", "There is no node #31.", "Combo1"},
             Case{Case::nodeLoads, "Text1=1 Combo1=-1", "There is no node #-1.", "Combo1"},
             Case{Case::nodeLoads, "Text1=1 Combo1=2-20", "There is no node #2-20.", "Combo1"},
             Case{Case::nodeLoads, "Text1=1 Combo1=+2", "There is no node #+2.", "Combo1"},
             Case{Case::nodes, "Combo1=2-20 Text2=5", node, "Combo1"},
         }) {
        SCOPED_TRACE(c.entries);
        const auto talk = [&] {
            fill(c.entries);
            desktop.expectMessage(c.says);
            click("SSCommand3");
            EXPECT_EQ(focus(), c.focus);
            EXPECT_EQ(line(c.focus)->selectedText(), line(c.focus)->text());
        };
        Allagi_Montelou = false;
        switch (c.dialog) {
        case Case::groups:
            withNew<frmOmades>(talk);
            break;
        case Case::nodes:
            withNew<frmKomboi>(talk);
            break;
        case Case::elements:
            withNew<frmStoixeia>(talk);
            break;
        case Case::nodeLoads:
            withRow<frmEPIKOMBIO>(1, talk);
            break;
        }
        EXPECT_THAT(logged(red), ElementsAre(c.says));
        EXPECT_FALSE(Allagi_Montelou);
        EXPECT_EQ(redraws(), 0);
    }
    EXPECT_EQ(model(), before);
}

// What a double, a Single and the kept own place of a node make of limits.
TEST_F(Dialogs, ChangeRowsAndWalkOnToTheNext)
{
    buildModel("G 1 1 1; G 2 2 2; N 0 0 oxo; N 1 1; N 2 2; E 1 2 1 0 0 7 8; E 2 3 2");
    withRow<frmKomboi>(1, [&] {
        EXPECT_EQ(shownIn("Combo1 Label7 Text2 Text3 SSCheck1 SSCheck2"), "1|(Existing)|0|0|o|x");
        click("SSCommand3");
        EXPECT_EQ(shownIn("Combo1 Text2"), "2|1");
        fill("Text2=1.23456789 TextKY=1e-60 TextKX=2 TextKZ=3");
        click("SSCommand3");
        click("SSCommand3");
        EXPECT_EQ(shownIn("Combo1 Label7 Text2"), "4|(New)|");
        EXPECT_EQ(focus(), "Text2");
        fill("Combo1=150 Text2=4");
        EXPECT_EQ(shown("Label7"), "(New)");
        click("SSCommand3");
        EXPECT_EQ(shown("Combo1"), "5");
    });
    EXPECT_THAT(logged(navy),
                ElementsAre("* Node #1, x=0, y=0, Constraints: oxo",
                            "* Node #2, x=1.234568, y=1, Free, Kx= 2, Kz= 3",
                            "* Node #3, x=2, y=2, Free", "New node #4, x=4, y=0, Free"));
    withRow<frmOmades>(2, [&] {
        fill("Text1=1.23456789012");
        click("SSCommand3");
        fill("Combo1=1! Text3=1e-300");
        click("SSCommand3");
        EXPECT_EQ(shownIn("Combo1 Text1"), "2|1.23456789012");
    });
    EXPECT_THAT(logged(navy), ElementsAre("* Group #2, E= 1.23456789012, A= 2, I= 2",
                                          "* Group #1, E= 1, A= 1, I= 1E-300"));
    withRow<frmStoixeia>(1, [&] {
        EXPECT_EQ(shownIn("Text1 Text4"), "E= 1, A= 1, I= 1E-300|(0, 0) - (1.234568, 1), "
                                          "L= 1.58876");
        fill("ssCheck3=x ssCheck6=x Combo3=3");
        click("SSCommand3");
        EXPECT_EQ(shownIn("Combo1 Combo2 Combo3 Combo4 ssCheck3"), "2|2|2|3|o");
        fill("ssCheck3=x Combo4=1!");
        EXPECT_EQ(shownIn("Combo1 Combo2 Combo3 Combo4 ssCheck3"), "3|2|||o");
        fill("Combo3=2 Combo4=1"); // a second element on the same nodes
        click("SSCommand3");
    });
    EXPECT_THAT(logged(navy),
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
    withNew<frmKomboi>([&] {
        EXPECT_EQ(find<QComboBox>("Combo1")->count(), 201);
        desktop.expectMessage("The maximum number of nodes that can be defined is 200.");
        click("SSCommand3");
        fill("Combo1=200! Text3=5!");
    });
    EXPECT_EQ(Komboi(200, node::y), 5);
    EXPECT_EQ(Arithmos_Kombon, 200);
}

TEST_F(Dialogs, DeleteAndRenumber)
{
    const char *frame = "G 1 1 1; G 2 2 2; G 3 3 3; N 0 0 xxx; N 1 0 ooo 5; N 2 0; N 3 0 xxo;"
                        "S 3 1 0 0; E 1 2 2; E 2 3 3 0 0 0 9; E 3 4 2";
    const char *connected = "There are elements connected to the node, that must also be deleted.";
    const std::string question =
        std::string(connected) + "\r\nDo you want the deletion process to proceed?";
    const auto deleteTyped = [&](const char *number) {
        fill(std::string("Combo1=") + number + "!");
        click("SSCommand2");
    };

    struct Refusal
    {
        const char *number, *group, *node, *element;
    };
    const std::string before = modelOf(frame);
    for (const Refusal &c : {
             Refusal{"9", "There is no Group # 9 to delete.", "There is no node to be deleted #9.",
                     "Element does not exist to be deleted #9."},
             Refusal{"1.5", "There is no Group # 1.5 to delete.",
                     "There is no node to be deleted #1.5.",
                     "Element does not exist to be deleted #1.5."},
             Refusal{"no", "There is no Group # 0 to delete.", "There is no node to be deleted #0.",
                     "Element does not exist to be deleted #0."},
         }) {
        const auto refused = [&](const char *says) {
            return [&, says] {
                desktop.expectMessage(says);
                deleteTyped(c.number);
            };
        };
        withNew<frmOmades>(refused(c.group));
        withNew<frmKomboi>(refused(c.node));
        withNew<frmStoixeia>(refused(c.element));
        EXPECT_THAT(logged(red), ElementsAre(c.group, c.node, c.element));
    }
    withNew<frmOmades>([&] {
        desktop.expectMessage(
            "Group # 2 cannot be deleted since there are elements belonging to it.");
        deleteTyped("2");
    });
    withRow<frmKomboi>(2, [&] {
        desktop.expectMessage("There is no node to be deleted #7.5.");
        fill("Combo1=7.5");
        click("SSCommand2");
        EXPECT_EQ(shownIn("Combo1 Label7 Text2"), "7.5|(New)|");
    });
    withRow<frmKomboi>(2, [&] {
        desktop.expectMessage(question, Icon::exclamation, Answer::cancel);
        click("SSCommand2");
        EXPECT_EQ(shown("Combo1"), "2");
    });
    EXPECT_THAT(logged(red), ElementsAre("Group # 2 cannot be deleted since there are elements "
                                         "belonging to it.",
                                         "There is no node to be deleted #7.5.", connected));
    EXPECT_EQ(model(), before);
    EXPECT_EQ(redraws(), 0);

    withRow<frmOmades>(1, [&] {
        click("SSCommand2");
        EXPECT_EQ(shownIn("Combo1 Label7 Text1"), "3|(New)|");
    });
    EXPECT_THAT(logged(green), ElementsAre("Group deleted: #1. Groups renumbered: #2 to # 3."));

    withRow<frmKomboi>(2, [&] {
        desktop.expectMessage(question);
        click("SSCommand2");
        EXPECT_EQ(shownIn("Combo1 Label7 Text2"), "4|(New)|");
        deleteTyped("1"); // nothing is attached any more
    });
    EXPECT_EQ(desktop.log.at(0), (LogLine{connected, red, false}));
    desktop.log.erase(desktop.log.begin());
    EXPECT_THAT(logged(green), ElementsAre("Element deleted: #1. Elements renumbered: #2 to # 3.",
                                           "Element deleted: #1. Elements renumbered: #2.",
                                           "Node deleted: #2. Nodes renumbered: #3 to # 4.",
                                           "Node deleted: #1. Nodes renumbered: #2 to # 3."));
    EXPECT_EQ(model(), modelOf("G 2 2 2; G 3 3 3; N 2 0; N 3 0 xxo; S 1 1 0 0; E 1 2 1"));

    Allagi_Montelou = false;
    withRow<frmStoixeia>(1, [&] { click("SSCommand2"); });
    EXPECT_THAT(logged(green), ElementsAre("Element deleted: #1."));
    EXPECT_TRUE(Allagi_Montelou);
}

TEST_F(Dialogs, EditTheLoadsOfRows)
{
    buildModel("G 1 1 1; N 0 0 ooo 1 2 3; N 1 0; N 2 0; E 1 2 1; E 2 3 1 0 0 0 -4.5");
    const auto list = [&] {
        QStringList rows;
        for (int i = 0; i < find<QListWidget>("List1")->count(); ++i)
            rows << find<QListWidget>("List1")->item(i)->text();
        return shown("Label4") + " [" + rows.join(' ').toStdString() + "]";
    };
    with<frmEPIKOMBIO>(
        [](frmEPIKOMBIO &dialog) { dialog.openFirst(); },
        [&] {
            EXPECT_EQ(shownIn("Combo1 Text1 Text2 Text3"), "1|1|2|3");
            fill("Combo1=3! Text2=-7.5 Text3=1e-60");
            click("SSCommand3");
            EXPECT_EQ(shownIn("Combo1 Text1 Text2 Text3"), "3||-7.5|");
            EXPECT_EQ(list(), "Nodes with loads on: 2 [1 3]");
            find<QListWidget>("List1")->setCurrentRow(0);
            EXPECT_EQ(shownIn("Combo1 Text1"), "1|1");
            fill("Text1=0 Text2=,5");
            click("SSCommand3");
            fill("Text2= Text3=0");
            click("SSCommand3");
            EXPECT_EQ(list(), "Nodes with loads on: 1 [3]");
            Allagi_Montelou = false;
            desktop.events.clear();
            click("SSCommand3"); // nothing over nothing
            EXPECT_TRUE(Allagi_Montelou);
            EXPECT_EQ(redraws(), 1);
            fill("Combo1=2! Combo1="); // an emptied list stands for the row that is loaded
            EXPECT_THAT(logged(navy), ElementsAre("New loads on node #3, Fy= -7.5",
                                                  "* Loads on node #1, Fy= 0.5, M= 3",
                                                  "Loads deleted on node #1"));
            desktop.expectMessage("There is no load to delete on node #2.");
            click("SSCommand2");
            EXPECT_THAT(logged(red), ElementsAre("There is no load to delete on node #2."));
            fill("Combo1=3!");
            click("SSCommand2");
            EXPECT_EQ(shownIn("Combo1 Text2"), "3|");
            EXPECT_EQ(list(), "Nodes with loads on: 0 []");
        });
    withRow<frmOMOIOMORFO>(2, [&] {
        EXPECT_EQ(shownIn("Combo1 Text1 Text2"), "2||-4.5");
        fill("Text1=2");
        click("SSCommand3");
        desktop.expectMessage("Elemental loads must be given as force / length of the element. "
                              "Directions x and y refer to system's global axes.",
                              Icon::information);
        click("SSCommand1");
        click("SSCommand2");
        desktop.expectMessage("There is no load to be deleted on element #2.");
        click("SSCommand2");
        EXPECT_EQ(list(), "Elements with loads on: 0 []");
    });
    EXPECT_EQ(desktop.log.back().colour, red);
    desktop.log.pop_back();
    EXPECT_THAT(logged(navy),
                ElementsAre("Loads deleted on node #3", "* Loads on element #2, Fx= 2, Fy= -4.5",
                            "Loads deleted on element #2"));
    EXPECT_EQ(model(), modelOf("G 1 1 1; N 0 0; N 1 0; N 2 0; E 1 2 1; E 2 3 1"));
}

TEST_F(Dialogs, ADirectionHasAConstraintOrASpring)
{
    buildModel("N 0 0 xoo; S 1 5 -6 7");
    withRow<frmKomboi>(1, [&] {
        const char *all = "SSCheck1 SSCheck2 ssCheck3 TextKX TextKY TextKZ";
        EXPECT_EQ(shownIn(all), "x|o|o|5||7"); // a row with both shows both
        fill("TextKX=.0 TextKX=-3");
        QApplication::clipboard()->setText("1e-60"); // no spring as a Single
        line("TextKX")->selectAll();
        line("TextKX")->paste();
        EXPECT_EQ(shownIn(all), "x|o|o|1e-60||7");
        fill("TextKX=,2");
        EXPECT_EQ(shownIn(all), "o|o|o|.2||7");
        click("ssCheck3");
        EXPECT_EQ(shownIn(all), "o|o|x|.2||");
        click("ssCheck3"); // taken away again, nothing comes back
        fill("TextKY=8 TextKZ=9");

        std::string ring;
        std::set<std::string> pictures;
        for (int i = 0; i < 8; ++i) {
            auto *picture = find<QAbstractButton>("Image1");
            const QImage image = picture->icon().pixmap(64).toImage();
            pictures.insert(std::string(reinterpret_cast<const char *>(image.constBits()),
                                        static_cast<std::size_t>(image.sizeInBytes())));
            EXPECT_TRUE(picture->accessibleName().endsWith(
                QString::fromStdString(shownIn("SSCheck1 SSCheck2 ssCheck3")).remove('|')));
            ring += shownIn(all) + " ";
            picture->click();
        }
        EXPECT_EQ(ring, "o|o|o|.2|8|9 x|o|o||8|9 o|x|o|||9 o|o|x||| x|x|o||| x|o|x||| o|x|x||| "
                        "x|x|x||| ");
        EXPECT_EQ(shownIn(all), "o|o|o|||");
        EXPECT_EQ(pictures.size(), 8U);
    });
}

TEST_F(Dialogs, ShiftEnterAppliesAndGoesOnToTheNextRow)
{
    const auto goOn = [&](const char *field) {
        key(field, Qt::Key_Return, Qt::ShiftModifier);
        return focus() + " " + shown("Combo1");
    };
    buildModel("G 1 1 1; N 0 0; N 1 0; N 2 0; E 1 2 1; E 2 3 1 0 0 3 -5");
    withRow<frmOMOIOMORFO>(1, [&] {
        fill("Text2=-20");
        EXPECT_EQ(goOn("Text2"), "Text1 2");
        EXPECT_EQ(shownIn("Text1 Text2 Note"), "3|-5|New load on element #1, Fy= -20");
        fill("Text1= Text2=-7");
        EXPECT_EQ(goOn("Text1"), "Combo1 2"); // there is no third
        fill("Combo1=2-20 Text1=");
        EXPECT_EQ(shownIn("Combo1 Note"), "2|There is no element #2-20.");
    });
    withRow<frmKomboi>(1, [&] { EXPECT_EQ(goOn("TextKX"), "Text2 2"); });
    EXPECT_EQ(model(), modelOf("G 1 1 1; N 0 0; N 1 0; N 2 0; E 1 2 1 0 0 0 -20;"
                               "E 2 3 1 0 0 0 -7"));
}

// However the list is left: the row typed is the one that is shown, and Apply stores into it.
TEST_F(Dialogs, ATypedNumberIsTakenOverOnLeavingTheList)
{
    const char *nodes = "N 5 5 xxo 1; N 6 6 oxo 0 2; N 7 7; S 2 3 0 0";
    const std::string changed = modelOf("N 5 5 xxo 1; N 7 6 oxo 0 2; N 7 7; S 2 3 0 0");
    const auto leave = [this](const char *way) {
        if (way == std::string("Tab"))
            QTest::keyClick(find("Combo1"), Qt::Key_Tab);
        else if (way == std::string("Enter"))
            key("Combo1", Qt::Key_Return);
        else if (way == std::string("click"))
            QTest::mouseClick(find("Text3"), Qt::LeftButton);
        else if (way == std::string("letter")) {
            pressLetter("SSCheck2");
            EXPECT_TRUE(QTest::qWaitFor([this] { return shownIn("SSCheck2") == "o"; }));
            click("SSCheck2");
        } else
            click(way); // Apply and Delete show the row and do no more
    };
    for (const char *way : {"Tab", "Enter", "click", "letter", "SSCommand3", "SSCommand2"})
        for (const bool isNew : {true, false}) {
            SCOPED_TRACE(way);
            buildModel(nodes);
            const auto talk = [&] {
                fill("Text2=1 TextKY=4 Combo1=2");
                leave(way);
                EXPECT_EQ(shownIn("Combo1 Label7 Text2 Text3 SSCheck2 TextKX TextKY"),
                          "2|(Existing)|6|6|x|3|");
                EXPECT_EQ(Arithmos_Kombon, 3);
                fill("Text2=7");
                click("SSCommand3");
            };
            isNew ? withNew<frmKomboi>(talk) : withRow<frmKomboi>(1, talk);
            EXPECT_EQ(model(), changed);
        }
    desktop.log.clear();
    withRow<frmKomboi>(2, [&] { // a number behind the last row: a new row, with empty fields
        fill("Combo1=9 Text2=");
        EXPECT_EQ(shownIn("Combo1 Label7 Text3 SSCheck2"), "9|(New)||o");
        fill("Combo1=3 Text2= Combo1=99");
        click("SSCommand3");
        EXPECT_EQ(shownIn("Combo1 Label7 Text3"), "99|(New)|");
        EXPECT_EQ(Arithmos_Kombon, 3);
        click("SSCommand3");
        EXPECT_EQ(Arithmos_Kombon, 4);
    });
    EXPECT_THAT(logged(navy), ElementsAre("New node #4, x=0, y=0, Free"));
    withRow<frmEPIKOMBIO>(1, [&] {
        fill("Combo1=2 Text3=8");
        EXPECT_EQ(shownIn("Combo1 Text1 Text2"), "2||2");
        for (const char *number : {"31", "2.5", ""}) { // no row: that which is shown
            fill(std::string("Combo1=") + number + " Text1=9");
            EXPECT_EQ(shownIn("Combo1 Text1 Text2 Text3"), "2|9|2|8");
        }
        desktop.expectMessage("There is no node #31.");
        fill("Combo1=31!");
        EXPECT_EQ(focus(), "Combo1");
        fill("Combo1=1");
        click("SSCommand2");
        EXPECT_EQ(shownIn("Combo1 Text1"), "1|1");
    });
    EXPECT_EQ(Komboi(1, node::Fx), 1);
}

TEST_F(Dialogs, NumberListsTakeTypedNumbers)
{
    buildModel("G 1 1 1; N 5 5; N 6 6; N 7 7; E 1 2 1");
    const auto wheel = [this](const char *list) {
        QWheelEvent down({5, 5}, find(list)->mapToGlobal(QPointF(5, 5)), {}, {0, -120},
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(find(list), &down);
    };
    withNew<frmKomboi>([&] {
        fill("Text2=1 Combo1=4!"); // still the new row
        EXPECT_EQ(shownIn("Text2 Label7"), "1|(New)");
        fill("Combo1=2");
        key("Combo1", Qt::Key_Down); // on from what is typed
        EXPECT_EQ(shownIn("Combo1 Text2"), "3|7");
        EXPECT_EQ(line("Combo1")->selectedText(), "3");
        fill("Combo1=1");
        wheel("Combo1");
        EXPECT_EQ(shownIn("Combo1 Text2"), "2|6");
        EXPECT_EQ(line("Combo1")->selectedText(), "2");
        fill("Text2=9");
        wheel("Combo1"); // without the focus
        EXPECT_EQ(shownIn("Combo1 Text2"), "2|9");
        fill("Combo1=2x! Combo1=2.5!"); // the row shown; no row
        EXPECT_EQ(shownIn("Combo1 Text2"), "2.5|9");
        EXPECT_EQ(find<QComboBox>("Combo1")->count(), 4);
        click("SSCommand1");
        EXPECT_EQ(shownIn("Combo1 Label7 Text2"), "4|(New)|");
        EXPECT_EQ(focus(), "Text2");
    });
    withRow<frmStoixeia>(1, [&] {
        wheel("Combo2");
        fill("Combo3=31x Combo4=-1 Combo2=2.5");
        EXPECT_EQ(shownIn("Combo2 Combo3 Combo4 Text1 Text4"), "2.5|31x|-1||");
    });
}

// The lines beside the lists are never cut inside a number.
TEST_F(Dialogs, LinesBesideTheListsAreWhole)
{
    buildModel("G 123456.789012345 1.23456789012345e-101 1.23456789012345e-102; G 1 2 3;"
               "N -1.234567e-30 -1.234567e-30; N -1.234567e-31 1.234567e-31; N 1 2; E 1 2 1");
    withRow<frmStoixeia>(1, [&] {
        EXPECT_EQ(shown("Text1"), "E= 123457, A= 1.23457E-101, I= 1.23457E-102");
        EXPECT_EQ(find("Text1")->toolTip(),
                  "E= 123456.789012345, A= 1.23456789012345E-101, I= 1.23456789012345E-102");
        const QLabel *places = find<QLabel>("Text4");
        EXPECT_LE(places->heightForWidth(places->width()), places->height());
        fill("Combo2=2");
        EXPECT_EQ(shown("Text1"), "E= 1, A= 2, I= 3");
        EXPECT_EQ(find("Text1")->toolTip(), "");
    });
}

TEST_F(Dialogs, EnterGoesFromFieldToFieldAndEscapeCloses)
{
    buildModel("G 1 1 1; N 0 0; N 1 0; E 1 2 1");
    const auto walk = [&](std::initializer_list<const char *> fields) {
        for (const auto *field = fields.begin(); field + 1 != fields.end(); ++field) {
            find(*field)->setFocus();
            key(*field, Qt::Key_Return);
            EXPECT_EQ(focus(), field[1]) << *field;
        }
    };
    withNew<frmKomboi>([&] {
        EXPECT_EQ(focus(), "Text2");
        walk({"Combo1", "Text2", "Text3"});
        EXPECT_EQ(Arithmos_Kombon, 2); // only Enter in the last one applies
        walk({"TextKX", "TextKY", "TextKZ"});
        walk({"SSCheck1", "SSCheck2", "ssCheck3"});
        // A key held down is one key.
        fill("Text2=7");
        for (const bool repeated : {false, true, true}) {
            QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, repeated);
            QCoreApplication::sendEvent(find("Text3"), &event);
        }
        // The same of an X server: a release and a press of one moment.
        for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
            QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier);
            event.setTimestamp(700);
            QCoreApplication::sendEvent(find("Text3"), &event);
        }
        EXPECT_EQ(Arithmos_Kombon, 3);
        find("SSCommand1")->setFocus();
        key("SSCommand1", Qt::Key_Return); // a button with the focus takes Enter
        EXPECT_EQ(focus(), "Text2");
        key("Text2", Qt::Key_Escape);
        EXPECT_FALSE(form->isVisible());
    });
    withNew<frmOmades>([&] { walk({"Combo1", "Text1", "Text2", "Text3"}); });
    withNew<frmStoixeia>([&] { walk({"Combo1", "Combo2", "Combo3", "Combo4"}); });
    withRow<frmEPIKOMBIO>(1, [&] {
        walk({"Combo1", "Text1", "Text2", "Text3"});
        walk({"List1", "Text1", "Text2"});
    });
    withRow<frmOMOIOMORFO>(1, [&] {
        walk({"Combo1", "Text1", "Text2"});
        click("SSCommand29");
        EXPECT_FALSE(form->isVisible());
    });
}

// In every language: nothing stays English that a pack can translate, no two captions share a
// letter, every field has a name, and no button takes Enter from the fields.
TEST_F(Dialogs, SpeakTheLanguageAndAreReachedByKeys)
{
    buildModel("G 1 1 1; N 0 0; N 1 0; E 1 2 1");
    for (int slot = 1; slot <= languageSlots; ++slot)
        Pinakas_Glossas(slot) = "Word" + std::to_string(slot);
    Nai_Agglika = false;
    std::set<QString> words;
    const auto look = [&] {
        EXPECT_EQ(form->windowModality(), Qt::WindowModal);
        QStringList captions = {form->windowTitle()};
        QString letters;
        const auto caption = [&](const QString &text) {
            captions << QString(text).remove('&');
            if (const qsizetype at = text.indexOf('&'); at >= 0) {
                EXPECT_FALSE(letters.contains(text[at + 1].toLower())) << text.toStdString();
                letters += text[at + 1].toLower();
            }
        };
        QSet<const QWidget *> named;
        for (const QLabel *label : form->findChildren<QLabel *>()) {
            if ((label->textInteractionFlags() & Qt::TextSelectableByMouse) == 0) // a value
                caption(label->text());
            named << label->buddy();
        }
        for (const QAbstractButton *button : form->findChildren<QAbstractButton *>())
            caption(button->text());
        for (const QPushButton *button : form->findChildren<QPushButton *>()) {
            EXPECT_FALSE(button->autoDefault() || button->isDefault());
            EXPECT_TRUE(button->text().contains('&') || button->text() == "?");
        }
        for (const QWidget *field : form->findChildren<QWidget *>()) {
            const bool asks = field->inherits("QComboBox") || field->inherits("QListWidget")
                              || (field->inherits("QLineEdit") && field->parent() == form);
            EXPECT_TRUE(!asks || named.contains(field) || !field->accessibleName().isEmpty())
                << field->objectName().toStdString();
        }
        for (const QString &text : captions) {
            EXPECT_TRUE(text.startsWith("Word") || text.size() <= 2) << text.toStdString();
            const bool isShared = text.size() <= 2 || text.startsWith("Word200");
            EXPECT_TRUE(isShared || words.insert(text).second) << text.toStdString() << " twice";
        }
    };
    withNew<frmOmades>(look);
    withNew<frmKomboi>(look);
    withNew<frmStoixeia>(look);
    withRow<frmEPIKOMBIO>(1, look);
    withRow<frmOMOIOMORFO>(1, look);
}

TEST_F(Dialogs, ACommaTypedPastedOrOfTheKeypadIsAPoint)
{
    withNew<frmKomboi>([&] {
        type("Text2", "1,5");
        QTest::keyClick(find("Text3"), Qt::Key_2, Qt::KeypadModifier);
        QKeyEvent decimal(QEvent::KeyPress, Qt::Key_Comma, Qt::KeypadModifier, ",");
        QCoreApplication::sendEvent(find("Text3"), &decimal);
        QApplication::clipboard()->setText(QStringLiteral("\u22120,25"));
        find<QLineEdit>("TextKX")->paste();
        EXPECT_EQ(shownIn("Text2 Text3 TextKX"), "1.5|2.|-0.25");
        line("Text2")->setCursorPosition(1); // the caret stays behind what was typed
        QTest::keyClicks(find("Text2"), ",7");
        EXPECT_EQ(shown("Text2"), "1.7.5");
    });
}

} // namespace
} // namespace veskora
