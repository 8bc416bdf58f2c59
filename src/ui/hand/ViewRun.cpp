#include "ViewRun.h"

#include "CanvasObjects.h"
#include "Metablites.h"
#include "Zoom.h"

#include <QTimer>

#include <cmath>
#include <utility>

namespace veskora {

namespace {

constexpr int rest = 500; // ms

/// A hand on the wheel does not keep the mouse quite still.
bool isAbout(const std::optional<Point> &a, const std::optional<Point> &b)
{
    constexpr double near = 0.5; // centimetres
    return a && b ? std::hypot(a->x - b->x, a->y - b->y) < near : !a && !b;
}

} // namespace

ViewRun::ViewRun(CanvasObjects &canvas) : canvas_(canvas), rest_(new QTimer(canvas.Picture1))
{
    rest_->setObjectName("ViewRest");
    rest_->setSingleShot(true);
    rest_->setInterval(rest);
    connect(rest_, &QTimer::timeout, this, [this] {
        if (canvas_.Picture1->isPinched())
            rest_->start(); // the fingers rest
        else
            end();
    });
}

void ViewRun::zoom(const Point &about, double factor)
{
    join(about);
    if (zoomAbout(about.x, about.y, factor)) {
        limitTold_ = false;
        show();
    } else if (!std::exchange(limitTold_, true)) {
        reportNoScale(Klimaka / factor);
    }
}

void ViewRun::zoomByClicks(const Point &about, double clicks)
{
    constexpr double doubling = 3;
    zoom(about, std::exp2(clicks / doubling));
}

void ViewRun::move(double right, double up)
{
    join(std::nullopt);
    const Kanvas &kanvas = canvas_.Picture1->kanvas();
    moveOrigin(Arxi_X + right * kanvas.width(), Arxi_Y - up * kanvas.height());
    show();
}

void ViewRun::join(std::optional<Point> about)
{
    if (isOn_ && isAbout(about_, about))
        return;
    end();
    about_ = about;
}

void ViewRun::show()
{
    isOn_ = true;
    rest_->start();
    canvas_.showSketch();
    emit sketched();
}

void ViewRun::end()
{
    if (!std::exchange(isOn_, false))
        return;
    rest_->stop();
    Apothikefsi_Zoom();
    emit ended();
}

} // namespace veskora

#include "moc_ViewRun.cpp"
