// The main window on the offscreen platform: found by name, pressed as a user does, its boxes and
// file dialogs answered by a script.

#include "AnalysisCommands.h"
#include "Application.h"
#include "Commands.h"
#include "DataCases.h"
#include "DiagramOutline.h"
#include "Files.h"
#include "FileType.h"
#include "Functions_Bres_Megista.h"
#include "Kanvas.h"
#include "MainWindowTest.h"
#include "Models.h"
#include "ModelText.h"
#include "QtColour.h"
#include "Settings.h"
#include "StatusPanel.h"
#include "Text.h"
#include "Tool.h"
#include "Version.h"
#include "Zoom.h"

#include <QClipboard>
#include <QDialog>
#include <QFocusFrame>
#include <QMimeData>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <gmock/gmock.h>

#include <csignal>
#include <map>
#include <set>
#include <sstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace veskora {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using namespace std::string_literals;

TEST_F(MainWindow, StartsEmptyAndSaysWhatItIs)
{
    start();
    EXPECT_EQ(caption() + panel("Panel7"), title + " - Untitled.vsk Model");
    EXPECT_FALSE(shown("Command1"));
    EXPECT_TRUE(find<StatusPanel>("sint")->look());
    EXPECT_THAT(log().join('\n').toStdString(),
                testing::MatchesRegex(" Kalvorn Veskora ML - Linear static analysis of plane "
                                      "frames program\n.*\n \n [A-Z][a-z]+day [0-9].*"));
    EXPECT_EQ(qtDesktop->setting("Startup", "Version", ""), programVersion);
    EXPECT_EQ(Thesi_Istorikou, 0);
}

TEST_F(MainWindow, RegistersItsFileTypeAndHasTheDesktopsTablesMadeAnewForWhatChanged)
{
    const std::string type = path("data/mime/packages/veskora-ml.xml");
    const std::string entry = path("data/applications/veskora-ml.desktop");
    for (const char *tool : {"bin/update-mime-database", "bin/update-desktop-database"})
        makeProgram(tool, "#!/bin/sh\necho \"${0##*/} $1\" >>" + path("told") + "\n");
    ::setenv("PATH", path("bin").c_str(), 1);
    using Lines = std::multiset<std::string>;
    const auto told = [this] {
        std::istringstream words(contentOf(path("told")));
        Lines lines;
        for (std::string line; std::getline(words, line);)
            lines.insert(line);
        return lines;
    };
    const std::string mime = "update-mime-database " + path("data/mime");
    const std::string entries = "update-desktop-database " + path("data/applications");
    start();
    QTRY_COMPARE(told(), (Lines{mime, entries}));
    EXPECT_THAT(contentOf(type), HasSubstr("offset=\"36:37\""));
    EXPECT_THAT(contentOf(entry), ContainsRegex("Exec=\"/[^\n]*\" %f\n"));
    EXPECT_THAT(contentOf(path("data/icons/hicolor/scalable/apps/veskora-ml.svg")),
                HasSubstr("<svg"));
    write(type, "of an earlier version");
    reopen();
    start();
    QTRY_COMPARE(told(), (Lines{mime, mime, entries}));
    makeProgram("folder/Veskora_ML", ""); // what starts the program of the folder below
    registerFileType(QString::fromStdString(path("folder/bin/Veskora_ML")));
    EXPECT_THAT(contentOf(entry), HasSubstr("Exec=\"" + path("folder/Veskora_ML") + "\" %f\n"));
}

TEST_F(MainWindow, AnInstalledProgramStaysTheRegisteredOne)
{
    const std::map<std::string, const char *> parts = {
        {"icons/hicolor/scalable/apps/veskora-ml.svg", "<svg/>"},
        {"icons/hicolor/scalable/mimetypes/application-x-veskora-model.svg", "<svg/>"},
        {"mime/packages/veskora-ml.xml", "<mime-info/>"},
        {"applications/veskora-ml.desktop", "[Desktop Entry]\nExec=Veskora_ML %f\n"}};
    for (const auto &[part, content] : parts)
        makeProgram("system/" + part, content);
    ::setenv("XDG_DATA_DIRS", (path("none") + ":" + path("system")).c_str(), 1);
    ::setenv("PATH", path("bin").c_str(), 1);
    const std::string copied =
        "[Desktop Entry]\nExec=\"/b \\\\$c/Veskora_ML\" %f\nTerminal=false\n";
    const auto hasOwn = [this](const std::string &content) {
        return [=, this] { write(path("data/applications/veskora-ml.desktop"), content); };
    };
    const struct
    {
        const char *name;
        std::function<void()> before;
        long left; ///< of the copies in the user's folder
    } cases[] = {
        {"its program is gone", [] {}, 4},
        {"of the last start", [this] { makeProgram("bin/Veskora_ML", ""); }, 0},
        {"none", [] {}, 0},
        {"of an earlier version, another folder", hasOwn(copied), 0},
        {"of the user, with a line of theirs", hasOwn(copied + "Actions=new;\n"), 1},
        {"of the user, with another command",
         hasOwn("[Desktop Entry]\nExec=env A=1 Veskora_ML %f\n"), 1},
        {"not all is installed",
         [this] { fs::remove(path("system/mime/packages/veskora-ml.xml")); }, 4},
    };
    for (const auto &c : cases) {
        c.before();
        reopen();
        start();
        EXPECT_EQ(
            std::ranges::count_if(
                parts, [this](const auto &part) { return fs::exists(path("data/" + part.first)); }),
            c.left)
            << c.name;
    }
}

TEST_F(MainWindow, OpensTheFileOfTheCommandLineOrSaysWhyNot)
{
    const std::string file = path("a file with  blanks.vsk"), untitled = title + " - Untitled.vsk";
    const std::string error = "There was an error opening the file";
    std::string bare = small;
    bare.replace(bare.find("Rithmiseis\r\n1\r\n0\r\n1"), 19, "Rithmiseis\r\n0\r\n0\r\n0");
    for (const auto &[content, says, shown, nodes] : {
             std::tuple{bare, ""s, file + " - " + title, 2},
             {"", error + ": " + file + ": No such file or directory", untitled, 0},
             {small.substr(0, small.find("Omadas")).substr(0, 190),
              error + ": " + file + ": Input past end of file in line 7", untitled, 0},
             {"a\nb\nc\nd\ne\nf\n", error + ". The file could not be read.", untitled, 0},
             // It gives no place to save in.
             {small + "Journal of the model\r\n", "", "*" + untitled, 2},
         }) {
        SCOPED_TRACE(shown + says);
        fs::remove(file);
        if (!content.empty())
            write(file, content);
        reopen();
        if (!says.empty())
            desktop.expectMessage(says, Icon::critical);
        start(file);
        tick("JournalTimer");
        EXPECT_EQ(caption(), shown);
        EXPECT_EQ(Onoma_Arxeiou, shown.starts_with(file) ? file : "");
        EXPECT_EQ(Arithmos_Kombon, nodes);
        EXPECT_EQ(currentFolder + "/", path(""));
        EXPECT_EQ(endOfLog().fontWeight() == QFont::Bold, !says.starts_with(error + ":"));
        for (const char *part : {"Aksones", "Kannabos"})
            EXPECT_EQ(find<StatusPanel>(part)->look(), content != bare);
    }
    window->setCaption("a[*]b");
    EXPECT_EQ(window->windowTitle(), "[*]a[*][*]b");
}

// What is asked, what each answer does, and that nothing is lost by a Yes whose save did not come
// off.
TEST_F(MainWindow, AsksToSaveBeforeTheModelIsLeft)
{
    for (const bool isNamed : {true, false})
        for (const Answer answer : {Answer::ok, Answer::yes, Answer::no, Answer::cancel})
            for (const std::string command : {"mnuNEOitem", "mnuANAGNOSIitem", "mnuEKSODOSitem"}) {
                SCOPED_TRACE(testing::Message() << isNamed << int(answer) << command);
                const bool saves = answer == Answer::yes, leaves = answer != Answer::cancel;
                const bool closes = command == "mnuEKSODOSitem";
                write(path("m.vsk"), small);
                fs::remove(path("new.vsk"));
                reopen();
                start(isNamed ? path("m.vsk") : "");
                if (answer != Answer::ok) { // else nothing has changed
                    if (isNamed)
                        Ena_cm_posa_KN_Q = 55;
                    else
                        putGroup(1, 1, 1);
                    expectSaveQuestion(answer, isNamed ? path("m.vsk") : "Untitled.vsk",
                                       closes ? Icon::exclamation : Icon::none);
                }
                if (saves && !isNamed)
                    desktop.expectFileDialog(path("new"));
                if (leaves && command == "mnuANAGNOSIitem")
                    desktop.expectFileDialog(std::nullopt);
                trigger(command.c_str());
                desktop.expectNothingLeft();
                EXPECT_EQ(contentOf(path("m.vsk")) != small, saves && isNamed);
                EXPECT_EQ(fs::exists(path("new.vsk")), saves && !isNamed);
                EXPECT_EQ(window->isVisible(), !closes || !leaves);
                if (leaves && command == "mnuNEOitem") {
                    EXPECT_EQ(Arithmos_Kombon + Arithmos_Omadon, 0);
                }
            }
}

TEST_F(MainWindow, KeepsTheModelWhenTheSaveBeforeLeavingDidNotComeOff)
{
    for (const auto &[command, logHidden] :
         {std::pair{"mnuNEOitem"s, false}, {"mnuNEOitem", true}, {"mnuEKSODOSitem", false}}) {
        reopen();
        start();
        putGroup(7, 8, 9);
        if (logHidden)
            click("SSCommand32");
        const bool closing = command == "mnuEKSODOSitem";
        expectSaveQuestion(Answer::yes, "Untitled.vsk", closing ? Icon::exclamation : Icon::none);
        desktop.expectFileDialog(std::nullopt); // the save dialog is cancelled
        fs::remove_all(recovery());
        std::string said;
        if (closing || logHidden)
            desktop.expectAnyMessage(said);
        trigger(command.c_str());
        ASSERT_TRUE(fs::exists(recovery()));
        std::string kept = fs::directory_iterator(recovery())->path();
        const std::string text = "The model is kept in the recovery file: " + kept;
        EXPECT_EQ(said, closing || logHidden ? text : "");
        EXPECT_TRUE(log().contains(" " + QString::fromStdString(text)));
        Anagnosi_Arxeiou(kept);
        EXPECT_EQ(Omades(1, group::I), 9);
    }
}

TEST_F(MainWindow, AModelThatCanBeKeptNowhereIsNotLeft)
{
    start();
    putGroup(7, 8, 9);
    write(path("data/" + title), "a file where the data folder would be");
    const QByteArray home = qgetenv("HOME");
    for (const char *place : {"TMPDIR", "XDG_DOCUMENTS_DIR", "HOME"})
        qputenv(place, "/proc");
    expectSaveQuestion(Answer::yes, "Untitled.vsk", Icon::exclamation);
    desktop.expectFileDialog(std::nullopt);
    desktop.expectMessage("The model could not be kept.");
    trigger("mnuEKSODOSitem");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(Arithmos_Omadon, 1);
    qunsetenv("TMPDIR");
    qputenv("HOME", home);
}

TEST_F(MainWindow, AnotherModelIsShownAsAModelWithoutTheToolAtHand)
{
    for (const bool isNew : {true, false}) { // else an Open that is cancelled
        SCOPED_TRACE(isNew);
        startWithSmall();
        EXPECT_EQ(Thesi_Istorikou, 0);
        trigger("ZoomBestFit");
        trigger("Xeraki");
        Katastasi_Provolis = view::Q;
        Allagi_Montelou = false;
        xroma_background = 255; // a change of the file, and of the canvas only from here on
        expectSaveQuestion(Answer::no, path("m.vsk"));
        if (!isNew)
            desktop.expectFileDialog(std::nullopt);
        trigger(isNew ? "New" : "Open");
        EXPECT_EQ(caption() == title + " - Untitled.vsk", isNew);
        EXPECT_EQ(Arithmos_Kombon, isNew ? 0 : 2);
        EXPECT_EQ(Klimaka == 100, isNew);
        EXPECT_EQ(Thesi_Istorikou, isNew ? 0 : 1);
        EXPECT_EQ(Istoriko_Zoom(0, 1), 100);
        EXPECT_EQ(log().last() == " New file", isNew);
        EXPECT_TRUE(Allagi_Montelou);
        EXPECT_EQ(Katastasi_Provolis, view::model);
        EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
        EXPECT_EQ(xroma_background == 255, !isNew);
        EXPECT_EQ(canvas().kanvas().image().pixel(1, 1), qtColour(xroma_background).rgb());
    }
}

TEST_F(MainWindow, ComesBackWhereItWasOnAScreenThatIsThere)
{
    const auto stored = [this](const char *key) {
        return qtDesktop->setting("Startup", key, "standard");
    };
    start();
    window->setGeometry(50, 60, 700, 500);
    QCoreApplication::processEvents();
    trigger("mnuEKSODOSitem");
    EXPECT_EQ(stored("frmM_W") + " " + stored("frmM_T"), "10500 900");
    EXPECT_EQ(stored("WindowState") + " " + stored("nothing"), "0 standard");
    reopen();
    start();
    EXPECT_EQ(window->geometry(), QRect(50, 60, 700, 500));
    for (const auto &[key, value] : {std::pair{"frmM_L", "900000"},
                                     {"frmM_L", "-900000"},
                                     {"frmM_L", "nonsense"},
                                     {"frmM_L", "1e300"},
                                     {"frmM_W", "900000"}, // of a larger screen
                                     {"frmM_H", "900000"}}) {
        reopen();
        qtDesktop->storeSetting("Startup", key, value);
        start();
        EXPECT_TRUE(window->screen()->geometry().contains(window->frameGeometry())) << key << value;
    }
    reopen();
    qtDesktop->storeSetting("Startup", "WindowState", "2");
    window->start({});
    QCoreApplication::processEvents();
    putGroup(1, 1, 1);
    expectSaveQuestion(Answer::cancel, "Untitled.vsk", Icon::exclamation);
    qtDesktop->storeSetting("Startup", "WindowState", "");
    trigger("mnuEKSODOSitem");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(stored("WindowState"), "2");
    window->showMinimized(); // the question is asked about a window that is seen
    desktop.answerAnything = [this] {
        EXPECT_FALSE(window->isMinimized());
        return Answer::cancel;
    };
    trigger("mnuEKSODOSitem");
    EXPECT_TRUE(window->isVisible() && window->isMaximized());
}

TEST_F(MainWindow, ToolPointersHaveTheirHotSpotAtEveryScale)
{
    const QCursor pointer = PointerPicture{":/icons/pointer_hand.svg", 16, 18}.cursor(2);
    EXPECT_EQ(pointer.hotSpot(), QPoint(32, 36)); // in the picture's own pixels
    EXPECT_EQ(pointer.pixmap().size(), QSize(64, 64));
}

TEST_F(MainWindow, TheHourglassLiesOnTheWindowAndNotOnItsBoxes)
{
    start();
    buildModel("G 1 1 1; N 0 0 xxx; N 1 0 xxx; E 1 2 1"); // nothing is free: it fails
    int boxes = 0;
    desktop.answerAnything = [&] {
        ++boxes;
        EXPECT_EQ(canvas().cursor().shape(), Qt::WaitCursor);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        return Answer::ok;
    };
    trigger("Epilisi");
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
}

TEST_F(MainWindow, TheStatusBarHasRoomForItsTextsInEveryLanguage)
{
    fs::copy(TEST_DATA "/../../languages", path("Languages"));
    desktop.program = path("");
    for (const fs::directory_entry &pack : fs::directory_iterator(path("Languages"))) {
        SCOPED_TRACE(pack.path());
        qtDesktop->storeSetting("Rithmiseis", "Language", pack.path().stem().string());
        reopen();
        start();
        window->resize(666, 533);
        Allagi_Montelou = false;
        const auto *mode = find<QLabel>("Panel7");
        for (const char *command : {"Foreas", "M", "Q", "N", "Deform"}) {
            trigger(command);
            QCoreApplication::processEvents();
            EXPECT_GE(mode->width(), mode->fontMetrics().horizontalAdvance(mode->text()))
                << command;
        }
        const int place = find<QWidget>("sint")->x();
        click("sint");
        QCoreApplication::processEvents();
        EXPECT_EQ(find<QWidget>("sint")->x(), place);
    }
}

TEST_F(MainWindow, AHeldKeyGivesItsCommandOnce)
{
    start();
    buildModel("G 2e8 .01 1e-4; N 0 0 xxx; N 4 0; E 1 2 1");
    window->activateWindow();
    auto *button = find<QToolButton>("Epilisi");
    for (const int key : {Qt::Key_F5, Qt::Key_Return})
        for (const bool repeated : {false, true}) {
            Allagi_Montelou = true;
            QTest::simulateEvent(button, true, key, Qt::NoModifier, {}, repeated);
            EXPECT_EQ(Allagi_Montelou, repeated) << key;
        }
    // An X server's way to repeat: a release and a press of one moment.
    QTest::simulateEvent(button, true, Qt::Key_F5, Qt::NoModifier, {}, false);
    Allagi_Montelou = true;
    for (const int released : {Qt::Key_F5, Qt::Key_1}) {
        const auto send = [button](QEvent::Type type, int key) {
            QKeyEvent event(type, key, Qt::NoModifier);
            event.setTimestamp(700);
            QCoreApplication::sendEvent(button, &event);
        };
        send(QEvent::KeyRelease, released);
        send(QEvent::ShortcutOverride, Qt::Key_F5);
        QShortcutEvent command(QKeySequence(Qt::Key_F5), -1);
        QCoreApplication::sendEvent(find<QAction>("mnuEPILISIitem"), &command);
        EXPECT_EQ(Allagi_Montelou, released == Qt::Key_F5);
    }
}

TEST_F(MainWindow, SelectedTextOfTheLogStaysSelected)
{
    start();
    auto *log = find<QTextEdit>("RichTextBox1");
    for (const bool selected : {false, true}) {
        QContextMenuEvent asks(QContextMenuEvent::Mouse, {}, log->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(log->viewport(), &asks);
        EXPECT_EQ(window->findChild<QAction *>("logCopy") != nullptr, selected);
        trigger("logSelectAll");
        delete find<QMenu>("logMenu");
    }
    window->insertLog("\r\nnew", 0, false);
    EXPECT_EQ(log->textCursor().selectedText().count(QChar::ParagraphSeparator), 3);
}

// A style sheet of the application goes before every palette.
TEST_F(MainWindow, ColoursOfTheCanvasAndOfThePanelsStandAgainstAStyleSheet)
{
    start();
    qApp->setStyleSheet("* { color: #00ff00; background-color: #0000ff; }");
    window->Stigmiaio_Minima("M");
    Allagi_Montelou = false;
    trigger("Apotelesmata");
    QCoreApplication::processEvents();
    const auto tops = QApplication::topLevelWidgets();
    const auto results = std::ranges::find_if(
        tops, [](const QWidget *top) { return top->objectName() == "frmApotelesmata"; });
    ASSERT_NE(results, tops.end());
    const QColor lines = qtColour(xroma_stoixeion), ground = qtColour(xroma_background);
    const std::tuple<const QWidget *, const char *, QColor, QColor> cases[] = {
        {window.get(), "Label1", lines, ground},
        {window.get(), "Label2", lines, ground},
        {window.get(), "Label_Kombos", QColor(255, 128, 0), Qt::transparent},
        {window.get(), "Label_Stoixeio", Qt::red, Qt::transparent},
        {*results, "lblMAX", Qt::blue, {}},
        {*results, "lblMIN", Qt::red, {}}};
    for (const auto &[of, name, colour, behind] : cases) {
        auto *part = of->findChild<QLabel *>(name);
        part->ensurePolished();
        EXPECT_EQ(part->palette().color(part->foregroundRole()), colour) << name;
        EXPECT_TRUE(!behind.isValid() || part->palette().color(part->backgroundRole()) == behind)
            << name;
    }
    const auto look = [this] { return find<QWidget>("Aksones")->grab().toImage(); };
    const QImage on = look();
    find<StatusPanel>("Aksones")->setLook(false);
    EXPECT_NE(look(), on);
    qApp->setStyleSheet({});
}

// All in twips, from under the menu bar; fifteen are a pixel.
TEST_F(MainWindow, IsLaidOutByItsNumbers)
{
    start();
    const auto *central = find<QWidget>("centralwidget"), *log = find<QWidget>("RichTextBox1");
    const auto *collapse = find<QToolButton>("SSCommand32");
    for (const auto &[width, isClicked, height, top, left, text] :
         {std::tuple{900, false, 2340, 1875, 720, "x"},
          {900, true, 1320, 1290, 480, "<"},
          {901, false, 1335, 1305, 480, "<"},
          {901, true, 2220, 1755, 720, "x"}}) {
        SCOPED_TRACE(height);
        resize(width, 700);
        if (isClicked)
            click("SSCommand32");
        const int W = central->width() * 15;
        const int H = (central->height() + find<QWidget>("StatusBar1")->height()) * 15 + 420;
        EXPECT_EQ(canvas().geometry(), QRect(9, 0, (W - 285) / 15, (H - height) / 15));
        EXPECT_EQ(canvas().kanvas().image().size(), canvas().size());
        EXPECT_EQ(collapse->pos(), QPoint((W - left) / 15, (H - top - 420) / 15));
        EXPECT_EQ(collapse->text(), text);
        EXPECT_EQ(log->isVisible(), text == "x"s);
        const QRect beneath(9, canvas().height() + 3, canvas().width(),
                            central->height() - 6 - canvas().height());
        EXPECT_TRUE(log->isHidden() || log->geometry() == beneath);
    }
}

TEST_F(MainWindow, ToolsMoveTheViewAndSwitchEachOther)
{
    start();
    const double W = canvas().kanvas().width(), H = canvas().kanvas().height();
    // After a drag of a centimetre to the right and down: where a place of the model has come to.
    for (const auto &[button, entry, scale, from, to] :
         {std::tuple{"Xeraki", "mnuPANitem", 100., Point{5, 5}, Point{6, 6}},
          {"Zoom", "mnuZOOMitem", 105, {W / 2, H / 2}, {W / 2, H / 2}},
          {"Zoom_Window", "mnuWINDOWitem", 100 / std::min(W, H), {5.5, 5.5}, {W / 2, H / 2}}}) {
        SCOPED_TRACE(button);
        resetView();
        resetZoomHistory();
        const double x = Othoni_X(from.x), y = Othoni_Y(from.y);
        trigger(button); // switches from the last one
        EXPECT_EQ(canvas().cursor().shape(), Qt::BitmapCursor);
        trigger(button);
        EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
        trigger(entry);
        trigger(entry);   // it stays on
        drag(3, 3, 3, 3); // a click
        EXPECT_EQ(Thesi_Istorikou, 0);
        mouse(QEvent::MouseButtonPress, Qt::LeftButton, 5, 5);
        mouse(QEvent::MouseMove, Qt::LeftButton, 6, 6);
        EXPECT_EQ(shown("Shape1"), entry == "mnuWINDOWitem"s);
        mouse(QEvent::MouseButtonRelease, Qt::LeftButton, 6, 6);
        EXPECT_FALSE(shown("Shape1"));
        EXPECT_NEAR(Klimaka, scale, 1e-3);
        EXPECT_NEAR(Kosmos_X(x), to.x, .05); // the tool Zoom keeps the middle nearly
        EXPECT_NEAR(Kosmos_Y(y), to.y, .05);
        EXPECT_EQ(Thesi_Istorikou, 1);
        trigger(entry == "mnuPANitem"s ? "mnuPREVIOUSitem" : "Zoom_Previous");
        EXPECT_TRUE(Klimaka == 100 && Arxi_X == -2 && Arxi_Y == 2);
    }
    buildModel("N 0 0; N 1 0");
    trigger("mnuEXTENDSitem");
    EXPECT_NE(Klimaka, 100);
}

TEST_F(MainWindow, PanelsShowThePointerAndSwitchTheView)
{
    start();
    const double bottom = canvas().kanvas().height();
    nai_grid = false;
    mouse(QEvent::MouseMove, Qt::NoButton, 3.25, bottom - 2.5);
    EXPECT_THAT(panel("Panel1") + panel("Panel2"), testing::MatchesRegex("x = 1.2.*y = 0\\..*"));
    nai_grid = true;
    mouse(QEvent::MouseMove, Qt::NoButton, 3.3, bottom - 2.2);
    EXPECT_EQ(panel("Panel1") + panel("Panel2"), "x = 1y = 0");
    click("sint");
    EXPECT_FALSE(shown("Panel1") || shown("Panel2"));
    for (const auto &[part, setting] :
         {std::pair{"Aksones", &nai_aksones}, {"Kannabos", &nai_grid}})
        for (const bool isOn : {false, true}) {
            click(part);
            EXPECT_EQ(*setting, isOn) << part;
            EXPECT_EQ(find<StatusPanel>(part)->look(), isOn) << part;
        }
}

TEST_F(MainWindow, TheLabelsPopUpFlipsItsSwitches)
{
    start();
    bool *const switches[] = {&nai_arithmisi_kombon,
                              &nai_sint_kombon,
                              &nai_arithmisi_stoixeion,
                              &nai_omades,
                              &nai_miki,
                              &nai_times_fortiseon_si,
                              &nai_times_fortiseon_om,
                              &nai_times_M,
                              &nai_times_Q,
                              &nai_times_N};
    const auto states = [&switches] {
        std::string text;
        for (const bool *setting : switches)
            text += *setting ? '1' : '0';
        return text;
    };
    click("Times");
    auto *popup = find<QMenu>("mnu_Aorato_Times");
    EXPECT_TRUE(popup->isVisible());
    popup->close();
    std::string expected = states();
    auto next = expected.begin();
    for (QAction *entry : popup->actions())
        if (entry->isCheckable()) {
            SCOPED_TRACE(entry->objectName().toStdString());
            EXPECT_EQ(entry->isChecked(), *next == '1');
            entry->trigger();
            *next = *next == '1' ? '0' : '1';
            EXPECT_EQ(states(), expected);
            EXPECT_EQ(entry->isChecked(), *next++ == '1');
        }
    EXPECT_EQ(next, expected.end());
    for (const auto &[shown, command, after] :
         {std::tuple{view::model, "mnuKamia_item", "0000000000"},
          {view::model, "mnuOles_item", "1111111111"},
          {view::model, "mnuBasikes_item", "1010011111"},
          {view::N, "mnuBasikes_item", "0000000111"},
          {view::deformed, "mnuKamia_item", "0000000000"},
          {view::deformed, "mnuBasikes_item", "0000000000"}}) {
        Katastasi_Provolis = shown;
        trigger(command);
        EXPECT_EQ(states(), after) << command;
    }
}

TEST_F(MainWindow, AnalyzesAndShowsTheResults)
{
    startWithSmall();
    trigger("Epilisi");
    EXPECT_FALSE(Allagi_Montelou);
    EXPECT_THAT(log().at(log().size() - 2).toStdString(),
                ContainsRegex("^ Total time:  [0-9.E-]+ sec$"));
    EXPECT_TRUE(find<QAction>("ToolbarSeparator25")->isEnabled());
    EXPECT_EQ(find<QToolBar>("Toolbar2")->actions().at(25)->objectName(), "Epilisi");
    for (const auto &[button, entry, mode, text] :
         {std::tuple{"M", "mnuDIAG_Mitem", view::M, " Bending moment Diagram [M]"},
          {"Q", "mnuDIAG_Qitem", view::Q, " Shear force Diagram [Q]"},
          {"N", "mnuDIAG_Nitem", view::N, " Axial force Diagram [N]"},
          {"Deform", "mnuDEFORMitem", view::deformed, " Deformed model"},
          {"Foreas", "mnuFOREASitem", view::model, " Model"}})
        for (const char *command : {button, entry}) {
            Katastasi_Provolis = -1;
            trigger(command);
            EXPECT_EQ(Katastasi_Provolis, mode) << command;
            EXPECT_EQ(panel("Panel7"), text);
            EXPECT_EQ(shown("Command1") && shown("Command2"), mode != view::model);
        }
    trigger("M");
    click("Command1"); // 0.2 cm more on an ordinate of 6.58 / 100 cm
    EXPECT_FLOAT_EQ(Ena_cm_posa_KNm_M, 24.75F);
    Ena_cm_posa_KNm_M = static_cast<float>(Bres_Max_Abs_M() / (0.6 * Picture1().height()));
    trigger("ZoomBestFit"); // of the nodes, which leaves half of the height
    const CanvasView nodes = currentView();
    trigger("ZoomBestFit");
    EXPECT_FALSE(currentView() == nodes || isDiagramCut());
    trigger("ZoomBestFit");
    EXPECT_EQ(currentView(), nodes);
    EXPECT_EQ(log().filter("The diagram goes beyond the edge").size(),
              2); // as often as it came to be cut
    trigger("Foreas");
    EXPECT_FALSE(shown("Command1") || shown("Command2"));
}

TEST_F(MainWindow, ThePictureGoesOutAsItIsShown)
{
    startWithSmall();
    trigger("Epilisi");
    trigger("M");
    const QImage picture = canvas().kanvas().image().copy();
    canvas().setFocus();
    for (const bool byKeys : {false, true}) {
        QApplication::clipboard()->clear();
        if (byKeys)
            QTest::keyClick(&canvas(), Qt::Key_C, Qt::ControlModifier);
        else
            trigger("mnuEIKONA_Clipboard_item");
        EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(picture.format()), picture);
    }
    const char *bitmap = "mnuEIKONA_arxeio_bmp_item", *vectors = "mnuEIKONA_SVG_PDF_item";
    for (const auto &[command, chosen, pattern, file, begin] :
         {std::tuple{bitmap, "a", "", "a.bmp", "BM"},
          {bitmap, "b.bmp", "", "b.bmp", "BM"},
          {bitmap, "c.BMP", "", "c.BMP.bmp", "BM"},
          {vectors, "a", "", "a.svg", "<?xml"},
          {vectors, "b", "*.pdf", "b.pdf", "%PDF"},
          // The name proposed, another filter.
          {vectors, "c.svg", "*.pdf", "c.pdf", "%PDF"},
          {vectors, "d.pdf", "*.svg", "d.pdf", "%PDF"},
          {vectors, "e.png", "*.svg", "e.png.svg", "<?xml"}}) {
        desktop.filterPattern = pattern;
        desktop.expectFileDialog(path(chosen));
        trigger(command);
        EXPECT_TRUE(contentOf(path(file)).starts_with(begin)) << file;
        EXPECT_EQ(log().last().toStdString(), " Picture: " + path(file));
    }
    EXPECT_EQ(QImage(QString::fromStdString(path("a.bmp"))), picture);
    const std::string unsaved = "There was an error saving the file: " + path("none/d");
    for (const auto &[command, filter, proposed, says] :
         {std::tuple{bitmap, "Bitmap Files (*.bmp)|*.bmp", "Picture"s, ""s}, // fails in silence
          {vectors, "SVG files (*.svg)|*.svg|PDF files (*.pdf)|*.pdf", path("m_M.svg"), unsaved}}) {
        const QStringList before = log();
        std::string said;
        if (!says.empty())
            desktop.expectAnyMessage(said);
        for (const auto &chosen : {std::optional(path("none/d")), std::optional<std::string>()}) {
            desktop.expectFileDialog(chosen);
            trigger(command);
        }
        EXPECT_EQ(desktop.fileQuestions.back().filter, filter);
        EXPECT_EQ(desktop.fileQuestions.back().proposed, proposed);
        EXPECT_TRUE(said.starts_with(says)) << said;
        EXPECT_EQ(log(), says.empty() ? before : before + QStringList(qtText(" " + said)));
    }
}

TEST_F(MainWindow, ACommandOpensItsFormOrSaysWhatItLacks)
{
    start();
    for (const auto &[given, expected] : dataCases("commands.txt")) {
        SCOPED_TRACE(given);
        const std::size_t blank = std::min(given.find(' '), given.size());
        const std::string name = given.substr(0, blank);
        buildModel(given.substr(blank));
        const bool opens = expected.starts_with("frm");
        if (!opens)
            desktop.expectMessage(expected, Icon::exclamation, Answer::no);
        QString opened;
        answered(
            [&] {
                if (auto *command = window->findChild<QAction *>(name.c_str()))
                    command->trigger();
                else
                    click(name.c_str());
            },
            [&opened](QWidget &form) {
                opened = form.objectName();
                form.close();
            });
        EXPECT_EQ(opened.toStdString(), opens ? expected : "");
        desktop.expectNothingLeft();
        if (!opens && !expected.ends_with('?')) {
            EXPECT_EQ(log().last().toStdString(), " " + expected);
            EXPECT_EQ(endOfLog().foreground().color(), QColor(Qt::red));
        }
    }
}

TEST_F(MainWindow, EveryCommandStandsInItsPlaceWithATextAndAKeyOfItsOwn)
{
    start();
    std::set<QString> names, tips, keys;
    std::map<std::string, std::set<QString>> letters; ///< by what the command stands in
    const auto isNew = [](std::set<QString> &all, const QString &one) {
        return !one.isEmpty() && all.insert(one).second;
    };
    for (const Command &command : commands()) {
        SCOPED_TRACE(command.name);
        EXPECT_TRUE(isNew(names, command.name));
        const auto *menu = window->findChild<QMenu *>(command.name);
        const auto *action = menu != nullptr ? menu->menuAction() : find<QAction>(command.name);
        ASSERT_TRUE(find<QWidget>(command.place)->actions().contains(action));
        EXPECT_EQ(action->isSeparator(), command.caption.english == nullptr);
        EXPECT_EQ(action->isVisible(), command.name != "mnuDRAWING_DXF_item"s);
        if (action->isSeparator() || !action->isVisible())
            continue;
        EXPECT_EQ(QString(action->text()).remove('&').toStdString(), command.caption.english);
        const QString text = QKeySequence::listToString(action->shortcuts());
        EXPECT_EQ(text, command.keys);
        EXPECT_TRUE(text.isEmpty() || isNew(keys, text));
        EXPECT_EQ(command.icon == nullptr, action->icon().pixmap(20).isNull());
        if (command.place != "Toolbar2"s) {
            EXPECT_TRUE(
                isNew(letters[command.place], action->text().section('&', 1).left(1).toLower()));
            continue;
        }
        EXPECT_TRUE(isNew(tips, action->toolTip()));
        EXPECT_EQ(action->whatsThis(), action->toolTip());
        EXPECT_NE(find<QToolButton>(command.name)->focusPolicy(), Qt::NoFocus);
    }
    EXPECT_EQ(find<QToolBar>("Toolbar2")->actions().size(), 28);
    EXPECT_LE(find<QToolBar>("Toolbar2")->sizeHint().width(), window->minimumWidth());
}

TEST_F(MainWindow, AToolButtonShowsThatItHasTheFocus)
{
    start();
    const auto *focus = find<QFocusFrame>("ToolbarFocus");
    find<QToolButton>("Epilisi")->setFocus();
    EXPECT_EQ(focus->widget(), find<QToolButton>("Epilisi"));
    find<QTextEdit>("RichTextBox1")->setFocus();
    EXPECT_FALSE(focus->isVisible());
}

TEST_F(MainWindow, AnInstantMessageGoesAfterItsTime)
{
    start();
    window->Stigmiaio_Minima("Saved");
    EXPECT_TRUE(shown("Label1"));
    EXPECT_EQ(find<QTimer>("Timer1")->interval(), 5000);
    tick("Timer1");
    EXPECT_FALSE(shown("Label1"));
}

TEST_F(MainWindow, AnAbruptEndKeepsAModelThatIsNotInItsFile)
{
    using testing::ExitedWithCode;
    const std::string kept = "kept in the recovery file: ";
    struct Case
    {
        const char *name;
        void (*end)();
        std::function<bool(int)> status;
        std::string unchanged = "^$"; ///< what is said of a model that is as in its file
    };
    for (const Case &c : {
             Case{"as the toolkit ends when the display is lost", [] { std::exit(1); },
                  ExitedWithCode(1)},
             {"session's end", [] { std::raise(SIGTERM); }, ExitedWithCode(128 + SIGTERM)},
             {"library's fault", [] { std::terminate(); }, testing::KilledBySignal(SIGABRT)},
             {"fault", [] { QTimer::singleShot(0, [] { Komboi(999, 1) = 1; }); },
              ExitedWithCode(EXIT_FAILURE), "out of range(.|\n)*" + kept},
         })
        for (const bool changed : {false, true}) {
            SCOPED_TRACE(testing::Message() << c.name << changed);
            startWithSmall();
            if (changed)
                putGroup(3, 4, 5);
            EXPECT_EXIT(
                {
                    desktop.answerAnything = [] { return Answer::ok; };
                    std::atexit([] { ::_exit(1); }); // last: no search for leaks of libraries
                    guardOtherEnds();
                    c.end();
                    for (;;)
                        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
                },
                c.status, changed ? kept : c.unchanged);
            const bool isKept = changed || c.unchanged.ends_with(kept);
            ASSERT_EQ(fs::exists(recovery()), isKept);
            // The recovery file, and of a change the journal, which the next start offers.
            EXPECT_EQ(keptModels().size(), isKept ? 1 + changed : 0);
            EXPECT_THAT(keptModels(), testing::Each(HasSubstr(changed ? "\r\n2\r\n3\r\n4\r\n5\r\n"
                                                                      : "Omades\r\n")));
            fs::remove_all(recovery());
        }
}

TEST_F(MainWindow, OffersTheJournalOfAProcessThatIsGone)
{
    enum Reply { openIt, keepIt, deleteIt };
    struct Case
    {
        Reply reply;
        std::string model; ///< of the journal
        Answer leaves;     ///< the model of the command line, that was changed; ok where it was not
        bool opens, stays; ///< the journal, the latter after this process
    };
    const std::string journal = (recovery() / "Veskora_journal_1.vsk").string();
    const std::string a = path("a.vsk"), b = path("b.vsk");
    for (const Case &c : {Case{openIt, a, Answer::ok, true, false},
                          {openIt, "", Answer::no, true, false},
                          {openIt, a, Answer::cancel, false, true},
                          {keepIt, a, Answer::ok, false, true},
                          {deleteIt, a, Answer::ok, false, false}}) {
        SCOPED_TRACE(testing::Message() << c.reply << ' ' << c.model);
        const std::string name = c.model.empty() ? "Untitled.vsk" : c.model;
        write(b, small);
        fs::create_directories(recovery());
        std::string changed = small;
        changed.replace(changed.find("Komboi\r\n2\r\n\r\n1\r\n") + 16, 1, "3"); // the first x
        write(journal, changed + "Journal of the model\r\n" + c.model);
        write((recovery() / "Veskora_journal_1.lock").string(), "");
        reopen();
        const std::string says = "The program ended before this model was saved: " + name;
        const std::string where = "The journal has it as it was a moment before: " + journal;
        desktop.expectChoice(says + "\r\n\r\n" + where, c.reply);
        if (c.leaves != Answer::ok) {
            desktop.beforeChoice = [] { Ena_cm_posa_KN_Q = 55; };
            expectSaveQuestion(c.leaves, b);
        }
        start(b);
        desktop.beforeChoice = nullptr;
        for (const std::string &line : {says, where})
            EXPECT_EQ(log().count(" " + QString::fromStdString(line)), 1);
        EXPECT_EQ(Onoma_Arxeiou, c.opens ? c.model : b);
        EXPECT_EQ(Komboi(1, node::x) == 3, c.opens);
        if (c.opens) { // a model that has yet to be saved
            expectSaveQuestion(Answer::cancel, name);
            trigger("mnuNEOitem");
        }
        desktop.expectNothingLeft();
        window.reset();
        EXPECT_EQ(fs::exists(journal), c.stays);
    }
}

TEST_F(MainWindow, TitleAndJournalTellThatTheSaveQuestionWouldCome)
{
    std::string oldStage = small; // whose stage ends before the springs: it is never as it is saved
    oldStage.replace(oldStage.find("Elatiria") - 6, std::string::npos, std::string(modelEndLine));
    write(path("old.vsk"), oldStage);
    startWithSmall();
    desktop.answerAnything = [] { return Answer::no; };
    const auto open = [this](const char *name) {
        return [=, this] {
            desktop.expectFileDialog(path(name));
            trigger("Open");
        };
    };
    const auto loseFile = [this] {
        fs::remove(path("m.vsk"));
        comeBack();
    };
    const std::tuple<const char *, std::function<void()>, bool, int> cases[] = {
        {"opened", [] {}, false, 0},
        {"edited", [] { putNode(9, 9); }, true, 1},
        {"taken back", [] { --Arithmos_Kombon; }, false, 0},
        {"view", [] { Klimaka = 77; }, true, 1},
        {"saved", [this] { trigger("Save"); }, false, 0},
        {"emptied", [] { Katharismos_Montelou(); }, true, 0},
        {"new", [this] { trigger("New"); }, false, 0},
        {"unnamed", [] { putNode(1, 1); }, true, 1},
        {"of an earlier stage", open("old.vsk"), true, 0},
        {"of this one", open("m.vsk"), false, 0},
        {"gone", loseFile, true, 0},
    };
    for (const auto &[name, act, isMarked, journals] : cases) {
        act();
        for (int seconds = 0; seconds < 3; ++seconds) {
            tick("JournalTimer");
            find<JournalKeeper>("")->waitForWriting();
        }
        EXPECT_EQ(keptModels().size(), journals) << name;
        EXPECT_EQ(caption().starts_with('*'), isMarked) << name;
        EXPECT_EQ(FileCommands::isSaved(), !isMarked) << name;
    }
}

TEST_F(MainWindow, AFileChangedByAnotherProgramIsNotReplacedUnasked)
{
    const std::string file = path("m.vsk"), copy = path("copy.vsk");
    const std::string other = small + "another program's";
    struct Case
    {
        std::string command;
        Answer reply;
        std::optional<std::string> chosen = {}; ///< where another name is asked for
        std::string says = {};                  ///< on leaving the model without one
    };
    for (const Case &c : {
             Case{"mnuAPOTHIKEFSIitem", Answer::no},
             {"mnuAPOTHIKEFSIitem", Answer::yes},
             {"mnuAPOTHIKEFSIOSitem", Answer::ok, copy},
             {"mnuAPOTHIKEFSIOSitem", Answer::no, file},
             {"mnuNEOitem", Answer::yes},
             {"mnuNEOitem", Answer::no, copy},
             {"mnuEKSODOSitem", Answer::no, copy},
             {"mnuEKSODOSitem", Answer::no, std::nullopt,
              "The model is kept in the recovery file: "},
         }) {
        SCOPED_TRACE(c.command);
        fs::remove(copy);
        startWithSmall();
        Klimaka = 77;
        const std::string mine = modelText();
        write(file, other);
        comeBack();
        comeBack();
        const bool leaves = !c.command.starts_with("mnuAPOTHIKEFSI");
        if (leaves)
            expectSaveQuestion(Answer::yes, file,
                               c.command == "mnuEKSODOSitem" ? Icon::exclamation : Icon::none);
        if (c.reply != Answer::ok)
            desktop.expectMessage("The file was changed by another program since it was opened. "
                                  "Replace it?",
                                  Icon::exclamation, c.reply);
        if (c.chosen || !c.says.empty())
            desktop.expectFileDialog(c.chosen);
        std::string said;
        if (!c.says.empty())
            desktop.expectAnyMessage(said);
        trigger(c.command.c_str());
        desktop.expectNothingLeft();
        EXPECT_EQ(contentOf(file), c.reply == Answer::yes ? mine : other);
        EXPECT_EQ(fs::exists(copy) ? contentOf(copy) : mine, mine);
        EXPECT_EQ(fs::exists(copy), c.chosen == copy);
        EXPECT_TRUE(said.starts_with(c.says)) << said;
        EXPECT_EQ(log().count(" The file was changed by another program since it was opened: "
                              + QString::fromStdString(file)),
                  1);
        if (!leaves && c.reply == Answer::no) { // it is there to be saved elsewhere
            EXPECT_EQ(Onoma_Arxeiou + modelText(), file + mine);
        }
    }
}

TEST_F(MainWindow, OpensWhatIsDroppedAndWhatWasOpenLast)
{
    const std::string odd = "b & c, \"d\".vsk";
    fs::create_directory(path("sub"));
    for (const std::string &name : {"a.vsk"s, odd, "sub/a.vsk"s})
        write(path(name), small);
    const auto entries = [this] {
        auto *menu = find<QMenu>("mnuRECENT");
        emit menu->aboutToShow();
        std::vector<std::string> tips;
        for (const QAction *entry : menu->actions())
            if (entry->isVisible() && entry->isEnabled())
                tips.push_back(entry->toolTip().toStdString());
        return tips;
    };
    start();
    EXPECT_THAT(entries(), testing::ElementsAre("No file has been opened or saved yet."));
    for (const auto &[names, opens] : {std::pair{std::vector{"a.vsk"s}, true},
                                       {{"a.vsk", odd}, false},
                                       {{"n.txt"}, false},
                                       {{odd}, true},
                                       {{"sub/a.vsk"}, true}}) {
        QList<QUrl> urls;
        for (const std::string &name : names)
            urls << QUrl::fromLocalFile(QString::fromStdString(path(name)));
        QMimeData data;
        data.setUrls(urls);
        const std::string before = Onoma_Arxeiou;
        if (!opens)
            desktop.expectMessage("Drop one model file (*.vsk) of this computer here to open it.");
        if (names[0] == odd) { // the save question comes first
            Ena_cm_posa_KN_Q = 55;
            expectSaveQuestion(Answer::no, before);
        }
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&canvas(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({9, 9}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window.get(), &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
        QCoreApplication::processEvents();
        desktop.expectNothingLeft();
        EXPECT_EQ(Onoma_Arxeiou, opens ? path(names[0]) : before);
    }
    openDesktop(); // another run
    start();
    EXPECT_THAT(entries(), testing::ElementsAre(path("sub/a.vsk"), path(odd), path("a.vsk")));
    EXPECT_EQ(find<QAction>("mnuRECENT1item")->text().remove('&').toStdString(),
              "a.vsk (" + path("sub") + ")");
    EXPECT_EQ(find<QAction>("mnuRECENT2item")->text().toStdString(), "b && c, \"d\".vsk");
    fs::remove(path("sub/a.vsk"));
    desktop.expectMessage("The file is not there any more: " + path("sub/a.vsk"));
    trigger("mnuRECENT1item");
    EXPECT_THAT(entries(), testing::ElementsAre(path(odd), path("a.vsk")));
    trigger("mnuRECENT2item");
    EXPECT_EQ(Onoma_Arxeiou, path("a.vsk"));
    EXPECT_THAT(entries(), testing::ElementsAre(path("a.vsk"), path(odd)));
}

} // namespace
} // namespace veskora

int main(int argc, char **argv)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    ::setenv("LC_ALL", "C.UTF-8", 1); // whatever the user's language and letters are
    ::setenv("QT_FONT_DPI", "96", 1);
    testing::InitGoogleMock(&argc, argv);
    veskora::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
