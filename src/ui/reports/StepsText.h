#pragma once
/// @file
/// The steps of the analysis as a text of the toolkit, for the window and for paper.

#include "Steps.h"
#include "StepsFile.h"

#include <QTextDocument>
#include <QTextFormat>

#include <memory>
#include <vector>

class QTextTable;

namespace veskora {

/// The steps with their pictures, which need the model no more.
struct DrawnSteps
{
    steps::Document document;
    std::vector<DrawnPicture> pictures; ///< in the order of the document
};

/// Draws the pictures of @p document, made of the model in the store.
DrawnSteps drawn(steps::Document document);

/// A document that can be seen, read out and searched.
struct StepsText
{
    std::unique_ptr<QTextDocument> text;
    std::vector<int> sections;      ///< where each begins
    QTextTable *contents = nullptr; ///< on paper: a row of each, with a cell for its page
};

/// Where @p block stands in its text, which has been laid out.
QRectF blockPlace(const QTextBlock &block);

/// Blocks that stand on the page of what follows them bear this property.
inline constexpr int keepsWithNext = QTextFormat::UserProperty + 1;

/// @param device  what the text is painted on
/// @param font    of its paragraphs
/// @param room    the width of a page in units of @p device: what is wider gets smaller letters,
///                and what cannot be read so is parted by columns; it begins with its contents. 0
///                in a window, where the text can be as wide as it likes
StepsText stepsText(const DrawnSteps &steps, QPaintDevice *device, const QFont &font,
                    double room = 0);

} // namespace veskora
