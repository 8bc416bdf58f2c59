// The main window on the offscreen platform: found by name, pressed as a user does, its boxes and
// file dialogs answered by a script.

#include "AnalysisCommands.h"
#include "Application.h"
#include "Commands.h"
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
#include "Tool.h"
#include "Version.h"
#include "Zoom.h"

#include <QClipboard>
#include <QDialog>
#include <QFile>
#include <QFocusFrame>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <gmock/gmock.h>

#include <csignal>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace veskora {
namespace {

TEST_F(MainWindow, StartsEmptyAndRegistersItsFileType)
{
    start();
    EXPECT_EQ(caption(), title + " - Untitled.vsk");
    EXPECT_EQ(panel("Panel7"), " Model");
    EXPECT_FALSE(find<QWidget>("Command1")->isVisible());
    EXPECT_TRUE(find<QWidget>("sint")->property("look").toBool());
    const QStringList lines = log();
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0], " Kalvorn Veskora ML - Linear static analysis of plane frames program");
    EXPECT_EQ(lines[2], " ");
    EXPECT_THAT(lines[3].toStdString(), testing::ContainsRegex("^ [A-Z][a-z]+day [0-9]"));
    EXPECT_EQ(qtDesktop->setting("Startup", "Version", ""), programVersion);
    EXPECT_EQ(Thesi_Istorikou, 0);

    EXPECT_THAT(contentOf(path("data/mime/packages/veskora-ml.xml")),
                testing::HasSubstr("offset=\"36:37\""));
    const std::string entry = contentOf(path("data/applications/veskora-ml.desktop"));
    EXPECT_THAT(entry, testing::ContainsRegex("Exec=\"/[^\n]*\" %f\n"));
    EXPECT_THAT(contentOf(path("data/icons/hicolor/scalable/apps/veskora-ml.svg")),
                testing::HasSubstr("<svg"));

    fs::create_directory(path("folder"));
    write(path("folder/Veskora_ML"), "");
    fs::permissions(path("folder/Veskora_ML"), fs::perms::owner_all);
    registerFileType(QString::fromStdString(path("folder/bin/Veskora_ML")));
    EXPECT_THAT(contentOf(path("data/applications/veskora-ml.desktop")),
                testing::HasSubstr("Exec=\"" + path("folder/Veskora_ML") + "\" %f\n"));
}

TEST_F(MainWindow, TheDesktopsTablesAreMadeAnewForWhatChanged)
{
    fs::create_directory(path("bin"));
    for (const char *tool : {"bin/update-mime-database", "bin/update-desktop-database"}) {
        write(path(tool), "#!/bin/sh\necho \"${0##*/} $1\" >>" + path("told") + "\n");
        fs::permissions(path(tool), fs::perms::owner_all);
    }
    ::setenv("PATH", path("bin").c_str(), 1);
    const auto told = [this](const std::string &line) {
        std::istringstream lines(contentOf(path("told")));
        int count = 0;
        for (std::string one; std::getline(lines, one);)
            count += one == line ? 1 : 0;
        return count;
    };
    const std::string mime = "update-mime-database " + path("data/mime");
    const std::string entries = "update-desktop-database " + path("data/applications");
    start();
    QTRY_COMPARE(told(mime) + told(entries), 2);
    write(path("data/mime/packages/veskora-ml.xml"), "of an earlier version");
    reopen();
    start();
    QTRY_COMPARE(told(mime), 2);
    EXPECT_EQ(told(entries), 1);
}

TEST_F(MainWindow, AnInstalledProgramStaysTheRegisteredOne)
{
    const std::map<std::string, const char *> parts = {
        {"icons/hicolor/scalable/apps/veskora-ml.svg", "<svg/>"},
        {"icons/hicolor/scalable/mimetypes/application-x-veskora-model.svg", "<svg/>"},
        {"mime/packages/veskora-ml.xml", "<mime-info/>"},
        {"applications/veskora-ml.desktop", "[Desktop Entry]\nExec=Veskora_ML %f\n"}};
    for (const auto &[part, content] : parts) {
        fs::create_directories(fs::path(path("system/" + part)).parent_path());
        write(path("system/" + part), content);
    }
    const auto copies = [&] {
        return std::ranges::count_if(
            parts, [this](const auto &part) { return fs::exists(path("data/" + part.first)); });
    };
    const std::string own = path("data/applications/veskora-ml.desktop");
    const std::string copied =
        "[Desktop Entry]\nExec=\"/b \\\\$c/Veskora_ML\" %f\nTerminal=false\n";
    ::setenv("XDG_DATA_DIRS", (path("none") + ":" + path("system")).c_str(), 1);
    start();
    EXPECT_EQ(copies(), 4) << "its program is gone";
    fs::create_directory(path("bin"));
    write(path("bin/Veskora_ML"), "");
    fs::permissions(path("bin/Veskora_ML"), fs::perms::owner_all);
    ::setenv("PATH", path("bin").c_str(), 1);
    struct
    {
        const char *name;
        std::string entry; ///< in the user's folder, where not empty
        long left;
    } const cases[] = {
        {"of the last start", "", 0},
        {"none", "", 0},
        {"of an earlier version, another folder", copied, 0},
        {"of the user, with a line of theirs", copied + "Actions=new;\n", 1},
        {"of the user, with another command", "[Desktop Entry]\nExec=env A=1 Veskora_ML %f\n", 1},
    };
    for (const auto &c : cases) {
        if (!c.entry.empty())
            write(own, c.entry);
        reopen();
        start();
        EXPECT_EQ(copies(), c.left) << c.name;
    }
    fs::remove(path("system/mime/packages/veskora-ml.xml"));
    reopen();
    start();
    EXPECT_EQ(copies(), 4) << "not all is installed";
}

TEST_F(MainWindow, OpensTheFileOfTheCommandLine)
{
    write(path("a file with  blanks.vsk"), small);
    std::string other = small;
    other.replace(other.find("Rithmiseis\r\n1\r\n0\r\n1"), 19,
                  "Rithmiseis\r\n0\r\n0\r\n0"); // no axes, no grid
    write(path("a file with  blanks.vsk"), other);
    start(path("a file with  blanks.vsk"));
    EXPECT_EQ(caption(), path("a file with  blanks.vsk") + " - " + title);
    EXPECT_EQ(Arithmos_Kombon, 2);
    EXPECT_FALSE(find<QWidget>("Aksones")->property("look").toBool());
    EXPECT_FALSE(find<QWidget>("Kannabos")->property("look").toBool());

    for (const auto &[name, says] : {std::pair{"missing.vsk", "No such file or directory"},
                                     {"damaged.vsk", "Input past end of file in line 7"}}) {
        write(path("damaged.vsk"), small.substr(0, small.find("Omadas")).substr(0, 190));
        reopen();
        desktop.expectMessage("There was an error opening the file: " + path(name) + ": " + says,
                              Icon::critical);
        start(path(name));
        EXPECT_EQ(caption(), title + " - Untitled.vsk");
        EXPECT_EQ(currentFolder, fs::path(path(name)).parent_path().string());
    }
}

// What is asked, what each answer does, and that nothing is lost by a Yes whose save did not come
// off.
TEST_F(MainWindow, AsksToSaveBeforeTheModelIsLeft)
{
    const std::string sentence = "Do you want to save the changes you made to file:";
    enum class Change { none, scale, unsaved };
    struct Case
    {
        bool named;
        Change change;
        Answer answer;
        bool saves, leaves;
    };
    for (const Case &c : {
             Case{true, Change::none, Answer::ok, false, true},
             Case{true, Change::scale, Answer::yes, true, true},
             Case{true, Change::scale, Answer::no, false, true},
             Case{true, Change::scale, Answer::cancel, false, false},
             Case{false, Change::none, Answer::ok, false, true},
             Case{false, Change::unsaved, Answer::yes, true, true},
             Case{false, Change::unsaved, Answer::no, false, true},
             Case{false, Change::unsaved, Answer::cancel, false, false},
         })
        for (const char *command : {"mnuNEOitem", "mnuANAGNOSIitem", "mnuEKSODOSitem"}) {
            SCOPED_TRACE(command);
            const bool closing = std::string(command) == "mnuEKSODOSitem";
            write(path("m.vsk"), small);
            fs::remove(path("new.vsk"));
            reopen();
            start(c.named ? path("m.vsk") : "");
            if (c.change == Change::scale)
                Ena_cm_posa_KN_Q = 55;
            if (c.change == Change::unsaved)
                putGroup(1, 1, 1);
            if (c.change != Change::none)
                desktop.expectMessage(sentence + " '" + (c.named ? path("m.vsk") : "Untitled.vsk")
                                          + "'?",
                                      closing ? Icon::exclamation : Icon::none, c.answer);
            if (c.saves && !c.named)
                desktop.expectFileDialog(path("new"));
            if (c.leaves && std::string(command) == "mnuANAGNOSIitem")
                desktop.expectFileDialog(std::nullopt);
            trigger(command);
            desktop.expectNothingLeft();
            EXPECT_EQ(contentOf(path("m.vsk")) != small, c.saves && c.named);
            EXPECT_EQ(fs::exists(path("new.vsk")), c.saves && !c.named);
            EXPECT_EQ(window->isVisible(), !closing || !c.leaves);
            if (c.leaves && std::string(command) == "mnuNEOitem") {
                EXPECT_EQ(Arithmos_Kombon + Arithmos_Omadon, 0);
            }
        }
}

TEST_F(MainWindow, KeepsTheModelWhenTheSaveBeforeLeavingDidNotComeOff)
{
    for (const auto &[command, logHidden] :
         {std::pair{"mnuNEOitem", false}, {"mnuNEOitem", true}, {"mnuEKSODOSitem", false}}) {
        reopen();
        start();
        putGroup(7, 8, 9);
        if (logHidden)
            click("SSCommand32");
        const bool closing = std::string(command) == "mnuEKSODOSitem";
        desktop.expectMessage("Do you want to save the changes you made to file: 'Untitled.vsk'?",
                              closing ? Icon::exclamation : Icon::none, Answer::yes);
        desktop.expectFileDialog(std::nullopt); // the save dialog is cancelled
        const fs::path folder = recovery();
        fs::remove_all(folder);
        std::string said;
        if (closing || logHidden)
            desktop.expectAnyMessage(said);
        trigger(command);
        ASSERT_TRUE(fs::exists(folder));
        const std::string kept = fs::directory_iterator(folder)->path();
        const std::string text = "The model is kept in the recovery file: " + kept;
        EXPECT_EQ(said, closing || logHidden ? text : "");
        EXPECT_TRUE(log().contains(" " + QString::fromStdString(text)));
        std::string again = kept;
        Anagnosi_Arxeiou(again);
        EXPECT_EQ(Omades(1, group::I), 9);
        Katharismos_Montelou();
        Onoma_Arxeiou.clear();
    }
}

TEST_F(MainWindow, NewGivesTheStartValuesAndForgetsTheZooms)
{
    write(path("m.vsk"), small);
    start(path("m.vsk"));
    trigger("ZoomBestFit");
    trigger("Xeraki");
    Katastasi_Provolis = view::Q;
    desktop.expectMessage("Do you want to save the changes you made to file: '" + path("m.vsk")
                              + "'?",
                          Icon::none, Answer::no);
    trigger("New");
    EXPECT_EQ(caption(), title + " - Untitled.vsk");
    EXPECT_EQ(Klimaka, 100);
    EXPECT_EQ(Thesi_Istorikou, 0);
    EXPECT_EQ(Istoriko_Zoom(0, 1), 100);
    EXPECT_EQ(Katastasi_Provolis, view::model);
    EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(log().last(), " New file");
    EXPECT_TRUE(Allagi_Montelou);
}

TEST_F(MainWindow, GeometryComesBackOnAScreenThatIsThere)
{
    start();
    window->setGeometry(50, 60, 700, 500);
    QCoreApplication::processEvents();
    trigger("mnuEKSODOSitem");
    EXPECT_EQ(qtDesktop->setting("Startup", "frmM_W", ""), "10500");
    EXPECT_EQ(qtDesktop->setting("Startup", "frmM_T", ""), "900");
    EXPECT_EQ(qtDesktop->setting("Startup", "WindowState", ""), "0");
    reopen();
    start();
    EXPECT_EQ(window->geometry(), QRect(50, 60, 700, 500));
    for (const char *left : {"900000", "-900000", "nonsense", "1e300"}) {
        reopen();
        qtDesktop->storeSetting("Startup", "frmM_L", left);
        start();
        EXPECT_TRUE(window->screen()->geometry().contains(window->geometry())) << left;
    }
    reopen();
    for (const char *side : {"frmM_W", "frmM_H"})
        qtDesktop->storeSetting("Startup", side, "900000"); // from a larger screen
    start();
    EXPECT_TRUE(window->screen()->geometry().contains(window->frameGeometry()));
    reopen();
    qtDesktop->storeSetting("Startup", "WindowState", "2");
    window->start({});
    EXPECT_TRUE(window->isMaximized());
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
        qtDesktop->storeSetting("Rithmiseis", "Language", pack.path().stem().string());
        reopen();
        start();
        window->resize(666, 533);
        Allagi_Montelou = false;
        auto *mode = find<QLabel>("Panel7");
        for (const char *command : {"Foreas", "M", "Q", "N", "Deform"}) {
            trigger(command);
            QCoreApplication::processEvents();
            EXPECT_GE(mode->width(), mode->fontMetrics().horizontalAdvance(mode->text()))
                << mode->text().toStdString();
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
    const auto legend = [&](const char *name) { return (*results)->findChild<QLabel *>(name); };
    for (const auto &[part, colour] : {std::pair(find<QLabel>("Label1"), qtColour(xroma_stoixeion)),
                                       {find<QLabel>("Label_Kombos"), QColor(255, 128, 0)},
                                       {find<QLabel>("Label_Stoixeio"), QColor(Qt::red)},
                                       {legend("lblMAX"), QColor(Qt::blue)},
                                       {legend("lblMIN"), QColor(Qt::red)}}) {
        part->ensurePolished();
        EXPECT_EQ(part->palette().color(part->foregroundRole()), colour)
            << part->objectName().toStdString();
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
    window->resize(900, 700);
    QCoreApplication::processEvents();
    const auto *central = find<QWidget>("centralwidget");
    const int W = central->width() * 15;
    const int H = (central->height() + find<QWidget>("StatusBar1")->height()) * 15 + 420;
    const auto *log = find<QWidget>("RichTextBox1");
    const auto *collapse = find<QToolButton>("SSCommand32");
    const auto expectLayout = [&](int height, int top, int left, const char *text) {
        EXPECT_EQ(canvas().width(), (W - 285) / 15);
        EXPECT_EQ(canvas().height(), (H - height) / 15);
        EXPECT_EQ(canvas().y(), 0);
        EXPECT_EQ(collapse->y(), (H - top - 420) / 15);
        EXPECT_EQ(collapse->x(), (W - left) / 15);
        EXPECT_EQ(collapse->text(), text);
        if (log->isVisible()) {
            EXPECT_EQ(log->y(), canvas().height() + 3);
            EXPECT_EQ(log->y() + log->height(), central->height() - 3);
        }
        EXPECT_EQ(canvas().kanvas().image().size(), canvas().size());
    };
    expectLayout(2340, 1875, 720, "x");
    click("SSCommand32");
    expectLayout(1320, 1290, 480, "<");
    window->resize(901, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(canvas().height(), (H - 1335) / 15);
    EXPECT_EQ(collapse->y(), (H - 1305 - 420) / 15);
    window->resize(900, 700);
    QCoreApplication::processEvents();
    click("SSCommand32");
    expectLayout(2220, 1755, 720, "x");
}

TEST_F(MainWindow, ToolsPanAndZoomWithTheMouse)
{
    start();
    trigger("Xeraki");
    EXPECT_EQ(canvas().cursor().shape(), Qt::BitmapCursor);
    drag(5, 5, 7, 4);
    EXPECT_NEAR(Arxi_X, -4, 1e-6);
    EXPECT_NEAR(Arxi_Y, 3, 1e-6);
    EXPECT_EQ(Thesi_Istorikou, 1);
    trigger("Zoom"); // another tool's button switches
    drag(5, 5, 5, 7);
    EXPECT_FLOAT_EQ(Klimaka, 110);
    EXPECT_EQ(Thesi_Istorikou, 2);
    trigger("Zoom_Window");
    mouse(QEvent::MouseButtonPress, Qt::LeftButton, 2, 2);
    mouse(QEvent::MouseMove, Qt::LeftButton, 8, 6);
    EXPECT_TRUE(find<QWidget>("Shape1")->isVisible());
    mouse(QEvent::MouseButtonRelease, Qt::LeftButton, 8, 6);
    EXPECT_FALSE(find<QWidget>("Shape1")->isVisible());
    EXPECT_LT(Klimaka, 60);
    EXPECT_EQ(Thesi_Istorikou, 3);
    drag(3, 3, 3, 3); // a click
    EXPECT_EQ(Thesi_Istorikou, 3);
    trigger("Zoom_Window");
    EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
    trigger("Zoom_Previous");
    trigger("Zoom_Previous");
    trigger("Zoom_Previous");
    trigger("Zoom_Previous");
    EXPECT_EQ(Klimaka, 100);
    EXPECT_EQ(Arxi_X, -2);
}

TEST_F(MainWindow, PanelsShowThePointerAndSwitchTheView)
{
    start();
    nai_grid = false;
    Klimaka = 100;
    const double bottom = canvas().kanvas().height();
    mouse(QEvent::MouseMove, Qt::NoButton, 3.25, bottom - 2.5);
    EXPECT_THAT(panel("Panel1"), testing::StartsWith("x = 1.2"));
    EXPECT_THAT(panel("Panel2"), testing::StartsWith("y = 0."));
    nai_grid = true;
    mouse(QEvent::MouseMove, Qt::NoButton, 3.3, bottom - 2.2);
    EXPECT_EQ(panel("Panel1") + panel("Panel2"), "x = 1y = 0");
    click("sint");
    EXPECT_FALSE(find<QLabel>("Panel1")->isVisible());
    click("Aksones");
    EXPECT_FALSE(nai_aksones);
    EXPECT_FALSE(find<QWidget>("Aksones")->property("look").toBool());
    EXPECT_TRUE(find<QWidget>("Aksones")->isEnabled());
    click("Kannabos");
    EXPECT_FALSE(nai_grid);
}

TEST_F(MainWindow, TheLabelsPopUpFlipsItsSwitches)
{
    start();
    const std::vector<std::pair<const char *, bool *>> switches = {
        {"mnuArithmisi_kombon_item", &nai_arithmisi_kombon},
        {"mnuSintet_kombon_item", &nai_sint_kombon},
        {"mnuArithmisi_Stoixeion_item", &nai_arithmisi_stoixeion},
        {"mnuOmades1_item", &nai_omades},
        {"mnuMiki_item", &nai_miki},
        {"mnuTimes_Sig_item", &nai_times_fortiseon_si},
        {"mnuTimes_Om_item", &nai_times_fortiseon_om},
        {"mnuTimes_M_item", &nai_times_M},
        {"mnuTimes_Q_item", &nai_times_Q},
        {"mnuTimes_N_item", &nai_times_N}};
    click("Times");
    auto *popup = find<QMenu>("mnu_Aorato_Times");
    EXPECT_TRUE(popup->isVisible());
    popup->close();
    for (const auto &[name, setting] : switches) {
        const bool before = *setting;
        EXPECT_EQ(find<QAction>(name)->isChecked(), before) << name;
        trigger(name);
        EXPECT_EQ(*setting, !before) << name;
        EXPECT_EQ(find<QAction>(name)->isChecked(), !before) << name;
    }
    const auto states = [&] {
        std::string text;
        for (const auto &[name, setting] : switches)
            text += *setting ? '1' : '0';
        return text;
    };
    trigger("mnuKamia_item");
    EXPECT_EQ(states(), "0000000000");
    trigger("mnuOles_item");
    EXPECT_EQ(states(), "1111111111");
    trigger("mnuBasikes_item");
    EXPECT_EQ(states(), "1010011111");
    Katastasi_Provolis = view::N;
    trigger("mnuBasikes_item");
    EXPECT_EQ(states(), "0000000111");
    Katastasi_Provolis = view::deformed;
    trigger("mnuKamia_item");
    trigger("mnuBasikes_item");
    EXPECT_EQ(states(), "0000000000");
}

TEST_F(MainWindow, AnalyzesAndShowsTheResults)
{
    write(path("m.vsk"), small);
    start(path("m.vsk"));
    trigger("Epilisi");
    EXPECT_FALSE(Allagi_Montelou);
    EXPECT_THAT(log().at(log().size() - 2).toStdString(),
                testing::ContainsRegex("^ Total time:  [0-9.E-]+ sec$"));
    EXPECT_TRUE(find<QAction>("ToolbarSeparator25")->isEnabled());
    EXPECT_EQ(find<QToolBar>("Toolbar2")->actions().at(25)->objectName(), "Epilisi");
    for (const auto &[key, text] : {std::pair{"M", " Bending moment Diagram [M]"},
                                    {"Q", " Shear force Diagram [Q]"},
                                    {"N", " Axial force Diagram [N]"},
                                    {"Deform", " Deformed model"}}) {
        trigger(key);
        EXPECT_EQ(panel("Panel7"), text);
        EXPECT_TRUE(find<QWidget>("Command1")->isVisible());
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
    EXPECT_FALSE(find<QWidget>("Command2")->isVisible());
    EXPECT_EQ(panel("Panel7"), " Model");
}

TEST_F(MainWindow, ThePictureGoesOutAsItIsShown)
{
    write(path("m.vsk"), small);
    start(path("m.vsk"));
    trigger("Epilisi");
    trigger("M");
    const QImage shown = canvas().kanvas().image().copy();
    canvas().setFocus();
    for (const bool byKeys : {false, true}) {
        QApplication::clipboard()->clear();
        if (byKeys)
            QTest::keyClick(&canvas(), Qt::Key_C, Qt::ControlModifier);
        else
            trigger("mnuEIKONA_Clipboard_item");
        EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(shown.format()), shown);
    }
    struct Case
    {
        const char *chosen, *written;
    };
    for (const Case &c : {Case{"a", "a.bmp"}, {"b.bmp", "b.bmp"}, {"c.BMP", "c.BMP.bmp"}}) {
        desktop.expectFileDialog(path(c.chosen));
        trigger("mnuEIKONA_arxeio_bmp_item");
        EXPECT_EQ(QImage(QString::fromStdString(path(c.written)), "bmp"), shown) << c.written;
        EXPECT_EQ(log().last().toStdString(), " Picture: " + path(c.written));
    }
    EXPECT_EQ(desktop.fileQuestions.back().filter, "Bitmap Files (*.bmp)|*.bmp");
    EXPECT_EQ(desktop.fileQuestions.back().proposed, "Picture");
    desktop.expectFileDialog(path("none/d.bmp")); // a failing write is silent
    trigger("mnuEIKONA_arxeio_bmp_item");
    desktop.expectFileDialog(std::nullopt);
    trigger("mnuEIKONA_arxeio_bmp_item");
    EXPECT_EQ(log().last().toStdString(), " Picture: " + path("c.BMP.bmp"));
}

TEST_F(MainWindow, ThePictureGoesOutAsVectorsByTheFilterOrTheEnding)
{
    write(path("m.vsk"), small);
    start(path("m.vsk"));
    trigger("Epilisi");
    trigger("M");
    struct Case
    {
        const char *chosen, *pattern, *written, *begin;
    };
    for (const Case &c : {Case{"a", "", "a.svg", "<?xml"},
                          {"b", "*.pdf", "b.pdf", "%PDF"},
                          {"c.svg", "*.pdf", "c.pdf", "%PDF"}, // the name proposed, another filter
                          {"d.pdf", "*.svg", "d.pdf", "%PDF"},
                          {"e.png", "*.svg", "e.png.svg", "<?xml"}}) {
        desktop.filterPattern = c.pattern;
        desktop.expectFileDialog(path(c.chosen));
        trigger("mnuEIKONA_SVG_PDF_item");
        EXPECT_TRUE(contentOf(path(c.written)).starts_with(c.begin)) << c.chosen;
        EXPECT_EQ(log().last().toStdString(), " Picture: " + path(c.written));
    }
    EXPECT_EQ(desktop.fileQuestions.back().filter,
              "SVG files (*.svg)|*.svg|PDF files (*.pdf)|*.pdf");
    EXPECT_EQ(desktop.fileQuestions.back().proposed, path("m_M.svg"));
    desktop.expectFileDialog(path("none/d.svg"));
    std::string said;
    desktop.expectAnyMessage(said);
    trigger("mnuEIKONA_SVG_PDF_item");
    EXPECT_EQ(said.find("There was an error saving the file: " + path("none/d.svg")), 0U) << said;
    desktop.expectFileDialog(std::nullopt);
    trigger("mnuEIKONA_SVG_PDF_item");
    EXPECT_EQ(log().last().toStdString(), " " + said);
}

TEST_F(MainWindow, CommandsWithoutRowsRefuseInTheBoxAndInRed)
{
    start();
    struct Case
    {
        const char *command;
        const char *text;
        const char *model;
    };
    const char *noNodes = "No nodes have been defined yet.";
    const char *noElements = "No elements have been defined yet.";
    for (const Case &c : {
             Case{"mnuMETAKINISIKOMBONitem", noNodes, ""},
             Case{"mnuSIGXONEFSIitem", noNodes, ""},
             Case{"mnuSIMP_KOMBitem", noNodes, ""},
             Case{"mnuDIAIRESIitem", noElements, "N 0 0"},
             Case{"mnuSIMP_STOIXitem", noElements, "N 0 0"},
             Case{"Epikombia",
                  "Before defining a nodal load, at least one node must have been defined", ""},
             Case{"mnuOMOIOMORFAitem",
                  "Before defining an elemental load, at least one element must have been defined",
                  "N 0 0"},
             Case{"Stoixeia",
                  "Before defining an element, at least one E,A,I Element Group must have been "
                  "defined.",
                  ""},
             Case{"mnuSTOIXEIAitem",
                  "Before defining an element, at least two nodes must have been defined.",
                  "G 1 1 1; N 0 0"},
         }) {
        buildModel(c.model);
        desktop.expectMessage(c.text);
        trigger(c.command);
        EXPECT_EQ(log().last().toStdString(), std::string(" ") + c.text);
        QTextCursor end(find<QTextEdit>("RichTextBox1")->document());
        end.movePosition(QTextCursor::End);
        EXPECT_EQ(end.charFormat().foreground().color(), QColor(255, 0, 0)) << c.command;
    }
}

TEST_F(MainWindow, EveryEntryHasItsOwnMnemonic)
{
    start();
    for (const QMenu *menu : window->findChildren<QMenu *>()) {
        QString letters;
        for (const QAction *action : menu->actions()) {
            if (action->isSeparator() || !action->isVisible())
                continue;
            const QString letter = action->text().section('&', 1).left(1).toLower();
            EXPECT_FALSE(letter.isEmpty() || letters.contains(letter))
                << action->text().toStdString();
            letters += letter;
        }
    }
}

TEST_F(MainWindow, EveryCommandStandsInItsPlaceAsItsRowHasIt)
{
    start();
    std::set<std::string> names, keys;
    for (const Command &command : commands()) {
        SCOPED_TRACE(command.name);
        EXPECT_TRUE(names.insert(command.name).second);
        const auto *action = window->findChild<QAction *>(command.name);
        if (action == nullptr)
            action = find<QMenu>(command.name)->menuAction();
        ASSERT_TRUE(find<QWidget>(command.place)->actions().contains(action));
        EXPECT_EQ(action->isSeparator(), command.caption.english == nullptr);
        if (action->isSeparator())
            continue;
        EXPECT_EQ(QString(action->text()).remove('&').toStdString(), command.caption.english);
        EXPECT_EQ(action->isVisible(), action->objectName() != "mnuDRAWING_DXF_item");
        EXPECT_TRUE(command.keys == nullptr || keys.insert(command.keys).second);
        if (command.keys != nullptr) {
            EXPECT_EQ(action->shortcuts(), QKeySequence::listFromString(command.keys));
        }
        EXPECT_NE(command.icon == nullptr, !action->icon().pixmap(20).isNull());
        if (std::string(command.place) != "Toolbar2")
            continue;
        EXPECT_EQ(action->toolTip().toStdString(), command.caption.english);
        EXPECT_EQ(action->whatsThis(), action->toolTip());
        EXPECT_NE(find<QToolButton>(command.name)->focusPolicy(), Qt::NoFocus);
    }
    EXPECT_EQ(find<QToolBar>("Toolbar2")->actions().size(), 28);
    EXPECT_LE(find<QToolBar>("Toolbar2")->sizeHint().width(), window->minimumWidth());
}

TEST_F(MainWindow, AnEntryDoesWhatItSays)
{
    start();
    buildModel("G 1 1 1; N 0 0; N 1 0; E 1 2 1");
    for (const auto &[command, opened] : {std::pair{"mnuOMADESitem", "frmOmades"},
                                          {"mnuKOMBOIitem", "frmKomboi"},
                                          {"mnuSTOIXEIAitem", "frmStoixeia"},
                                          {"mnuSIGKENTROMENAitem", "frmEPIKOMBIO"},
                                          {"mnuOMOIOMORFAitem", "frmOMOIOMORFO"},
                                          {"mnuMETAKINISIKOMBONitem", "frmMETAKINISI"},
                                          {"mnuSIGXONEFSIitem", "frmSigxonefsi"},
                                          {"mnuDIAIRESIitem", "frmDiairesi"},
                                          {"mnuKYKLIKOitem", "frmKykliko"},
                                          {"mnuRITHMISEISitem", "frmSXEDIASI"},
                                          {"mnuPERIitem", "frmAbout"}}) {
        QString name;
        QTimer::singleShot(0, window.get(), [&name] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            name = dialog->objectName();
            dialog->reject();
        });
        trigger(command);
        EXPECT_EQ(name, opened);
    }
    Klimaka = 77;
    trigger("mnuEXTENDSitem");
    EXPECT_NE(Klimaka, 77);
    trigger("mnuPREVIOUSitem");
    EXPECT_EQ(Thesi_Istorikou, 0);
    struct Tool
    {
        const char *entry;
        double scale, x; ///< after a drag to the lower right
    };
    for (const Tool &tool :
         {Tool{"mnuPANitem", 100, -3}, {"mnuZOOMitem", 105, -1.5}, {"mnuWINDOWitem", 10.6, 24.6}}) {
        resetView();
        trigger(tool.entry);
        trigger(tool.entry); // it stays on
        drag(5, 5, 6, 6);
        EXPECT_NEAR(Klimaka, tool.scale, 3) << tool.entry;
        EXPECT_NEAR(Arxi_X, tool.x, 1) << tool.entry;
    }
}

TEST_F(MainWindow, EveryPartIsNamedAsItIsCalled)
{
    start();
    struct Case
    {
        const char *name, *caption;
    };
    for (const Case &c : {Case{"Picture1", "Drawing"},
                          {"RichTextBox1", "Messages"},
                          {"Command1", "Enlarge the diagram"},
                          {"Command2", "Reduce the diagram"},
                          {"SSCommand32", "Show/Hide Information text"}})
        EXPECT_EQ(find<QWidget>(c.name)->accessibleName(), c.caption);
    auto *focus = find<QFocusFrame>("ToolbarFocus");
    find<QToolButton>("Epilisi")->setFocus();
    EXPECT_EQ(focus->widget(), find<QToolButton>("Epilisi"));
    find<QTextEdit>("RichTextBox1")->setFocus();
    EXPECT_FALSE(focus->isVisible());
    for (const auto &[name, mode] : {std::pair{"mnuDIAG_Mitem", 1},
                                     {"mnuDIAG_Qitem", 2},
                                     {"mnuDIAG_Nitem", 3},
                                     {"mnuDEFORMitem", 4},
                                     {"mnuFOREASitem", 0}}) {
        Allagi_Montelou = false;
        trigger(name);
        EXPECT_EQ(Katastasi_Provolis, mode) << name;
    }
}

TEST_F(MainWindow, WhatShowsResultsOffersANewAnalysisFirst)
{
    start();
    putNode(0, 0, "xxx");
    const std::string question =
        "Model has been changed. Do you want to reanalyze before the process goes on?";
    for (const char *command : {"M", "Q", "N", "Deform", "Apotelesmata"}) {
        desktop.expectMessage(question, Icon::exclamation, Answer::no);
        trigger(command);
        desktop.expectNothingLeft();
    }
    for (const char *button : {"Command1", "Command2"}) {
        desktop.expectMessage(question, Icon::exclamation, Answer::no);
        click(button);
        desktop.expectNothingLeft();
    }
}

TEST_F(MainWindow, ACancelledOpenGoesBackToTheModelViewAndMarksItChanged)
{
    write(path("m.vsk"), small);
    start(path("m.vsk"));
    EXPECT_EQ(Thesi_Istorikou, 0);
    Allagi_Montelou = false;
    Katastasi_Provolis = view::N;
    trigger("Zoom");
    xroma_background = 255; // a change of the file, and of the canvas only from here on
    desktop.expectMessage("Do you want to save the changes you made to file: '" + path("m.vsk")
                              + "'?",
                          Icon::none, Answer::no);
    desktop.expectFileDialog(std::nullopt);
    trigger("Open");
    EXPECT_EQ(Arithmos_Kombon, 2);
    EXPECT_TRUE(Allagi_Montelou);
    EXPECT_EQ(Katastasi_Provolis, view::model);
    EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(canvas().kanvas().image().pixel(1, 1), 0xFFFF0000);
    trigger("Xeraki");
    trigger("mnuEKSODOS2item"); // the pop-up's Exit
    EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
}

TEST_F(MainWindow, AMaximisedWindowAndACancelledCloseAreRemembered)
{
    qtDesktop->storeSetting("Startup", "WindowState", "2");
    window->start({});
    QCoreApplication::processEvents();
    putGroup(1, 1, 1);
    desktop.expectMessage("Do you want to save the changes you made to file: 'Untitled.vsk'?",
                          Icon::exclamation, Answer::cancel);
    qtDesktop->storeSetting("Startup", "WindowState", "");
    trigger("mnuEKSODOSitem");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(qtDesktop->setting("Startup", "WindowState", ""), "2");
    EXPECT_EQ(qtDesktop->setting("Startup", "nothing", "standard"), "standard");
    window->showMinimized(); // the question is asked about a window that is seen
    desktop.answerAnything = [this] {
        EXPECT_FALSE(window->isMinimized());
        return Answer::cancel;
    };
    trigger("mnuEKSODOSitem");
    EXPECT_TRUE(window->isVisible() && window->isMaximized());
}

TEST_F(MainWindow, AWrongBannerOnTheCommandLineLeavesAnUntitledModel)
{
    write(path("no.vsk"), "a\nb\nc\nd\ne\nf\n");
    desktop.expectMessage("There was an error opening the file. The file could not be read.",
                          Icon::critical);
    start(path("no.vsk"));
    EXPECT_EQ(caption(), title + " - Untitled.vsk");
    QTextCursor end(find<QTextEdit>("RichTextBox1")->document());
    end.movePosition(QTextCursor::End);
    EXPECT_EQ(end.charFormat().fontWeight(), QFont::Bold);
    window->setCaption("a[*]b");
    EXPECT_EQ(window->windowTitle(), "[*]a[*][*]b");
}

TEST_F(MainWindow, AModelThatCanBeKeptNowhereIsNotLeft)
{
    start();
    putGroup(7, 8, 9);
    write(path("data/" + title), "a file where the data folder would be");
    ::setenv("TMPDIR", "/proc", 1);
    ::setenv("XDG_DOCUMENTS_DIR", "/proc", 1);
    const std::string home = ::getenv("HOME") != nullptr ? ::getenv("HOME") : "";
    ::setenv("HOME", "/proc", 1);
    desktop.expectMessage("Do you want to save the changes you made to file: 'Untitled.vsk'?",
                          Icon::exclamation, Answer::yes);
    desktop.expectFileDialog(std::nullopt);
    desktop.expectMessage("The model could not be kept.");
    trigger("mnuEKSODOSitem");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(Arithmos_Omadon, 1);
    ::unsetenv("TMPDIR");
    ::setenv("HOME", home.c_str(), 1);
}

TEST_F(MainWindow, AnInstantMessageGoesAfterItsTime)
{
    start();
    window->Stigmiaio_Minima("Saved");
    auto *label = find<QLabel>("Label1");
    EXPECT_TRUE(label->isVisible());
    auto *timer = find<QTimer>("Timer1");
    EXPECT_EQ(timer->interval(), 5000);
    timer->start(1);
    QSignalSpy(timer, &QTimer::timeout).wait();
    EXPECT_FALSE(label->isVisible());
}

TEST_F(MainWindow, AnAbruptEndKeepsAModelThatIsNotInItsFile)
{
    for (const bool bySignal : {false, true}) // else as the toolkit ends when the display is lost
        for (const bool changed : {false, true}) {
            SCOPED_TRACE(bySignal);
            write(path("m.vsk"), small);
            reopen();
            start(path("m.vsk"));
            if (changed)
                putGroup(3, 4, 5);
            EXPECT_EXIT(
                {
                    std::atexit([] { ::_exit(1); }); // last: no search for leaks of libraries
                    guardOtherEnds();
                    if (!bySignal)
                        std::exit(1);
                    std::raise(SIGTERM);
                    for (;;)
                        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
                },
                testing::ExitedWithCode(bySignal ? 128 + SIGTERM : 1),
                changed ? "kept in the recovery file: " : "^$");
            ASSERT_EQ(fs::exists(recovery()), changed);
            if (changed) {
                // The recovery file, and the journal, which the next start offers.
                const auto holdsIt = testing::HasSubstr("\r\n2\r\n3\r\n4\r\n5\r\n");
                EXPECT_THAT(keptModels(), testing::ElementsAre(holdsIt, holdsIt));
            }
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
        write(b, small);
        fs::create_directories(recovery());
        std::string changed = small;
        changed.replace(changed.find("Komboi\r\n2\r\n\r\n1\r\n") + 16, 1, "3"); // the first x
        write(journal, changed + "Journal of the model\r\n" + c.model);
        write((recovery() / "Veskora_journal_1.lock").string(), "");
        reopen();
        const std::string says = "The program ended before this model was saved: "
                                 + (c.model.empty() ? "Untitled.vsk" : c.model);
        const std::string where = "The journal has it as it was a moment before: " + journal;
        desktop.expectChoice(says + "\r\n\r\n" + where, c.reply);
        const std::string question = "Do you want to save the changes you made to file: '";
        if (c.leaves != Answer::ok) {
            desktop.beforeChoice = [] { Ena_cm_posa_KN_Q = 55; };
            desktop.expectMessage(question + b + "'?", Icon::none, c.leaves);
        }
        start(b);
        desktop.beforeChoice = nullptr;
        for (const std::string &line : {says, where})
            EXPECT_EQ(log().count(" " + QString::fromStdString(line)), 1);
        EXPECT_EQ(Onoma_Arxeiou, c.opens ? c.model : b);
        EXPECT_EQ(Komboi(1, node::x) == 3, c.opens);
        if (c.opens) { // a model that has yet to be saved
            desktop.expectMessage(question + (c.model.empty() ? "Untitled.vsk" : a) + "'?",
                                  Icon::none, Answer::cancel);
            trigger("mnuNEOitem");
        }
        desktop.expectNothingLeft();
        window.reset();
        EXPECT_EQ(fs::exists(journal), c.stays);
    }
}

TEST_F(MainWindow, TheJournalGoesWhenTheModelIsSavedOrLeft)
{
    write(path("m.vsk"), small);
    start(path("m.vsk"));
    const auto threeSeconds = [this] {
        for (int i = 0; i < 3; ++i) {
            QMetaObject::invokeMethod(find<QTimer>("JournalTimer"), "timeout");
            find<JournalKeeper>("")->waitForWriting();
        }
        return keptModels().size();
    };
    for (const char *command : {"mnuAPOTHIKEFSIitem", "mnuNEOitem"}) {
        EXPECT_EQ(threeSeconds(), 0);
        putGroup(1, 2, 3);
        EXPECT_EQ(threeSeconds(), 1);
        if (command == std::string("mnuNEOitem"))
            desktop.expectMessage("Do you want to save the changes you made to file: '"
                                      + path("m.vsk") + "'?",
                                  Icon::none, Answer::no);
        trigger(command);
        EXPECT_EQ(threeSeconds(), 0);
    }
}

TEST_F(MainWindow, TheTitleIsMarkedWhileTheSaveQuestionWouldCome)
{
    write(path("m.vsk"), small);
    std::string oldStage = small; // whose stage ends before the springs: it is never as it is saved
    oldStage.replace(oldStage.find("Elatiria") - 6, std::string::npos, std::string(modelEndLine));
    write(path("old.vsk"), oldStage);
    start(path("m.vsk"));
    desktop.answerAnything = [] { return Answer::no; };
    const auto open = [this](const char *name) {
        desktop.expectFileDialog(path(name));
        trigger("Open");
    };
    struct Case
    {
        const char *name;
        std::function<void()> act;
        bool isMarked;
    };
    for (const Case &c : {
             Case{"opened", [] {}, false},
             {"edited", [] { putNode(9, 9); }, true},
             {"taken back", [] { --Arithmos_Kombon; }, false},
             {"view", [] { Klimaka = 77; }, true},
             {"saved", [this] { trigger("Save"); }, false},
             {"emptied", [] { Katharismos_Montelou(); }, true},
             {"new", [this] { trigger("New"); }, false},
             {"unnamed", [] { putNode(1, 1); }, true},
             {"of an earlier stage", [&] { open("old.vsk"); }, true},
             {"of this one", [&] { open("m.vsk"); }, false},
             {"gone",
              [this] {
                  fs::remove(path("m.vsk"));
                  QEvent back(QEvent::WindowActivate);
                  QCoreApplication::sendEvent(window.get(), &back);
              },
              true},
         }) {
        c.act();
        QMetaObject::invokeMethod(find<QTimer>("JournalTimer"), "timeout");
        EXPECT_EQ(caption().starts_with('*'), c.isMarked) << c.name;
        EXPECT_EQ(FileCommands::isSaved(), !c.isMarked) << c.name;
    }
}

TEST_F(MainWindow, AFileChangedByAnotherProgramIsNotReplacedUnasked)
{
    const std::string file = path("m.vsk"), copy = path("copy.vsk");
    const std::string question =
        "Do you want to save the changes you made to file: '" + file + "'?";
    const std::string other = small + "another program's";
    struct Case
    {
        const char *command;
        Answer reply;
        std::optional<std::string> chosen = {}; ///< where another name is asked for
        const char *says = nullptr;             ///< on leaving the model without one
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
        write(file, small);
        fs::remove(copy);
        reopen();
        start(file);
        Klimaka = 77;
        const std::string mine = modelText();
        write(file, other);
        QEvent back(QEvent::WindowActivate);
        for (int i = 0; i < 2; ++i)
            QCoreApplication::sendEvent(window.get(), &back);
        const bool leaves = !std::string(c.command).starts_with("mnuAPOTHIKEFSI");
        const bool closes = c.command == std::string("mnuEKSODOSitem");
        if (leaves)
            desktop.expectMessage(question, closes ? Icon::exclamation : Icon::none, Answer::yes);
        if (c.reply != Answer::ok)
            desktop.expectMessage("The file was changed by another program since it was opened. "
                                  "Replace it?",
                                  Icon::exclamation, c.reply);
        if (c.chosen || c.says != nullptr)
            desktop.expectFileDialog(c.chosen);
        std::string said;
        if (c.says != nullptr)
            desktop.expectAnyMessage(said);
        trigger(c.command);
        desktop.expectNothingLeft();
        EXPECT_EQ(contentOf(file), c.reply == Answer::yes ? mine : other);
        EXPECT_EQ(fs::exists(copy) ? contentOf(copy) : mine, mine);
        EXPECT_EQ(fs::exists(copy), c.chosen == copy);
        EXPECT_TRUE(said.starts_with(c.says == nullptr ? "" : c.says)) << said;
        EXPECT_EQ(log().count(" The file was changed by another program since it was opened: "
                              + QString::fromStdString(file)),
                  1);
        if (!leaves && c.reply == Answer::no) { // it is there to be saved elsewhere
            EXPECT_EQ(Onoma_Arxeiou + modelText(), file + mine);
        }
    }
}

TEST_F(MainWindow, AJournalOpenedAsAFileGivesNoPlaceToSaveIn)
{
    write(path("j.vsk"), small + "Journal of the model\r\n");
    start(path("j.vsk"));
    QMetaObject::invokeMethod(find<QTimer>("JournalTimer"), "timeout");
    EXPECT_GT(Arithmos_Kombon, 0);
    EXPECT_EQ(Onoma_Arxeiou + caption(), "*" + title + " - Untitled.vsk"); // it is unsaved
}

TEST_F(MainWindow, OpensWhatIsDroppedAndWhatWasOpenLast)
{
    const std::string odd = "b & c, \"d\".vsk";
    fs::create_directory(path("sub"));
    for (const std::string &name : {std::string("a.vsk"), odd, std::string("sub/a.vsk")})
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
    desktop.expectMessage("No file has been opened or saved yet.");
    trigger("mnuRECENT_none_item");

    for (const auto &[names, opens] : {std::pair{std::vector<std::string>{"a.vsk"}, true},
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
            desktop.expectMessage("Do you want to save the changes you made to file: '" + before
                                      + "'?",
                                  Icon::none, Answer::no);
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

TEST_F(MainWindow, AFaultEndsTheProcessWithTheModelKept)
{
    start();
    putGroup(3, 4, 5);
    EXPECT_EXIT(
        {
            std::string said;
            desktop.expectAnyMessage(said);
            QTimer::singleShot(0, [] { Komboi(999, 1) = 1; });
            for (;;)
                QCoreApplication::processEvents();
        },
        testing::ExitedWithCode(EXIT_FAILURE), "out of range(.|\n)*kept in the recovery file: ");
    EXPECT_THAT(keptModels(),
                testing::Each(testing::HasSubstr("Omades\r\n1\r\n\r\n1\r\n3\r\n4\r\n5\r\n")));
    EXPECT_EQ(keptModels().size(), 2);
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
