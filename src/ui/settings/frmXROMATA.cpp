#include "frmXROMATA.h"

#include "ArrowKeys.h"

#include "Colours.h"
#include "ColourSwatch.h"
#include "Functions.h"
#include "Metablites.h"
#include "Mnemonics.h"
#include "PaletteImage.h"
#include "QtColour.h"
#include "Text.h"
#include "ui_frmXROMATA.h"

#include <QCloseEvent>
#include <QColorDialog>
#include <QKeyEvent>

#include <array>
#include <string>

namespace veskora {

namespace {

struct StandardColour
{
    std::uint32_t word;
    std::string name;
};

/// The classic sixteen.
std::array<StandardColour, 16> standardColours()
{
    const std::string dark = " (" + Metafrasi(1768, "dark") + ")";
    const std::string light = " (" + Metafrasi(1769, "light") + ")";
    const std::string blue = Metafrasi(1760, "Blue"), green = Metafrasi(1761, "Green"),
                      cyan = Metafrasi(1762, "Cyan"), red = Metafrasi(1763, "Red"),
                      magenta = Metafrasi(1764, "Magenta"), yellow = Metafrasi(1765, "Yellow"),
                      grey = Metafrasi(1766, "Grey");
    return {{{0x000000, Metafrasi(1759, "Black")},
             {0x800000, blue + dark},
             {0x008000, green + dark},
             {0x808000, cyan + dark},
             {0x000080, red + dark},
             {0x800080, magenta + dark},
             {0x008080, yellow + dark},
             {0xC0C0C0, grey + light},
             {0x808080, grey},
             {0xFF0000, blue},
             {0x00FF00, green},
             {0xFFFF00, cyan},
             {0x0000FF, red},
             {0xFF00FF, magenta},
             {0x00FFFF, yellow},
             {0xFFFFFF, Metafrasi(1767, "White")}}};
}

constexpr int swatchesInRow = 8;

double wordOf(const QColor &colour)
{
    return colour.red() + 0x100 * colour.green() + 0x10000 * colour.blue();
}

} // namespace

double Epilogi_Xromatos(double colour, QWidget *parent)
{
    Epilegmeno_Xroma = colour;
    frmXROMATA dialog(colour, parent);
    dialog.exec();
    return Epilegmeno_Xroma = dialog.answer().value_or(-1);
}

frmXROMATA::frmXROMATA(double colour, QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmXROMATA>()), answer_(colour), current_(colour)
{
    ui_->setupUi(this);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(qtText(Metafrasi(1601, "Select color")));
    ui_->Label1->setText(qtText(Metafrasi(1602, "Current selection:")));
    ui_->pCol->setAccessibleName(qtText(Metafrasi(1757, "Palette")));
    ui_->currentColour->setAccessibleName(ui_->Label1->text());
    ui_->SSCommand1->setText(qtText(Metafrasi(1603, "More...")));
    ui_->SSCommand1->setToolTip(qtText(Metafrasi(1604, "More colors")));
    ui_->SSCommand2->setText(qtText(Metafrasi(2002, "OK")));
    ui_->SSCommand3->setText(qtText(Metafrasi(2003, "Cancel")));
    assignDialogMnemonics(this);
    addSwatches();
    take(colour);
    connect(ui_->pCol, &PaletteImage::picked, this, qOverload<const QColor &>(&frmXROMATA::take));
    connect(ui_->SSCommand1, &QPushButton::clicked, this, &frmXROMATA::askMore);
    connect(ui_->SSCommand2, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->SSCommand3, &QPushButton::clicked, this, &QDialog::reject);
}

frmXROMATA::~frmXROMATA() = default;

void frmXROMATA::addSwatches()
{
    QWidget *last = nullptr;
    for (int i = 0; const auto &[colour, name] : standardColours()) {
        auto *swatch = new ColourSwatch(this);
        swatch->setObjectName(QString("Picture1(%1)").arg(i));
        swatch->setToolButtonStyle(Qt::ToolButtonIconOnly);
        swatch->setIconSize(QSize(20, 20));
        swatch->setColour(colour);
        swatch->setAccessibleName(qtText(name));
        swatch->installEventFilter(this);
        ui_->swatches->addWidget(swatch, i / swatchesInRow, i % swatchesInRow);
        connect(swatch, &ColourSwatch::clicked, this, [this, swatch] { take(swatch->colour()); });
        if (last != nullptr)
            setTabOrder(last, swatch);
        last = swatch;
        ++i;
    }
    setTabOrder(last, ui_->pCol);
    setTabOrder(ui_->pCol, ui_->SSCommand1);
    ui_->swatches->itemAt(0)->widget()->setFocus();
}

/// The swatches are one stop of the Tab key, the one that had the focus last; arrows go from one to
/// the next.
bool frmXROMATA::eventFilter(QObject *watched, QEvent *event)
{
    const int at = ui_->swatches->indexOf(qobject_cast<QWidget *>(watched));
    if (at >= 0 && event->type() == QEvent::FocusIn)
        for (int i = 0; i < ui_->swatches->count(); ++i)
            ui_->swatches->itemAt(i)->widget()->setFocusPolicy(i == at ? Qt::StrongFocus
                                                                       : Qt::ClickFocus);
    if (at < 0 || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const std::optional<QPoint> step = arrowStep(static_cast<const QKeyEvent *>(event)->key());
    if (!step)
        return false;
    if (const QLayoutItem *next = ui_->swatches->itemAtPosition(at / swatchesInRow + step->y(),
                                                                at % swatchesInRow + step->x()))
        next->widget()->setFocus(Qt::OtherFocusReason);
    return true;
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
    answer_ = current_;
    QDialog::accept();
}

void frmXROMATA::reject()
{
    answer_.reset();
    QDialog::reject();
}

/// By its frame: no answer.
void frmXROMATA::closeEvent(QCloseEvent *event)
{
    QDialog::reject();
    event->accept();
}

} // namespace veskora

#include "moc_frmXROMATA.cpp"
