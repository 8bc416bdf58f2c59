#include "frmXROMATA.h"

#include "Colours.h"
#include "ColourSwatch.h"
#include "Functions.h"
#include "ImageKanvas.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "PaletteImage.h"
#include "QtDesktop.h"
#include "ui_frmXROMATA.h"

#include <QCloseEvent>
#include <QColorDialog>

#include <array>

namespace veskora {

namespace {

/// Black, blue, green, cyan, red, magenta, yellow, white and grey, in their dark and their bright
/// form; colour words.
constexpr std::array<std::uint32_t, 16> standardColours = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
    0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

double wordOf(const QColor &colour)
{
    return colour.red() + 0x100 * colour.green() + 0x10000 * colour.blue();
}

} // namespace

double Epilogi_Xromatos(double colour, QWidget *parent)
{
    Epilegmeno_Xroma = colour;
    frmXROMATA dialog(parent);
    dialog.exec();
    return Epilegmeno_Xroma;
}

frmXROMATA::frmXROMATA(QWidget *parent) : QDialog(parent), ui_(std::make_unique<Ui::frmXROMATA>())
{
    ui_->setupUi(this);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(qtText(Metafrasi(1601, "Select color")));
    ui_->Label1->setText(qtText(Metafrasi(1602, "Current selection:")));
    ui_->SSCommand1->setText(qtText(Metafrasi(1603, "More...")));
    ui_->SSCommand1->setToolTip(qtText(Metafrasi(1604, "More colors")));
    ui_->SSCommand2->setText(qtText(Metafrasi(2002, "OK")));
    ui_->SSCommand3->setText(qtText(Metafrasi(2003, "Cancel")));
    assignDialogMnemonics(this);
    addSwatches();
    take(Epilegmeno_Xroma);
    connect(ui_->pCol, &PaletteImage::picked, this, qOverload<const QColor &>(&frmXROMATA::take));
    connect(ui_->SSCommand1, &QPushButton::clicked, this, &frmXROMATA::askMore);
    connect(ui_->SSCommand2, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->SSCommand3, &QPushButton::clicked, this, &QDialog::reject);
}

frmXROMATA::~frmXROMATA() = default;

void frmXROMATA::addSwatches()
{
    constexpr int inRow = 8;
    QWidget *last = nullptr;
    for (int i = 0; const std::uint32_t colour : standardColours) {
        auto *swatch = new ColourSwatch(this);
        swatch->setObjectName(QString("Picture1(%1)").arg(i));
        swatch->setToolButtonStyle(Qt::ToolButtonIconOnly);
        swatch->setIconSize(QSize(20, 20));
        swatch->setColour(colour);
        swatch->setAccessibleName(swatch->accessibleDescription());
        ui_->swatches->addWidget(swatch, i / inRow, i % inRow);
        connect(swatch, &ColourSwatch::clicked, this, [this, colour] { take(colour); });
        if (last != nullptr)
            setTabOrder(last, swatch);
        last = swatch;
        ++i;
    }
    setTabOrder(last, ui_->SSCommand1);
    findChild<ColourSwatch *>("Picture1(0)")->setFocus();
}

void frmXROMATA::take(double colour)
{
    current_ = colour;
    setOwnColours(ui_->currentColour, qtColour(colour), qtColour(colour));
}

void frmXROMATA::take(const QColor &colour)
{
    take(wordOf(colour));
}

void frmXROMATA::askMore()
{
    const QColor colour =
        QColorDialog::getColor(qtColour(current_), this, ui_->SSCommand1->toolTip());
    if (colour.isValid())
        take(colour);
}

void frmXROMATA::accept()
{
    Epilegmeno_Xroma = current_;
    QDialog::accept();
}

void frmXROMATA::reject()
{
    Epilegmeno_Xroma = -1;
    QDialog::reject();
}

/// By its frame: no answer.
void frmXROMATA::closeEvent(QCloseEvent *event)
{
    QDialog::reject();
    event->accept();
}

} // namespace veskora
