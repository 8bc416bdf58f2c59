#pragma once
/// @file
/// What stands in a model file: one value to a line, CR LF line ends, the point as decimal
/// separator; the model tables and the whole view state. The format has five stages, the last of
/// which is written.

#include <string>
#include <string_view>

namespace veskora {

class ItemReader;

inline constexpr std::string_view modelEndLine = "END of Vesk Input File";

/// What the file of the model holds. Fault: a number is infinite.
std::string modelText();

/// Whether a file begins as one of a model does. Fault: it ends within the banner.
bool hasBanner(ItemReader &reader);

/// Fills the model, the settings and the view from a file of any stage; what an early stage lacks
/// takes the start value of its time or keeps the one it has. Settings and view change at the very
/// end only. Fault: it is no file that the program can have written.
/// @return false, with nothing changed, where it does not begin with the banner
bool readModelText(ItemReader &reader);

} // namespace veskora
