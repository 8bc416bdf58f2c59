#pragma once
/// @file
/// The report: data and results of the model as plain text for a fixed-pitch font.
///
/// Texts are UTF-8 with CR LF line ends. Numbers are given with all their digits and with the
/// decimal separator of the user's regional settings.

#include "Functions.h"

#include <array>
#include <functional>
#include <string>

namespace veskora {

class ReportText;

/// A section of the report.
struct ReportSection
{
    Phrase title; ///< over its text and on its tab
    Phrase name;  ///< of its check box and its sheet
    bool *chosen; ///< whether the user took it last
    void (*print)(ReportText &report);

    /// Read from model and result tables as they stand.
    std::string text() const;
};

/// In the order in which they are joined: the data of the model, then the results.
extern const std::array<ReportSection, 4> reportSections;

/// The text of section @p kind, counted from 1; empty for any other value.
std::string Anafora_Keimenou(int kind);

/// Those of `reportSections` that @p isIn, joined; where results are among them, under the lines
/// that must be told of them.
std::string reportOf(const std::function<bool(const ReportSection &)> &isIn);

/// What a report file holds for the text @p report: the text and one more line end.
std::string reportFileText(const std::string &report);

} // namespace veskora
