#include "frmKykliko.h"

#include "Desktop.h"
#include "FormArea.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "Text.h"
#include "ui_frmKykliko.h"
#include "Units.h"

#include <QIcon>

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

const double pi = 4 * std::atan(1.0);

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
    ui_->Combo1->fill(Arithmos_Omadon);
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

/// The drawing is as large as its place.
bool frmKykliko::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui_->Image1 && event->type() == QEvent::Resize)
        ui_->Image1->setPixmap(
            QIcon(":/icons/arc.svg").pixmap(ui_->Image1->size(), devicePixelRatioF()));
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

frmKykliko::Arc frmKykliko::arc() const
{
    Arc arc{};
    arc.x = typedNumber(ui_->Text1);
    arc.y = typedNumber(ui_->Text2);
    const double dx1 = typedNumber(ui_->Text3) - arc.x, dy1 = typedNumber(ui_->Text4) - arc.y;
    arc.R = std::sqrt(dx1 * dx1 + dy1 * dy1);
    arc.start = Gonia_Dianysmatos(dx1, dy1);
    double end =
        Gonia_Dianysmatos(typedNumber(ui_->Text5) - arc.x, typedNumber(ui_->Text6) - arc.y);
    if (arc.start > end)
        end += 2 * pi;
    arc.theta = end - arc.start;
    // Two directions typed as one may differ in the last digit of their angles.
    constexpr double least = 1e-9;
    arc.isCircle = arc.theta < least || arc.theta > 2 * pi - least;
    if (arc.isCircle)
        arc.theta = 2 * pi;
    return arc;
}

void frmKykliko::Ipologismos_Gonias()
{
    const Arc arc = this->arc();
    ui_->LabelR->setText(shownText(arc.R));
    ui_->LabelTheta->setText(shownText(arc.theta * 180 / pi));
}

void frmKykliko::apply()
{
    const auto group = chosenRow(ui_->Combo1, noSuchGroup);
    if (!group)
        return;
    const auto refuseNumber = [this] {
        refuse(Metafrasi(713, "The value given for the number of elements is unacceptable."),
               ui_->Text7);
    };
    const auto refuseRadius = [this] {
        refuse(Metafrasi(714, "The radius of the specified arc is zero."), ui_->Text3);
    };
    const double number = typedNumber(ui_->Text7);
    if (!isRowNumber(number))
        return refuseNumber();
    for (QLineEdit *field :
         {ui_->Text1, ui_->Text2, ui_->Text3, ui_->Text4, ui_->Text5, ui_->Text6})
        if (!typedSingle(field)) {
            refuseOverflow(field);
            return;
        }
    const Arc arc = this->arc();
    if (arc.R == 0)
        return refuseRadius();
    if (arc.isCircle && number == 1) // it would join a node to itself
        return refuseNumber();
    if (const double nodes = Arithmos_Kombon + number + (arc.isCircle ? 0 : 1); nodes > maxNodes) {
        refuse(Metafrasi(715, "The maximum number of nodes that can be defined is") + " "
                   + numberText(maxNodes) + ". " + Metafrasi(716, "This action whould require")
                   + " " + numberText(nodes) + " " + Metafrasi(717, "nodes."),
               ui_->Text7);
        return;
    }
    if (const double elements = Arithmos_Stoixeion + number; elements > maxElements) {
        refuse(Metafrasi(718, "The maximum number of elements that can be defined is") + " "
                   + numberText(maxElements) + ". " + Metafrasi(719, "This action whould require")
                   + " " + numberText(elements) + " " + Metafrasi(720, "elements."),
               ui_->Text7);
        return;
    }
    const auto places = frmKykliko::places(arc, static_cast<int>(number));
    if (!places) {
        refuseOverflow(ui_->Text3);
        return;
    }
    const auto next = [&](std::size_t i) { return places->at((i + 1) % places->size()); };
    for (std::size_t i = 0; i < static_cast<std::size_t>(number); ++i)
        if (places->at(i) == next(i)) // an element without length
            return refuseRadius();
    if (arc.isCircle
        && desktop().message(Metafrasi(721, "Do you want to create a whole circle?"),
                             Icon::question, Buttons::okCancel)
               != Answer::ok)
        return;
    store(*places, arc.isCircle, *group);
    modelChanged();
    accept();
}

std::optional<std::vector<std::pair<float, float>>> frmKykliko::places(const Arc &arc, int segments)
{
    std::vector<std::pair<float, float>> places;
    const double step = arc.theta / segments;
    for (int i = 0; i < segments + (arc.isCircle ? 0 : 1); ++i) {
        const double angle = arc.start + i * step;
        const auto x = toSingle(arc.x + arc.R * std::cos(angle));
        const auto y = toSingle(arc.y + arc.R * std::sin(angle));
        if (!x || !y)
            return std::nullopt;
        places.emplace_back(*x, *y);
    }
    return places;
}

void frmKykliko::store(const std::vector<std::pair<float, float>> &places, bool isCircle, int group)
{
    const int nodes = Arithmos_Kombon, elements = Arithmos_Stoixeion;
    const int newNodes = static_cast<int>(places.size());
    const int newElements = isCircle ? newNodes : newNodes - 1;
    Arithmos_Kombon = static_cast<std::int16_t>(nodes + newNodes);
    Arithmos_Stoixeion = static_cast<std::int16_t>(elements + newElements);
    for (int i = 1; i <= newElements; ++i) {
        const int e = elements + i;
        const int nodeI = nodes + i, nodeJ = nodes + i % newNodes + 1;
        std::ranges::fill(Stoixeia.row(e).first(element::used), 0.0F);
        Stoixeia(e, element::nodeI) = static_cast<float>(nodeI);
        Stoixeia(e, element::nodeJ) = static_cast<float>(nodeJ);
        Stoixeia(e, element::group) = static_cast<float>(group);
        Grammi_Log(
            Metafrasi(722, "New element #") + numberText(e) + ", " + Metafrasi(723, "Node i: #")
                + numberText(nodeI) + ", " + Metafrasi(724, "Node j: #") + numberText(nodeJ) + ", "
                + Metafrasi(725, "Group: #") + numberText(group) + ", " + Metafrasi(726, "P2 Type"),
            logColour::navy);
    }
    for (int n = nodes + 1; const auto &[x, y] : places) {
        std::ranges::fill(Komboi.row(n), 0.0F);
        std::ranges::fill(Elatiria.row(n), 0.0F);
        Komboi(n, node::x) = x;
        Komboi(n, node::y) = y;
        Grammi_Log(Metafrasi(727, "New node #") + numberText(n++) + ", x=" + numberText(x)
                       + ", y=" + numberText(y) + ", " + Metafrasi(728, "Free"),
                   logColour::navy);
    }
}

} // namespace veskora
