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
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>

#include <map>
#include <sstream>

namespace veskora {
namespace {

using testing::ElementsAre;

class Dialogs : public StoreTest, protected Forms
{
public:
    /// On @p row; 0 is a new one, where the form has rows.
    template <typename Form>
    void in(int row, const std::function<void()> &talk)
    {
        Form dialog;
        Allagi_Montelou = false;
        desktop.events.clear();
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
    using In = void (Dialogs::*)(int row, const std::function<void()> &talk);
    const std::map<QString, In> forms = {{"frmOmades", &Dialogs::in<frmOmades>},
                                         {"frmKomboi", &Dialogs::in<frmKomboi>},
                                         {"frmStoixeia", &Dialogs::in<frmStoixeia>},
                                         {"frmEPIKOMBIO", &Dialogs::in<frmEPIKOMBIO>},
                                         {"frmOMOIOMORFO", &Dialogs::in<frmOMOIOMORFO>},
                                         {"frmMETAKINISI", &Dialogs::in<frmMETAKINISI>},
                                         {"frmSigxonefsi", &Dialogs::in<frmSigxonefsi>},
                                         {"frmDiairesi", &Dialogs::in<frmDiairesi>},
                                         {"frmKykliko", &Dialogs::in<frmKykliko>}};

    static std::string plain(QString text) { return text.replace("\\r\\n", "\r\n").toStdString(); }
    /// Expects what stands behind "says": "(icon answer) text", or the text of a usual box.
    void expectBox(QString text)
    {
        const std::map<QString, Icon> icons = {{"", Icon::exclamation},
                                               {"exclamation", Icon::exclamation},
                                               {"information", Icon::information},
                                               {"none", Icon::none},
                                               {"question", Icon::question}};
        const std::map<QString, Answer> answers = {{"", Answer::ok},
                                                   {"ok", Answer::ok},
                                                   {"cancel", Answer::cancel},
                                                   {"yes", Answer::yes},
                                                   {"no", Answer::no}};
        static const QRegularExpression kinds(R"(^\((\w+) (\w+)\) )");
        const QRegularExpressionMatch kind = kinds.match(text);
        desktop.expectMessage(plain(text.remove(kinds)), icons.at(kind.captured(1)),
                              answers.at(kind.captured(2)));
    }
    /// Acts, and compares what the controls show then.
    void does(const std::string &acts, const std::string &controls, const std::string &show)
    {
        act(acts);
        EXPECT_EQ(shownIn(controls), show);
    }
    void does(const QStringList &step)
    {
        for (const QString &box : step.filter(QRegularExpression("^says ")))
            expectBox(box.mid(5));
        const bool shows = step.size() > 2 && !step[2].startsWith("says ");
        does(step[0] == "-" ? "" : step[0].toStdString(), shows ? step[1].toStdString() : "",
             shows ? step[2].toStdString() : "");
    }
    /// Also of the form, the model, and what has been since the last call.
    std::string valueOf(const std::string &name) override
    {
        const auto tick = [](bool isSo) { return isSo ? "x" : "o"; };
        if (name.ends_with('#'))
            return std::to_string(control<QComboBox>(name.substr(0, name.size() - 1))->count());
        if (name == "open")
            return tick(form->isVisible());
        if (name == "selected")
            return line(valueOf("focus"))->selectedText().toStdString();
        if (name == "nodes")
            return std::to_string(Arithmos_Kombon);
        if (name == "elements")
            return std::to_string(Arithmos_Stoixeion);
        if (name == "changed")
            return tick(std::exchange(Allagi_Montelou, false));
        if (name == "redraws")
            return std::to_string(
                std::ranges::count(std::exchange(desktop.events, {}), std::string("redraw")));
        return Forms::valueOf(name);
    }
    /// The form is filled and applied, and nothing changes.
    void expectRefusal(In fill, const std::string &acts, const std::string &focus,
                       const std::string &says)
    {
        const std::string before = model();
        desktop.log.clear();
        desktop.expectMessage(says);
        (this->*fill)(0, [&] {
            does(acts + " SSCommand3", "open focus changed redraws", "x|" + focus + "|o|0");
            EXPECT_EQ(line(focus)->selectedText(), line(focus)->text());
        });
        EXPECT_THAT(logged(), ElementsAre("red " + says));
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

    QtDesktop resources; ///< for the pictures
};

TEST_F(Dialogs, ActAndShowAsTheirSessionsTell)
{
    const QStringList lines = QString::fromStdString(contentOf(TEST_DATA "/forms.txt")).split('\n');
    std::vector<std::string> log;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        const QString verb = lines[at].section(' ', 0, 0), argument = lines[at].section(' ', 1);
        SCOPED_TRACE((QString("forms.txt:%1: ").arg(at + 1) + lines[at]).toStdString());
        const auto eachLine = [&](const auto &takes) {
            for (; lines[at + 1].startsWith("  ") || lines[at + 1].startsWith('#'); ++at) {
                SCOPED_TRACE(at + 2);
                if (lines[at + 1].startsWith("  "))
                    takes(lines[at + 1].mid(2).split(" | "));
            }
        };
        if (forms.contains(verb)) {
            (this->*forms.at(verb))(
                argument.toInt(), [&] { eachLine([&](const QStringList &step) { does(step); }); });
        } else if (verb.startsWith("coincident")) {
            eachLine([&](const QStringList &box) { expectBox(box[0].mid(5)); });
            if (verb == "coincidentNodes")
                desktop.expectQuestion(argument.toStdString());
            verb == "coincidentNodes" ? findCoincidentNodes() : findCoincidentElements();
        } else if (verb == "log") {
            log.push_back(argument.toStdString());
        } else if (verb == "is") {
            const std::string found = model();
            EXPECT_EQ(found, modelOf(argument.toStdString()));
        } else if (verb == "model" || at + 1 == lines.size()) {
            EXPECT_EQ(logged(), std::exchange(log, {}));
            buildModel(argument.toStdString());
        } else if (verb == "nodes") {
            while (Arithmos_Kombon < argument.toInt())
                putNode(Arithmos_Kombon + 1, 0);
        } else if (verb == "asked") {
            EXPECT_EQ(plain(argument), desktop.textQuestions.back());
        } else {
            EXPECT_TRUE(verb.isEmpty() || verb == "#") << "no such verb";
        }
    }
}

TEST_F(Dialogs, RefuseInTheirOrderAndStoreNothing)
{
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
                          plain(cells.at(2)));
    }
}

// On an X server a repetition is a release and a press of one moment.
TEST_F(Dialogs, AKeyHeldDownIsOneKey)
{
    in<frmKomboi>(0, [&] {
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
        EXPECT_EQ(Arithmos_Kombon, 1);
    });
}

TEST_F(Dialogs, WhatHasBeenDoneIsToldForAMoment)
{
    buildModel("N 0 0");
    in<frmMETAKINISI>(0, [&] {
        act("Text1=1 SSCommand3");
        const auto heard = [this] {
            return control("Combo1")->accessibleDescription().toStdString();
        };
        EXPECT_EQ(heard(), valueOf("Note"));
        EXPECT_NE(heard(), "");
        auto *moment = control<QTimer>("NoteTimer");
        EXPECT_TRUE(moment->isActive());
        QMetaObject::invokeMethod(moment, "timeout");
        EXPECT_EQ(valueOf("Note") + heard(), "");
    });
}

TEST_F(Dialogs, ADirectionHasAConstraintOrASpring)
{
    buildModel("N 0 0 xoo; S 1 5 -6 7");
    in<frmKomboi>(1, [&] {
        const char *all = "SSCheck1 SSCheck2 ssCheck3 TextKX TextKY TextKZ";
        QApplication::clipboard()->setText("1e-60"); // no spring as a Single
        does("", all, "x|o|o|5||7");                 // a row with both shows both
        act("TextKX=.0 TextKX=-3");
        line("TextKX")->selectAll();
        line("TextKX")->paste();
        does("", all, "x|o|o|1e-60||7");
        does("TextKX=,2", all, "o|o|o|.2||7");
        does("ssCheck3", all, "o|o|x|.2||");
        act("ssCheck3 TextKY=8 TextKZ=9"); // taken away again, nothing comes back

        std::vector<QImage> images;
        for (const char *codes : {"o|o|o|.2|8|9", "x|o|o||8|9", "o|x|o|||9", "o|o|x|||", "x|x|o|||",
                                  "x|o|x|||", "o|x|x|||", "x|x|x|||"}) {
            does("", all, codes);
            const auto *picture = control<QAbstractButton>("Image1");
            images.push_back(picture->icon().pixmap(64).toImage());
            EXPECT_TRUE(picture->accessibleName().endsWith(
                QString::fromStdString(shownIn("SSCheck1 SSCheck2 ssCheck3")).remove('|')));
            act("Image1");
        }
        does("", all, "o|o|o|||");
        for (std::size_t i = 0; i < images.size(); ++i)
            EXPECT_EQ(std::ranges::count(images, images[i]), 1) << i;
    });
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
}

// The lines beside the lists are never cut inside a number.
TEST_F(Dialogs, LinesBesideTheListsAreWhole)
{
    buildModel("G 123456.789012345 1.23456789012345e-101 1.23456789012345e-102; G 1 2 3;"
               "N -1.234567e-30 -1.234567e-30; N -1.234567e-31 1.234567e-31; N 1 2; E 1 2 1");
    in<frmStoixeia>(1, [&] {
        does("", "Text1", "E= 123457, A= 1.23457E-101, I= 1.23457E-102");
        EXPECT_EQ(control("Text1")->toolTip(),
                  "E= 123456.789012345, A= 1.23456789012345E-101, I= 1.23456789012345E-102");
        const QWidget *places = control("Text4");
        EXPECT_LE(places->heightForWidth(places->width()), places->height());
        does("Combo2=2", "Text1", "E= 1, A= 2, I= 3");
        EXPECT_EQ(control("Text1")->toolTip(), "");
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
        does("", "Text2 Text3 TextKX", "1.5|2.|-0.25");
        line("Text2")->setCursorPosition(1); // the caret stays behind what was typed
        QTest::keyClicks(control("Text2"), ",7");
        does("", "Text2", "1.7.5");
    });
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
