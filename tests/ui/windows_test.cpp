// What holds of every window there is.

#include "epilisi.h"
#include "Forms.h"
#include "frmSelect.h"
#include "frmWelcome.h"
#include "frmXROMATA.h"
#include "HelpViewer.h"
#include "MainWindowTest.h"
#include "Models.h"
#include "Text.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTreeWidget>

#include <set>

namespace veskora {
namespace {

/// What stands on @p part.
QString captionOf(const QObject *part)
{
    const QVariant title = part->property("title");
    return part->inherits("QLineEdit") ? "" // what is typed
           : title.isValid()           ? title.toString()
                                       : part->property("text").toString();
}

/// All that a user reads of @p part, or hears.
QStringList textsOf(QObject *part)
{
    QStringList texts = {captionOf(part)};
    for (const char *name :
         {"windowTitle", "toolTip", "whatsThis", "accessibleName", "placeholderText"})
        texts << part->property(name).toString();
    if (const auto *tabs = qobject_cast<QTabWidget *>(part))
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts << tabs->tabText(tab);
    if (auto *tree = qobject_cast<QTreeWidget *>(part))
        for (QTreeWidgetItemIterator item(tree); *item != nullptr; ++item)
            texts << (*item)->text(0);
    texts.removeAll(QString());
    return texts;
}

/// What is said of @p part when the focus comes to it, if not by itself.
QString nameOf(const QWidget *part)
{
    for (const QLabel *label : part->window()->findChildren<QLabel *>())
        if (label->buddy() == part)
            return label->text();
    return part->accessibleName() + captionOf(part);
}

/// @return the number of its texts
qsizetype look(QWidget &form)
{
    static const QRegularExpression given(
        "Wörd\\d+, longer than English|[xo]{3}|\\[m..\\]|"
        "Kalvorn Veskora ML|Untitled.vsk|<sup>.*</sup>|Scroll (Left|Right)");
    static const QRegularExpression english("[A-Za-z]{3}");
    qsizetype count = 0;
    QString letters;
    std::set<QString> captions;
    const auto takeLetter = [&letters](const QString &caption) {
        const QString letter = caption.section('&', 1).left(1).toLower();
        EXPECT_TRUE(letter.isEmpty() || !letters.contains(letter)) << caption.toStdString();
        letters += letter;
    };
    for (QObject *part : QObjectList(form.findChildren<QObject *>()) + QObjectList{&form}) {
        SCOPED_TRACE(part->objectName().toStdString());
        for (QString &text : textsOf(part)) {
            ++count;
            EXPECT_FALSE(text.remove('&').remove(given).contains(english)) << text.toStdString();
        }
        const auto *widget = qobject_cast<const QWidget *>(part);
        if (widget == nullptr || !widget->isVisible())
            continue;
        if (const QString caption = captionOf(widget);
            caption.startsWith("Wörd") && !part->objectName().startsWith("LabelUnits")) {
            EXPECT_TRUE(captions.insert(caption).second) << caption.toStdString();
        }
        takeLetter(captionOf(widget));
        if (const auto *tabs = qobject_cast<QTabWidget *>(part)) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                EXPECT_TRUE(form.objectName() != "frmApotelesmata"
                            || tabs->tabText(tab).contains('&'));
                takeLetter(tabs->tabText(tab));
            }
        } else if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !part->inherits("QTabBar")) {
            static const QRegularExpression ofAnother("^(qt_.*|)$"); // the line of a list
            EXPECT_TRUE(part->objectName().contains(ofAnother) || !nameOf(widget).isEmpty());
        }
        if (part->inherits("QLabel") && !form.isModal() && !form.inherits("QMainWindow")) {
            EXPECT_GE(widget->width(), widget->sizeHint().width());
        }
        if (const auto *button = qobject_cast<QPushButton *>(part);
            button && form.isModal() && form.objectName() != "frmAbout") {
            EXPECT_TRUE(button->text().contains('&') || button->text().size() < 2);
            const bool takesEnter = button->autoDefault() || button->isDefault();
            EXPECT_FALSE(takesEnter && form.inherits("veskora::ModelDialog")); // its fields do
        }
    }
    return count;
}

using Windows = MainWindow;

TEST_F(Windows, SpeakTheLanguageAndAreReachedByKeys)
{
    std::string pack = "h,h\n";
    for (int slot = 1; slot <= languageSlots; ++slot)
        pack +=
            std::to_string(slot) + ",\"Wörd" + std::to_string(slot) + ", longer than English\"\n";
    std::filesystem::create_directory(path("Languages"));
    write(path("Languages/Wö.lng"), pack + "END");
    qtDesktop->storeSetting("Rithmiseis", "Language", "Wö");
    reopen();
    start();
    buildModel("G 1 1 1; N 0 0 xxx; N 1 0; E 1 2 1");
    Epilisi();
    const std::map<QString, std::function<void()>> opens = {
        {"frmMain", [] {}},
        {"frmXROMATA", [] { (void)Epilogi_Xromatos(0, nullptr); }},
        {"frmWelcome", [] { frmWelcome().exec(); }},
        {"frmSelect", [] { frmSelect(qtText(Metafrasi(1203, "Print")), nullptr).exec(); }},
        {"HelpViewer",
         [] {
             HelpViewer viewer("");
             viewer.show();
             QCoreApplication::processEvents();
         }},
        {"QInputDialog", [this] { qtDesktop->QtDesktop::askText(Metafrasi(81, "Tolerance")); }}};
    std::set<std::string> names = {"QInputDialog"};
    for (const auto &file : std::filesystem::recursive_directory_iterator(SOURCES))
        if (file.path().extension() == ".ui")
            names.insert(file.path().stem());
    for (const QStringList &row : rowsOf(contentOf(TEST_DATA "/windows.txt"))) {
        const std::string name = row.at(0).toStdString();
        EXPECT_EQ(names.erase(name), 1U) << name;
        SCOPED_TRACE(name);
        qsizetype texts = 0;
        QTimer::singleShot(0, qApp, [&] {
            for (QWidget *form : QApplication::topLevelWidgets())
                if (form->isVisible()
                    && (form->objectName() == row.at(0) || form->inherits(name.c_str()))) {
                    texts = look(*form);
                    for (auto *tabs : form->findChildren<QTabWidget *>())
                        for (int tab = 0; tab < tabs->count(); ++tab) {
                            tabs->setCurrentIndex(tab);
                            EXPECT_EQ(look(*form), texts);
                        }
                    if (form != window.get())
                        form->close();
                }
        });
        opens.contains(row.at(0)) ? opens.at(row.at(0))() : trigger(row.at(1).toLatin1());
        QCoreApplication::processEvents();
        EXPECT_EQ(texts, row.at(2).toInt());
    }
    EXPECT_THAT(names, testing::IsEmpty()) << "windows without a row";
}

class Boxes : public MainWindow, protected Forms
{
protected:
    QtDesktop own; ///< which asks itself
};

TEST_F(Boxes, HaveTheirIconTheirButtonsAndTheirAnswers)
{
    start();
    own.attach(window.get());
    using Box = QMessageBox;
    const std::tuple<Icon, Buttons, Box::Icon, Box::StandardButtons, Answer> cases[] = {
        {Icon::question, Buttons::ok, Box::Question, Box::Ok, Answer::ok},
        {Icon::exclamation, Buttons::okCancel, Box::Warning, Box::Ok | Box::Cancel, Answer::ok},
        {Icon::critical, Buttons::yesNo, Box::Critical, Box::Yes | Box::No, Answer::yes},
        {Icon::information, Buttons::noYes, Box::Information, Box::Yes | Box::No, Answer::no},
        {Icon::none, Buttons::yesNoCancel, Box::NoIcon, Box::Yes | Box::No | Box::Cancel,
         Answer::yes}};
    const std::pair<Box::StandardButton, Answer> answers[] = {{Box::Ok, Answer::ok},
                                                              {Box::Yes, Answer::yes},
                                                              {Box::No, Answer::no},
                                                              {Box::Cancel, Answer::cancel}};
    for (const auto &[icon, buttons, shownIcon, shownButtons, byEnter] : cases) {
        const auto answered = [&, icon = icon, buttons = buttons](auto talk) {
            Answer given = Answer::ok;
            during([&] { given = own.message("a < b", icon, buttons); }, talk);
            return given;
        };
        const auto look = [&, shownIcon = shownIcon, shownButtons = shownButtons] {
            EXPECT_EQ(qobject_cast<Box *>(form)->icon(), shownIcon);
            EXPECT_EQ(qobject_cast<Box *>(form)->standardButtons(), shownButtons);
            act("[Return]");
        };
        EXPECT_EQ(answered(look), byEnter);
        for (const auto &[button, answer] : answers)
            if (shownButtons.testFlag(button)) {
                const auto press = [&, button = button] {
                    qobject_cast<Box *>(form)->button(button)->click();
                };
                EXPECT_EQ(answered(press), answer);
            }
    }
}

TEST_F(Boxes, FileDialogsOfferTheFiltersAndTellWhichOneWasTaken)
{
    start();
    own.attach(window.get());
    std::string pattern;
    FileQuestion question;
    question.folder = path("");
    question.proposed = "a";
    question.filter = "SVG files (*.svg)|*.svg|All files (*.*)|*.*";
    question.pattern = &pattern;
    std::optional<std::string> chosen;
    during([&] { chosen = own.askSaveFile(question); },
           [&] {
               auto *filters = control<QComboBox>("fileTypeCombo");
               EXPECT_EQ(filters->itemText(0), "SVG files (*.svg)");
               EXPECT_EQ(filters->itemText(1), "All files (*)");
               EXPECT_EQ(valueOf("fileNameEdit"), "a");
               filters->setCurrentIndex(1);
               qobject_cast<QFileDialog *>(form)->selectNameFilter("All files (*)");
               act("@fileNameEdit [Return]");
           });
    EXPECT_EQ(chosen, path("a"));
    EXPECT_EQ(pattern, "*.*");
}

} // namespace
} // namespace veskora
