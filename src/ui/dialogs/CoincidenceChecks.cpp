#include "CoincidenceChecks.h"

#include "Desktop.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "NumberField.h"
#include "Text.h"

#include <algorithm>
#include <cmath>
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
    constexpr double standard = 0.00001, largest = 0.001;
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
    if (tolerance > largest) {
        desktop().message(Metafrasi(85, "Tolerance = 0.001 (Maximum value)."), Icon::none);
        return largest;
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
    int count = 0;
    for (int i = 1; i <= Arithmos_Kombon; ++i)
        for (int j = i + 1; j <= Arithmos_Kombon; ++j) {
            const double dx = Komboi(i, node::x) - Komboi(j, node::x);
            const double dy = Komboi(i, node::y) - Komboi(j, node::y);
            const double distance = std::sqrt(dy * dy + dx * dx);
            if (!(distance <= tolerance))
                continue;
            ++count;
            desktop().message(
                Metafrasi(86, "Nodes: #") + numberText(i) + " " + Metafrasi(87, "and #")
                    + numberText(j) + " " + Metafrasi(88, "theoretically coincide.") + "\r\n\r\n"
                    + Metafrasi(89, "Distance between them D=") + " " + numberText(distance),
                Icon::none);
        }
    report(Metafrasi(90, "The search for coincident nodes is completed.") + " " + numberText(count)
           + " " + Metafrasi(91, "incidences of coincident nodes were found. (Tolerance =") + " "
           + numberText(tolerance) + ").");
}

void findCoincidentElements()
{
    int count = 0;
    for (int i = 1; i <= Arithmos_Stoixeion; ++i)
        for (int j = i + 1; j <= Arithmos_Stoixeion; ++j) {
            const float a = Stoixeia(i, element::nodeI), b = Stoixeia(i, element::nodeJ);
            const float c = Stoixeia(j, element::nodeI), d = Stoixeia(j, element::nodeJ);
            if (!((a == c && b == d) || (a == d && b == c)))
                continue;
            ++count;
            const std::string text = Metafrasi(92, "The elements #") + numberText(i) + " "
                                     + Metafrasi(87, "and #") + numberText(j) + " "
                                     + Metafrasi(93, "between nodes #") + numberText(a) + " "
                                     + Metafrasi(87, "and #") + numberText(b) + " "
                                     + Metafrasi(94, "coincide. One of them must be deleted.");
            Grammi_Log(text, logColour::red);
            if (desktop().message(text + "\r\n"
                                      + Metafrasi(113, "Shall the search for coincident elements "
                                                       "continue?"),
                                  Icon::information, Buttons::yesNo)
                != Answer::yes)
                return;
        }
    report(Metafrasi(114, "The search for coincident elements is completed.") + " "
           + numberText(count) + " "
           + Metafrasi(131, "incidences of coincident elements were found."));
}

} // namespace veskora
