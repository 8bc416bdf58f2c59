#pragma once
/// @file
/// What must be told of the results in the store wherever they are shown or taken out.

#include <string>
#include <vector>

namespace veskora {

enum class ResultWarning {
    notAnalysed,  ///< no analysis of this model has finished: the tables read 0
    modelChanged, ///< they are of the model as it was, or of another one
    mechanism     ///< the structure that they are of can probably move
};

/// What results are judged by.
struct ResultState
{
    bool isModelChanged; ///< since the analysis that they are of
    bool hasResults, isMechanism;

    static ResultState ofStore();
};

/// Mostly none. The pictures of results, the report, workbooks and the results window tell them.
std::vector<ResultWarning> resultWarnings(const ResultState &state = ResultState::ofStore());

/// One line.
std::string textOf(ResultWarning warning);

} // namespace veskora
