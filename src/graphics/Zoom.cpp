#include "Zoom.h"

#include "Functions.h"
#include "Kanvas.h"
#include "MathFunc.h"
#include "Metablites.h"

#include <algorithm>
#include <cmath>

namespace veskora {

namespace {

void placeByWidth(const Extent &extent, double margin)
{
    Arxi_X = Mikos_Se_Othoni(extent.xmin) - margin;
    Arxi_Y = Anastrofi_Y(Mikos_Se_Othoni(extent.ymax))
             - (Picture1().height() - Mikos_Se_Othoni(extent.ymax - extent.ymin)) / 2;
}

void placeByHeight(const Extent &extent, double margin)
{
    Arxi_Y = Anastrofi_Y(Mikos_Se_Othoni(extent.ymax)) - margin;
    Arxi_X = Mikos_Se_Othoni(extent.xmin)
             - (Picture1().width() - Mikos_Se_Othoni(extent.xmax - extent.xmin)) / 2;
}

/// Why there is no view at the scale 1:@p needed on a canvas with @p room between its margins.
void reportNoFit(double needed, double room)
{
    if (room <= 0)
        Grammi_Log(Metafrasi(1752, "The view stays as it is: the drawing area is no larger than "
                                   "its margins."),
                   logColour::red);
    else
        reportNoScale(needed);
}

void centreNode1()
{
    const CanvasView before = currentView();
    Arxi_X = Mikos_Se_Othoni(Komboi(1, node::x)) - Picture1().width() / 2;
    Arxi_Y = Anastrofi_Y(Mikos_Se_Othoni(Komboi(1, node::y))) - Picture1().height() / 2;
    if (!std::isfinite(Arxi_X) || !std::isfinite(Arxi_Y))
        setView(before);
}

} // namespace

Extent modelExtent()
{
    Extent extent = {Komboi(1, node::x), Komboi(1, node::x), Komboi(1, node::y),
                     Komboi(1, node::y)};
    for (int n = 2; n <= Arithmos_Kombon; ++n) {
        const double x = Komboi(n, node::x);
        const double y = Komboi(n, node::y);
        extent = {std::min(extent.xmin, x), std::max(extent.xmax, x), std::min(extent.ymin, y),
                  std::max(extent.ymax, y)};
    }
    return extent;
}

namespace {

/// How the canvas holds an extent.
struct ShownPlace
{
    double scale; ///< 1:`scale` fills it
    double room;  ///< between the margins, of the direction that needs the coarser scale
    bool byHeight;
};

/// An extent of 0 in one direction leaves the other.
ShownPlace placeOf(const Extent &extent, double margin)
{
    const double width = extent.xmax - extent.xmin;
    const double height = extent.ymax - extent.ymin;
    const double roomX = Picture1().width() - 2 * margin;
    const double roomY = Picture1().height() - 2 * margin;
    const bool byHeight = width == 0 || (height != 0 && roomX / width > roomY / height);
    const double room = byHeight ? roomY : roomX;
    return {100 * (byHeight ? height : width) / room, room, byHeight};
}

/// Leaves the view as it is where the scale is no number above 0 or the origin has no place.
/// @return whether the view is there
bool show(const Extent &extent, double margin, const ShownPlace &place, double scale, double finest)
{
    const CanvasView before = currentView();
    Klimaka = static_cast<float>(scale);
    (place.byHeight ? placeByHeight : placeByWidth)(extent, margin);
    const bool isThere = Klimaka > 0 && Klimaka >= finest && std::isfinite(Klimaka)
                         && std::isfinite(Arxi_X) && std::isfinite(Arxi_Y);
    if (!isThere)
        setView(before);
    return isThere;
}

/// Fits the direction that needs the coarser scale. A result finer than 1:@p finest, or none at
/// all, leaves the view and says why.
void fit(const Extent &extent, double margin, double finest = finestScale)
{
    const ShownPlace place = placeOf(extent, margin);
    if (!show(extent, margin, place, Stroggylopoiisi(place.scale, scaleDecimals), finest))
        reportNoFit(place.scale, place.room);
}

/// Of no nodes or one, where there is nothing to fit.
/// @return whether it was so
bool showSingleNode()
{
    if (!(Klimaka > 0))
        resetView(); // of a damaged file; nothing can be seen at it
    if (Arithmos_Kombon == 0) {
        Arxi_X = -2;
        Arxi_Y = 2;
    } else if (Arithmos_Kombon == 1) {
        centreNode1();
    }
    return Arithmos_Kombon < 2;
}

} // namespace

double Kosmos_X(double x)
{
    return 100 * x / Klimaka - Arxi_X;
}

double Kosmos_Y_Orthio(double y)
{
    return 100 * y / Klimaka + Arxi_Y;
}

double Anastrofi_Y(double v)
{
    return Picture1().height() - v;
}

double Kosmos_Y(double y)
{
    return Anastrofi_Y(Kosmos_Y_Orthio(y));
}

double Othoni_X(double c)
{
    return Klimaka * (c + Arxi_X) / 100;
}

double Othoni_Y_Orthio(double c)
{
    return Klimaka * (c - Arxi_Y) / 100;
}

double Othoni_Y(double c)
{
    return Othoni_Y_Orthio(Anastrofi_Y(c));
}

double Mikos_Se_Othoni(double length)
{
    return 100 * length / Klimaka;
}

void fitModel(double margin, double finest)
{
    if (!showSingleNode())
        fit(modelExtent(), margin, finest);
}

void fitModelAnyhow(double margin)
{
    if (showSingleNode())
        return;
    const Extent extent = modelExtent();
    const ShownPlace place = placeOf(extent, margin);
    if (!show(extent, margin, place, place.scale, 0))
        centreNode1();
}

void Zoom_Best_Fit()
{
    fitModel(bestFitMargin);
}

void Zoom_Parathyrou(double x1, double y1, double x2, double y2)
{
    if (x1 == x2 && y1 == y2)
        return;
    const auto [left, right] = std::minmax(x1, x2);
    const auto [top, bottom] = std::minmax(y1, y2);
    fit({Othoni_X(left), Othoni_X(right), Othoni_Y(bottom), Othoni_Y(top)}, 0);
}

void moveOrigin(double x, double y)
{
    if (!std::isfinite(x) || !std::isfinite(y))
        return;
    Arxi_X = x;
    Arxi_Y = y;
}

void Zoom_Syrsimatos(double y0, double y)
{
    constexpr double doublingDistance = 20;
    const double r =
        y > y0 ? (y - y0) / doublingDistance + 1 : 1 / ((y0 - y) / doublingDistance + 1);
    const double W = Picture1().width();
    const double H = Picture1().height();
    if (r * Klimaka >= finestScale)
        Klimaka = toSingle(r * Klimaka).value_or(Klimaka);
    // The first-order form: the canvas's centre stays nearly still.
    moveOrigin(Arxi_X - (W / 2 + Arxi_X) * (r - 1), Arxi_Y - (Arxi_Y - H / 2) * (r - 1));
}

bool zoomAbout(double x, double y, double factor)
{
    if (!(Klimaka > 0))
        resetView(); // of a damaged file; nothing can be seen at it
    const CanvasView before = currentView();
    const double wanted = before.scale / factor;
    const double scale = std::clamp(wanted, std::min<double>(finestScale, before.scale),
                                    std::max<double>(coarsestScale, before.scale));
    if (scale == before.scale && scale != wanted)
        return false;
    Klimaka = static_cast<float>(scale);
    const double r = before.scale / static_cast<double>(Klimaka);
    const double up = Anastrofi_Y(y);
    moveOrigin((before.originX + x) * r - x, up - (up - before.originY) * r);
    return true;
}

void reportNoScale(double needed)
{
    Grammi_Log(needed < finestScale
                   ? Metafrasi(1750, "The view stays as it is: it would need a scale finer than "
                                     "1:1, the finest there is.")
                   : Metafrasi(1751, "The view stays as it is: it would need a scale coarser than "
                                     "1:2147483, which only the tool Zoom can set."),
               logColour::red);
}

void Apothikefsi_Zoom()
{
    const int top = Thesi_Istorikou;
    if (Klimaka == static_cast<float>(Istoriko_Zoom(top, 1)) && Arxi_Y == Istoriko_Zoom(top, 2)
        && Arxi_X == Istoriko_Zoom(top, 3))
        return;
    if (Thesi_Istorikou == zoomSteps) {
        for (int row = 1; row <= zoomSteps; ++row)
            std::ranges::copy(Istoriko_Zoom.row(row), Istoriko_Zoom.row(row - 1).begin());
        Thesi_Istorikou = zoomSteps - 1;
    }
    ++Thesi_Istorikou;
    Istoriko_Zoom(Thesi_Istorikou, 1) = Klimaka;
    Istoriko_Zoom(Thesi_Istorikou, 2) = Arxi_Y;
    Istoriko_Zoom(Thesi_Istorikou, 3) = Arxi_X;
}

bool Zoom_Proigoumeno()
{
    if (Thesi_Istorikou == 0)
        return false;
    --Thesi_Istorikou;
    takeBackView();
    return true;
}

void takeBackView()
{
    Klimaka = static_cast<float>(Istoriko_Zoom(Thesi_Istorikou, 1));
    Arxi_Y = Istoriko_Zoom(Thesi_Istorikou, 2);
    Arxi_X = Istoriko_Zoom(Thesi_Istorikou, 3);
}

} // namespace veskora
