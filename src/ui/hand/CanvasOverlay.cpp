#include "CanvasOverlay.h"

#include "Kanvas.h"

#include "Units.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace veskora {

CanvasOverlay::CanvasOverlay(QWidget *canvas, const QString &name) : QWidget(canvas)
{
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void CanvasOverlay::setForm(Form form)
{
    form_ = form;
    update();
}

void CanvasOverlay::setPen(const QPen &pen)
{
    pen_ = pen;
    update();
}

void CanvasOverlay::span(double x1, double y1, double x2, double y2)
{
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2))
        return;
    static constexpr double far = 10000; // logical pixels; a wider widget is refused
    // At scale 1 lines of one pixel lie on whole pixels, so that their colour is pure.
    const bool whole = devicePixelRatioF() == 1;
    const auto pixel = [whole](double c) {
        const double place = std::clamp(c * pixelsPerCentimetre, -far, far);
        return whole ? std::floor(place) : place;
    };
    from_ = {pixel(x1), pixel(y1)};
    to_ = {pixel(x2), pixel(y2)};
    place();
}

void CanvasOverlay::place()
{
    const int margin = static_cast<int>(std::ceil(pen_.widthF())) + 1;
    setGeometry(
        QRectF(from_, to_).normalized().toAlignedRect().adjusted(-margin, -margin, margin, margin));
    update();
}

void CanvasOverlay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.translate(-pos());
    painter.setPen(pen_);
    painter.setRenderHint(QPainter::Antialiasing,
                          form_ != Form::rectangle && devicePixelRatioF() != 1);
    const QRectF frame = QRectF(from_, to_).normalized();
    switch (form_) {
    case Form::line:
        painter.drawLine(from_, to_);
        break;
    case Form::rectangle:
        painter.drawRect(frame);
        break;
    case Form::roundedSquare:
        painter.drawRoundedRect(frame, frame.width() / 4, frame.height() / 4);
        break;
    case Form::circle:
        painter.drawEllipse(frame);
        break;
    }
}

CanvasLabel::CanvasLabel(QWidget *canvas, const QString &name) : QLabel(canvas)
{
    setObjectName(name);
    setFont(QFont(QString::fromLatin1(canvasFontFace), 9));
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void CanvasLabel::place(double left, double top, double height)
{
    const auto pixel = [](double c) {
        return static_cast<int>(std::lround(c * pixelsPerCentimetre));
    };
    adjustSize();
    setGeometry(pixel(left), pixel(top), width(), std::max(this->height(), pixel(height)));
}

void CanvasLabel::hideAt(const Point &place)
{
    if (geometry().contains(static_cast<int>(place.x * pixelsPerCentimetre),
                            static_cast<int>(place.y * pixelsPerCentimetre)))
        hide();
}

} // namespace veskora

#include "moc_CanvasOverlay.cpp"
