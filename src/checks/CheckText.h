#pragma once
/// @file
/// Findings in the user's words.

#include "Findings.h"
#include "FreeMotions.h"

#include <span>
#include <string>

namespace veskora {

struct FindingText
{
    std::string title;       ///< one line
    std::string explanation; ///< what it means and what to do, paragraphs parted by CR LF
};

FindingText textOf(const Finding &finding);

/// What the analysis says of the results of a structure that moves so; empty where nothing does.
std::string motionWarning(FreeMotion motion);

/// The word for its sign, such as "Fault".
std::string textOf(Severity severity);

/// All of it as a document of plain text with CR LF line ends, lines no longer than 100 characters.
std::string checkText(std::span<const Finding> findings);

} // namespace veskora
