#pragma once
/// @file
/// The report: data and results of the model as plain text for a fixed-pitch font.
///
/// Texts are UTF-8 with CR LF line ends. Numbers are given with all their digits and with the
/// decimal separator of the user's regional settings.

#include <string>

namespace veskora {

/// Sections of the report, in the order in which they are joined.
enum class ReportSection { data = 1, displacements, elementForces, reactions };

/// The text of section @p kind (1 to 4, see `ReportSection`), read from model and result tables as
/// they stand; empty for any other value.
std::string Anafora_Keimenou(int kind);

/// What a report file holds for the text @p report: the text and one more line end.
std::string reportFileText(const std::string &report);

} // namespace veskora
