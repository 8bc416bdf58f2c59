#pragma once
/// @file
/// Pictures as files of vectors.

#include <QSizeF>
#include <QString>

#include <functional>
#include <string>

namespace veskora {

class VectorKanvas;

enum class VectorForm { svg, pdf };

/// What @p draw draws on the canvas that it is given, which meanwhile is the one in use.
/// @param size   pixels of which 96 are an inch; the page of a PDF file has it to the next point
/// @param title  of the picture, in the file
/// @return the content of the file
std::string vectorPicture(VectorForm form, QSizeF size, const QString &title,
                          const std::function<void(VectorKanvas &)> &draw);

} // namespace veskora
