#include "frmMain.h"

#include "DiagramOutline.h"
#include "FileType.h"
#include "frmWelcome.h"
#include "Functions.h"
#include "Languages.h"
#include "Metablites.h"
#include "QtColour.h"
#include "Sxediastika.h"
#include "Text.h"
#include "ui_frmMain.h"
#include "Units.h"
#include "Version.h"
#include "WindowParts.h"
#include "WindowPlace.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFocusFrame>
#include <QMimeData>
#include <QShortcut>

#include <algorithm>

namespace veskora {

namespace {

/// The canvas begins under the toolbar, which is as high as this.
constexpr int toolbarHeight = 420; // twips

} // namespace

std::unique_ptr<Ui::frmMain> frmMain::makeUi(frmMain *window)
{
    auto ui = std::make_unique<Ui::frmMain>();
    ui->setupUi(window);
    return ui;
}

frmMain::frmMain()
    : ui_(makeUi(this)),
      canvas_(ui_->Picture1),
      hand_(canvas_),
      picture_(canvas_, hand_, *ui_->StatusBar1),
      files_(ui_->RichTextBox1),
      journal_(this, files_),
      undo_(this, canvas_, hand_, picture_),
      help_([this](const QString &name) { openExample(name); }),
      windows_(this, canvas_, hand_, picture_, help_),
      rows_(canvas_, hand_),
      menus_(this, {*this, hand_, files_, undo_, picture_, windows_, rows_, *ui_->RichTextBox1,
                    *ui_->StatusBar1}),
      recent_(menus_.menu(commandPlace::recentMenu), files_),
      keys_(hand_, help_)
{
    equipToolbar();
    connectRooms();
    setAcceptDrops(true);
    pressButtonsByEnter(this);
    ui_->centralwidget->installEventFilter(this);
    setPicture1(&ui_->Picture1->kanvas());
}

frmMain::~frmMain()
{
    ui_->Picture1->disconnect(this); // it is hidden last, when this is no main window any more
    setPicture1(nullptr);
}

void frmMain::equipToolbar()
{
    ui_->Toolbar2->setFixedHeight(pixels(toolbarHeight));
    QWidget *before = ui_->SSCommand32;
    for (QToolButton *button : dressToolButtons(ui_->Toolbar2)) {
        constexpr int width = 26; // all of them fit in the window at its narrowest
        button->setFixedWidth(width);
        setTabOrder(before, button);
        before = button;
    }
    // Many styles do not show which of them has the focus.
    auto *frame = new QFocusFrame(this);
    frame->setObjectName("ToolbarFocus");
    // It goes before this window does, with the toolbar that it then lies on.
    connect(qApp, &QApplication::focusChanged, frame, [this, frame](QWidget *, QWidget *now) {
        frame->setWidget(now != nullptr && now->parentWidget() == ui_->Toolbar2 ? now : nullptr);
    });
}

void frmMain::connectRooms()
{
    connect(&hand_, &Hand::pointerMoved, ui_->StatusBar1, &StatusBar::showPlace);
    connect(&hand_, &Hand::edited, this, &frmMain::redraw);
    connect(&hand_, &Hand::viewMoved, this, &frmMain::redraw);
    connect(&hand_, &Hand::groupWanted, this, [this] { windows_.Button_EAI(); });
    connect(&hand_, &Hand::toolMenuWanted, &menus_, &Menus::popUpTools);
    connect(&hand_, &Hand::rowMenuWanted, &menus_, &Menus::popUpRows);
    hand_.setMenus(menus_.menu(commandPlace::toolMenu), menus_.menu(commandPlace::rowMenu));
    connect(ui_->StatusBar1, &StatusBar::settingChanged, this, &frmMain::redraw);
    connect(ui_->StatusBar1, &StatusBar::labelsWanted, &menus_, &Menus::popUpLabels);
    connect(&files_, &FileCommands::modelReplaced, &picture_, &PictureCommands::showNewModel);
    connect(new QShortcut(QKeySequence::Copy, ui_->Picture1, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, &picture_, &PictureCommands::copyPicture);
    connect(ui_->SSCommand32, &QToolButton::clicked, this, &frmMain::toggleLog);
    connect(ui_->Picture1, &CanvasWidget::resized, this, [this] {
        if (!arranging_)
            redraw();
    });
}

void frmMain::setCaptions()
{
    toolkitTexts_.takeLanguage();
    menus_.setCaptions();
    ui_->StatusBar1->setCaptions();
    describe(ui_->SSCommand32, qtText(Metafrasi(80, "Show/Hide Information text")));
    ui_->SSCommand32->setAccessibleName(ui_->SSCommand32->toolTip());
    ui_->Toolbar2->setAccessibleName(qtText(Metafrasi(1758, "Toolbar")));
    ui_->Picture1->setAccessibleName(qtText(Metafrasi(1753, "Drawing")));
    ui_->RichTextBox1->setAccessibleName(qtText(Metafrasi(1754, "Messages")));
    canvas_.Command1->setAccessibleName(qtText(Metafrasi(1755, "Enlarge the diagram")));
    canvas_.Command2->setAccessibleName(qtText(Metafrasi(1756, "Reduce the diagram")));
}

// ---------------------------------------------------------------------------------- start and end

void frmMain::start(const QString &commandLine)
{
    registerFileType(QApplication::applicationFilePath());
    Fortosi_Glossas();
    showWelcomeWhenDue();
    help_.close(); // it may have been asked for in the language before
    setCaptions();
    logStartLines();
    files_.start(plainText(commandLine));
    picture_.showStart();
    showAtStoredPlace(this);
    desktop().storeSetting("Startup", "Version", programVersion);
    if (!Nai_Agglika)
        Stigmiaio_Minima(Metafrasi(1101, "Language Pack activated: ") + Glossa);
    journal_.offerLost();
}

void frmMain::closeEvent(QCloseEvent *event)
{
    if (closed_) // the last step of closing closes all windows, this one among them
        return event->accept();
    help_.close();
    if (isMinimized())
        bringToFront(*this); // a question about a window that is not seen would be overlooked
    Apothikefsi_Geometrias(this);
    if (!files_.mayLeave(true))
        return event->ignore();
    Apothikefsi_Geometrias(this); // it may have been moved, or have come back, meanwhile
    closed_ = true;
    event->accept();
    QApplication::closeAllWindows();
    QApplication::quit();
}

/// Of a link in the help, which can be used while a dialog is open.
void frmMain::openExample(const QString &name)
{
    if (QApplication::activeModalWidget() != nullptr)
        return showRefusal(Metafrasi(2128, "An example cannot be opened while a dialog is open. "
                                           "Close the dialog first."));
    bringToFront(*this); // a question, and the model, are to be seen
    files_.openExample(plainText(name));
}

// ------------------------------------------------------------------------------------------- drop

void frmMain::dragEnterEvent(QDragEnterEvent *event)
{
    event->setAccepted(event->mimeData()->hasUrls()
                       && QApplication::activeModalWidget() == nullptr);
}

void frmMain::dropEvent(QDropEvent *event)
{
    QStringList paths;
    for (const QUrl &url : event->mimeData()->urls())
        paths << url.toLocalFile();
    event->setDropAction(Qt::CopyAction); // the file stays where it is
    event->accept();
    // Later: whoever it was dragged from waits for the end of this event, a question may follow.
    QMetaObject::invokeMethod(
        this, [this, paths] { files_.openDropped(paths); }, Qt::QueuedConnection);
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

bool frmMain::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui_->centralwidget && event->type() == QEvent::Resize)
        arrangeForSize();
    return QMainWindow::eventFilter(watched, event);
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

    canvas_.arrange();
    ui_->RichTextBox1->showNewestLine();
    redraw();
}

// ---------------------------------------------------------------------------- for the desktop

void frmMain::insertLog(const std::string &text, std::uint32_t colour, bool bold)
{
    undo_.noteLine(text, colour);
    ui_->RichTextBox1->insert(qtText(text), qtColour(colour), bold);
}

void frmMain::setCaption(const std::string &text)
{
    // One stands for the mark of unsaved changes, two for itself.
    setWindowTitle("[*]" + qtText(text).replace("[*]", "[*][*]"));
}

void frmMain::setPointer(Pointer pointer)
{
    if (pointer == Pointer::hourglass)
        return hourglass_.show(this);
    hourglass_.hide();
    hand_.showPointer(); // it may be another one by now
}

void frmMain::setAnalysing(bool isOn)
{
    // The separator before the button Analyze; the button itself stays as it is, as the analysis
    // takes no input anyway.
    findChild<QAction *>("ToolbarSeparator25")->setEnabled(!isOn);
}

void frmMain::repaintLog()
{
    ui_->RichTextBox1->viewport()->repaint();
}

void frmMain::redraw()
{
    picture_.paint();
    reportCutDiagram();
    canvas_.placeChosen();
    // At once and without the event loop: an analysis may follow.
    if (ui_->Picture1->isVisible() && !arranging_)
        ui_->Picture1->repaint();
    ui_->StatusBar1->showGroup();
    hand_.lookAgain();
    windows_.lookAgain();
}

void frmMain::Stigmiaio_Minima(const std::string &text)
{
    canvas_.Label1->tell(qtText(text));
}

} // namespace veskora

#include "moc_frmMain.cpp"
