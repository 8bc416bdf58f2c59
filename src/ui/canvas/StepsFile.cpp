#include "StepsFile.h"

#include "StepsHtml.h"
#include "VectorKanvas.h"
#include "VectorPicture.h"

#include <cmath>

namespace veskora {

std::string stepPictureSvg(const steps::Picture &picture)
{
    using Kind = steps::Picture::Kind;
    if (picture.kind == Kind::pattern)
        return steps::patternSvg(picture);
    constexpr int width = 620, levelHeight = 200, steeper = 220; // pixels
    const QSizeF size = picture.kind == Kind::element
                            ? QSizeF(width, levelHeight + steeper * std::abs(picture.s))
                            : QSizeF(860, 540);
    return vectorPicture(VectorForm::svg, size, QString::fromStdString(picture.caption),
                         [&picture](VectorKanvas &kanvas) {
                             kanvas.setForPrint(); // pages are white on the screen, too
                             steps::drawStepPicture(picture);
                         });
}

std::string stepsFile(const steps::Document &document)
{
    return steps::stepsHtml(document, stepPictureSvg);
}

} // namespace veskora
