// The window of the check on the offscreen platform.

#include "frmElegxos.h"
#include "MainWindowTest.h"
#include "ModelCheck.h"
#include "Models.h"
#include "Text.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>

namespace veskora {
namespace {

class CheckWindow : public MainWindow
{
protected:
    /// A beam that nothing keeps from sliding, and a group of no element.
    void openOnSlidingBeam()
    {
        start();
        buildModel("G 1 1 1; G 1 1 1; N 0 0 oxo; N 5 0 oxo; N 2 2; E 1 2 1");
        qtDesktop->redraw();
        trigger("mnuELEGXOS_ANALYSIS_item");
    }
    QListWidget *findings() { return find<QListWidget>("Findings"); }
    std::string outdated()
    {
        QMetaObject::invokeMethod(find<QTimer>("LookTimer"), "timeout");
        const auto *line = find<QLabel>("Outdated");
        return line->isHidden() ? "" : line->text().toStdString();
    }
    QImage picture() { return canvas().kanvas().image().copy(); }
    QImage plainPicture()
    {
        qtDesktop->redraw();
        return picture();
    }
};

TEST_F(CheckWindow, WithoutNodesItSaysSo)
{
    start();
    desktop.expectMessage("No nodes have been defined yet.");
    trigger("mnuELEGXOS_ANALYSIS_item");
    EXPECT_EQ(window->findChild<frmElegxos *>(), nullptr);

    openOnSlidingBeam(); // and what is open stays as it is
    buildModel("");
    desktop.expectMessage("No nodes have been defined yet.");
    click("Refresh");
    EXPECT_GT(findings()->count(), 1);
}

TEST_F(CheckWindow, WhatIsPickedIsSeenOverTheModelUntilTheNextRedraw)
{
    start();
    Katastasi_Provolis = view::M;
    openOnSlidingBeam();
    EXPECT_EQ(Katastasi_Provolis, view::model);
    const QImage motion = picture();
    const auto vectors = [this](const std::string &name) {
        desktop.expectFileDialog(path(name));
        trigger("mnuEIKONA_SVG_PDF_item");
        return contentOf(path(name));
    };
    const std::string motionAsVectors = vectors("m.svg");
    const QImage plain = plainPicture();
    EXPECT_LT(vectors("p.svg").size(), motionAsVectors.size());
    EXPECT_NE(motion, plain);
    QTest::keyClick(findings(), Qt::Key_Return);
    EXPECT_EQ(picture(), motion);

    const std::vector<Finding> checked = checkModel();
    int marked = 0;
    for (int row = 1; row < findings()->count(); ++row) {
        QTest::keyClick(findings(), Qt::Key_Down);
        EXPECT_NE(picture(), motion) << row;
        EXPECT_EQ(find<QPlainTextEdit>("Explanation")->toPlainText(),
                  qtText(textOf(checked[static_cast<std::size_t>(row)]).explanation));
        marked += picture() != plain;
    }
    EXPECT_GE(marked, 1) << "the node without an element";
    QApplication::setActiveWindow(window->findChild<frmElegxos *>());
    QTest::keyClick(findings(), Qt::Key_Home);
    EXPECT_EQ(picture(), motion);
    QTest::keyClick(findings(), Qt::Key_Escape);
    EXPECT_EQ(picture(), plain);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window->findChild<frmElegxos *>(), nullptr);
}

TEST_F(CheckWindow, ItTellsThatModelOrResultsHaveBecomeOthersAndMarksNoRowsOfBefore)
{
    openOnSlidingBeam();
    const auto *opened = window->findChild<frmElegxos *>();
    const std::string changed = "The model has changed since this check. Refresh checks it anew.";
    EXPECT_EQ(outdated(), "");
    Komboi(3, node::x) = 4;
    EXPECT_EQ(outdated(), changed);
    Komboi(3, node::x) = 2; // as by undo
    EXPECT_EQ(outdated(), "");
    ++analysesFinished;
    EXPECT_EQ(outdated(), "The model has been analyzed since this check. Refresh checks it anew.");
    click("Refresh");
    EXPECT_EQ(outdated(), "");

    buildModel("N 7 7 xxx");
    const QImage plain = plainPicture();
    for (int row = 0; row < findings()->count(); ++row) {
        QTest::keyClick(findings(), Qt::Key_Down);
        EXPECT_EQ(picture(), plain);
    }
    EXPECT_EQ(outdated(), changed);
    trigger("mnuELEGXOS_ANALYSIS_item");
    EXPECT_EQ(outdated(), "");
    EXPECT_EQ(window->findChild<frmElegxos *>(), opened);
    EXPECT_EQ(findings()->currentRow(), 0);
}

TEST_F(CheckWindow, TheTextLeavesWhole)
{
    openOnSlidingBeam();
    click("Copy");
    const QString text = QApplication::clipboard()->text();
    for (int row = 0; row < findings()->count(); ++row)
        EXPECT_TRUE(text.simplified().contains(findings()->item(row)->text().section(": ", 1)))
            << row;
    const std::string file = path("beam_check.txt");
    desktop.expectFileDialog(file);
    click("SaveText");
    EXPECT_EQ(desktop.fileQuestions.back().proposed, "Untitled_check.txt");
    EXPECT_EQ(contentOf(file), text.toStdString() + "\r\n");
}

} // namespace
} // namespace veskora
