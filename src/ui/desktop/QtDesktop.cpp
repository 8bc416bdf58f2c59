#include "QtDesktop.h"

#include "Functions.h"
#include "HeldKeys.h"
#include "Mnemonics.h"
#include "Text.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

/// Resources of a static library are not found by themselves.
static void initResources()
{
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(packaging);
}

namespace veskora {

namespace {

QString settingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + '/'
           + applicationName() + "/settings.ini";
}

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QMessageBox::Icon boxIcon(Icon icon)
{
    switch (icon) {
    case Icon::question:
        return QMessageBox::Question;
    case Icon::exclamation:
        return QMessageBox::Warning;
    case Icon::critical:
        return QMessageBox::Critical;
    case Icon::information:
        return QMessageBox::Information;
    case Icon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

/// "Name (*.a)|*.a|All files (*.*)|*.*" as Qt's "Name (*.a);;All files (*)".
QStringList qtFilters(const std::string &filter)
{
    QStringList filters;
    const QStringList parts = qtText(filter).split('|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters << (parts[i + 1] == "*.*" ? QString(parts[i]).replace("*.*", "*") : parts[i]);
    return filters;
}

QString qtFilter(const std::string &filter)
{
    return qtFilters(filter).join(";;");
}

std::optional<std::string> chosen(const QString &path)
{
    return path.isEmpty() ? std::nullopt : std::optional(plainText(path));
}

/// Captions the standard buttons of a box in the user's language.
void captionButtons(QDialog &box)
{
    auto *buttons = box.findChild<QDialogButtonBox *>();
    const auto caption = [buttons](QDialogButtonBox::StandardButton which,
                                   const std::string &word) {
        // A language pack may lack the word; the toolkit's own is better than none.
        if (QPushButton *button = buttons->button(which); button != nullptr && !word.empty())
            button->setText(qtText(word));
    };
    caption(QDialogButtonBox::Ok, Metafrasi(2002, "OK"));
    caption(QDialogButtonBox::Yes, Metafrasi(2130, "Yes"));
    caption(QDialogButtonBox::No, Metafrasi(2131, "No"));
    caption(QDialogButtonBox::Cancel, Metafrasi(2003, "Cancel"));
    assignDialogMnemonics(&box);
}

} // namespace

QString applicationName()
{
    return QString::fromUtf8(applicationTitle.data(), applicationTitle.size());
}

void bringToFront(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

QtDesktop::QtDesktop() : settings_(settingsFile())
{
    writing_.setSingleShot(true);
    QObject::connect(&writing_, &QTimer::timeout, &writing_, [this] { (void)settings_.write(); });
    initResources();
    countHeldKeysOnce();
}

void QtDesktop::attach(MainWindowSurface *window)
{
    window_ = window;
    countHeldKeysOnce(); // before the window's own filter
}

/// Lives while a question is on the screen.
class QtDesktop::Asking
{
public:
    Asking() { ++asking_; }
    ~Asking() { --asking_; }
    Asking(const Asking &) = delete;
    Asking &operator=(const Asking &) = delete;
};

BoxOwner::BoxOwner(QWidget *window) : before_(std::exchange(QtDesktop::owner_, window))
{}

BoxOwner::~BoxOwner()
{
    QtDesktop::owner_ = before_;
}

QWidget *QtDesktop::parent() const
{
    // A box over an open dialog belongs to the dialog; but one of the results window does not
    // belong to a dialog that stands over the main window.
    QWidget *modal = QApplication::activeModalWidget();
    if (owner_ != nullptr && (modal == nullptr || !owner_->isAncestorOf(modal)))
        return owner_;
    if (modal != nullptr)
        return modal;
    // While the program starts, the window has no place on the screen yet.
    QWidget *main = window_->widget();
    return main != nullptr && main->isVisible() ? main : nullptr;
}

Answer QtDesktop::message(const std::string &text, Icon icon, Buttons buttons)
{
    const Asking asking;
    QMessageBox box(parent());
    box.setWindowTitle(applicationName());
    box.setTextFormat(Qt::PlainText);
    box.setText(qtText(text));
    box.setIcon(boxIcon(icon));
    switch (buttons) {
    case Buttons::ok:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    case Buttons::okCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case Buttons::yesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    case Buttons::noYes:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::No);
        break;
    case Buttons::yesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    }
    captionButtons(box);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::yes;
    case QMessageBox::No:
        return Answer::no;
    case QMessageBox::Cancel:
        return Answer::cancel;
    default:
        return Answer::ok;
    }
}

std::size_t QtDesktop::choose(const std::string &text, const std::vector<std::string> &answers,
                              std::size_t escape)
{
    const Asking asking;
    QMessageBox box(parent());
    box.setWindowTitle(applicationName());
    box.setTextFormat(Qt::PlainText);
    box.setText(qtText(text));
    box.setIcon(QMessageBox::Question);
    // All of one role, so that every desktop shows them in the order of the list.
    QList<QPushButton *> buttons;
    for (const std::string &answer : answers) {
        buttons << box.addButton(qtText(answer), QMessageBox::ActionRole);
        buttons.back()->setObjectName(QString("Answer%1").arg(buttons.size()));
    }
    box.setDefaultButton(buttons.front());
    box.setEscapeButton(buttons[static_cast<qsizetype>(escape)]);
    assignDialogMnemonics(&box);
    box.exec();
    const qsizetype pressed = buttons.indexOf(box.clickedButton());
    return pressed < 0 ? escape : static_cast<std::size_t>(pressed);
}

std::string QtDesktop::askText(const std::string &question)
{
    const Asking asking;
    QInputDialog box(parent());
    box.setWindowTitle(applicationName());
    box.setLabelText(qtText(question));
    (void)box.okButtonText(); // makes the buttons
    captionButtons(box);
    return box.exec() == QDialog::Accepted ? plainText(box.textValue()) : std::string();
}

std::optional<std::string> QtDesktop::askOpenFile(const FileQuestion &question)
{
    const Asking asking;
    return chosen(QFileDialog::getOpenFileName(parent(), QString(), qtText(question.folder),
                                               qtFilter(question.filter)));
}

std::optional<std::string> QtDesktop::askSaveFile(const FileQuestion &question)
{
    // A relative name may have a folder of its own, as the command line gave it.
    const QFileInfo proposed(qtText(question.proposed));
    const QString start = proposed.isAbsolute()
                              ? proposed.filePath()
                              : QDir(qtText(question.folder)).filePath(proposed.fileName());
    const Asking asking;
    QString filter;
    const QString path = QFileDialog::getSaveFileName(parent(), QString(), start,
                                                      qtFilter(question.filter), &filter);
    const qsizetype place = qtFilters(question.filter).indexOf(filter);
    if (question.pattern != nullptr && place >= 0)
        *question.pattern = plainText(qtText(question.filter).split('|').at(2 * place + 1));
    return chosen(path);
}

std::string QtDesktop::setting(std::string_view section, std::string_view key,
                               std::string_view standard)
{
    const QString text = settings_.value(fromUtf8(section), fromUtf8(key));
    return text.isEmpty() ? std::string(standard) : plainText(text);
}

void QtDesktop::storeSetting(std::string_view section, std::string_view key, std::string_view value)
{
    settings_.store(fromUtf8(section), fromUtf8(key), fromUtf8(value));
    writing_.start(0);
}

std::string QtDesktop::writeSettings()
{
    return settings_.write() ? std::string() : plainText(settings_.path());
}

std::string QtDesktop::programFolder()
{
    return plainText(QApplication::applicationDirPath());
}

std::string QtDesktop::documentsFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return plainText(QDir(folder).exists() ? folder : QDir::homePath()); // a new user has none yet
}

std::string QtDesktop::dataFolder()
{
    return plainText(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + '/'
                     + applicationName());
}

} // namespace veskora
