#include "AnalysisCommands.h"

#include "Desktop.h"
#include "Diagrafes.h"
#include "epilisi.h"
#include "FreeMotions.h"
#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"

namespace veskora {

namespace {

/// The first node without an element, 0 when there is none.
int firstUnconnectedNode()
{
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        if (elementAt(n) == 0)
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

/// Tells what the analysis has left unsaid, and where more is said.
void pointToCheck()
{
    const bool isTold = Sfalma_Epilisis || excessiveFreedom() != 0;
    if (!Sfalma_Epilisis)
        mechanismSuspected = isTold || canMoveFreely();
    if (isTold)
        Grammi_Log(Metafrasi(1701,
                             "See Report, Check of the analysis: it tells whether parts of the "
                             "structure can move, which ones, and how."),
                   logColour::red);
    else if (mechanismSuspected)
        Grammi_Log(Metafrasi(1702, "The structure can move freely although its loads do not move "
                                   "it: see Report, Check of the analysis."),
                   logColour::red);
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
    Epilisi();
    pointToCheck();
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
