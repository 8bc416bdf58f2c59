#include "CanvasObjects.h"

#include "Colours.h"
#include "ElementLine.h"
#include "Functions.h"
#include "QtColour.h"
#include "RowMarks.h"
#include "RowQueries.h"
#include "Settings.h"
#include "Sxediastika.h"
#include "Text.h"

#include <QTimer>

namespace veskora {

namespace {

constexpr int gap = 6; // logical pixels, to the edge of the canvas

QPushButton *button(CanvasWidget *canvas, const char *name, const char *caption)
{
    constexpr int side = 26; // logical pixels
    auto *push = new QPushButton(caption, canvas);
    push->setObjectName(name);
    push->setFixedSize(side, side);
    push->setCursor(Qt::ArrowCursor);
    push->hide();
    return push;
}

} // namespace

PassingLabel::PassingLabel(QWidget *canvas, const QString &name, const QString &timer, int shown)
    : CanvasLabel(canvas, name)
{
    auto *end = new QTimer(this);
    end->setObjectName(timer);
    end->setSingleShot(true);
    end->setInterval(shown);
    connect(end, &QTimer::timeout, this, &QWidget::hide);
}

void PassingLabel::tell(const QString &text)
{
    setOwnColours(this, qtColour(xroma_stoixeion), qtColour(xroma_background));
    setText(text);
    adjustSize();
    show();
    raise();
    findChild<QTimer *>()->start();
}

InstantMessage::InstantMessage(QWidget *canvas, const QString &name)
    : PassingLabel(canvas, name, "Timer1", 5000)
{
    setMargin(6);
}

void InstantMessage::tell(const QString &text)
{
    PassingLabel::tell(text);
    move((parentWidget()->width() - width()) / 2, y());
}

CanvasObjects::CanvasObjects(CanvasWidget *picture)
    : Picture1(picture),
      highlights(picture),
      Line1(new CanvasOverlay(picture, "Line1")),
      Shape1(new CanvasOverlay(picture, "Shape1")),
      chosen(new CanvasOverlay(picture, "ChosenElement")),
      Label2(new CanvasLabel(picture, "Label2")),
      supportCode(new PassingLabel(picture, "SupportCode", "SupportCodeTimer", 1000)),
      Label1(new InstantMessage(picture, "Label1")),
      Command1(button(picture, "Command1", "+")),
      Command2(button(picture, "Command2", "-"))
{
    Shape1->setForm(CanvasOverlay::Form::rectangle);
    chosen->setPen(QPen(qtColour(markColour::element), 3));
}

void CanvasObjects::applyColours()
{
    const QColor lines = qtColour(xroma_stoixeion);
    Picture1->kanvas().setBackground(xroma_background);
    Line1->setPen(QPen(lines, 1));
    Shape1->setPen(QPen(lines, 1, Qt::DotLine));
    setOwnColours(Label2, lines, qtColour(xroma_background));
}

void CanvasObjects::arrange()
{
    const int right = Picture1->width() - gap - Command2->width();
    Command2->move(right, gap);
    Command1->move(right - Command1->width(), gap);
    Label1->move((Picture1->width() - Label1->width()) / 2, gap);
}

void CanvasObjects::showSketch()
{
    Sxedio_Grigoro();
    placeChosen();
    Picture1->update();
}

void CanvasObjects::choose(int e)
{
    chosenElement_ = e;
    placeChosen();
}

void CanvasObjects::placeChosen()
{
    const bool isThere = chosenElement_ >= 1 && chosenElement_ <= Arithmos_Stoixeion;
    const int i = isThere ? nodeOf(chosenElement_, element::nodeI) : 0;
    const int j = isThere ? nodeOf(chosenElement_, element::nodeJ) : 0;
    chosen->setVisible(i != 0 && j != 0);
    if (i == 0 || j == 0)
        return;
    const Point from = toCanvas(nodePlace(i)), to = toCanvas(nodePlace(j));
    chosen->span(from.x, from.y, to.x, to.y);
}

void CanvasObjects::tellWhyNot(const std::string &text) const
{
    Label1->tell(qtText(text));
    Grammi_Log(text, logColour::red);
}

} // namespace veskora

#include "moc_CanvasObjects.cpp"
