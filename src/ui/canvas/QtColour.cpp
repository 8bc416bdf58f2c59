#include "QtColour.h"

#include "ColourWord.h"

namespace veskora {

QColor qtColour(double word)
{
    const Rgb rgb = colourOf(word);
    return {rgb.red, rgb.green, rgb.blue};
}

} // namespace veskora
