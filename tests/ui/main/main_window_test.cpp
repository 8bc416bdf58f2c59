// The main window on the offscreen platform: found by name, pressed as a user does, its boxes and
// file dialogs answered by a script.

#include "AnalysisCommands.h"
#include "Application.h"
#include "Commands.h"
#include "DataCases.h"
#include "DiagramOutline.h"
#include "ElidedLabel.h"
#include "Files.h"
#include "FileType.h"
#include "Functions_Bres_Megista.h"
#include "Kanvas.h"
#include "MainWindowTest.h"
#include "Models.h"
#include "QtColour.h"
#include "Settings.h"
#include "StatusPanel.h"
#include "Text.h"
#include "Tool.h"
#include "Version.h"
#include "Zoom.h"

#include <QClipboard>
#include <QDialog>
#include <QHelpEvent>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QToolTip>

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
    EXPECT_EQ(find<QTimer>("Timer1")->interval(), 5000);
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

TEST(ElidedLabel, HasTheWholeTextInItsTipWhereItIsCut)
{
    ElidedLabel label(nullptr);
    label.setText(" the whole text");
    for (const auto &[width, tip] : {std::pair{500, ""}, {20, "the whole text"}}) {
        label.resize(width, 20);
        QHelpEvent asks(QEvent::ToolTip, {1, 1}, {1, 1});
        QCoreApplication::sendEvent(&label, &asks);
        EXPECT_EQ(QToolTip::text().toStdString(), tip);
    }
    QToolTip::hideText();
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
        EXPECT_TRUE(QTest::qWaitFor([&] { return canvas().width() == central->width() - 19; }));
        if (isClicked)
            click("SSCommand32");
        const int W = central->width() * 15;
        const int H = (central->height() + find<QWidget>("StatusBar1")->height()) * 15 + 420;
        EXPECT_EQ(canvas().geometry(), QRect(9, 0, (W - 285) / 15, (H - height) / 15));
        EXPECT_EQ(canvas().kanvas().image().size(), canvas().size());
        const QRect button = find<QWidget>("Command2")->geometry();
        EXPECT_EQ(canvas().width() - button.right(), button.top() + 1);
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

TEST_F(MainWindow, BestFitTakesTurnsWhereTheDiagramIsCut)
{
    startWithSmall();
    trigger("Epilisi");
    trigger("M");
    Ena_cm_posa_KNm_M = static_cast<float>(Bres_Max_Abs_M() / (0.6 * Picture1().height()));
    trigger("ZoomBestFit"); // of the nodes, which leaves half of the height
    const CanvasView nodes = currentView();
    trigger("ZoomBestFit");
    EXPECT_FALSE(currentView() == nodes || isDiagramCut());
    trigger("ZoomBestFit");
    EXPECT_EQ(currentView(), nodes);
    EXPECT_EQ(log().filter("The diagram goes beyond the edge").size(),
              2); // as often as it came to be cut
}

TEST_F(MainWindow, ThePictureGoesOutAsItIsShown)
{
    startWithSmall();
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
    desktop.expectFileDialog(path("a.bmp"));
    trigger("mnuEIKONA_arxeio_bmp_item");
    EXPECT_EQ(QImage(QString::fromStdString(path("a.bmp"))), picture);
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
    EXPECT_EQ(find<QToolBar>("Toolbar2")->actions().at(25)->objectName(), "Epilisi");
    EXPECT_LE(find<QToolBar>("Toolbar2")->sizeHint().width(), window->minimumWidth());
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
