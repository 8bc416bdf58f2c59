#include "epilisi.h"

#include "Desktop.h"
#include "elimination.h"
#include "Functions.h"
#include "Functions_Bres_Megista.h"
#include "MathFunc.h"
#include "Metablites.h"

#include <cmath>
#include <utility>

namespace veskora {

namespace {

/// What shows that an analysis runs, until it ends in whatever way.
class BusySigns
{
public:
    BusySigns()
    {
        desktop().setAnalysing(true);
        desktop().repaintMainWindow();
    }
    ~BusySigns()
    {
        restorePointer();
        endAnalysing();
    }
    BusySigns(const BusySigns &) = delete;
    BusySigns &operator=(const BusySigns &) = delete;

    void showHourglass()
    {
        desktop().setPointer(Pointer::hourglass);
        hourglass_ = true;
    }
    void restorePointer()
    {
        if (std::exchange(hourglass_, false))
            desktop().setPointer(Pointer::standard);
    }
    void endAnalysing()
    {
        if (std::exchange(analysing_, false))
            desktop().setAnalysing(false);
    }

private:
    bool analysing_ = true;
    bool hourglass_ = false;
};

void assembleStiffness()
{
    K_Oliko.clear();
    // Memory that is read before it is first written comes in twice, and slowly.
    for (int freedom = 1; freedom <= 3 * Arithmos_Kombon; ++freedom)
        K_Oliko(freedom, freedom) = 0;
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        Ipologismos_T(e);
        Ipologismos_K_Topiko(e);
        Ipologismos_K_Stoixeiou();
        Synthesi_K(e);
    }
    Synthesi_Elatirion();
}

void assembleLoads()
{
    P_Oliko.clear();
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        Ipologismos_F_Pakton(e);
        Synthesi_P(e);
    }
}

void recoverEndForces()
{
    Entasi_Topiki.clear();
    Entasi_Oliki.clear();
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        Metatopiseis_Stoixeiou(e);
        Ipologismos_T(e);
        Topikes_Metatopiseis();
        Ipologismos_K_Topiko(e);
        Ipologismos_F_Pakton(e);
        Topika_F_Pakton();
        Entasi_Stoixeiou(e);
        Oliki_Entasi_Stoixeiou(e);
    }
}

void logFinish(float startSeconds)
{
    const TimeOfDay finish = desktop().timeOfDay();
    // Both readings are Singles: mixed with a Double, a short analysis could end before it began.
    float elapsed = static_cast<float>(finish.seconds) - startSeconds;
    constexpr float secondsOfDay = 86400;
    if (elapsed < 0)
        elapsed += secondsOfDay;
    Grammi_Log(Metafrasi(142, "Finish:") + "  " + finish.text, logColour::black);
    Grammi_Log(Metafrasi(143, "Total time:") + "  " + numberText(Stroggylopoiisi(elapsed, 3))
                   + " sec",
               logColour::black);
}

void warnOfMechanism()
{
    const int freedom = excessiveFreedom();
    if (freedom == 0)
        return;
    const std::string text = Metafrasi(
        145, "The analysis has been carried out successfully, yet some of the resultant "
             "displacements have excessive values. The structure is probably a mechanism.");
    Grammi_Log(text, logColour::red);
    desktop().message(text + "\r\n\r\nmax.(u) = u(" + numberText(freedom)
                          + ") = " + numberText(std::abs(Metatopiseis(freedom))),
                      Icon::critical);
}

/// A stiffness beyond a Double's range is as much a fault of the equations where no free freedom
/// meets it: the end forces there would not be numbers.
template <int Rows, int Columns>
void testFinite(const PinakasErgasias<Rows, Columns> &table, int rows)
{
    for (int row = 1; row <= rows; ++row) {
        const auto [first, last] = table.stretch(row);
        for (const double value : table.read(row, first, last))
            if (!std::isfinite(value))
                throw Fault("Overflow in the stiffness of the structure");
    }
}

} // namespace

int excessiveFreedom()
{
    double largest = 0;
    int freedom = 0;
    for (int k = 1; k <= 3 * Arithmos_Kombon; ++k)
        if (std::abs(Metatopiseis(k)) > largest) {
            largest = std::abs(Metatopiseis(k));
            freedom = k;
        }
    constexpr double excessive = 1e7;
    return largest > excessive ? freedom : 0;
}

void solveFreeFreedoms()
{
    U_Eleftheroi.clear();
    testFinite(K_sf, Desmevmenoi_Vathmoi);
    testFinite(K_ss, Desmevmenoi_Vathmoi);
    const auto freedoms = static_cast<std::size_t>(Eleftheroi_Vathmoi);
    if (freedoms == 0)
        subscriptFault(0, K_ff.rows, 0, K_ff.columns);
    solveSymmetric(K_ff, {&P_Eleftheroi(1), freedoms}, {&U_Eleftheroi(1), freedoms});
}

void Epilisi_Systimatos()
{
    try {
        solveFreeFreedoms();
    } catch (const Fault &) {
        Sfalma_Epilisis = true;
        Grammi_Log(", " + Metafrasi(144, "Termination:") + " " + desktop().timeOfDay().text,
                   logColour::black, false, true);
        const std::string text = Metafrasi(
            146, "An error occured during the analysis process. Make sure that the structure is "
                 "well defined (not a mechanism) and can be analyzed.");
        desktop().message(text, Icon::critical);
        Grammi_Log(text, logColour::red);
    }
}

void Epilisi()
{
    Sfalma_Epilisis = false;
    BusySigns busy;
    const TimeOfDay start = desktop().timeOfDay();
    const auto startSeconds = static_cast<float>(start.seconds);
    Grammi_Log(Metafrasi(140, "ANALYSIS"), logColour::black, true);
    Grammi_Log(Metafrasi(141, "Start:") + "  " + start.text, logColour::black);
    desktop().repaintLog();
    busy.showHourglass();

    assembleStiffness();
    Arithmisi_Vathmon();
    Diamerisi_K();
    assembleLoads();
    Dexi_Meli();
    Epilisi_Systimatos();
    if (Sfalma_Epilisis)
        return; // the results of the last analysis stay
    Ipologismos_Antidraseon_Vathmon();
    Anaptyxi_Metatopiseon();
    recoverEndForces();
    Ipologismos_Antidraseon();
    clearWorkingTables();

    busy.restorePointer();
    logFinish(startSeconds);
    busy.endAnalysing();
    warnOfMechanism();
    storeExtremes();
    Allagi_Montelou = false;
    hasResults = true;
    ++analysesFinished;
}

} // namespace veskora
