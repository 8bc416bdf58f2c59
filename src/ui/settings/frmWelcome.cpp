#include "frmWelcome.h"

#include "Functions.h"
#include "Languages.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "QtDesktop.h"
#include "Registry.h"
#include "Text.h"
#include "ui_frmWelcome.h"
#include "Version.h"

#include <QIcon>
#include <QTextDocument>

#include <cmath>

namespace veskora {

frmWelcome::frmWelcome(QWidget *parent) : QDialog(parent), ui_(std::make_unique<Ui::frmWelcome>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(1102, "Welcome")));
    constexpr int iconSide = 64;
    ui_->Image1->setPixmap(QIcon(":/icons/Veskora_ML.svg").pixmap(iconSide, iconSide));
    ui_->Label1->setText(applicationName() + " " + programVersion);
    ui_->Label2->setText(qtText(Metafrasi(2001, "Linear static analysis of plane frames program")));
    const auto paragraph = [](const std::string &text) {
        return "<p>" + qtText(text).toHtmlEscaped() + "</p>";
    };
    ui_->RichTextBox2->setHtml(
        paragraph(Metafrasi(1103, "A plane frame is made of nodes and of straight elements between "
                                  "them, rigidly joined or hinged, on supports and springs, under "
                                  "loads on nodes and along elements. This program gives its "
                                  "displacements, end forces and reactions, as numbers and as "
                                  "diagrams."))
        + paragraph(Metafrasi(1104, "To begin, drag from one point of the canvas to another: that "
                                    "makes an element with its two nodes. Double-click a node to "
                                    "change its support, click a node or an element with the right "
                                    "button for its values and loads, and press F5 for the "
                                    "analysis."))
        + paragraph(Metafrasi(1105, "Quantities have no units of their own. Choose a consistent "
                                    "set, for instance kN and m, and keep to it."))
        + paragraph(Metafrasi(1106, "Check results that matter by another way, if only by a rough "
                                    "sum of loads and reactions.")));
    ui_->RichTextBox2->setAccessibleName(windowTitle());
    // As tall as the text is in this language.
    QTextDocument *introduction = ui_->RichTextBox2->document();
    const int frame = 2 * ui_->RichTextBox2->frameWidth();
    introduction->setTextWidth(ui_->RichTextBox2->minimumWidth() - frame);
    ui_->RichTextBox2->setMinimumHeight(static_cast<int>(std::ceil(introduction->size().height()))
                                        + frame);
    ui_->Label17->setText(qtText(Metafrasi(1107, "Select a Language Pack to use:")));
    ui_->Check1->setText(
        qtText(Metafrasi(1108, "&Do not show this welcome form again at start-up")));
    ui_->Command1->setText(qtText(Metafrasi(1109, "Start")));
    assignDialogMnemonics(this);
    listLanguages();
    connect(ui_->Command1, &QPushButton::clicked, this, [this] {
        activateLanguage();
        accept();
    });
}

frmWelcome::~frmWelcome() = default;

void frmWelcome::listLanguages()
{
    for (const std::string &name : languagePacks())
        ui_->Combo1->addItem(qtText(name));
    // A language whose pack has gone stays the user's until another is chosen.
    const QString language = qtText(storedLanguage());
    ui_->Combo1->setPlaceholderText(language);
    ui_->Combo1->setCurrentIndex(ui_->Combo1->findText(language));
}

void frmWelcome::activateLanguage()
{
    const std::string language = plainText(ui_->Combo1->currentText());
    if (language.empty())
        return;
    const bool isRead = language == storedLanguage();
    storeLanguage(language);
    if (isRead)
        return;
    Fortosi_Glossas();             // what is amiss with a pack is told once
    if (!ui_->Check1->isChecked()) // else all is written when the form goes
        writeSettingsOrTell();
}

void frmWelcome::done(int result)
{
    if (ui_->Check1->isChecked()) {
        desktop().storeSetting("Startup", showWelcomeKey, "0");
        writeSettingsOrTell();
    }
    QDialog::done(result);
}

void showWelcomeWhenDue()
{
    if (Val(desktop().setting("Startup", showWelcomeKey, "1")) != 1) {
        if (!(Val(programVersion) > Val(desktop().setting("Startup", "Version", "1"))))
            return;
        desktop().storeSetting("Startup", showWelcomeKey, "1");
    }
    frmWelcome().exec();
}

} // namespace veskora

#include "moc_frmWelcome.cpp"
