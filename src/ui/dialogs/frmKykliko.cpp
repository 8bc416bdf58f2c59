#include "frmKykliko.h"

#include "Desktop.h"
#include "FormArea.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Text.h"
#include "ui_frmKykliko.h"
#include "Units.h"
#include "WindowParts.h"

#include <QIcon>

#include <numbers>

namespace veskora {

namespace {

QString shownText(double value)
{
    constexpr int decimals = 4;
    return qtText(numberText(Stroggylopoiisi(value, decimals)));
}

} // namespace

frmKykliko::frmKykliko(QWidget *parent)
    : ModelDialog(parent), ui_(std::make_unique<Ui::frmKykliko>())
{
    ui_->setupUi(this);
    setWindowTitle(qtText(Metafrasi(701, "Create arc")));
    ui_->Frame1->setTitle(qtText(Metafrasi(702, "Center k of arc")));
    ui_->Frame2->setTitle(qtText(Metafrasi(703, "Ends 1, 2 of arc")));
    ui_->Frame3->setTitle(qtText(Metafrasi(704, "Elements to be generated")));
    ui_->Label1->setText(qtText(Metafrasi(705, "Number of elements:")));
    ui_->Label2->setText(qtText(Metafrasi(706, "Belonging to E,A,I Group:")));
    ui_->Frame4->setTitle(qtText(Metafrasi(707, "Information")));
    ui_->Label3->setText(qtText(Metafrasi(708, "Radius R =")));
    ui_->Label4->setText(qtText(Metafrasi(709, "Angle Theta =")));
    ui_->Label5->setText(qtText(Metafrasi(710, "(degrees)")));
    ui_->SSCommand1->setText(qtText(Metafrasi(711, "Help")));
    ui_->Label6->setText(qtText(Metafrasi(712, "Information about the definition of the arc")));
    ui_->Label7->setText(qtText(Metafrasi(
        729, "The radius R is determined by the distance of points k and 1. Point 2 determines the "
             "direction k - 2 which defines the end of the arc. It is not necessary for point 2 to "
             "belong to the arc.")));
    ui_->Image1->installEventFilter(this);
    ui_->Image1->setAccessibleName(ui_->Label6->text());
    fillLists();
    ui_->Combo1->showNumber(1);
    equip(Metafrasi(2002, "OK"));
    helpCaption_ = ui_->SSCommand1->text(); // with its mnemonic

    const QList<QLineEdit *> coordinates = {ui_->Text1, ui_->Text2, ui_->Text3,
                                            ui_->Text4, ui_->Text5, ui_->Text6};
    for (const QLineEdit *field : coordinates)
        connect(field, &QLineEdit::textChanged, this, &frmKykliko::Ipologismos_Gonias);
    QList<QWidget *> chain(coordinates.begin(), coordinates.end());
    chainEnter(chain << ui_->Text7 << ui_->Combo1);
    connect(ui_->SSCommand1, &QPushButton::clicked, this,
            [this] { showHelp(ui_->Wide->isHidden()); });
    Ipologismos_Gonias();
    showHelp(false);
}

frmKykliko::~frmKykliko() = default;

void frmKykliko::fillLists()
{
    ui_->Combo1->fill(Arithmos_Omadon);
}

/// The drawing is as large as its place.
bool frmKykliko::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui_->Image1 && event->type() == QEvent::Resize)
        ui_->Image1->setPixmap(
            iconOf(":/icons/arc.svg").pixmap(ui_->Image1->size(), devicePixelRatioF()));
    return ModelDialog::eventFilter(watched, event);
}

void frmKykliko::showHelp(bool shown)
{
    // The least widths, in twips; captions and fields may need more, and the user may want more.
    constexpr int narrow = 3108, wide = 7020;
    const QSize before = size();
    ui_->Wide->setVisible(shown);
    ui_->SSCommand1->setText(helpCaption_ + (shown ? " <-" : " ->"));
    if (isMaximized())
        return;
    FormArea::fitToScreen(this);
    const int part = ui_->Wide->sizeHint().width() + ui_->horizontalLayout->spacing();
    const QSize now = isVisible() ? before + QSize(shown ? part : -part, 0) : QSize();
    const QSize least((shown ? wide : narrow) / twipsPerPixel, 0);
    resize(now.expandedTo(least).expandedTo(minimumSizeHint()));
    FormArea::fitToScreen(this);
}

Arc frmKykliko::arc() const
{
    return arcAround(typedNumber(ui_->Text1), typedNumber(ui_->Text2), typedNumber(ui_->Text3),
                     typedNumber(ui_->Text4), typedNumber(ui_->Text5), typedNumber(ui_->Text6));
}

void frmKykliko::Ipologismos_Gonias()
{
    const Arc arc = this->arc();
    ui_->LabelR->setText(shownText(arc.R));
    ui_->LabelTheta->setText(shownText(arc.theta * 180 / std::numbers::pi));
}

void frmKykliko::apply()
{
    const auto g = rowOrRefuse(ui_->Combo1, noSuchGroup);
    if (!g)
        return;
    const double number = typedNumber(ui_->Text7);
    if (!isRowNumber(number)) {
        refuseArc(ArcRefusal::badNumber, number);
        return;
    }
    for (QLineEdit *field :
         {ui_->Text1, ui_->Text2, ui_->Text3, ui_->Text4, ui_->Text5, ui_->Text6})
        if (!typedSingle(field)) {
            refuseOverflow(field);
            return;
        }
    const Arc arc = this->arc();
    const auto [refusal, places] = arcNodes(arc, number);
    if (refusal != ArcRefusal::none)
        return refuseArc(refusal, number);
    if (arc.isCircle
        && desktop().message(Metafrasi(721, "Do you want to create a whole circle?"),
                             Icon::question, Buttons::okCancel)
               != Answer::ok)
        return;
    const int nodes = Arithmos_Kombon, elements = Arithmos_Stoixeion;
    addArc(places, arc.isCircle, *g);
    logNew(nodes, elements);
    modelChanged();
    accept();
}

void frmKykliko::refuseArc(ArcRefusal refusal, double elements)
{
    switch (refusal) {
    case ArcRefusal::none:
        break;
    case ArcRefusal::noLength:
        refuse(Metafrasi(714, "The radius of the specified arc is zero."), ui_->Text3);
        break;
    case ArcRefusal::badNumber:
        refuse(Metafrasi(713, "The value given for the number of elements is unacceptable."),
               ui_->Text7);
        break;
    case ArcRefusal::nodeLimit:
        refuse(Metafrasi(715, "The maximum number of nodes that can be defined is") + " "
                   + numberText(maxNodes) + ". " + Metafrasi(716, "This action whould require")
                   + " " + numberText(nodesWithArc(arc(), elements)) + " "
                   + Metafrasi(717, "nodes."),
               ui_->Text7);
        break;
    case ArcRefusal::elementLimit:
        refuse(Metafrasi(718, "The maximum number of elements that can be defined is") + " "
                   + numberText(maxElements) + ". " + Metafrasi(719, "This action whould require")
                   + " " + numberText(Arithmos_Stoixeion + elements) + " "
                   + Metafrasi(720, "elements."),
               ui_->Text7);
        break;
    case ArcRefusal::overflow:
        refuseOverflow(ui_->Text3);
        break;
    }
}

/// Logs the rows behind the first @p nodes and @p elements.
void frmKykliko::logNew(int nodes, int elements)
{
    for (int e = elements + 1; e <= Arithmos_Stoixeion; ++e)
        Grammi_Log(Metafrasi(722, "New element #") + numberText(e) + ", "
                       + Metafrasi(723, "Node i: #") + numberText(nodeOf(e, element::nodeI)) + ", "
                       + Metafrasi(724, "Node j: #") + numberText(nodeOf(e, element::nodeJ)) + ", "
                       + Metafrasi(725, "Group: #") + numberText(groupOf(e)) + ", "
                       + Metafrasi(726, "P2 Type"),
                   logColour::navy);
    for (int n = nodes + 1; n <= Arithmos_Kombon; ++n)
        Grammi_Log(Metafrasi(727, "New node #") + numberText(n)
                       + ", x=" + numberText(Komboi(n, node::x))
                       + ", y=" + numberText(Komboi(n, node::y)) + ", " + Metafrasi(728, "Free"),
                   logColour::navy);
}

} // namespace veskora

#include "moc_frmKykliko.cpp"
