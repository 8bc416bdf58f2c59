// The model tools: moving, merging, dividing, arcs, and the coincidence checks.

#include "CoincidenceChecks.h"
#include "DialogTest.h"
#include "frmDiairesi.h"
#include "frmKykliko.h"
#include "frmMETAKINISI.h"
#include "frmSigxonefsi.h"
#include "MainWindowTest.h"

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include <array>
#include <cmath>

namespace veskora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Tools : public Dialogs
{
protected:
    template <typename Form, typename Talk>
    void in(Talk talk)
    {
        Allagi_Montelou = false;
        with<Form>([](Form &dialog) { dialog.exec(); }, talk);
    }
    /// The form is filled and applied, and the model does not change.
    template <typename Form>
    void expectRefusal(const std::string &entries, const std::string &says, const char *leadsTo)
    {
        SCOPED_TRACE(entries);
        const std::string before = model();
        desktop.log.clear();
        desktop.expectMessage(says);
        in<Form>([&] {
            fill(entries);
            click("SSCommand3");
            EXPECT_TRUE(form->isVisible());
            EXPECT_EQ(focus(), leadsTo);
        });
        EXPECT_THAT(logged(red), ElementsAre(says));
        EXPECT_EQ(model(), before);
        EXPECT_FALSE(Allagi_Montelou);
        EXPECT_EQ(redraws(), 0);
    }
};

TEST_F(Tools, MoveNodes)
{
    const std::string moved = modelOf("N 0 0; N 0.6 1; N 5 3");
    const std::string before = modelOf("N 0 0; N 0.1 1; N 4.5 3");
    in<frmMETAKINISI>([&] {
        EXPECT_EQ(shownIn("Combo1 Combo2 Text1 Text2"), "1|1||");
        fill("Combo1=2 Combo2=3 Text1=,5!"); // Enter goes on
        EXPECT_EQ(model(), before);
        key("Text2", Qt::Key_Return); // and applies
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(model(), moved);
        EXPECT_TRUE(Allagi_Montelou);
        EXPECT_EQ(focus() + ": " + shown("Note"), "Combo1: Moved nodes: #2 to #3, dx=0.5, dy=0");
        EXPECT_EQ(find("Combo1")->accessibleDescription().toStdString(), shown("Note"));
        key("Combo1", Qt::Key_Return); // only goes on
        EXPECT_EQ(focus(), "Combo2");
        auto *moment = find<QTimer>("NoteTimer");
        moment->start(0);
        QSignalSpy(moment, &QTimer::timeout).wait();
        EXPECT_EQ(shown("Note") + find("Combo1")->accessibleDescription().toStdString(), "");
        fill("Text1=0.0"); // nothing to do, nothing to say
        click("SSCommand3");
        fill("Combo1=3 Combo2=2 Text2=1"); // no node stands between them
        click("SSCommand3");
    });
    EXPECT_THAT(logged(navy), ElementsAre("Moved nodes: #2 to #3, dx=0.5, dy=0",
                                          "Moved nodes: #3 to #2, dx=0, dy=1"));
    EXPECT_EQ(model(), moved);
    EXPECT_EQ(redraws(), 2);
    for (const auto &[entries, run] : std::initializer_list<std::pair<const char *, const char *>>{
             {"Combo2=2 Combo1=3!", "3|3"},
             {"Combo2=2 Combo1=3", "3|3"}, // by Apply alone
             {"Combo2=3 Combo1=2!", "2|3"}})
        in<frmMETAKINISI>([&, entries = entries, run = run] {
            fill(entries);
            click("SSCommand3");
            EXPECT_EQ(shownIn("Combo1 Combo2"), run) << entries;
        });

    desktop.events.clear();
    buildModel("N 0 0; N 3e38 0");
    const char *missing = "The number of a node is missing.";
    expectRefusal<frmMETAKINISI>("Combo1= Text1=1", missing, "Combo1");
    expectRefusal<frmMETAKINISI>("Combo2=31 Text1=1", "There is no node #31.", "Combo2");
    expectRefusal<frmMETAKINISI>(
        "Text1=1 Text2=1.234,5",
        "The number given has a separator of thousands, or more than one decimal separator.",
        "Text2");
    expectRefusal<frmSigxonefsi>("Combo2=", missing, "Combo2");
    expectRefusal<frmSigxonefsi>("Combo1=-1", "There is no node #-1.", "Combo1");
    expectRefusal<frmMETAKINISI>("Text2=1e39", "The number given is too large.", "Text2");
    expectRefusal<frmMETAKINISI>("Combo2=2 Text1=3e38", "The number given is too large.", "Text1");
}

TEST_F(Tools, MergeNodes)
{
    // Nodes 2 and 4 are to be one; two elements stand between them.
    const std::string text = "G 1 1 1; N 0 0 xxx; N 2 0 ooo 7; N 4 2; N 3 1; N 9 9; S 4 1 1 1;";
    const std::string ends = "E 1 2 1; E 2 4 1; E 4 3 1; E 4 2 1; E 5 4 1 1";
    const std::string left = "E 1 2 1; E 2 3 1; E 5 2 1 1";
    const auto question = [](int e) {
        return "Between nodes to be merged there is element #" + std::to_string(e) + ".";
    };
    const std::string ask =
        "\r\nDo you want this element to be deleted in order for the nodes to be merged?";
    for (const auto &[answers, rest] : std::initializer_list<std::pair<std::string, std::string>>{
             {"oo", left}, {"c", ends}, {"oc", "E 1 2 1; E 4 3 1; E 4 2 1; E 5 4 1 1"}}) {
        SCOPED_TRACE(answers); // o OK, c Cancel, to the question for each element
        const std::string expected = modelOf(text + rest);
        buildModel(text + ends);
        desktop.events.clear();
        // The second of them moves up when the first is deleted.
        for (int e = 2; const char answer : answers)
            desktop.expectMessage(question(e++) + ask, Icon::question,
                                  answer == 'o' ? Answer::ok : Answer::cancel);
        in<frmSigxonefsi>([&] {
            EXPECT_EQ(shownIn("Combo1 Combo2"), "1|1");
            fill("Combo1=2 Combo2=2 Check1=o");
            click("SSCommand3"); // a node and itself: nothing
            fill("Combo2=4");
            click("SSCommand3");
            EXPECT_TRUE(form->isVisible());
        });
        EXPECT_EQ(model(), expected);
        EXPECT_EQ(Allagi_Montelou, answers != "c");
        EXPECT_EQ(redraws(), answers == "c" ? 0 : 1);
    }
    desktop.log.clear();
    buildModel("N 0 0; N 1 0; N 5 5");
    in<frmSigxonefsi>([&] {
        fill("Combo1=3 Combo2=1 Check2=x");
        click("SSCommand3");
        EXPECT_EQ(shownIn("Combo1 Combo2"), "1|1"); // of those that are left
        EXPECT_EQ(find<QComboBox>("Combo2")->count(), 2);
    });
    ASSERT_EQ(desktop.log.size(), 3U);
    EXPECT_EQ(desktop.log[0], (LogLine{"Node # 1 merged in node #3.", navy}));
    EXPECT_EQ(desktop.log[1], (LogLine{"Node # 3 moved to the middle of segment A\u0392.", navy}));
    EXPECT_EQ(desktop.log[2].colour, green);
    EXPECT_EQ(model(), modelOf("N 1 0; N 2.5 2.5"));
}

TEST_F(Tools, DivideElements)
{
    const std::string divided =
        modelOf("G 1 1 1; N 0 0; N 3 6; N 1 2; N 2 4; E 1 3 1 1 0 7 8; E 3 4 1 0 0 7 8;"
                "E 4 2 1 0 1 7 8");
    buildModel("G 1 1 1; N 0 0; N 3 6; E 1 2 1 1 1 7 8");
    Katastasi_Provolis = view::Q;
    in<frmDiairesi>([&] {
        for (const char *nothing : {"1", "1.4", "0.6"}) {
            fill(std::string("Text1=") + nothing);
            click("SSCommand3");
        }
        EXPECT_EQ(Arithmos_Stoixeion, 1);
        fill("Text1=3!");
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(shownIn("Combo1 Combo2"), "1|1");
        EXPECT_EQ(find<QComboBox>("Combo2")->count(), 3);
        EXPECT_EQ(model(), divided);
        EXPECT_EQ(Katastasi_Provolis, view::model);
        EXPECT_TRUE(Allagi_Montelou);
        fill("Combo1=3 Combo2=1 Text1=5!"); // the first above the last
    });
    EXPECT_EQ(model(), divided);
    EXPECT_THAT(logged(navy), ElementsAre("Elements divided: #1 to #1 into 3 segments each.",
                                          "Elements divided: #3 to #1 into 5 segments each."));

    for (const char *k : {"", "0", "0.5", "2.5", "-1", "x", "1e400"})
        expectRefusal<frmDiairesi>(std::string("Text1=") + k,
                                   "The value of segments that you have given is unacceptable.",
                                   "Text1");
    expectRefusal<frmDiairesi>("Combo1= Text1=2", "The number of an element is missing.", "Combo1");
    expectRefusal<frmDiairesi>("Combo2=2.5 Text1=2", "There is no element #2.5.", "Combo2");
    const std::string nodes =
        "This division operation requires more nodes than the maximum number of nodes.\r\n\r\n";
    expectRefusal<frmDiairesi>("Combo2=3 Text1=67", nodes + "202 > Max.nodes = 200", "Text1");
    expectRefusal<frmDiairesi>("Text1=1e12", nodes + "1000000000003 > Max.nodes = 200", "Text1");
    for (int e = Arithmos_Stoixeion; e < 250; ++e)
        putElement(1, 2);
    expectRefusal<frmDiairesi>("Combo2=3 Text1=18",
                               "This division operation requires more elements than the maximum "
                               "number of elements.\r\n\r\n301 > Max.elements = 300",
                               "Text1");
}

TEST_F(Tools, CreateArc)
{
    const std::string quarter = "Text1=0 Text2=0 Text3=1 Text4=0 Text5=0 Text6=2 ";
    buildModel("G 1 1 1; G 2 2 2; N 5 5 xxx");
    in<frmKykliko>([&] {
        EXPECT_EQ(shownIn("LabelR LabelTheta Combo1"), "0|360|1");
        fill(quarter);
        EXPECT_EQ(shownIn("LabelR LabelTheta"), "1|90");
        fill("Text7=2 Combo1=2!");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_THAT(logged(navy),
                ElementsAre("New element #1, Node i: #2, Node j: #3, Group: #2, P2 Type",
                            "New element #2, Node i: #3, Node j: #4, Group: #2, P2 Type",
                            "New node #2, x=1, y=0, Free",
                            "New node #3, x=0.7071068, y=0.7071068, Free",
                            "New node #4, x=6.123234E-17, y=1, Free"));
    EXPECT_TRUE(Allagi_Montelou);
    EXPECT_EQ(redraws(), 1);

    buildModel("G 1 1 1; N 7 7");
    desktop.expectMessage("Do you want to create a whole circle?", Icon::question, Answer::cancel);
    desktop.expectMessage("Do you want to create a whole circle?", Icon::question, Answer::ok);
    in<frmKykliko>([&] {
        fill("Text3=1 Text5=2 Text7=4");
        EXPECT_EQ(shown("LabelTheta"), "360");
        click("SSCommand3");
        EXPECT_EQ(Arithmos_Kombon, 1);
        click("SSCommand3");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_EQ(Arithmos_Kombon, 5);

    const std::string number = "The value given for the number of elements is unacceptable.";
    const std::string radius = "The radius of the specified arc is zero.";
    desktop.events.clear();
    buildModel("G 1 1 1; N 0 0; N 1 1; E 1 2 1");
    for (const auto &[entries, says, leadsTo] : std::initializer_list<std::array<std::string, 3>>{
             {quarter + "Text7=0", number, "Text7"},
             {quarter + "Text7=1.5", number, "Text7"},
             {quarter + "Text7=1e400", number, "Text7"},
             {"Text7=", number, "Text7"}, // before the radius
             {quarter + "Text7=2 Combo1=2", "There is no group #2.", "Combo1"},
             {"Text7=3", radius, "Text3"},
             {"Text3=1 Text5=2 Text7=1", number, "Text7"}, // a circle of one element
             {"Text3=1e39 Text7=1", "The number given is too large.", "Text3"},
             {quarter + "Text7=198",
              "The maximum number of nodes that can be defined is 200. This action whould require "
              "201 nodes.",
              "Text7"}})
        expectRefusal<frmKykliko>(entries, says, leadsTo.c_str());
    for (int e = Arithmos_Stoixeion; e < 200; ++e)
        putElement(1, 2);
    expectRefusal<frmKykliko>(quarter + "Text7=101",
                              "The maximum number of elements that can be defined is 300. This "
                              "action whould require 301 elements.",
                              "Text7");
}

TEST_F(Tools, ArcHelpUnfolds)
{
    buildModel("G 1 1 1");
    in<frmKykliko>([&] {
        const int narrow = form->width();
        click("SSCommand1");
        EXPECT_EQ(find<QAbstractButton>("SSCommand1")->text().remove('&'), "Help <-");
        EXPECT_GE(form->width(), 7020 / 15);
        EXPECT_FALSE(find<QLabel>("Image1")->pixmap().isNull());
        click("SSCommand1");
        EXPECT_EQ(form->width(), narrow);
    });
    // Higher than the screen, the contents scroll; the buttons stay, and so does the focus.
    in<frmKykliko>([&] {
        find("Label7")->setMinimumHeight(3000);
        click("SSCommand1");
        EXPECT_TRUE(form->screen()->availableGeometry().contains(form->geometry()));
        const auto isInSight = [&](const char *name) {
            return form->rect().contains(find(name)->geometry().translated(
                       find(name)->parentWidget()->mapTo(form, QPoint())))
                   && !find(name)->visibleRegion().isEmpty();
        };
        EXPECT_TRUE(isInSight("SSCommand3"));
        find<QScrollArea>("area")->ensureVisible(0, 3000);
        EXPECT_FALSE(isInSight("Text2"));
        find("Text2")->setFocus();
        EXPECT_TRUE(isInSight("Text2"));
    });
}

TEST_F(Tools, CoincidentNodes)
{
    const std::string question =
        "Give the value for tolerance (Max. distance for which two nodes are considered to "
        "coincide).\r\n\r\n(Value between [0 , 0.001], Default=10E-5)";
    struct Case
    {
        const char *answer, *note, *tolerance;
        std::vector<const char *> pairs;
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
            EXPECT_THAT(said[i],
                        testing::StartsWith("Nodes: " + std::string(c.pairs[i])
                                            + " theoretically coincide.\r\n\r\nDistance between "
                                              "them D= "));
        EXPECT_THAT(logged(red), ElementsAre(end));
    }
    EXPECT_EQ(said.front(), "Nodes: #1 and #2 theoretically coincide.\r\n\r\nDistance between them "
                            "D= 0.000499963760375977"); // of Singles
    EXPECT_EQ(model(), before);

    desktop.expectQuestion("0.000,5");
    desktop.expectMessage(
        "The number given has a separator of thousands, or more than one decimal separator.");
    findCoincidentNodes();
}

TEST_F(Tools, CoincidentElements)
{
    const std::string before =
        modelOf("G 1 1 1; G 2 2 2; N 0 0; N 1 0; N 2 0; E 1 2 1; E 2 3 1; E 2 1 2 1 1; E 1 2 1");
    const auto pair = [](const char *elements, const char *nodes) {
        return "The elements " + std::string(elements) + " between nodes " + nodes
               + " coincide. One of them must be deleted.";
    };
    const std::string first = pair("#1 and #3", "#1 and #2");
    const std::string second = pair("#1 and #4", "#1 and #2");
    const std::string third = pair("#3 and #4", "#2 and #1");
    const std::string goOn = "\r\nShall the search for coincident elements continue?";
    const std::string end = "The search for coincident elements is completed. 3 incidences of "
                            "coincident elements were found.";
    desktop.expectMessage(first + goOn, Icon::information, Answer::yes);
    desktop.expectMessage(second + goOn, Icon::information, Answer::yes);
    desktop.expectMessage(third + goOn, Icon::information, Answer::yes);
    desktop.expectMessage(end, Icon::information);
    findCoincidentElements();
    EXPECT_THAT(logged(red), ElementsAre(first, second, third, end));

    desktop.expectMessage(first + goOn, Icon::information, Answer::yes);
    desktop.expectMessage(second + goOn, Icon::information, Answer::no);
    findCoincidentElements();
    EXPECT_THAT(logged(red), ElementsAre(first, second));
    EXPECT_EQ(model(), before);
}

TEST_F(MainWindow, DividingGoesBackToTheModel)
{
    start(TEST_DATA "/small.vsk");
    const int elements = Arithmos_Stoixeion;
    Allagi_Montelou = false;
    trigger("mnuDIAG_Qitem");
    ASSERT_EQ(Katastasi_Provolis, view::Q);
    QTimer::singleShot(0, window.get(), [&] {
        QWidget *form = QApplication::activeModalWidget();
        form->findChild<QLineEdit *>("Text1")->setText("2");
        form->findChild<QAbstractButton *>("SSCommand3")->click();
        form->close();
    });
    trigger("mnuDIAIRESIitem");
    EXPECT_EQ(Arithmos_Stoixeion, elements + 1);
    EXPECT_EQ(Katastasi_Provolis, view::model);
    EXPECT_EQ(panel("Panel7"), " Model");
    EXPECT_FALSE(find<QAbstractButton>("Command1")->isVisible());
}

} // namespace
} // namespace veskora
