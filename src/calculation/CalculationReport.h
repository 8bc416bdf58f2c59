#pragma once
/// @file
/// The calculation report: a model, its diagrams and its results as a document to be handed in.

#include "Document.h"

#include <QLocale>

#include <functional>

namespace veskora {

enum class Paper { A4, letter };

/// Letter where offices use it, as in the United States and Canada.
Paper usualPaper(QLocale::Territory territory);

/// What the user chooses of it.
struct CalculationOptions
{
    std::string title = {}; ///< empty: the document's own name
    std::string author = {};
    Paper paper = Paper::A4;
    int digits = 6; ///< significant ones of all numbers; `RegionalNumbers::allDigits` for all
    bool withCheck = false;
};

/// Of the store as it stands; without results of this model it has the model and its data, and
/// says so.
Document calculationDocument(const CalculationOptions &options);

/// Told after each page. @return whether to go on
using PageProgress = std::function<bool(int pagesDone, int pages)>;

/// The content of a PDF file: @p document on pages of @p paper. The store is afterwards as it was.
/// @return empty where @p progress ended it
std::string pdfOf(const Document &document, Paper paper, const PageProgress &progress);

} // namespace veskora
