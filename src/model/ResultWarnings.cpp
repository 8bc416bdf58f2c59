#include "ResultWarnings.h"

#include "Functions.h"
#include "Metablites.h"

namespace veskora {

std::vector<ResultWarning> resultWarnings()
{
    std::vector<ResultWarning> warnings;
    if (Allagi_Montelou)
        warnings.push_back(hasResults ? ResultWarning::modelChanged : ResultWarning::notAnalysed);
    if (mechanismSuspected)
        warnings.push_back(ResultWarning::mechanism);
    return warnings;
}

std::string textOf(ResultWarning warning)
{
    switch (warning) {
    case ResultWarning::notAnalysed:
        return Metafrasi(1829, "The model has not been analysed: these are no results.");
    case ResultWarning::modelChanged:
        return Metafrasi(1830, "The model has been changed since these results.");
    case ResultWarning::mechanism:
        return Metafrasi(1831, "The structure is probably a mechanism.");
    }
    return {};
}

} // namespace veskora
