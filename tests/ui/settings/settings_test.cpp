// View options, colour picker and welcome form on the offscreen platform, opened from the window as
// the user opens them.

#include "Files.h"
#include "frmAbout.h"
#include "frmWelcome.h"
#include "frmXROMATA.h"
#include "MainWindowTest.h"
#include "QtColour.h"
#include "Registry.h"
#include "SettingsFile.h"
#include "Version.h"

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSettings>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <map>
#include <set>

namespace fs = std::filesystem;

namespace veskora {
namespace {

class Settings : public MainWindow
{
protected:
    /// Talks to the modal form that @p open shows, then closes it by its frame.
    template <typename Open, typename Talk>
    void during(Open open, Talk talk)
    {
        bool came = false;
        QTimer::singleShot(0, qApp, [&] {
            came = true;
            QWidget *outer = form;
            form = QApplication::activeModalWidget();
            try {
                talk();
            } catch (const std::exception &lost) {
                ADD_FAILURE() << lost.what();
            }
            form->close();
            form = outer;
        });
        open();
        EXPECT_TRUE(came);
    }
    template <typename Talk>
    void withOptions(Talk talk)
    {
        during([this] { trigger("Rithmiseis"); }, talk);
    }
    /// The colour that the picker answers for @p given.
    template <typename Talk>
    double picked(double given, Talk talk)
    {
        double answer = 0;
        during([&] { answer = Epilogi_Xromatos(given, nullptr); }, talk);
        return answer;
    }

    template <typename Object = QWidget>
    Object *control(const std::string &name)
    {
        auto *object = form->findChild<Object *>(QString::fromStdString(name));
        if (object == nullptr)
            throw std::runtime_error("no control named " + name);
        return object;
    }
    void press(const std::string &button) { control<QAbstractButton>(button)->click(); }
    bool isOn(const std::string &button) { return control<QAbstractButton>(button)->isChecked(); }
    void type(const std::string &field, const std::string &text)
    {
        control<QLineEdit>(field)->clear();
        QTest::keyClicks(control(field), QString::fromStdString(text));
    }
    std::string shown(const std::string &field)
    {
        return control<QLineEdit>(field)->text().toStdString();
    }
    int tab() { return control<QTabWidget>("SSTab1")->currentIndex(); }
    void mouseOnPalette(QEvent::Type type, Qt::MouseButton button, QPoint place)
    {
        QMouseEvent event(type, place, control("pCol")->mapToGlobal(place),
                          type == QEvent::MouseMove ? Qt::NoButton : button, button,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(control("pCol"), &event);
    }

    static std::map<std::string, SettingValue> values()
    {
        std::map<std::string, SettingValue> all;
        for (const Setting &setting : settings)
            all[setting.key] = currentValue(setting);
        return all;
    }

    QWidget *form = nullptr;
};

/// Every setting and its control.
const std::map<std::string, std::string> controls = {
    {"nai_aksones", "Check1"},
    {"nai_grid", "Check2"},
    {"kannab", "Text7"},
    {"nai_komboi", "Check4"},
    {"nai_arithmisi_kombon", "Check5"},
    {"nai_desmefseis", "Check6"},
    {"nai_graf_stir", "SSOption2"},
    {"nai_sint_kombon", "Check7"},
    {"nai_springs", "Check3"},
    {"nai_stoixeia", "Check8"},
    {"nai_arithmisi_stoixeion", "Check9"},
    {"nai_eleftheroseis", "Check10"},
    {"nai_omades", "Check11"},
    {"nai_miki", "Check12"},
    {"nai_fortiseis_si", "Check13"},
    {"nai_times_fortiseon_si", "Check14"},
    {"nai_fortiseis_om", "Check19"},
    {"nai_times_fortiseon_om", "Check18"},
    {"nai_times_M", "Check15"},
    {"nai_times_Q", "Check16"},
    {"nai_times_N", "Check17"},
    {"Q_sin_Ina", "Command1"},
    {"N_sin_Ina", "Command2"},
    {"M_sin_Tension", "Command3"},
    {"Ena_cm_posa_KNm_M", "Text1"},
    {"Ena_cm_posa_KN_Q", "Text2"},
    {"Ena_cm_posa_KN_N", "Text3"},
    {"Ena_cm_posa_m_epi_1000", "Text8"},
    {"dekadika_M", "Text4"},
    {"dekadika_Q", "Text5"},
    {"dekadika_N", "Text6"},
    {"xroma_background", "Label1(0)"},
    {"xroma_aksonon", "Label1(1)"},
    {"xroma_grid", "Label1(2)"},
    {"xroma_stoixeion", "Label1(4)"},
    {"xroma_kombon", "Label1(3)"},
    {"xroma_sigkentromenon", "Label1(5)"},
    {"xroma_omoiomorfon", "Label1(6)"},
    {"xroma_paramorfosis", "Label1(7)"},
    {"xroma_M", "Label17"},
    {"xroma_Q", "Label18"},
    {"xroma_N", "Label19"},
    {"Nai_Apolites_Sint", "CheckApol"},
    {"Nai_Sxetikes_Sint", "CheckSxet"},
    {"smallHeldRotation", "SmallHeldRotation"},
};

// Each control alone changes the running value of its own setting, and no other, nor the store.
TEST_F(Settings, EveryControlHasItsOwnSetting)
{
    start();
    ASSERT_EQ(controls.size(), settings.size());
    for (const Setting &setting : settings) {
        setStandardSettings();
        auto expected = values();
        SettingValue &value = expected.at(setting.key);
        const std::string &name = controls.at(setting.key);
        withOptions([&] {
            if (auto *on = std::get_if<bool>(&value)) {
                *on = !*on;
                press(name);
            } else if (std::holds_alternative<double>(value)) {
                value = 65280.0;
                during([&] { press(name); },
                       [&] {
                           press("Picture1(10)");
                           press("SSCommand2");
                       });
            } else if (std::holds_alternative<float>(value)) {
                value = 2.5F;
                type(name, "2,5 m");
            } else {
                value = std::int16_t{12};
                type(name, "12abc");
            }
            EXPECT_EQ(values().at(setting.key), standardValue(setting)); // not before it is applied
            press("SSCommand3");
            EXPECT_EQ(values(), expected) << name;
        });
        withOptions([&] { press("SSCommand5"); }); // what is shown is what is there
        EXPECT_EQ(values(), expected) << name;
        EXPECT_EQ(qtDesktop->setting("Rithmiseis", setting.key, "none"), "none");
    }
}

TEST_F(Settings, ApplyShowsAndCancelDoesNot)
{
    start();
    nai_aksones = false;
    withOptions([&] {
        press("Check1");
        press("Check2");
        during([&] { press("Label1(0)"); }, [&] { press("Picture1(11)"), press("SSCommand2"); });
        press("SSCommand1");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_FALSE(nai_aksones);
    EXPECT_TRUE(nai_grid);
    withOptions([&] {
        press("Check1");
        press("Check2");
        during([&] { press("Label1(0)"); }, [&] { press("Picture1(11)"), press("SSCommand2"); });
        press("SSCommand3");
        EXPECT_TRUE(form->isVisible());
        EXPECT_TRUE(find<QWidget>("Aksones")->property("look").toBool());
        EXPECT_FALSE(find<QWidget>("Kannabos")->property("look").toBool());
        EXPECT_EQ(canvas().kanvas().image().pixelColor(3, 3), QColor(Qt::cyan));
    });
}

TEST_F(Settings, ANewModelKeepsTheGridStepThatTheUserGave)
{
    enum What { nothing, opensAFile, setsADefault };
    for (const auto &[typed, then, expected] : {std::tuple{"2", nothing, 2.F},
                                                {"0.5", nothing, .5F},
                                                {"0.5", opensAFile, 2.F},
                                                {"0.5", setsADefault, 4.F}}) {
        qtDesktop->storeSetting("Rithmiseis", "kannab", "2");
        reopen();
        start();
        withOptions([&, typed = typed] { type("Text7", typed), press("SSCommand5"); });
        if (then == opensAFile) {
            desktop.expectFileDialog(TEST_DATA "/small.vsk");
            trigger("Open");
        } else if (then == setsADefault) {
            withOptions([&] { type("Text7", "4"), press("SSCommand13"), press("SSCommand1"); });
        }
        trigger("New");
        EXPECT_EQ(kannab, expected);
    }
}

TEST_F(Settings, DefaultWritesTheStoreAlone)
{
    start();
    const auto before = values();
    withOptions([&] {
        press("Check1");
        press("SSOption2");
        press("Command2");
        type("Text1", "2.1e8");
        type("Text5", "0");
        during([&] { press("Label17"); }, [&] { press("Picture1(15)"), press("SSCommand2"); });
        press("SSCommand13");
        EXPECT_TRUE(form->isVisible());
    });
    EXPECT_EQ(values(), before);
    EXPECT_EQ(log().last(), " The options shown are the defaults of the program now.");
    const auto stored = [this](const char *key) {
        return qtDesktop->setting("Rithmiseis", key, "none");
    };
    EXPECT_EQ(stored("nai_aksones"), "False");
    EXPECT_EQ(stored("nai_springs"), "True");
    EXPECT_EQ(stored("Ena_cm_posa_KNm_M"), "2.1E+08");
    EXPECT_EQ(stored("dekadika_Q"), "0");
    EXPECT_EQ(stored("xroma_M"), "16777215");
    EXPECT_EQ(stored("xroma_background"), "-2147483634");

    reopen();
    start();
    EXPECT_FALSE(nai_aksones || nai_graf_stir || N_sin_Ina);
    EXPECT_EQ(Ena_cm_posa_KNm_M, 2.1e8F);
    EXPECT_EQ(dekadika_Q, 0);
    EXPECT_EQ(xroma_M, 16777215);

    // Restore changes the dialog alone, whatever then becomes of it.
    const auto changed = values();
    withOptions([&] {
        press("SSCommand14");
        EXPECT_TRUE(isOn("SSOption1") && isOn("Command2") && isOn("Check1"));
        EXPECT_EQ(shown("Text1") + " " + shown("Text5"), "100 3");
        press("SSCommand1");
    });
    EXPECT_EQ(values(), changed);
    EXPECT_EQ(stored("nai_aksones"), "False");
    withOptions([&] {
        press("SSCommand14");
        press("SSCommand13");
    });
    EXPECT_EQ(values(), changed);
    EXPECT_EQ(stored("nai_aksones"), "True");
    EXPECT_EQ(stored("xroma_grid"), "14737632");
    withOptions([&] {
        press("SSCommand14");
        press("SSCommand5");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_EQ(values(), before);
}

TEST_F(Settings, AreReadAfreshAndARefusalIsTold)
{
    start();
    // As another copy of the program leaves them, or a hand.
    write(path("config/" + title + "/settings.ini"),
          "[Startup]\nShowForm=0\n[Rithmiseis]\nkannab=2.5\nxroma_M=@ByteArray(7)\n"
          "dekadika_M=\ndekadika_Q=5\nxroma_Q=\n");
    trigger("mnuNEOitem");
    EXPECT_EQ(kannab, 2.5F);
    EXPECT_EQ(dekadika_M, 3);
    EXPECT_EQ(dekadika_Q, 5);
    EXPECT_EQ(xroma_M, 3557577);
    EXPECT_EQ(xroma_Q, 10499638);

    write(path("file"), "where the folder of the settings would be");
    ::setenv("XDG_CONFIG_HOME", path("file").c_str(), 1);
    openDesktop();
    const std::string refusal =
        "The settings could not be written to the file: " + path("file/" + title + "/settings.ini");
    fs::create_directory(path("Languages"));
    write(path("Languages/Deutsch.lng"),
          "h,h\n1651,\"The settings could not be written to the file:\"\nEND");
    std::string incomplete;
    during([this] { start(); },
           [&] {
               control<QComboBox>("Combo1")->setCurrentText("Deutsch");
               desktop.expectAnyMessage(incomplete);
               desktop.expectMessage(refusal);
               press("Command1");
           });
    openDesktop();
    during([this] { start(); },
           [&] {
               press("Check1");
               desktop.expectMessage(refusal);
               press("Command1");
           });
    withOptions([&] {
        desktop.expectMessage(refusal);
        press("SSCommand13");
    });
    EXPECT_FALSE(log().last().contains("defaults"));
}

TEST_F(Settings, TheirFileIsThatOfTheToolkit)
{
    const QString file = QString::fromStdString(path("own/settings.ini"));
    int number = 0;
    for (const char *sample :
         {"1.5", "", " a b ", "a, b;c=d", "a \"b\" \\x", "@a", "\u00e4\u4e2d\U0001f600",
          "\n\r\t\a\x01"
          "fg\x02",
          "/a/[b]#%20.vsk"}) {
        const QString text = sample;
        const QString key = QString::number(++number);
        QSettings(file, QSettings::IniFormat).setValue("Theirs/" + key, text);
        SettingsFile own(file);
        EXPECT_EQ(own.value("Theirs", key), text);
        own.store("Ours", key, text);
        EXPECT_TRUE(own.write());
        EXPECT_EQ(QSettings(file, QSettings::IniFormat).value("Ours/" + key), text);
        EXPECT_EQ(SettingsFile(file).value("Ours", key), text);
    }
    // What cannot be read is not replaced, and what was stored waits.
    const QString other = QString::fromStdString(path("other.ini"));
    fs::create_directory(path("other.ini"));
    SettingsFile refused(other);
    refused.store("A", "b", "c");
    EXPECT_FALSE(refused.write());
    fs::remove(path("other.ini"));
    write(path("other.ini"), "[A]\nd = e, f \n;b=1\nb=2");
    EXPECT_TRUE(refused.write());
    EXPECT_EQ(contentOf(path("other.ini")), "[A]\nb=c\nd=e, f\n");
}

TEST_F(Settings, AnExistingFileIsNotReplacedByEnterOrEscape)
{
    start();
    write(path("a.vsk"), "the user's");
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        desktop.expectFileDialog(path("a")); // the toolkit asks for no "a.vsk"
        desktop.expectFileDialog(std::nullopt);
        std::string name = "not yet";
        qtDesktop->asksItself = true;
        during([&] { name = askSavePath("*.vsk", "a", ".vsk"); },
               [&] { QTest::keyClick(form, static_cast<Qt::Key>(key)); });
        qtDesktop->asksItself = false;
        EXPECT_EQ(name, "");
    }
}

// All at fault at once: each is refused in its turn, until it is mended.
TEST_F(Settings, TypedNumbersAreTestedInTheirOrder)
{
    start();
    const auto before = values();
    struct Case
    {
        const char *field, *text;
        int tab;
        const char *says;
    };
    const std::string given = "The value given for ";
    withOptions([&] {
        for (const char *field : {"Text1", "Text2", "Text3", "Text8", "Text7"})
            type(field, "0");
        for (const char *field : {"Text4", "Text5", "Text6"})
            type(field, "2.5");
        for (const Case &c : {
                 Case{"Text1", "1", 2, "the equivalence cm - M units is unacceptable."},
                 Case{"Text2", "1e-60", 2, "the equivalence cm - Q units is unacceptable."},
                 Case{"Text2", "1", 2, "the equivalence cm - Q units is unacceptable."},
                 Case{"Text3", "1", 2, "the equivalence cm - N units is unacceptable."},
                 Case{"Text8", "1e60", 1, "the equivalence cm - D units is unacceptable."},
                 Case{"Text8", "1", 1, "the equivalence cm - D units is unacceptable."},
                 Case{"Text4", "-1", 2, "the decimal places (M Diagram) is unacceptable."},
                 Case{"Text4", "14", 2, "the decimal places (M Diagram) is unacceptable."},
                 Case{"Text4", "13", 2, "The maximum number for decimal places is 13 (M Diagram)."},
                 Case{"Text5", "1e300", 2, "the decimal places (Q Diagram) is unacceptable."},
                 Case{"Text5", "0", 2, "The maximum number for decimal places is 13 (Q Diagram)."},
                 Case{"Text6", "99", 2, "the decimal places (N Diagram) is unacceptable."},
                 Case{"Text6", "", 2, "The maximum number for decimal places is 13 (N Diagram)."},
                 Case{"Text7", "1.234,5", 0, "grid is unacceptable."},
                 Case{"Text7", "1", 0,
                      "The number given has a separator of thousands, or more than one decimal "
                      "separator."},
             }) {
            const std::string says = (*c.says == 'T' ? "" : given) + c.says;
            for (const char *button : {"SSCommand13", "SSCommand3", "SSCommand5"}) {
                control<QTabWidget>("SSTab1")->setCurrentIndex((c.tab + 1) % 3);
                desktop.expectMessage(says);
                press(button);
                EXPECT_EQ(tab(), c.tab) << says;
                EXPECT_EQ(form->focusWidget(), control(c.field)) << says;
                EXPECT_EQ(control<QLineEdit>(c.field)->selectedText().toStdString(),
                          shown(c.field));
                EXPECT_EQ(log().last().toStdString(), " " + says);
            }
            EXPECT_EQ(values(), before);
            type(c.field, c.text);
        }
        press("SSCommand3");
    });
    EXPECT_EQ(dekadika_M, 13);
    EXPECT_EQ(dekadika_N, 0);
    EXPECT_EQ(qtDesktop->setting("Rithmiseis", "kannab", "none"), "none");
}

TEST_F(Settings, ChecksGovernTheirFields)
{
    start();
    nai_grid = nai_times_Q = false;
    struct Case
    {
        const char *check, *governed;
    };
    for (const Case &c :
         {Case{"Check2", "Text7"}, Case{"Check6", "SSOption1"}, Case{"Check6", "SSOption2"},
          Case{"Check15", "Text4"}, Case{"Check16", "Text5"}, Case{"Check17", "Text6"}})
        withOptions([&] {
            EXPECT_EQ(control(c.governed)->isEnabled(), isOn(c.check)) << c.governed;
            press(c.check);
            EXPECT_EQ(control(c.governed)->isEnabled(), isOn(c.check)) << c.governed;
        });
    // What cannot have the focus is reached by its check.
    withOptions([&] {
        control<QLineEdit>("Text5")->setText("x.5");
        control<QLineEdit>("Text7")->setText("no");
        desktop.expectMessage("The value given for grid is unacceptable.");
        press("SSCommand3");
        EXPECT_EQ(tab(), 0);
        EXPECT_EQ(form->focusWidget(), control("Check2"));
    });
    // A direction's picture follows it.
    withOptions([&] {
        for (const char *name : {"Command1", "Command2", "Command3"}) {
            std::set<qint64> pictures;
            for (int i = 0; i < 4; ++i) {
                pictures.insert(control<QAbstractButton>(name)->icon().cacheKey());
                press(name);
            }
            EXPECT_EQ(pictures.size(), 2U);
            EXPECT_TRUE(isOn(name));
        }
    });
}

TEST_F(Settings, ThePickerAnswersWhatWasChosen)
{
    start();
    constexpr double systemColour = -2147483634;
    const auto nothing = [] {};
    EXPECT_EQ(picked(systemColour, [&] { press("SSCommand2"); }), systemColour);
    EXPECT_EQ(picked(systemColour, nothing), systemColour); // closed by its frame
    EXPECT_EQ(picked(255, [&] { press("Picture1(9)"); }), 255);
    EXPECT_EQ(picked(255, [&] { QTest::keyClick(control("Picture1(9)"), Qt::Key_Return); }), 255);
    EXPECT_EQ(picked(255,
                     [&] {
                         QTest::keyClick(control("Picture1(9)"), Qt::Key_Space);
                         QTest::keyClick(control("Picture1(9)"), Qt::Key_Return); // is OK
                     }),
              0xFF0000);
    EXPECT_EQ(picked(255, [&] { press("Picture1(9)"), press("SSCommand3"); }), -1);
    EXPECT_EQ(picked(255, [&] { QTest::keyClick(form, Qt::Key_Escape); }), -1);
    EXPECT_EQ(picked(5, [&] { press("Picture1(6)"), press("SSCommand2"); }), 0x008080);

    // The palette: the button down takes a colour, a drag takes on, what lies outside is nothing.
    struct Case
    {
        QPoint place;
        double colour;
    };
    for (const Case &c : {Case{{0, 0}, 0x808080}, Case{{142, 0}, 0x808080}, Case{{70, 73}, 0},
                          Case{{0, 1}, 0xF8F8FF}, Case{{142, 1}, 0xF8F8FF}, Case{{200, 1}, 7}})
        EXPECT_EQ(picked(7,
                         [&] {
                             mouseOnPalette(QEvent::MouseButtonPress, Qt::LeftButton, c.place);
                             press("SSCommand2");
                         }),
                  c.colour)
            << c.place.x() << "," << c.place.y();
    const auto dragged = [&](const char *button) {
        return picked(7, [&] {
            mouseOnPalette(QEvent::MouseMove, Qt::NoButton, {0, 0}); // not held yet
            mouseOnPalette(QEvent::MouseButtonPress, Qt::LeftButton, {30, 40});
            mouseOnPalette(QEvent::MouseMove, Qt::LeftButton, {0, 0});
            mouseOnPalette(QEvent::MouseMove, Qt::LeftButton, {-1, 40});
            mouseOnPalette(QEvent::MouseButtonRelease, Qt::LeftButton, {-1, 40});
            mouseOnPalette(QEvent::MouseMove, Qt::NoButton, {30, 40});
            press(button);
        });
    };
    EXPECT_EQ(dragged("SSCommand2"), 0x808080);
    EXPECT_EQ(dragged("SSCommand3"), -1);

    // By keys: the swatches are one stop, arrows go where they point and end at the edge; so on the
    // palette, which begins in its middle.
    const auto keyed = [&](const char *from, std::initializer_list<int> keys) {
        return picked(7, [&] {
            form->activateWindow();
            QCoreApplication::processEvents(); // without it nothing is told of its focus
            control(from)->setFocus();
            for (const int key : keys)
                QTest::keyClick(form->focusWidget(), static_cast<Qt::Key>(key));
            press("SSCommand2");
        });
    };
    using enum Qt::Key;
    EXPECT_EQ(keyed("Picture1(1)", {Key_Down, Key_Right, Key_Space}), 0x00FF00);
    EXPECT_EQ(keyed("Picture1(15)", {Key_Right, Key_Down, Key_Up, Key_Left, Key_Space}), 0x008080);
    EXPECT_EQ(keyed("Picture1(12)",
                    {Key_Left, Key_Tab, Key_Tab, Key_Backtab, Key_Backtab, Key_Up, Key_Space}),
              0x808000);
    EXPECT_EQ(keyed("Picture1(0)", {Key_Tab, Key_Up, Key_Down}), 0xFFFF00); // pure cyan
    EXPECT_EQ(keyed("pCol", {Key_Left, Key_Right}), 0xFFFF00);

    // The frame around the current colour is seen beside every colour.
    for (const double colour : {0., 8421504., 16777215.})
        EXPECT_EQ(picked(colour,
                         [&] {
                             const QImage shown = control("currentFrame")->grab().toImage();
                             const auto grey = [&](int x) { return qGray(shown.pixel(x, 9)); };
                             EXPECT_GT(std::abs(grey(0) - grey(1)), 100);
                             EXPECT_EQ(QColor(shown.pixel(9, 9)), qtColour(colour));
                             press("SSCommand2");
                         }),
                  colour);

    const auto more = [&](QDialog::DialogCode code) {
        return picked(0x0000FF, [&] {
            during([&] { press("SSCommand1"); },
                   [&] {
                       auto *dialog = qobject_cast<QColorDialog *>(form);
                       EXPECT_EQ(dialog->currentColor(), QColor(Qt::red));
                       dialog->setCurrentColor(QColor(1, 2, 3));
                       static_cast<QDialog *>(dialog)->done(code);
                   });
            press("SSCommand2");
        });
    };
    EXPECT_EQ(more(QDialog::Accepted), 0x030201);
    EXPECT_EQ(more(QDialog::Rejected), 0x0000FF);
}

TEST_F(Settings, TheWelcomeFormComesWhenDueAndSetsTheLanguage)
{
    fs::create_directory(path("Languages"));
    write(path("Languages/Deutsch.lng"), "h,h\n1,\"Datei\"\n201,\"nein\"\n1101,\"Sprache: \"\nEND");
    write(path("Languages/English.lng"), "");
    const auto stored = [this](const char *section, const char *key) {
        return qtDesktop->setting(section, key, "none");
    };
    const auto menu = [this] { return find<QMenu>("mnuARXEIO")->title().remove('&'); };
    const auto next = [this] {
        reopen();
        start();
    };
    ::setenv("XDG_CONFIG_HOME", path("fresh").c_str(), 1);
    openDesktop();
    std::string said;
    during([&] { start(); },
           [&] {
               auto *languages = control<QComboBox>("Combo1");
               EXPECT_EQ(languages->count(), 2);
               EXPECT_EQ(languages->currentText(), "English");
               languages->setCurrentText("Deutsch");
               desktop.expectAnyMessage(said); // the pack is incomplete
               press("Command1");
           });
    EXPECT_THAT(said, testing::HasSubstr("The language pack Deutsch lacks"));
    EXPECT_EQ(menu(), "Datei");
    EXPECT_EQ(find<QLabel>("Label1")->text(), "Sprache: Deutsch");
    EXPECT_TRUE(find<QLabel>("Label1")->isVisible());
    EXPECT_EQ(stored("Rithmiseis", "Language"), "Deutsch");
    EXPECT_EQ(stored("Startup", "ShowForm"), "none");

    // Left by Esc: the language stays, the tick counts.
    desktop.expectAnyMessage(said);
    during(next, [&] {
        EXPECT_EQ(control<QComboBox>("Combo1")->currentText(), "Deutsch");
        control<QComboBox>("Combo1")->setCurrentText("English");
        press("Check1");
        QTest::keyClick(form, Qt::Key_Escape);
    });
    EXPECT_EQ(menu(), "Datei");
    EXPECT_EQ(stored("Startup", "ShowForm"), "0");

    desktop.expectAnyMessage(said);
    next(); // no form
    {
        frmAbout about;
        form = &about;
        EXPECT_EQ(control<QLabel>("Label3")->text(), "Sprache: Deutsch");
        press("Check1");
        about.done(0);
        form = nullptr;
    }

    // The pack has gone: the language is kept until another is chosen.
    fs::remove(path("Languages/Deutsch.lng"));
    desktop.expectAnyMessage(said);
    during(next, [&] {
        press("Check1");
        press("Command1"); // tells nothing twice
    });
    EXPECT_THAT(said, testing::HasSubstr("could not be read"));
    EXPECT_EQ(menu(), "File");
    EXPECT_FALSE(find<QLabel>("Label1")->isVisible());
    EXPECT_EQ(stored("Rithmiseis", "Language"), "Deutsch");

    // A newer program shows the form once more.
    for (const char *version : {"0.99", "1", "2.50"}) {
        qtDesktop->storeSetting("Startup", "ShowForm", "0");
        qtDesktop->storeSetting("Startup", "Version", version);
        desktop.expectAnyMessage(said);
        if (std::string(version) == "0.99")
            during(next, [&] { EXPECT_EQ(stored("Startup", "ShowForm"), "1"); });
        else
            next();
        EXPECT_EQ(stored("Startup", "Version"), programVersion);
    }
}

// In every language: nothing stays English that a pack can translate, what is in sight together has
// letters of its own, and every field a name.
TEST_F(Settings, SpeakTheLanguageAndAreReachedByKeys)
{
    start();
    for (int slot = 1; slot <= languageSlots; ++slot)
        Pinakas_Glossas(slot) = "Word" + std::to_string(slot);
    Nai_Agglika = false;
    const std::set<QString> signs = {"M, Q, N", "1 cm =", "*10<sup>-3</sup>", ""};
    const auto look = [&] {
        EXPECT_TRUE(form->windowTitle().startsWith("Word"));
        QSet<QString> letters;
        for (QWidget *widget : form->findChildren<QWidget *>()) {
            QString text =
                widget->property(widget->inherits("QGroupBox") ? "title" : "text").toString();
            if (widget->isVisible())
                if (const qsizetype at = text.indexOf('&'); at >= 0) {
                    EXPECT_FALSE(letters.contains(text.mid(at + 1, 1).toLower()))
                        << text.toStdString();
                    letters.insert(text.mid(at + 1, 1).toLower());
                }
            text.remove('&');
            const bool isField = widget->inherits("QLineEdit") || widget->inherits("QComboBox");
            EXPECT_TRUE(isField || text.startsWith("Word") || signs.contains(text)
                        || text.startsWith(QString::fromStdString(title)))
                << text.toStdString();
            EXPECT_TRUE(widget->toolTip().isEmpty() || widget->toolTip().startsWith("Word"));
        }
    };
    withOptions([&] {
        for (int page = 0; page < 3; ++page) {
            control<QTabWidget>("SSTab1")->setCurrentIndex(page);
            look();
        }
        EXPECT_EQ(control<QTabWidget>("SSTab1")->tabText(2), "M, Q, N");
    });
    (void)picked(0, [&] {
        look();
        for (const char *name : {"Picture1(0)", "Picture1(6)", "pCol"})
            EXPECT_TRUE(control(name)->accessibleName().startsWith("Word")) << name;
    });
    frmWelcome welcome;
    form = &welcome;
    welcome.show();
    look();
    form = nullptr;
}

} // namespace
} // namespace veskora
