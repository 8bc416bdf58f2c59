#include "StepsFile.h"

#include "PaperKanvas.h"
#include "StepsHtml.h"
#include "Units.h"
#include "VectorKanvas.h"
#include "VectorPicture.h"

#include <cmath>

namespace veskora {

namespace {

using Kind = steps::Picture::Kind;

QSizeF sizeOf(const steps::Picture &picture)
{
    constexpr int width = 620, levelHeight = 200, steeper = 220; // pixels
    if (picture.kind == Kind::pattern)
        return QSizeF(1, 1) * steps::patternPixels(picture);
    return picture.kind == Kind::element
               ? QSizeF(width, levelHeight + steeper * std::abs(picture.s))
               : QSizeF(860, 540);
}

void draw(const steps::Picture &picture, VectorKanvas &kanvas)
{
    kanvas.setForPrint(); // pages are white on the screen, too
    steps::drawStepPicture(picture);
}

void paintPattern(const steps::Picture &pattern, QPainter &painter, double pixels)
{
    const int size = pattern.size, free = pattern.free;
    painter.scale(pixels / size, pixels / size);
    painter.fillRect(0, 0, size, size, QColor("#eceff1"));
    painter.fillRect(0, 0, free, free, Qt::white);
    QPainterPath black; // one, so that no seams show between its parts
    black.setFillRule(Qt::WindingFill);
    for (const auto &[row, column] : pattern.entries)
        black.addRect(column - 1, row - 1, 1, 1);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(black, Qt::black);
    painter.setPen(QPen(QColor("#d04000"), size / 240.0));
    painter.drawLine(free, 0, free, size);
    painter.drawLine(0, free, size, free);
}

} // namespace

std::string stepPictureSvg(const steps::Picture &picture)
{
    if (picture.kind == Kind::pattern)
        return steps::patternSvg(picture);
    return vectorPicture(VectorForm::svg, sizeOf(picture), QString::fromStdString(picture.caption),
                         [&picture](VectorKanvas &kanvas) { draw(picture, kanvas); });
}

DrawnPicture drawnStepPicture(const steps::Picture &picture)
{
    DrawnPicture drawn{sizeOf(picture)};
    QPainter painter(&drawn.drawing);
    if (picture.kind == Kind::pattern) {
        paintPattern(picture, painter, drawn.size.width());
    } else {
        PaperKanvas kanvas(painter, {QPointF(), drawn.size}, pixelsPerCentimetre);
        const CanvasInUse inUse(kanvas);
        draw(picture, kanvas);
        kanvas.finish();
    }
    return drawn;
}

std::string stepsFile(const steps::Document &document)
{
    return steps::stepsHtml(document, stepPictureSvg);
}

} // namespace veskora
