#include "frmAbout.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "QtDesktop.h"
#include "Registry.h"
#include "Text.h"
#include "ui_frmAbout.h"
#include "Version.h"
#include "WindowParts.h"

#include <QIcon>

namespace veskora {

frmAbout::frmAbout(QWidget *parent) : QDialog(parent), ui_(std::make_unique<Ui::frmAbout>())
{
    constexpr int iconSide = 64;
    ui_->setupUi(this);
    const QString title = applicationName();
    setWindowTitle(qtText(Metafrasi(36, "About Kalvorn Veskora ML")));
    ui_->Image1->setPixmap(iconOf(":/icons/Veskora_ML.svg").pixmap(iconSide, iconSide));
    ui_->Label1->setText(title + " " + programVersion);
    ui_->Label2->setText(qtText(Metafrasi(2001, "Linear static analysis of plane frames program")));
    ui_->Label3->setText(qtText(Nai_Agglika
                                    ? Metafrasi(201, "No Language Pack activated.")
                                    : Metafrasi(1101, "Language Pack activated: ") + Glossa));
    ui_->Check1->setText(
        qtText(Metafrasi(202, "&Show Kalvorn Veskora ML welcome form again at start-up")));
    ui_->Check1->setVisible(Val(desktop().setting("Startup", showWelcomeKey, "0")) != 1);
    ui_->SSCommand1->setText(qtText(Metafrasi(2002, "OK")));
    connect(ui_->SSCommand1, &QPushButton::clicked, this, &QDialog::accept);
}

frmAbout::~frmAbout() = default;

void frmAbout::done(int result)
{
    if (ui_->Check1->isChecked()) {
        desktop().storeSetting("Startup", showWelcomeKey, "1");
        writeSettingsOrTell();
    }
    QDialog::done(result);
}

} // namespace veskora

#include "moc_frmAbout.cpp"
