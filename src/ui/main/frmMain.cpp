// The window itself: its parts, its layout, how it starts and ends.

#include "frmMain.h"

#include "Colours.h"
#include "ElidedLabel.h"
#include "Files.h"
#include "FileSystem.h"
#include "FileType.h"
#include "frmApotelesmata.h"
#include "frmWelcome.h"
#include "Functions.h"
#include "Languages.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "QtColour.h"
#include "Registry.h"
#include "StatusPanel.h"
#include "Sxediastika.h"
#include "ui_frmMain.h"
#include "Units.h"
#include "Version.h"
#include "Zoom.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QDate>
#include <QFocusFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

/// The canvas begins under the toolbar, which is as high as this.
constexpr int toolbarHeight = 420; // twips

} // namespace

frmMain::frmMain() : ui_(std::make_unique<Ui::frmMain>())
{
    ui_->setupUi(this);
    buildToolbar();
    buildStatusBar();
    buildCanvasObjects();
    buildPopups();
    connectCommands();
    qApp->installEventFilter(this);

    constexpr int instantMessageTime = 5000; // ms
    Timer1_.setParent(this);
    Timer1_.setObjectName("Timer1");
    Timer1_.setSingleShot(true);
    Timer1_.setInterval(instantMessageTime);
    connect(&Timer1_, &QTimer::timeout, Label1_, &QWidget::hide);

    setPicture1(&ui_->Picture1->kanvas());
    Reset_Pointer();
}

frmMain::~frmMain()
{
    delete results_;
    ui_->Picture1->disconnect(this); // it is hidden last, when this is no main window any more
    setPicture1(nullptr);
}

void frmMain::buildToolbar()
{
    ui_->Toolbar2->setFixedHeight(pixels(toolbarHeight));
    for (QAction *action : ui_->Toolbar2->actions())
        if (QWidget *button = ui_->Toolbar2->widgetForAction(action); !action->isSeparator()) {
            constexpr int width = 26; // all of them fit in the window at its narrowest
            button->setObjectName(action->objectName());
            button->setFixedWidth(width);
            button->setFocusPolicy(Qt::TabFocus); // some commands stand nowhere else
        }
    // Many styles do not show which of them has the focus.
    auto *frame = new QFocusFrame(this);
    frame->setObjectName("ToolbarFocus");
    // It goes before this window does, with the toolbar that it then lies on.
    connect(qApp, &QApplication::focusChanged, frame, [this, frame](QWidget *, QWidget *now) {
        frame->setWidget(now != nullptr && now->parentWidget() == ui_->Toolbar2 ? now : nullptr);
    });
}

void frmMain::buildStatusBar()
{
    auto *panels = new QWidget(ui_->StatusBar1);
    auto *row = new QHBoxLayout(panels);
    constexpr int gap = 3; // logical pixels
    row->setContentsMargins(gap, 0, gap, 0);
    row->setSpacing(gap);
    ui_->StatusBar1->addWidget(panels, 1);
    ui_->StatusBar1->setSizeGripEnabled(false); // the frame has one, and the texts need the room
    const auto add = [row](auto *panel, const char *name, int stretch = 0) {
        panel->setObjectName(name);
        row->addWidget(panel, stretch);
        return panel;
    };
    for (const auto &[panel, name] : {std::pair(&panel1_, "Panel1"), {&panel2_, "Panel2"}}) {
        *panel = add(new QLabel(panels), name);
        (*panel)->setTextFormat(Qt::PlainText);
        (*panel)->setMinimumWidth((*panel)->fontMetrics().horizontalAdvance("x = -123.456"));
        // Hidden it keeps its room, and the buttons beside it stay under the pointer.
        QSizePolicy policy = (*panel)->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        (*panel)->setSizePolicy(policy);
    }
    sint_ = add(new StatusPanel(panels), "sint");
    aksones_ = add(new StatusPanel(panels), "Aksones");
    kannabos_ = add(new StatusPanel(panels), "Kannabos");
    times_ = add(new StatusPanel(panels), "Times");
    panel7_ = add(new ElidedLabel(panels), "Panel7", 1);
}

void frmMain::buildCanvasObjects()
{
    CanvasWidget *canvas = ui_->Picture1;
    const auto button = [canvas](const char *name, const char *caption) {
        constexpr int side = 26; // logical pixels
        auto *push = new QPushButton(caption, canvas);
        push->setObjectName(name);
        push->setFixedSize(side, side);
        push->setCursor(Qt::ArrowCursor);
        push->hide();
        return push;
    };
    highlights_ = std::make_unique<Highlights>(canvas);
    Line1_ = new CanvasOverlay(canvas, "Line1");
    Shape1_ = new CanvasOverlay(canvas, "Shape1");
    Shape1_->setForm(CanvasOverlay::Form::rectangle);
    Label2_ = new CanvasLabel(canvas, "Label2");
    Label1_ = new CanvasLabel(canvas, "Label1");
    Label1_->setMargin(6);
    Command1_ = button("Command1", "+");
    Command2_ = button("Command2", "-");
    connect(canvas, &CanvasWidget::pressed, this, &frmMain::canvasPressed);
    connect(canvas, &CanvasWidget::moved, this, &frmMain::canvasMoved);
    connect(canvas, &CanvasWidget::released, this, &frmMain::canvasReleased);
    connect(canvas, &CanvasWidget::abandoned, this, &frmMain::giveUpDrag);
    connect(canvas, &CanvasWidget::doubleClicked, this, &frmMain::canvasDoubleClicked);
    connect(canvas, &CanvasWidget::left, this, &frmMain::pointerLeft);
    connect(canvas, &CanvasWidget::resized, this, [this] {
        showToolPointer(); // its picture is made for one resolution
        if (!arranging_)
            redraw();
    });
}

// ------------------------------------------------------------------------------------------ start

void frmMain::start(const QString &commandLine)
{
    registerFileType(QApplication::applicationFilePath());
    Fortosi_Glossas();
    showWelcomeWhenDue();
    help_.close(); // it may have been asked for in the language before
    setCaptions();
    logStartLines();
    resetView();
    Fortosi_Rithmiseon();
    applyColours();
    Katastasi_Provolis = 0;
    showMode(0);
    sint_->setLook(true);
    showPanels();
    showModelCaption({});
    if (!commandLine.isEmpty()) {
        std::string path = plainText(commandLine);
        currentFolder = folderOf(path);
        Anagnosi_Arxeiou(path);
        applyColours();
        showPanels();
    }
    resetZoomHistory();
    restoreGeometryFromSettings();
    desktop().storeSetting("Startup", "Version", programVersion);
    if (!Nai_Agglika)
        Stigmiaio_Minima(Metafrasi(1101, "Language Pack activated: ") + Glossa);
}

void frmMain::logStartLines()
{
    const std::string title(applicationTitle);
    Grammi_Log(title + " - " + Metafrasi(2001, "Linear static analysis of plane frames program"),
               logColour::navy, true, true);
    Grammi_Log(Metafrasi(112, "Made at Kalvorn for those who design frames and those who learn to"),
               logColour::navy, true);
    Grammi_Log("", logColour::black);
    const auto weekday = [](int day) {
        switch (day) {
        case Qt::Monday:
            return Metafrasi(106, "Monday");
        case Qt::Tuesday:
            return Metafrasi(107, "Tuesday");
        case Qt::Wednesday:
            return Metafrasi(108, "Wednesday");
        case Qt::Thursday:
            return Metafrasi(109, "Thursday");
        case Qt::Friday:
            return Metafrasi(110, "Friday");
        case Qt::Saturday:
            return Metafrasi(111, "Saturday");
        default:
            return Metafrasi(105, "Sunday");
        }
    };
    const QDate today = QDate::currentDate();
    Grammi_Log(weekday(today.dayOfWeek()) + " "
                   + plainText(QLocale().toString(today, QLocale::ShortFormat)),
               logColour::grey);
}

void frmMain::restoreGeometryFromSettings()
{
    const auto stored = [](const char *key, double standard) {
        const double twips = Val(desktop().setting("Startup", key, numberText(standard)));
        constexpr double largest = 1e6; // beyond any screen: a damaged store
        return static_cast<int>(std::abs(twips) < largest ? twips : standard) / twipsPerPixel;
    };
    const QRect whole = QGuiApplication::primaryScreen()->availableGeometry();
    QSize size(stored("frmM_W", 10000), stored("frmM_H", 8000));
    size = size.expandedTo(minimumSize()).boundedTo(whole.size().expandedTo(minimumSize()));
    const double centredLeft = (whole.width() - size.width()) / 2.0 * twipsPerPixel;
    const double centredTop = (whole.height() - size.height()) / 2.0 * twipsPerPixel;
    QRect frame(QPoint(stored("frmM_L", centredLeft), stored("frmM_T", centredTop)), size);

    // A screen may have gone since: the window comes back on one that is there.
    const QScreen *screen = QGuiApplication::screenAt(frame.center());
    const QRect area = screen != nullptr ? screen->availableGeometry() : whole;
    frame.moveLeft(std::clamp(frame.left(), area.left(),
                              std::max(area.left(), area.right() - frame.width() + 1)));
    frame.moveTop(std::clamp(frame.top(), area.top(),
                             std::max(area.top(), area.bottom() - frame.height() + 1)));
    setGeometry(frame);
    if (Val(desktop().setting("Startup", "WindowState", "2")) == 2)
        showMaximized();
    else
        showNormal();
    keepFrameOnScreen();
    // The frame's own size may be known only once the window manager has drawn it.
    constexpr int framed = 150; // ms
    QTimer::singleShot(framed, this, &frmMain::keepFrameOnScreen);
}

void frmMain::keepFrameOnScreen()
{
    if (isMaximized() || isMinimized())
        return;
    const QRect area = screen()->availableGeometry();
    const QSize border = frameGeometry().size() - size();
    const QSize fitting = size().boundedTo(area.size() - border).expandedTo(minimumSize());
    if (fitting != size())
        resize(fitting);
    const QRect frame(frameGeometry().topLeft(), fitting + border);
    const int left =
        std::max(area.left(), std::min(frame.left(), area.right() - frame.width() + 1));
    const int top = std::max(area.top(), std::min(frame.top(), area.bottom() - frame.height() + 1));
    if (QPoint(left, top) != frame.topLeft())
        move(left, top);
}

void frmMain::Apothikefsi_Geometrias()
{
    // The state is never changed to measure: the window would flicker.
    const QRect normal = normalGeometry().isEmpty() ? geometry() : normalGeometry();
    const auto store = [](const char *key, int value) {
        desktop().storeSetting("Startup", key, numberText(value));
    };
    store("WindowState", isMaximized() ? 2 : 0);
    store("frmM_W", normal.width() * twipsPerPixel);
    store("frmM_H", normal.height() * twipsPerPixel);
    if (QGuiApplication::platformName().startsWith("wayland"))
        return; // no window learns its place there: that of another session stays
    store("frmM_L", normal.left() * twipsPerPixel);
    store("frmM_T", normal.top() * twipsPerPixel);
}

void frmMain::closeEvent(QCloseEvent *event)
{
    if (closed_) // the last step of closing closes all windows, this one among them
        return event->accept();
    help_.close();
    if (isMinimized())
        bringToFront(*this); // a question about a window that is not seen would be overlooked
    Apothikefsi_Geometrias();
    if (!askToSave(true))
        return event->ignore();
    Apothikefsi_Geometrias(); // the window may have been moved, or have come back, meanwhile
    closed_ = true;
    event->accept();
    QApplication::closeAllWindows();
    QApplication::quit();
}

// ----------------------------------------------------------------------------------------- layout

int frmMain::innerWidth() const
{
    return ui_->centralwidget->width() * twipsPerPixel;
}

int frmMain::innerHeight() const
{
    return (ui_->centralwidget->height() + ui_->StatusBar1->height()) * twipsPerPixel
           + toolbarHeight;
}

namespace {

bool isOfKeys(const QEvent &event)
{
    constexpr std::array kinds = {QEvent::KeyPress, QEvent::KeyRelease, QEvent::ShortcutOverride,
                                  QEvent::Shortcut};
    return std::ranges::find(kinds, event.type()) != kinds.end();
}

} // namespace

bool frmMain::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui_->centralwidget && event->type() == QEvent::Resize)
        arrangeForSize();
    if (event->type() == QEvent::MouseMove)
        pointer_ = static_cast<const QMouseEvent *>(event)->globalPosition();
    if (isDragging() && isOfKeys(*event)) {
        event->accept();
        return true;
    }
    if (askedForHelp(watched, *event)) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress)
        return pressFocusedButton(watched, static_cast<const QKeyEvent *>(event)->key());
    return QMainWindow::eventFilter(watched, event);
}

/// Then no key starts a command: it would pull the model away under the pointer. Not while a box
/// stands open that the end of a drag has brought up.
bool frmMain::isDragging() const
{
    return (Patimeno_Koumpi || ui_->Picture1->isHeld())
           && QApplication::activeModalWidget() == nullptr;
}

/// Enter presses a button of this window as Space does.
bool frmMain::pressFocusedButton(QObject *watched, int key)
{
    auto *button = qobject_cast<QAbstractButton *>(watched);
    if (button == nullptr || button->window() != this
        || (key != Qt::Key_Return && key != Qt::Key_Enter))
        return false;
    button->click();
    return true;
}

/// F1 shows the help of the window in front, above any dialog.
bool frmMain::askedForHelp(const QObject *watched, const QEvent &event)
{
    const bool press = event.type() == QEvent::KeyPress;
    if ((!press && event.type() != QEvent::ShortcutOverride)
        || static_cast<const QKeyEvent &>(event).key() != Qt::Key_F1
        || static_cast<const QKeyEvent &>(event).modifiers() != Qt::NoModifier)
        return false;
    if (press)
        help_.showTopicOf(watched->isWidgetType() ? static_cast<const QWidget *>(watched)->window()
                                                  : QApplication::activeWindow());
    return true;
}

void frmMain::arrangeForSize()
{
    const int W = innerWidth();
    const int H = innerHeight();
    if (!ui_->RichTextBox1->isHidden() && H > 2600)
        arrange(H - 2340, H - 1875, W - 720);
    else if (ui_->RichTextBox1->isHidden() && H > 1600)
        arrange(H - 1335, H - 1305, W - 480);
}

void frmMain::toggleLog()
{
    const bool show = ui_->RichTextBox1->isHidden();
    const int W = innerWidth();
    const int H = innerHeight();
    ui_->RichTextBox1->setVisible(show);
    ui_->SSCommand32->setText(show ? "x" : "<");
    if (show)
        arrange(H - 2220, H - 1755, W - 720);
    else
        arrange(H - 1320, H - 1290, W - 480);
}

/// Lengths in twips from under the menu bar; the numbers of the callers are the layout.
void frmMain::arrange(int pictureHeight, int collapseTop, int collapseLeft)
{
    constexpr int leftMargin = 135;
    const int width = innerWidth() - 285;
    const int logTop = toolbarHeight + pictureHeight + 45;
    const int aboveStatusBar = toolbarHeight + ui_->centralwidget->height() * twipsPerPixel - 45;
    const auto rectangle = [](int left, int top, int w, int h) {
        return QRect(pixels(left), pixels(top - toolbarHeight), pixels(w), pixels(h));
    };
    arranging_ = true;
    ui_->Picture1->setGeometry(rectangle(leftMargin, toolbarHeight, width, pictureHeight));
    arranging_ = false;
    ui_->RichTextBox1->setGeometry(
        rectangle(leftMargin, logTop, width, std::max(0, aboveStatusBar - logTop)));
    ui_->SSCommand32->setGeometry(QRect(rectangle(collapseLeft, collapseTop, 0, 0).topLeft(),
                                        ui_->SSCommand32->maximumSize()));
    ui_->SSCommand32->raise();

    constexpr int gap = 6; // logical pixels
    const int right = ui_->Picture1->width() - gap - Command2_->width();
    Command2_->move(right, gap);
    Command1_->move(right - Command1_->width(), gap);
    Label1_->move((ui_->Picture1->width() - Label1_->width()) / 2, gap);
    ui_->RichTextBox1->showNewestLine();
    redraw();
}

// ---------------------------------------------------------------------------- for the desktop

void frmMain::insertLog(const std::string &text, std::uint32_t colour, bool bold)
{
    ui_->RichTextBox1->insert(qtText(text), qtColour(colour), bold);
}

void frmMain::setCaption(const std::string &text)
{
    setWindowTitle(qtText(text).replace("[*]", "[*][*]")); // one of them stands for "modified"
}

void frmMain::setPointer(Pointer pointer)
{
    if (pointer == Pointer::hourglass)
        return hourglass_.show(this);
    hourglass_.hide();
    showToolPointer(); // it may be another one by now
}

void frmMain::setAnalysing(bool isOn)
{
    // The separator before the button Analyze; the button itself stays as it is, as the analysis
    // takes no input anyway.
    ui_->ToolbarSeparator25->setEnabled(!isOn);
}

void frmMain::repaintLog()
{
    ui_->RichTextBox1->viewport()->repaint();
}

void frmMain::redraw()
{
    Ananeosi_Sxediou();
    // At once and without the event loop: an analysis may follow.
    if (ui_->Picture1->isVisible() && !arranging_)
        ui_->Picture1->repaint();
    lookAgain();
}

void frmMain::Stigmiaio_Minima(const std::string &text)
{
    setOwnColours(Label1_, qtColour(xroma_stoixeion), qtColour(xroma_background));
    Label1_->setText(qtText(text));
    Label1_->adjustSize();
    Label1_->move((ui_->Picture1->width() - Label1_->width()) / 2, Label1_->y());
    Label1_->show();
    Label1_->raise();
    Timer1_.start();
}

void frmMain::applyColours()
{
    const QColor lines = qtColour(xroma_stoixeion);
    ui_->Picture1->kanvas().setBackground(xroma_background);
    Line1_->setPen(QPen(lines, 1));
    Shape1_->setPen(QPen(lines, 1, Qt::DotLine));
    setOwnColours(Label2_, lines, qtColour(xroma_background));
}

} // namespace veskora
