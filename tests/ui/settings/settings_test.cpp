// View options, colour picker and welcome form on the offscreen platform, opened from the window as
// the user opens them.

#include "Files.h"
#include "Forms.h"
#include "frmAbout.h"
#include "frmXROMATA.h"
#include "MainWindowTest.h"
#include "QtColour.h"
#include "Registry.h"
#include "SettingsFile.h"
#include "Version.h"

#include <QColorDialog>
#include <QMenu>
#include <QSettings>
#include <QTabWidget>

#include <map>
#include <set>

namespace fs = std::filesystem;

namespace veskora {
namespace {

class Settings : public MainWindow, protected Forms
{
protected:
    template <typename Talk>
    void withOptions(Talk talk)
    {
        during([this] { trigger("Rithmiseis"); }, talk);
    }
    /// @return whether the form is still there
    bool options(const std::string &acts)
    {
        bool stays = false;
        withOptions([&] {
            act(acts);
            stays = form->isVisible();
        });
        return stays;
    }
    /// The colour that the picker answers for @p given.
    template <typename Talk>
    double picked(double given, Talk talk)
    {
        double answer = 0;
        during([&] { answer = Epilogi_Xromatos(given, nullptr); }, talk);
        return answer;
    }

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

    /// Picks a colour of the palette for what @p button shows.
    void pickFor(const char *button, const char *colour)
    {
        during([&] { act(button); }, [&] { act(colour + std::string(" SSCommand2")); });
    }
    std::string stored(const char *key, const char *section = "Rithmiseis")
    {
        return qtDesktop->setting(section, key, "none");
    }
};

// Each control alone changes the running value of its own setting, and no other, nor the store.
TEST_F(Settings, EveryControlHasItsOwnSetting)
{
    start();
    std::map<std::string, std::string> controls;
    for (const QStringList &row : rowsOf(contentOf(TEST_DATA "/settings_controls.txt")))
        controls[row.at(0).toStdString()] = row.at(1).toStdString();
    ASSERT_EQ(controls.size(), settings.size());
    for (const Setting &setting : settings) {
        setStandardSettings();
        auto expected = values();
        SettingValue &value = expected.at(setting.key);
        const std::string &name = controls.at(setting.key);
        withOptions([&] {
            if (auto *on = std::get_if<bool>(&value)) {
                *on = !*on;
                act(name);
            } else if (std::holds_alternative<double>(value)) {
                value = 65280.0;
                pickFor(name.c_str(), "Picture1(10)");
            } else if (std::holds_alternative<float>(value)) {
                value = 2.5F;
                type(name, "2,5 m");
            } else {
                value = std::int16_t{12};
                type(name, "12abc");
            }
            EXPECT_EQ(values().at(setting.key), standardValue(setting)); // not before it is applied
            act("SSCommand3");
            EXPECT_EQ(values(), expected) << name;
        });
        options("SSCommand5"); // what is shown is what is there
        EXPECT_EQ(values(), expected) << name;
        EXPECT_EQ(stored(setting.key), "none");
    }
}

TEST_F(Settings, ApplyShowsAndCancelDoesNot)
{
    start();
    nai_aksones = false;
    for (const bool applies : {false, true})
        withOptions([&] {
            act("Check1 Check2");
            pickFor("Label1(0)", "Picture1(11)");
            act(applies ? "SSCommand3" : "SSCommand1");
            EXPECT_EQ(form->isVisible(), applies);
            EXPECT_EQ(nai_aksones, applies);
            EXPECT_EQ(nai_grid, !applies);
        });
    EXPECT_TRUE(find<QWidget>("Aksones")->property("look").toBool());
    EXPECT_FALSE(find<QWidget>("Kannabos")->property("look").toBool());
    EXPECT_EQ(canvas().kanvas().image().pixelColor(3, 3), QColor(Qt::cyan));
}

TEST_F(Settings, ANewModelKeepsTheGridStepThatTheUserGave)
{
    const auto nothing = [] {};
    const auto opensAFile = [this] {
        desktop.expectFileDialog(TEST_DATA "/small.vsk");
        trigger("Open");
    };
    const auto setsADefault = [this] { options("Text7=4 SSCommand13 SSCommand1"); };
    const std::tuple<const char *, std::function<void()>, float> cases[] = {
        {"2", nothing, 2}, {"0.5", nothing, .5F}, {"0.5", opensAFile, 2}, {"0.5", setsADefault, 4}};
    for (const auto &[typed, then, expected] : cases) {
        qtDesktop->storeSetting("Rithmiseis", "kannab", "2");
        reopen();
        start();
        options("Text7=" + std::string(typed) + " SSCommand5");
        then();
        trigger("New");
        EXPECT_EQ(kannab, expected);
    }
}

TEST_F(Settings, DefaultWritesTheStoreAlone)
{
    start();
    const auto before = values();
    withOptions([&] {
        act("Check1 SSOption2 Command2 Text1=2.1e8 Text5=0");
        pickFor("Label17", "Picture1(15)");
        act("SSCommand13");
        EXPECT_TRUE(form->isVisible());
    });
    EXPECT_EQ(values(), before);
    EXPECT_EQ(log().last(), " The options shown are the defaults of the program now.");
    std::string all;
    for (const char *key : {"nai_aksones", "nai_springs", "Ena_cm_posa_KNm_M", "dekadika_Q",
                            "xroma_M", "xroma_background"})
        all += stored(key) + " ";
    EXPECT_EQ(all, "False True 2.1E+08 0 16777215 -2147483634 ");

    reopen();
    start();
    EXPECT_FALSE(nai_aksones || nai_graf_stir || N_sin_Ina);
    EXPECT_EQ(Ena_cm_posa_KNm_M, 2.1e8F);
    EXPECT_EQ(dekadika_Q, 0);
    EXPECT_EQ(xroma_M, 16777215);

    // Restore changes the dialog alone, whatever then becomes of it.
    const auto changed = values();
    withOptions([&] {
        act("SSCommand14");
        EXPECT_EQ(shownIn("SSOption1 Command2 Check1 Text1 Text5"), "x|x|x|100|3");
        act("SSCommand1");
    });
    EXPECT_EQ(values(), changed);
    EXPECT_EQ(stored("nai_aksones"), "False");
    EXPECT_TRUE(options("SSCommand14 SSCommand13"));
    EXPECT_EQ(values(), changed);
    EXPECT_EQ(stored("nai_aksones"), "True");
    EXPECT_EQ(stored("xroma_grid"), "14737632");
    EXPECT_FALSE(options("SSCommand14 SSCommand5"));
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
               act("Command1");
           });
    openDesktop();
    for (int time = 0; time < 2; ++time)
        desktop.expectMessage(refusal);
    during([this] { start(); }, [&] { act("Check1 Command1"); });
    options("SSCommand13");
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
    for (const char *key : {"[Return]", "[Esc]"}) {
        desktop.expectFileDialog(path("a")); // the toolkit asks for no "a.vsk"
        desktop.expectFileDialog(std::nullopt);
        std::string name = "not yet";
        qtDesktop->asksItself = true;
        during([&] { name = askSavePath("*.vsk", "a", ".vsk"); }, [&] { act(key); });
        qtDesktop->asksItself = false;
        EXPECT_EQ(name, "");
    }
}

// All at fault at once: each is refused in its turn, until it is mended.
TEST_F(Settings, TypedNumbersAreTestedInTheirOrder)
{
    start();
    const auto before = values();
    withOptions([&] {
        act("Text1=0 Text2=0 Text3=0 Text8=0 Text7=0 Text4=2.5 Text5=2.5 Text6=2.5");
        for (const QStringList &row : rowsOf(contentOf(TEST_DATA "/options_refusals.txt"))) {
            const std::string field = row.at(0).toStdString(), says = row.at(2).toStdString();
            const int page = row.at(1).toInt();
            auto *tabs = control<QTabWidget>("SSTab1");
            for (const char *button : {"SSCommand13", "SSCommand3", "SSCommand5"}) {
                tabs->setCurrentIndex((page + 1) % 3);
                desktop.expectMessage(says);
                act(button);
                EXPECT_EQ(tabs->currentIndex(), page) << says;
                EXPECT_EQ(valueOf("focus"), field) << says;
                EXPECT_EQ(line(field)->selectedText(), line(field)->text());
                EXPECT_EQ(log().last().toStdString(), " " + says);
            }
            EXPECT_EQ(values(), before);
            type(field, row.at(3).toStdString());
        }
        act("SSCommand3");
    });
    EXPECT_EQ(dekadika_M, 13);
    EXPECT_EQ(dekadika_N, 0);
    EXPECT_EQ(stored("kannab"), "none");
}

TEST_F(Settings, ChecksGovernTheirFields)
{
    start();
    nai_grid = nai_times_Q = false;
    const std::pair<const char *, const char *> governed[] = {{"Check2", "Text7"},
                                                              {"Check6", "SSOption1"},
                                                              {"Check6", "SSOption2"},
                                                              {"Check15", "Text4"},
                                                              {"Check16", "Text5"},
                                                              {"Check17", "Text6"},
                                                              {"Check6", "SmallHeldRotation"}};
    for (const auto &[check, field] : governed)
        withOptions([&, check = check, field = field] {
            for (int time = 0; time < 2; ++time) {
                EXPECT_EQ(control(field)->isEnabled(), valueOf(check) == "x") << field;
                act(check);
            }
        });
    // What cannot have the focus is reached by its check.
    withOptions([&] {
        control<QLineEdit>("Text5")->setText("x.5");
        control<QLineEdit>("Text7")->setText("no");
        desktop.expectMessage("The value given for grid is unacceptable.");
        act("SSCommand3");
        EXPECT_EQ(valueOf("focus"), "Check2");
    });
    // A direction's picture follows it.
    withOptions([&] {
        for (const char *name : {"Command1", "Command2", "Command3"}) {
            std::set<qint64> pictures;
            for (int i = 0; i < 4; ++i) {
                pictures.insert(control<QAbstractButton>(name)->icon().cacheKey());
                act(name);
            }
            EXPECT_EQ(pictures.size(), 2U);
            EXPECT_EQ(valueOf(name), "x");
        }
    });
}

TEST_F(Settings, ThePickerAnswersWhatWasChosen)
{
    start();
    for (const QStringList &row : rowsOf(contentOf(TEST_DATA "/picker.txt"))) {
        const auto acts = [&] { act(row.at(1).toStdString()); };
        EXPECT_EQ(picked(row.at(0).toDouble(), acts), row.at(2).toInt(nullptr, 0))
            << row.at(1).toStdString();
    }
    EXPECT_EQ(picked(5, [] {}), 5); // closed by its frame

    // The palette: the button down takes a colour, a drag takes on, what lies outside is nothing.
    const std::pair<QPoint, double> places[] = {{{0, 0}, 0x808080},   {{142, 0}, 0x808080},
                                                {{70, 73}, 0},        {{0, 1}, 0xF8F8FF},
                                                {{142, 1}, 0xF8F8FF}, {{200, 1}, 7}};
    for (const auto &[place, colour] : places)
        EXPECT_EQ(picked(7,
                         [&, place = place] {
                             mouseOnPalette(QEvent::MouseButtonPress, Qt::LeftButton, place);
                             act("SSCommand2");
                         }),
                  colour)
            << place.x() << "," << place.y();
    const auto dragged = [&](const char *button) {
        return picked(7, [&] {
            mouseOnPalette(QEvent::MouseMove, Qt::NoButton, {0, 0}); // not held yet
            mouseOnPalette(QEvent::MouseButtonPress, Qt::LeftButton, {30, 40});
            mouseOnPalette(QEvent::MouseMove, Qt::LeftButton, {0, 0});
            mouseOnPalette(QEvent::MouseMove, Qt::LeftButton, {-1, 40});
            mouseOnPalette(QEvent::MouseButtonRelease, Qt::LeftButton, {-1, 40});
            mouseOnPalette(QEvent::MouseMove, Qt::NoButton, {30, 40});
            act(button);
        });
    };
    EXPECT_EQ(dragged("SSCommand2"), 0x808080);
    EXPECT_EQ(dragged("SSCommand3"), -1);

    // The frame around the current colour is seen beside every colour.
    for (const double colour : {0., 8421504., 16777215.})
        EXPECT_EQ(picked(colour,
                         [&] {
                             const QImage shown = control("currentFrame")->grab().toImage();
                             const auto grey = [&](int x) { return qGray(shown.pixel(x, 9)); };
                             EXPECT_GT(std::abs(grey(0) - grey(1)), 100);
                             EXPECT_EQ(QColor(shown.pixel(9, 9)), qtColour(colour));
                             act("SSCommand2");
                         }),
                  colour);

    const auto more = [&](QDialog::DialogCode code) {
        return picked(0x0000FF, [&] {
            during([&] { act("SSCommand1"); },
                   [&] {
                       auto *dialog = qobject_cast<QColorDialog *>(form);
                       EXPECT_EQ(dialog->currentColor(), QColor(Qt::red));
                       dialog->setCurrentColor(QColor(1, 2, 3));
                       static_cast<QDialog *>(dialog)->done(code);
                   });
            act("SSCommand2");
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
               act("Command1");
           });
    EXPECT_THAT(said, testing::HasSubstr("The language pack Deutsch lacks"));
    EXPECT_EQ(menu(), "Datei");
    EXPECT_EQ(find<QLabel>("Label1")->text(), "Sprache: Deutsch");
    EXPECT_TRUE(find<QLabel>("Label1")->isVisible());
    EXPECT_EQ(stored("Language"), "Deutsch");
    EXPECT_EQ(stored("ShowForm", "Startup"), "none");

    // Left by Esc: the language stays, the tick counts.
    desktop.expectAnyMessage(said);
    during(next, [&] {
        EXPECT_EQ(control<QComboBox>("Combo1")->currentText(), "Deutsch");
        control<QComboBox>("Combo1")->setCurrentText("English");
        act("Check1 [Esc]");
    });
    EXPECT_EQ(menu(), "Datei");
    EXPECT_EQ(stored("ShowForm", "Startup"), "0");

    desktop.expectAnyMessage(said);
    next(); // no form
    {
        frmAbout about;
        form = &about;
        EXPECT_EQ(control<QLabel>("Label3")->text(), "Sprache: Deutsch");
        act("Check1");
        about.done(0);
        form = nullptr;
    }

    // The pack has gone: the language is kept until another is chosen.
    fs::remove(path("Languages/Deutsch.lng"));
    desktop.expectAnyMessage(said);
    during(next, [&] {
        act("Check1 Command1"); // tells nothing twice
    });
    EXPECT_THAT(said, testing::HasSubstr("could not be read"));
    EXPECT_EQ(menu(), "File");
    EXPECT_FALSE(find<QLabel>("Label1")->isVisible());
    EXPECT_EQ(stored("Language"), "Deutsch");

    // A newer program shows the form once more.
    for (const char *version : {"0.99", "1", "2.50"}) {
        qtDesktop->storeSetting("Startup", "ShowForm", "0");
        qtDesktop->storeSetting("Startup", "Version", version);
        desktop.expectAnyMessage(said);
        if (std::string(version) == "0.99")
            during(next, [&] { EXPECT_EQ(stored("ShowForm", "Startup"), "1"); });
        else
            next();
        EXPECT_EQ(stored("Version", "Startup"), programVersion);
    }
}

} // namespace
} // namespace veskora
