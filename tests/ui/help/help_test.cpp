// The help as a user meets it: F1, the search, and every page with all that it points to.

#include "Forms.h"
#include "frmKomboi.h"
#include "HelpBrowser.h"
#include "HelpViewer.h"
#include "MainWindowTest.h"

#include <QHelpContentWidget>
#include <QHelpIndexModel>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTabBar>

#include <set>

namespace fs = std::filesystem;

namespace veskora {
namespace {

class Help : public MainWindow
{
protected:
    Help()
    {
        desktop.program = path("program");
        fs::create_directory(desktop.program);
    }

    void installHelp() const
    {
        for (const char *name : {"/Veskora_ML.qch", "/Veskora_ML.qhc"})
            fs::copy_file(HELP_FILE_FOLDER + std::string(name), desktop.program + name);
    }
    static HelpViewer *viewer()
    {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *help = qobject_cast<HelpViewer *>(widget))
                return help;
        return nullptr;
    }
    static HelpBrowser *page() { return viewer()->findChild<HelpBrowser *>("Page"); }
    static QTabWidget *tabs() { return viewer()->findChild<QTabWidget *>("Tabs"); }
    static std::string shownPage() { return page()->documentTitle().toStdString(); }
    void openContents()
    {
        installHelp();
        start();
        trigger("mnuCONTENTSitem");
    }
};

/// The compiled help by itself.
class HelpFile : public Help
{
protected:
    HelpFile()
    {
        installHelp();
        engine.setReadOnly(true);
        EXPECT_TRUE(engine.setupData()) << engine.error().toStdString();
    }

    QString content(const QUrl &url) const { return QString::fromUtf8(engine.fileData(url)); }
    QList<QUrl> pages() { return engine.files("veskora-ml", QStringList(), "html"); }

    /// The page is there, and so is the place on it that the link names.
    void expectReachable(const QUrl &url) const
    {
        const QString text = content(url);
        const bool hasPlace =
            !url.hasFragment() || text.contains("<a name=\"" + url.fragment() + "\">");
        EXPECT_TRUE(!text.isEmpty() && hasPlace) << url.toString().toStdString();
    }

    QHelpEngine engine = QHelpEngine(QString::fromStdString(desktop.program + "/Veskora_ML.qhc"));
};

TEST_F(HelpFile, EveryWindowAndBoxHasItsTopic)
{
    std::vector<std::string> ids = {"QMessageBox", "QInputDialog", "QFileDialog", "QColorDialog"};
    for (const auto &file : std::filesystem::recursive_directory_iterator(SOURCES))
        if (file.path().extension() == ".ui")
            ids.push_back(file.path().stem());
    ASSERT_GT(ids.size(), 20);
    for (const std::string &name : ids) {
        const auto id = QString::fromStdString(name);
        const QList<QHelpLink> links = engine.documentsForIdentifier(id);
        ASSERT_EQ(links.size(), 1) << name;
        expectReachable(links.first().url);
    }
}

TEST_F(HelpFile, NoLinkIsDeadAndNoPictureMissing)
{
    static const QRegularExpression reference("(?:href|src)=\"([^\"]+)\"");
    HelpBrowser browser;
    browser.setEngine(&engine);
    ASSERT_GT(pages().size(), 25);
    std::set<fs::path> linked;
    for (const QUrl &page : pages()) {
        const QString text = content(page);
        for (auto found = reference.globalMatch(text); found.hasNext();) {
            const QUrl target = page.resolved(QUrl(found.next().captured(1)));
            if (target.scheme() == "example")
                linked.insert(EXAMPLES "/" + target.path().toStdString());
            else if (target.path().startsWith("/help/pictures/"))
                EXPECT_FALSE(browser.loadResource(QTextDocument::ImageResource, target)
                                 .value<QImage>()
                                 .isNull())
                    << target.toString().toStdString();
            else
                expectReachable(target);
        }
    }
    std::set<fs::path> examples;
    for (const auto &file : fs::recursive_directory_iterator(EXAMPLES))
        if (file.path().extension() == ".vsk")
            examples.insert(file.path());
    EXPECT_EQ(linked, examples);
}

TEST_F(HelpFile, ContentsListEveryPageAndKeywordsLeadToOne)
{
    QSignalSpy contentsMade(engine.contentModel(), &QHelpContentModel::contentsCreated);
    QSignalSpy indexMade(engine.indexModel(), &QHelpIndexModel::indexCreated);
    engine.contentModel()->createContents(QString());
    engine.indexModel()->createIndex(QString());
    ASSERT_TRUE(contentsMade.count() > 0 || contentsMade.wait());
    ASSERT_TRUE(indexMade.count() > 0 || indexMade.wait());
    for (const QUrl &page : pages())
        EXPECT_TRUE(engine.contentWidget()->indexOf(page).isValid())
            << page.toString().toStdString();
    ASSERT_GT(engine.indexModel()->rowCount(), 50);
    for (int row = 0; row < engine.indexModel()->rowCount(); ++row) {
        const QString keyword = engine.indexModel()->index(row).data().toString();
        const QList<QHelpLink> links = engine.documentsForKeyword(keyword);
        ASSERT_EQ(links.size(), 1) << keyword.toStdString();
        expectReachable(links.first().url);
    }
}

TEST_F(Help, F1ShowsThePageOfTheWindowInFront)
{
    installHelp();
    start();
    QTest::keyClick(window.get(), Qt::Key_F1);
    ASSERT_NE(viewer(), nullptr);
    EXPECT_EQ(shownPage(), "The main window");
    {
        frmKomboi dialog(window.get());
        dialog.show();
        QTest::keyClick(dialog.findChild<QWidget *>("Text2"), Qt::Key_F1);
        EXPECT_EQ(shownPage(), "Nodes, supports and springs");
        EXPECT_TRUE(dialog.isVisible());
    }
    trigger("mnuCONTENTSitem"); // which is not the page that F1 would show
    EXPECT_EQ(shownPage(), "Kalvorn Veskora ML");
    EXPECT_TRUE(find<QAction>("mnuCONTENTSitem")->shortcut().isEmpty());
    trigger("mnuEKSODOSitem");
    EXPECT_EQ(viewer(), nullptr);
}

TEST_F(Help, AnExampleOpensByItsLinkAndIsSavedUnderAnotherName)
{
    installHelp();
    fs::copy(EXAMPLES, desktop.program + "/examples");
    write(path("own.vsk"), small);
    start(path("own.vsk"));
    trigger("ZoomBestFit");
    trigger("mnuCONTENTSitem");
    page()->setSource(QUrl("qthelp://veskora-ml/help/examples.html"));
    const auto follow = [] {
        page()->moveCursor(QTextCursor::Start);
        QTest::keyClick(page(), Qt::Key_Tab); // to the first link
        QTest::keyClick(page(), Qt::Key_Return);
        QCoreApplication::processEvents();
    };
    {
        QMessageBox box(window.get());
        box.setWindowModality(Qt::ApplicationModal);
        box.show();
        desktop.expectMessage("An example cannot be opened while a dialog is open. Close the "
                              "dialog first.");
        follow();
    }
    const auto asks = [this](const std::string &file, Answer answer) {
        desktop.expectMessage("Do you want to save the changes you made to file: '" + file + "'?",
                              Icon::none, answer);
    };
    asks(path("own.vsk"), Answer::cancel);
    follow();
    EXPECT_EQ(Onoma_Arxeiou, path("own.vsk"));
    asks(path("own.vsk"), Answer::no);
    follow();
    const std::string example = desktop.program + "/examples/cantilever.vsk";
    const std::string content = contentOf(example);
    EXPECT_EQ(Onoma_Arxeiou, example);
    EXPECT_EQ(shownPage(), "Examples");

    trigger("Zoom_Previous");
    trigger("ZoomBestFit");
    desktop.expectFileDialog(std::nullopt);
    asks(example, Answer::yes);
    follow(); // the example as it is again, and the changed one in a recovery file
    EXPECT_EQ(contentOf(example), content);
    EXPECT_EQ(keptModels().size(), 1U);
    desktop.expectFileDialog(example);
    desktop.expectMessage("The examples stay as they are; save this one under another name.");
    desktop.expectFileDialog(path("mine.vsk"));
    trigger("Save");
    ASSERT_EQ(desktop.fileQuestions.size(), 3U);
    EXPECT_EQ(desktop.fileQuestions.back().folder, qtDesktop->documentsFolder());
    EXPECT_EQ(desktop.fileQuestions.back().proposed, "cantilever");
    EXPECT_EQ(Onoma_Arxeiou, path("mine.vsk"));
    trigger("Save"); // without a question
    EXPECT_EQ(contentOf(path("mine.vsk")), contentOf(example));
}

TEST_F(Help, APackSpeaksWhereTheToolkitLacksItsLanguageAndNothingIsCut)
{
    installHelp();
    fs::create_directory(desktop.program + "/Languages");
    fs::copy_file(HELP_FILE_FOLDER "/Languages/Greek.lng",
                  desktop.program + "/Languages/Attic.lng");
    qtDesktop->storeSetting("Rithmiseis", "Language", "Attic");
    start();
    const auto said = [](const char *text) {
        return QCoreApplication::translate("QFileDialog", text).toStdString();
    };
    EXPECT_EQ(said("Look in:"), "Αναζήτηση σε:");
    EXPECT_EQ(said("%1 already exists.\nDo you want to replace it?"),
              "%1 υπάρχει ήδη. Θέλετε να αντικατασταθεί;");
    EXPECT_EQ(said("beyond its words"), "beyond its words");
    desktop.expectFileDialog(std::nullopt);
    trigger("mnuAPOTHIKEFSIOSitem");
    EXPECT_EQ(desktop.fileQuestions.back().filter, "Αρχεία Kalvorn Veskora (*.vsk)|*.vsk");

    trigger("mnuCONTENTSitem");
    EXPECT_GE(tabs()->width(), tabs()->tabBar()->sizeHint().width());
    const QAbstractItemView *contents = viewer()->findChild<QTreeView *>("ContentsTree");
    EXPECT_TRUE(QTest::qWaitFor([contents] {
        const int titles = contents->sizeHintForColumn(0);
        return titles > 100 && contents->viewport()->width() >= titles;
    }));
}

TEST_F(Help, ContentsAndPageFollowEachOther)
{
    openContents();
    auto *contents = viewer()->findChild<QTreeView *>("ContentsTree");
    const auto titleOf = [](const QModelIndex &entry) { return entry.data().toString(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return contents->currentIndex().isValid(); }));
    page()->setSource(QUrl("qthelp://veskora-ml/help/examples.html#somewhere"));
    EXPECT_EQ(titleOf(contents->currentIndex()), "Examples");
    contents->setFocus();
    QTest::keyClick(contents, Qt::Key_Up);
    EXPECT_EQ(shownPage(), "Examples");
    QTest::keyClick(contents, Qt::Key_Return);
    EXPECT_EQ(shownPage(), titleOf(contents->currentIndex()).toStdString());

    viewer()->findChild<QLineEdit *>("Find")->setText("the");
    std::vector<int> places = {0};
    for (const auto &[key, held] : {std::pair{Qt::Key_F3, Qt::NoModifier},
                                    {Qt::Key_F3, Qt::NoModifier},
                                    {Qt::Key_F3, Qt::ShiftModifier}}) {
        QTest::keyClick(viewer(), key, held);
        places.push_back(page()->textCursor().position());
    }
    EXPECT_LT(places[1], places[2]);
    EXPECT_EQ(places[1], places[3]);
}

TEST_F(Help, ADialogThatBlocksAllWindowsLeavesTheViewerUsable)
{
    openContents();
    // A layout that has not settled yet may put the first click beside the tab.
    const auto chosen = [](int tab) {
        return QTest::qWaitFor([tab] {
            const QTabBar *bar = tabs()->tabBar();
            const QPoint place = bar->mapTo(viewer(), bar->tabRect(tab).center());
            QTest::mouseClick(viewer()->windowHandle(), Qt::LeftButton, {}, place);
            return tabs()->currentIndex() == tab;
        });
    };
    QMessageBox box(window.get());
    box.setWindowModality(Qt::ApplicationModal);
    box.show();
    EXPECT_TRUE(chosen(1)) << "opened before";
    viewer()->close();
    QTest::keyClick(&box, Qt::Key_F1);
    EXPECT_EQ(shownPage(), "Messages and what to do");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(viewer()));
    EXPECT_TRUE(chosen(2)) << "opened from it";
    box.close();
    EXPECT_TRUE(chosen(1)) << "after it";
}

TEST_F(Help, ATabTakesTheFocusToItsField)
{
    openContents();
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer()));
    const auto focus = [] { return viewer()->focusWidget()->objectName().toStdString(); };
    EXPECT_EQ(focus(), "Page");
    const std::pair<int, const char *> fields[] = {
        {2, "SearchText"}, {0, "ContentsTree"}, {1, "Keyword"}};
    for (const auto &[tab, field] : fields) {
        tabs()->setCurrentIndex(tab); // as a click on it does
        EXPECT_EQ(focus(), field);
    }
    for (const auto &[tab, field] : fields) {
        QTest::keyClick(viewer(), static_cast<Qt::Key>(Qt::Key_1 + tab), Qt::ControlModifier);
        EXPECT_EQ(tabs()->currentIndex(), tab);
        EXPECT_EQ(focus(), field);
    }
}

TEST_F(Help, PagesStayReadableUnderADarkStyleSheet)
{
    installHelp();
    start();
    qApp->setStyleSheet("QWidget { background-color: #2b2b2b; color: #dddddd; }");
    trigger("mnuCONTENTSitem");
    EXPECT_EQ(page()->viewport()->grab().toImage().pixelColor(2, 2), QColor(Qt::white));
    EXPECT_EQ(page()->palette().color(QPalette::Text), QColor(Qt::black));
    qApp->setStyleSheet({});
}

TEST_F(Help, TheSearchFindsPagesByTheBeginningsOfWords)
{
    openContents();
    EXPECT_EQ(shownPage(), "Kalvorn Veskora ML");
    const auto search = [](const char *words) {
        viewer()->findChild<QLineEdit *>("SearchText")->setText(words);
        viewer()->findChild<QAbstractButton *>("SearchButton")->click();
    };
    auto *results = viewer()->findChild<QListWidget *>("Results");
    search("Trus AND hing rota");
    const auto row = [&] { return results->findItems("Element types", Qt::MatchStartsWith); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return !row().isEmpty(); }));
    results->setCurrentItem(row().first());
    EXPECT_EQ(shownPage(), "Element types and hinges");
    EXPECT_FALSE(page()->extraSelections().isEmpty());

    QTest::keyClick(viewer()->findChild<QWidget *>("SearchText"), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shownPage(), "Kalvorn Veskora ML");

    search("P2' \"(unheardof"); // what the query language would choke on
    auto *found = viewer()->findChild<QLabel *>("Found");
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return found->text() == "No page has all of these words."; }));
    EXPECT_EQ(results->count(), 0);
}

TEST_F(Help, AMissingOrDamagedFileIsToldAndTheProgramGoesOn)
{
    start();
    const std::string says = "The help cannot be shown. Its file is missing or damaged: "
                             + desktop.program + "/Veskora_ML.qch";
    desktop.expectMessage(says);
    trigger("mnuCONTENTSitem");
    const std::string files[] = {desktop.program + "/Veskora_ML.qch",
                                 desktop.program + "/Veskora_ML.qhc"};
    for (const std::string &file : files)
        write(file, "no help file");
    desktop.expectMessage(says);
    QTest::keyClick(window.get(), Qt::Key_F1);
    EXPECT_EQ(viewer(), nullptr);
    for (const std::string &file : files)
        fs::remove(file);
    installHelp(); // installed again, it is there without a new start
    trigger("mnuCONTENTSitem");
    EXPECT_NE(viewer(), nullptr);
}

} // namespace
} // namespace veskora
