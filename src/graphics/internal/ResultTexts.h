#pragma once
/// @file
/// Texts of the result pictures: shown values, the heading, the extremes.

#include "Functions.h"
#include "Kanvas.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ResultWarnings.h"
#include "Settings.h"

#include <cmath>
#include <limits>
#include <string>

namespace veskora {

/// Rounds the values that one picture shows, and remembers whether one was too large for that and
/// so turned into 0.
class ShownValues
{
public:
    explicit ShownValues(std::int16_t decimals)
        : decimals_(decimals), power_(static_cast<float>(std::pow(10.0, decimals)))
    {}

    double operator()(double value)
    {
        const double rounded = Stroggylopoiisi(value, decimals_);
        // More than half of the last place rounds to 0 only by leaving the range.
        if (rounded == 0 && std::abs(value) * power_ > 0.5)
            lost_ = true;
        return rounded;
    }

    /// Tells the user what the zeros in the picture may be; once, until another picture is shown or
    /// this one has none.
    void report() const
    {
        const RoundedPicture picture = {Katastasi_Provolis, decimals_};
        if (lost_ && roundingReportedFor != picture)
            Grammi_Log(Metafrasi(136, "Values beyond this limit are shown as 0; use fewer decimals "
                                      "or larger units:")
                           + " " + numberText(std::numeric_limits<std::int32_t>::max() / power_),
                       logColour::red);
        roundingReportedFor = lost_ ? std::optional(picture) : std::nullopt;
    }

private:
    std::int16_t decimals_;
    double power_; ///< of ten, as a Single
    bool lost_ = false;
};

/// Prints the picture's letter in the top left corner; the extremes follow below it.
inline void printHeading(const char *letter)
{
    Kanvas &kanvas = Picture1();
    kanvas.setPenColour(xroma_stoixeion);
    kanvas.setFontSize(12);
    kanvas.setFontBold(true);
    kanvas.moveTo(0.1, 0.07);
    kanvas.printNote(letter);
    kanvas.setFontSize(8);
    kanvas.setFontBold(false);
}

inline void printLine(const std::string &text)
{
    Picture1().setCurrentX(0.1);
    Picture1().printNote(text);
}

inline void printExtreme(const char *name, double value)
{
    printLine(name + numberText(value));
}

/// Below the extremes, in red: what is told wherever the results are taken to.
inline void printWarnings()
{
    Kanvas &kanvas = Picture1();
    kanvas.setPenColour(logColourWord(logColour::red));
    for (const ResultWarning warning : resultWarnings())
        printLine(textOf(warning));
    kanvas.setPenColour(xroma_stoixeion);
}

} // namespace veskora
