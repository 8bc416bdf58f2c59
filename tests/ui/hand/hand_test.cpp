// A model built with the mouse.

#include "MainWindowTest.h"

#include "Models.h"
#include "ModelText.h"
#include "RowQueries.h"
#include "Settings.h"
#include "Zoom.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gmock/gmock.h>

#include <algorithm>
#include <span>

namespace veskora {
namespace {

class CanvasTools : public MainWindow
{
protected:
    CanvasTools()
    {
        start();
        resize(1200, 900);
    }

    void wheel(double x, int angle, int times = 1)
    {
        const QPointF place = QPointF(x, 5) * 96 / 2.54;
        QWheelEvent event(place, canvas().mapToGlobal(place), {}, {0, angle}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        for (; times > 0; --times)
            QCoreApplication::sendEvent(&canvas(), &event);
    }
    void pinch(double step, Qt::NativeGestureType type = Qt::ZoomNativeGesture)
    {
        const QPointF place = canvas().mapToGlobal(QPointF(5, 5) * 96 / 2.54);
        QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, {}, {}, place,
                                  step, {});
        QCoreApplication::sendEvent(&canvas(), &event);
    }

    const std::string groupQuestion =
        "Before defining an element, the main E,A,I Element Group must have been defined (#1).\r\n"
        "Elements defined on screen always belong to the main E,A,I Element Group.\r\n\r\n"
        "Do you want to define the main E,A,I Element Group now?";
};

TEST_F(CanvasTools, APortalIsDrawn)
{
    putGroup(2.1e8, .01, 1e-4);
    dragModel(0, 0, 0, 3.9); // the grid takes the pointer to (0, 4)
    dragModel(.1, 4.1, 6, 4);
    dragModel(6, 4, 6, 0);
    dragModel(6, 0, 0, 0); // ends on the first node
    const auto lines = log();
    EXPECT_EQ(lines[4], " New node #1, x=0, y=0, Free");
    EXPECT_EQ(lines[5], " New node #2, x=0, y=4, Free");
    EXPECT_EQ(lines[6], " New element #1, Node i: #1, Node j: #2, E,A,I Group: #1, P2 Type");
    EXPECT_EQ(lines[11], " New element #4, Node i: #4, Node j: #1, E,A,I Group: #1, P2 Type");
    EXPECT_TRUE(Allagi_Montelou);
    const std::string drawn = modelText();
    buildModel("G 2.1e8 .01 1e-4; N 0 0; N 0 4; N 6 4; N 6 0; E 1 2 1; E 2 3 1; E 3 4 1; E 4 1 1");
    EXPECT_EQ(drawn, modelText());
}

TEST_F(CanvasTools, AClickDefinesANodeAndADoubleClickItsRestraint)
{
    click(2, 3);
    EXPECT_EQ(Arithmos_Kombon, 1);
    click(2.2, 3.2); // the same grid point: the node is taken
    EXPECT_EQ(Arithmos_Kombon, 1);
    for (const char *next : {"xoo", "oxo", "oox", "xxo", "xox", "oxx", "xxx", "ooo"}) {
        doubleClick(2, 3);
        EXPECT_EQ(restraintCode(1), next);
    }
    doubleClick(8, 1); // on empty canvas: a node, at once restrained
    EXPECT_EQ(Arithmos_Kombon, 2);
    EXPECT_EQ(restraintCode(2), "xoo");
    QEvent box(QEvent::WindowBlocked); // which took the first press, and has gone
    QCoreApplication::sendEvent(&canvas(), &box);
    mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, canvasX(8), canvasY(1));
    EXPECT_EQ(restraintCode(2), "xoo");
    Komboi(2, node::fixedX) = .5F; // no code of the ring
    doubleClick(8, 1);
    EXPECT_EQ(Komboi(2, node::fixedX), .5F);
}

TEST_F(CanvasTools, SupportsAreSetByKeysOverANodeAndSteppedBack)
{
    putNode(2, 3, "oxo");
    Elatiria(1, 1) = 5;
    window->activateWindow();
    auto *letters = find<QLabel>("SupportCode");
    for (const auto &[key, next, line] :
         {std::tuple{Qt::Key_F, "xxx", " * Node #1, x=2, y=3, Constraints: xxx"},
          {Qt::Key_P, "xxo", " * Node #1, x=2, y=3, Constraints: xxo"},
          {Qt::Key_R, "oxo", " * Node #1, x=2, y=3, Constraints: oxo"},
          {Qt::Key_0, "ooo", " * Node #1, x=2, y=3, Free"}}) {
        moveTo(2, 3);
        for (const char *elsewhere : {"RichTextBox1", "Picture1"}) {
            find<QWidget>(elsewhere)->setFocus();
            QTest::keyClick(QApplication::focusWidget(), key);
            EXPECT_EQ(restraintCode(1) == next, elsewhere == std::string("Picture1")) << next;
        }
        EXPECT_EQ(log().last(), line);
        EXPECT_EQ(letters->text(), next);
        const auto lines = log().size();
        QTest::keyClick(&canvas(), key); // is so already
        moveTo(5, 3);
        QTest::keyClick(&canvas(), Qt::Key_F); // over no node
        EXPECT_EQ(restraintCode(1), next);
        EXPECT_EQ(log().size(), lines);
    }
    EXPECT_EQ(Elatiria(1, 1), 0); // as in the dialog
    EXPECT_TRUE(letters->isVisible());
    tick("SupportCodeTimer");
    EXPECT_FALSE(letters->isVisible());
    click(2, 3);
    const QPointF place = QPointF(canvasX(2), canvasY(3)) * 96 / 2.54;
    QTest::mouseDClick(&canvas(), Qt::LeftButton, Qt::ControlModifier, place.toPoint());
    EXPECT_EQ(restraintCode(1), "xxx");
}

TEST_F(CanvasTools, APressThatBringsTheWindowToTheFrontMakesNothing)
{
    const auto settle = [this] {
        QCoreApplication::processEvents();
        tick("ActivationTimer");
    };
    const auto makesNode = [this] {
        const int before = Arithmos_Kombon;
        click(2 + before, 3);
        return Arithmos_Kombon > before;
    };
    QWidget other;
    other.show();
    for (const auto &[isSettledBehind, isActivatedFirst, isSettledInFront, makes] :
         {std::tuple{true, false, false, false},
          {true, true, false, false},
          {true, true, true, true},      // by a key
          {false, true, false, true}}) { // a dialog has closed
        other.activateWindow();
        QCoreApplication::processEvents();
        if (isSettledBehind)
            settle();
        if (isActivatedFirst) {
            window->activateWindow();
            QCoreApplication::processEvents();
        }
        if (isSettledInFront)
            settle();
        EXPECT_EQ(makesNode(), makes);
        EXPECT_TRUE(makesNode()); // one press at most
        settle();
    }
}

TEST_F(CanvasTools, TheMenuMovesAHeightAndChoosesTheGroup)
{
    buildModel("G 1 1 1; G 2 2 2; N 0 0; N 4 3; N 8 0; E 1 3 2; E 1 2 1");
    answered([this] { chooseInMenu(8, 0, "MoveHeight"); },
             [](QWidget &dialog) {
                 EXPECT_EQ(dialog.findChild<QLabel *>("Label2")->text(), "#1, #3");
                 dialog.findChild<QLineEdit *>("Text2")->setText("1");
                 dialog.findChild<QAbstractButton *>("SSCommand3")->click();
                 EXPECT_EQ(dialog.findChild<QLabel *>("Note")->text(), "#1, #3, dx=0, dy=1");
                 dialog.close();
             });
    EXPECT_EQ(Komboi(1, node::y) + Komboi(2, node::y) + Komboi(3, node::y), 1 + 3 + 1);
    EXPECT_EQ(log().last(), " * Node #3, x=8, y=1, Free");
    chooseInMenu(6, 1, "DrawInGroup");
    EXPECT_EQ(panel("DrawnGroup"), "New elements: group #2");
    EXPECT_TRUE(shown("DrawnGroup"));
    dragModel(4, 3, 8, 1);
    EXPECT_TRUE(log().last().endsWith("E,A,I Group: #2, P2 Type"));
    buildModel("G 1 1 1; N 0 0; N 4 0; E 1 2 1");
    window->redraw();
    EXPECT_FALSE(shown("DrawnGroup"));
    chooseInMenu(2, 0, "ShareLoads");
    EXPECT_EQ(log().last(), " Nothing has changed: it is so already.");
}

TEST_F(CanvasTools, WithoutTheGridTheLowestNodeNearThePointerIsTaken)
{
    nai_grid = false;
    putGroup(1, 1, 1);
    click(1.23456, 2.34567);
    const double x = Komboi(1, node::x), y = Komboi(1, node::y);
    click(x + .1, y - .1); // within 0.15 cm
    EXPECT_EQ(Arithmos_Kombon, 1);
    click(x + .3, y);
    EXPECT_EQ(Arithmos_Kombon, 2);
    Komboi(2, node::x) = static_cast<float>(x + .1); // two close ones: the lower number
    moveTo(x + .1, y);
    EXPECT_EQ(panel("Label_Kombos"), "1");
    click(5, 5);
    dragModel(5, 5, x + .1, y - .1); // ends on a node that is there
    EXPECT_EQ(log().last(), " New element #1, Node i: #3, Node j: #1, E,A,I Group: #1, P2 Type");
    EXPECT_EQ(Arithmos_Kombon, 3);
}

// In an optimised build: two such places side by side have been left as they were.
TEST_F(CanvasTools, PlacesAreSingles)
{
    std::vector<double> told;
    QObject::connect(&canvas(), &CanvasWidget::moved, window.get(),
                     [&told](Qt::MouseButtons, const Point &at) {
                         told = {at.x, at.y};
                     });
    mouse(QEvent::MouseMove, Qt::NoButton, 641 * 2.54 / 96, 391 * 2.54 / 96);
    EXPECT_EQ(told,
              (std::vector<double>{static_cast<float>(told[0]), static_cast<float>(told[1])}));
    trigger("Zoom_Window");
    const auto lines = log().size();
    const double x = 641 * 2.54 / 96;
    drag(x, x, x, x); // a click makes no window
    EXPECT_EQ(log().size(), lines);
}

TEST_F(CanvasTools, TheMainGroupIsAskedForWhenAnElementNeedsIt)
{
    desktop.expectMessage(groupQuestion, Icon::exclamation, Answer::no);
    dragModel(0, 0, 4, 0);
    EXPECT_EQ(Arithmos_Kombon, 2); // both stay
    EXPECT_EQ(Arithmos_Stoixeion, 0);
    EXPECT_TRUE(log().contains(
        " Before defining an element, the main E,A,I Element Group must have been defined (#1)."));
}

TEST_F(CanvasTools, DragsThatDefineNothing)
{
    putGroup(1, 1, 1);
    dragModel(0, 0, 4, 0);
    dragModel(0, 0, 0, 0);        // back to itself
    Katastasi_Provolis = view::M; // over a diagram
    dragModel(5, 5, 8, 8);
    EXPECT_EQ(Arithmos_Kombon, 2);
    EXPECT_EQ(Arithmos_Stoixeion, 1);
    Katastasi_Provolis = view::model;
    nai_grid = false;
    Klimaka = 3e11F; // beyond what coordinates can be rounded to
    mouse(QEvent::MouseMove, Qt::NoButton, 9, 9);
    mouse(QEvent::MouseButtonPress, Qt::LeftButton, 9, 9);
    mouse(QEvent::MouseButtonRelease, Qt::LeftButton, 9, 9);
    EXPECT_EQ(Arithmos_Kombon, 2);
    EXPECT_TRUE(log().last().startsWith(" This place is too far"));
    Arithmos_Stoixeion = 0;
    for (const int ofDragBefore : {1, 2}) { // a refused press begins none
        Kombos_Arxis = static_cast<std::int16_t>(ofDragBefore);
        mouse(QEvent::MouseButtonPress, Qt::LeftButton, 9, 9);
        moveTo(0, 0, Qt::LeftButton);
        release(0, 0);
        EXPECT_EQ(Arithmos_Stoixeion, 0);
    }
}

TEST_F(CanvasTools, TheRubberBandShowsWhereTheElementWillLie)
{
    Nai_Apolites_Sint = true;
    putGroup(1, 1, 1);
    putNode(2, 2);
    press(2, 2); // from a node that was there before: no band in this run yet
    moveTo(4, 2, Qt::LeftButton);
    EXPECT_FALSE(shown("Line1"));
    release(4, 2);
    press(1, 1);
    moveTo(5.2, 3.3, Qt::LeftButton);
    EXPECT_TRUE(shown("Line1"));
    EXPECT_EQ(panel("Label2"), "5, 3\n@ 4, 2");
    release(5.2, 3.3);
    EXPECT_FALSE(shown("Line1") || shown("Label2"));
}

TEST_F(CanvasTools, HighlightsFollowThePointer)
{
    const char *model = "G 1 1 1; N 1 1; N 7 4; N 7 4; E 1 2 1; E 2 1 1; E 2 3 1";
    buildModel(model);
    moveTo(1, 1);
    EXPECT_EQ(panel("Label_Kombos"), "1");
    EXPECT_TRUE(shown("Label_Kombos") && shown("Shape_Kombos"));
    EXPECT_EQ(find<QWidget>("Shape_Kombos")->width(),
              static_cast<int>(std::lround(.45 * 96 / 2.54)) + 6);
    moveTo(4, 2.55);
    EXPECT_FALSE(shown("Label_Kombos"));
    EXPECT_EQ(panel("Label_Stoixeio"), "1"); // of two alike the lower
    EXPECT_TRUE(shown("Line_Stoixeio"));
    const QImage picture = canvas().grab().toImage().convertToFormat(QImage::Format_RGB32);
    const std::span pixels(reinterpret_cast<const QRgb *>(picture.constBits()),
                           static_cast<std::size_t>(picture.width() * picture.height()));
    EXPECT_GE(std::ranges::count(pixels, 0xFFFF0000), 6 * 96 / 2.54); // in every column of the line
    EXPECT_GE(std::ranges::count(pixels, 0xFFFF8000), 20);            // the sides of the square
    click(4, 2.55);
    Katharismos_Montelou();
    buildModel(model);
    EXPECT_FALSE(shown("Line_Stoixeio")); // until the pointer has been elsewhere
    moveTo(4, 3.5);
    moveTo(4, 2.55);
    EXPECT_TRUE(shown("Line_Stoixeio"));
    const int before = find<QWidget>("Line_Stoixeio")->y();
    resize(1200, 890); // the model goes with the canvas's lower edge
    EXPECT_EQ(find<QWidget>("Line_Stoixeio")->y(), before - 10);
    resize(1200, 800);
    EXPECT_FALSE(shown("Line_Stoixeio")); // it went from under the pointer
    moveTo(4, 3.5);
    EXPECT_FALSE(shown("Line_Stoixeio"));
    trigger("Xeraki");
    EXPECT_FALSE(shown("Shape_Kombos"));
    moveTo(1, 1);
    EXPECT_FALSE(shown("Label_Kombos") || shown("Shape_Kombos"));
}

TEST_F(CanvasTools, TheRightButtonOffersWhatLiesUnderThePointer)
{
    buildModel("G 1 1 1; N 1 1; N 7 1; E 1 2 1");
    const auto entries = [this] {
        std::string text;
        for (const char *name : {"mnu1item", "mnu3item", "mnusss77", "mnu2item", "mnu4item"})
            if (const auto *action = find<QAction>(name); action->isVisible())
                text +=
                    action->isSeparator() ? "-" : action->text().remove('&').toStdString() + ";";
        return text;
    };
    for (const auto &[x, y, offered] :
         {std::tuple{1., 1., "Node #1;Loads on node #1;-Element #1;Loads on element #1;"},
          {4., 1.1, "Element #1;Loads on element #1;"}}) {
        moveTo(x, y);
        release(x, y, Qt::RightButton);
        EXPECT_TRUE(find<QMenu>("mnuAorato")->isVisible());
        EXPECT_EQ(entries(), offered);
        QEvent leaves(QEvent::Leave); // for the menu
        QCoreApplication::sendEvent(&canvas(), &leaves);
        EXPECT_TRUE(shown("Line_Stoixeio"));
        find<QMenu>("mnuAorato")->close();
    }
    moveTo(4, 5);
    release(4, 5, Qt::RightButton);
    EXPECT_FALSE(find<QMenu>("mnuAorato")->isVisible());
    trigger("Zoom");
    release(4, 5, Qt::RightButton);
    EXPECT_TRUE(find<QMenu>("mnuZoomakia")->isVisible());
    find<QMenu>("mnuZoomakia")->close();
}

TEST_F(CanvasTools, HighlightsComeBackAfterWhatHidThem)
{
    buildModel("G 1 1 1; N 1 1; N 7 1; E 1 2 1");
    moveTo(7, 1);
    const auto inDialog = [this](const char *entry, const char *button) {
        answered([&] { trigger(entry); },
                 [&](QWidget &dialog) {
                     if (button != nullptr)
                         dialog.findChild<QAbstractButton *>(button)->click();
                     dialog.close();
                 });
        QCoreApplication::processEvents();
    };
    release(7, 1, Qt::RightButton);
    find<QMenu>("mnuAorato")->close();
    inDialog("mnu3item", nullptr);
    EXPECT_TRUE(shown("Label_Kombos"));
    Allagi_Montelou = false;
    trigger("mnuDIAG_Mitem");
    EXPECT_FALSE(shown("Shape_Kombos") || shown("Label_Kombos"));
    desktop.answerAnything = [] { return Answer::ok; };
    inDialog("mnu1item", "SSCommand2");
    EXPECT_EQ(Arithmos_Kombon, 1); // node 2 and its element went
    release(20, 10, Qt::RightButton);
    EXPECT_FALSE(find<QMenu>("mnuAorato")->isVisible());
}

TEST_F(CanvasTools, ADeletionMakesTheCanvasLookAgain)
{
    desktop.answerAnything = [] { return Answer::yes; };
    for (const int view : {0, 1}) {
        Katastasi_Provolis = view::model;
        buildModel("G 2e8 .01 1e-4; N 4 4; N 1 1 xxx; N 7 1; E 2 3 1");
        window->redraw();
        moveTo(7, 1);
        Katastasi_Provolis = static_cast<std::int16_t>(view);
        trigger("Epilisi"); // deletes node 1, which no element has
        release(7, 1, Qt::RightButton);
        EXPECT_EQ(find<QMenu>("mnuAorato")->isVisible(), view == 0);
        EXPECT_TRUE(view == 1 || find<QAction>("mnu1item")->data() == 2);
        find<QMenu>("mnuAorato")->close();
    }
    Katastasi_Provolis = view::model;
    moveTo(1, 1);
    QEvent away(QEvent::Leave); // to a dialog in which the node goes
    QCoreApplication::sendEvent(&canvas(), &away);
    Komboi(1, node::x) = 3;
    mouse(QEvent::MouseButtonPress, Qt::RightButton, canvasX(1), canvasY(1));
    release(1, 1, Qt::RightButton);
    EXPECT_FALSE(find<QMenu>("mnuAorato")->isVisible());
}

TEST_F(CanvasTools, NoKeyStartsACommandWhileAMouseButtonIsHeld)
{
    buildModel("G 2e8 .01 1e-4; N 1 1 xxx; N 7 1; E 1 2 1");
    auto *zoom = find<QToolButton>("Zoom");
    window->activateWindow();
    zoom->setFocus();
    for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
        mouse(QEvent::MouseButtonPress, button, 20, 2);
        for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_F5, Qt::Key_Tab})
            QTest::keyClick(zoom, static_cast<Qt::Key>(key));
        EXPECT_TRUE(zoom->hasFocus() && Allagi_Montelou);
        EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
        mouse(QEvent::MouseButtonRelease, button, 20, 2);
    }
    mouse(QEvent::MouseButtonPress, Qt::LeftButton, 20, 2);
    QEvent box(QEvent::WindowBlocked); // it gets the release
    QCoreApplication::sendEvent(&canvas(), &box);
    QTest::keyClick(zoom, Qt::Key_Space);
    EXPECT_EQ(canvas().cursor().shape(), Qt::BitmapCursor);
}

TEST_F(CanvasTools, WheelPinchAndKeysAreStepsOfTheView)
{
    window->activateWindow();
    QWidget *const text = find<QTextEdit>("RichTextBox1"), *const picture = &canvas();
    const double W = canvas().kanvas().width(), H = canvas().kanvas().height();
    const Point at = {5, 5}, middle = {W / 2, H / 2};
    const auto ctrl = Qt::ControlModifier, shift = Qt::ShiftModifier;
    // clang-format off
    const std::tuple<std::function<void()>, double, Point, Point, int> cases[] = {
        {[&] { wheel(5, 1, 360); }, 50, at, at, 1},
        {[&] { wheel(5, 360), wheel(5.2, -360); }, 100, at, {5.1, 5}, 1},
        {[&] { wheel(5, 360), wheel(7, -360); }, 100, at, {6, 5}, 2}, // about another place
        {[&] { pinch(.5), pinch(.5); }, 50, at, at, 1},
        {[&] { pinch(0, Qt::BeginNativeGesture), pinch(-3), pinch(-.5), pinch(0, Qt::EndNativeGesture), wheel(5, 360); }, 100, at, at, 2},
        {[&] { QTest::keyClick(text, Qt::Key_Plus, ctrl | shift); }, 79.3701, middle, middle, 1},
        {[&] { QTest::keyClick(picture, Qt::Key_Minus, ctrl); }, 125.992, middle, middle, 1},
        {[&] { QTest::keyClick(picture, Qt::Key_Right); }, 100, at, {5 - W / 10, 5}, 1},
        {[&] { QTest::keyClick(picture, Qt::Key_Up, shift); }, 100, at, {5, 5 + H / 100}, 1},
        {[&] { QTest::keyClick(picture, Qt::Key_Up, ctrl), QTest::keyClick(text, Qt::Key_Up); }, 100, at, at, 0},
        {[&] { wheel(5, 360), QTest::keyClick(text, Qt::Key_Left, Qt::AltModifier); }, 100, at, at, 0},
    };
    // clang-format on
    int row = 0;
    for (const auto &[act, scale, from, to, steps] : cases) { // where a place of the model has come
        SCOPED_TRACE(row++);
        resetView();
        resetZoomHistory();
        const double x = Othoni_X(from.x), y = Othoni_Y(from.y);
        act();
        trigger("mnuEKSODOS2item"); // a command ends the run
        EXPECT_NEAR(Klimaka, scale, 1e-3);
        EXPECT_NEAR(Kosmos_X(x), to.x, 1e-4);
        EXPECT_NEAR(Kosmos_Y(y), to.y, 1e-4);
        EXPECT_EQ(Thesi_Istorikou, steps);
    }
    const qsizetype lines = log().size();
    wheel(5, 9999, 3);
    EXPECT_EQ(log().size(), lines + 1); // the limit is told once
    const QImage sketch = canvas().kanvas().image().copy();
    tick("ViewRest");
    EXPECT_NE(canvas().kanvas().image(), sketch);
}

TEST_F(CanvasTools, EscLeavesNothingOfADrag)
{
    putNode(2, 2);
    window->activateWindow();
    for (const char *tool : {"mnuEKSODOS2item", "Xeraki", "Zoom", "Zoom_Window"})
        for (const auto button : {Qt::LeftButton, Qt::MiddleButton})
            for (const double x : {2., 5.}) { // from the node, from empty canvas
                SCOPED_TRACE(testing::Message() << tool << button << x);
                Allagi_Montelou = false;
                Kombos_Arxis = 7;
                trigger(tool);
                const auto before = canvas().cursor().shape();
                press(x, 2, button);
                EXPECT_EQ(canvas().cursor().shape(),
                          button == Qt::MiddleButton ? Qt::BitmapCursor : before);
                moveTo(7, 3, button);
                wheel(9, 120); // not in a drag
                QTest::keyClick(&canvas(), Qt::Key_Escape);
                EXPECT_FALSE(shown("Line1") || shown("Label2") || shown("Shape1"));
                release(7, 3, button);
                EXPECT_TRUE(Klimaka == 100 && Arxi_X == -2 && Arxi_Y == 2 && Thesi_Istorikou == 0);
                EXPECT_TRUE(Arithmos_Kombon == 1 && Kombos_Arxis == 7 && !Allagi_Montelou);
                EXPECT_EQ(canvas().cursor().shape(), before);
                QTest::keyClick(&canvas(), Qt::Key_Escape);
                EXPECT_EQ(canvas().cursor().shape(), Qt::CrossCursor);
            }
    EXPECT_EQ(log().last(), " Node deleted: #2.");
}

TEST_F(CanvasTools, ANewNodeIsSeenAtOnce)
{
    moveTo(2, 2);
    const auto onScreen = [this] {
        QCoreApplication::processEvents();
        const QPoint node = (QPointF(canvasX(2), canvasY(2)) * 96 / 2.54).toPoint();
        return window->screen()
            ->grabWindow(window->winId())
            .toImage()
            .pixel(canvas().mapTo(window.get(), node));
    };
    const QRgb before = onScreen();
    mouse(QEvent::MouseButtonPress, Qt::LeftButton, canvasX(2), canvasY(2));
    EXPECT_NE(onScreen(), before);
}

} // namespace
} // namespace veskora
