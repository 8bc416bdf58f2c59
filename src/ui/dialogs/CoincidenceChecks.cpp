#include "CoincidenceChecks.h"

#include "Desktop.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ModelEdits.h"
#include "NumberField.h"
#include "RowQueries.h"
#include "Text.h"

#include <optional>

namespace veskora {

namespace {

void report(const std::string &text)
{
    Grammi_Log(text, logColour::red);
    desktop().message(text, Icon::information);
}

/// None where the answer is refused.
std::optional<double> askTolerance()
{
    // The texts have always called the standard 10E-5, and models have always been checked by 1E-5.
    constexpr double standard = 0.00001;
    std::string answer = desktop().askText(
        Metafrasi(81, "Give the value for tolerance (Max. distance for which two nodes are "
                      "considered to coincide).")
        + "\r\n\r\n" + Metafrasi(82, "(Value between [0 , 0.001], Default=10E-5)"));
    if (answer.empty()) {
        desktop().message(Metafrasi(83, "Tolerance = 10E-5 (Default value)."), Icon::none);
        return standard;
    }
    answer = plainText(withPlainSigns(qtText(answer)));
    if (breaksOffAtSeparator(answer)) {
        showRefusal(cutAtSeparator());
        return std::nullopt;
    }
    const double tolerance = Val(answer);
    if (tolerance < 0) {
        desktop().message(Metafrasi(84, "Tolerance = 0 (Minimum value)."), Icon::none);
        return 0;
    }
    if (tolerance > atOnePlace) {
        desktop().message(Metafrasi(85, "Tolerance = 0.001 (Maximum value)."), Icon::none);
        return atOnePlace;
    }
    return tolerance;
}

} // namespace

void findCoincidentNodes()
{
    const std::optional<double> answer = askTolerance();
    if (!answer)
        return;
    const double tolerance = *answer;
    const auto pairs = coincidentNodes(tolerance);
    for (const auto &[i, j, distance] : pairs)
        desktop().message(Metafrasi(86, "Nodes: #") + numberText(i) + " " + Metafrasi(87, "and #")
                              + numberText(j) + " " + Metafrasi(88, "theoretically coincide.")
                              + "\r\n\r\n" + Metafrasi(89, "Distance between them D=") + " "
                              + numberText(distance),
                          Icon::none);
    report(Metafrasi(90, "The search for coincident nodes is completed.") + " "
           + numberText(static_cast<int>(pairs.size())) + " "
           + Metafrasi(91, "incidences of coincident nodes were found. (Tolerance =") + " "
           + numberText(tolerance) + ").");
}

void findCoincidentElements()
{
    const auto pairs = coincidentElements();
    for (const auto &[i, j] : pairs) {
        const std::string text = Metafrasi(92, "The elements #") + numberText(i) + " "
                                 + Metafrasi(87, "and #") + numberText(j) + " "
                                 + Metafrasi(93, "between nodes #")
                                 + numberText(nodeOf(i, element::nodeI)) + " "
                                 + Metafrasi(87, "and #") + numberText(nodeOf(i, element::nodeJ))
                                 + " " + Metafrasi(94, "coincide. One of them must be deleted.");
        Grammi_Log(text, logColour::red);
        if (desktop().message(text + "\r\n"
                                  + Metafrasi(113, "Shall the search for coincident elements "
                                                   "continue?"),
                              Icon::information, Buttons::yesNo)
            != Answer::yes)
            return;
    }
    report(Metafrasi(114, "The search for coincident elements is completed.") + " "
           + numberText(static_cast<int>(pairs.size())) + " "
           + Metafrasi(131, "incidences of coincident elements were found."));
}

} // namespace veskora
