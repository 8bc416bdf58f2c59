#include "AnalysisCommands.h"

#include "CheckText.h"
#include "Desktop.h"
#include "Diagrafes.h"
#include "epilisi.h"
#include "Equilibrium.h"
#include "FreeMotions.h"
#include "Functions.h"
#include "Functions_Bres_Megista.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Sentences.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace veskora {

namespace {

/// The first node without an element, 0 when there is none.
int firstUnconnectedNode()
{
    std::array<bool, maxNodes + 1> isConnected{};
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (const int end : {element::nodeI, element::nodeJ})
            isConnected[static_cast<std::size_t>(nodeOf(e, end))] = true;
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        if (!isConnected[static_cast<std::size_t>(n)])
            return n;
    return 0;
}

Answer askToDelete(int n)
{
    const std::string text =
        Metafrasi(137, "Node #") + numberText(n) + " "
        + Metafrasi(138, "is not connected to other nodes with elements and could probably cause "
                         "problems to the solution process.");
    Grammi_Log(text, logColour::red);
    return desktop().message(
        text + " "
            + Metafrasi(139, "Do you want that node to be deleted before starting the analysis?"),
        Icon::question, Buttons::yesNoCancel);
}

/// The freedom of the largest translation, 0 where nothing moves.
int largestTranslation()
{
    int largest = 0;
    double size = 0;
    for (int freedom = 1; freedom <= 3 * Arithmos_Kombon; ++freedom)
        if (componentOf(freedom) != 3 && std::abs(Metatopiseis(freedom)) > size) {
            largest = freedom;
            size = std::abs(Metatopiseis(freedom));
        }
    return largest;
}

/// What tells a wrong unit or a forgotten load at a glance.
void logSummary()
{
    constexpr int digits = 6;
    const Finding finding = checkEquilibrium();
    const auto &found = std::get<Equilibrium>(finding.facts);
    const double largest = std::max(
        {Bres_Max_Abs_N(), Bres_Max_Abs_Q(), std::abs(found.x.loads), std::abs(found.y.loads)});
    const auto sum = [&](double value) { // a rest of rounding is no force
        constexpr double rounding = 1e-9;
        return roundedText(std::abs(value) <= rounding * largest ? 0 : value, digits);
    };
    const int freedom = largestTranslation();
    Grammi_Log(filled(Metafrasi(1838, "Loads: x %1, y %2; reactions: x %3, y %4; largest "
                                      "displacement of a node: %5"),
                      {sum(found.x.loads), sum(found.y.loads), sum(found.x.reactions),
                       sum(found.y.reactions),
                       freedom == 0 ? "0"
                                    : roundedText(Metatopiseis(freedom), digits) + " ("
                                          + freedomText(freedom) + ")"}),
               logColour::grey);
}

/// The first fault that the check finds, in words.
void logFirstMotion()
{
    const Finding first = findMotions().front();
    if (first.severity != Severity::fault)
        return;
    const FindingText text = textOf(first);
    Grammi_Log(text.title + ". " + text.explanation.substr(0, text.explanation.find("\r\n")),
               logColour::red);
}

/// Leads on from what the analysis has told by itself.
void leadToCheck()
{
    Grammi_Log(Metafrasi(1701, "See Report, Check of the analysis: it tells whether parts of the "
                               "structure can move, which ones, and how."),
               logColour::red);
}

/// Tells what the analysis has left unsaid of its results, and where more is said.
void pointToCheck()
{
    const int freedom = excessiveFreedom();
    const FreeMotion motion = quickTest();
    mechanismSuspected =
        freedom != 0 || motion == FreeMotion::unloaded || motion == FreeMotion::loaded;
    if (freedom != 0)
        Grammi_Log("u(" + numberText(freedom) + "): " + freedomText(freedom), logColour::red);
    logSummary();
    if (freedom != 0)
        leadToCheck();
    else if (const std::string text = motionWarning(motion); !text.empty())
        Grammi_Log(text, logColour::red);
}

/// Analyses, and leads to the check whatever comes of it.
void analyse()
{
    try {
        Epilisi();
    } catch (const Fault &) {
        leadToCheck();
        throw;
    }
    if (Sfalma_Epilisis) {
        leadToCheck();
        logFirstMotion();
    } else {
        pointToCheck();
    }
}

/// "Nodes 8 to 12 are now 7 to 11." when node @p n of @p last was deleted.
void logNewNumbers(int n, int last)
{
    const auto run = [](int first, int end) {
        return numberText(first) + " " + Metafrasi(1735, "to") + " " + numberText(end);
    };
    if (n == last - 1)
        Grammi_Log(Metafrasi(1732, "Node") + " " + numberText(last) + " "
                       + Metafrasi(1733, "is now") + " " + numberText(n) + ".",
                   logColour::green);
    else if (n < last)
        Grammi_Log(Metafrasi(1734, "Nodes") + " " + run(n + 1, last) + " "
                       + Metafrasi(1736, "are now") + " " + run(n, last - 1) + ".",
                   logColour::green);
}

} // namespace

void Button_Epilisi()
{
    if (Arithmos_Kombon == 0)
        return;
    while (const int n = firstUnconnectedNode()) {
        const Answer answer = askToDelete(n);
        if (answer == Answer::cancel)
            return;
        if (answer != Answer::yes)
            break;
        Diagrafi_Kombou(static_cast<std::int16_t>(n));
        logNewNumbers(n, Arithmos_Kombon + 1);
        desktop().redraw();
    }
    analyse();
    if (!Sfalma_Epilisis && Katastasi_Provolis != view::model)
        desktop().redraw(); // the picture shown is then that of the new results
}

void Erotisi_Epanepilisis()
{
    if (Allagi_Montelou
        && desktop().message(Metafrasi(153, "Model has been changed. Do you want to reanalyze "
                                            "before the process goes on?"),
                             Icon::exclamation, Buttons::yesNo)
               == Answer::yes)
        Button_Epilisi();
}

} // namespace veskora
