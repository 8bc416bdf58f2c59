#include "ResultWarnings.h"

#include "Functions.h"
#include "Metablites.h"

namespace veskora {

ResultState ResultState::ofStore()
{
    return {Allagi_Montelou, veskora::hasResults, mechanismSuspected};
}

std::vector<ResultWarning> resultWarnings(const ResultState &state)
{
    std::vector<ResultWarning> warnings;
    if (state.isModelChanged)
        warnings.push_back(state.hasResults ? ResultWarning::modelChanged
                                            : ResultWarning::notAnalysed);
    if (state.isMechanism)
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
