#include "Metablites.h"

#include "Registry.h"

namespace veskora {

std::int16_t Arithmos_Kombon = 0;
std::int16_t Arithmos_Stoixeion = 0;
std::int16_t Arithmos_Omadon = 0;

Pinakas<float, maxNodes, 8> Komboi;
Pinakas<float, maxNodes, 3> Elatiria;
Pinakas<double, maxGroups, 3> Omades;
Pinakas<float, maxElements, 9> Stoixeia;

Pinakas<double, maxDofs> Metatopiseis;
Pinakas<double, maxElements, 6> Entasi_Topiki;
Pinakas<double, maxNodes, 3> Antidraseis;
Pinakas<double, 19> Akrotata;

PinakasErgasias<maxDofs, maxDofs> K_Oliko;
PinakasErgasias<maxDofs, maxDofs> K_Anadiataxi;
PinakasErgasias<maxDofs, maxDofs + 1> K_ff;
PinakasErgasias<maxDofs, maxDofs> K_fs;
PinakasErgasias<maxDofs, maxDofs> K_sf;
PinakasErgasias<maxDofs, maxDofs> K_ss;
Pinakas<double, maxDofs> P_Oliko;
Pinakas<double, maxDofs + 1, 1, 0> P_Eleftheroi;
Pinakas<double, maxDofs> U_Eleftheroi;
Pinakas<double, maxDofs> R_Desmevmena;
Pinakas<double, maxDofs> Seira_Vathmon;
Pinakas<double, maxElements, 6> Entasi_Oliki;
std::int16_t Eleftheroi_Vathmoi = 0;
std::int16_t Desmevmenoi_Vathmoi = 0;

Pinakas<double, 6, 6> T_Pinakas;
Pinakas<double, 6, 6> T_Anastrofos;
Pinakas<double, 6, 6> K_Topiko;
Pinakas<double, 6, 6> K_Stoixeiou;
Pinakas<double, 6> F_Pakton_Oliko;
Pinakas<double, 6> F_Pakton_Topiko;
Pinakas<double, 6> U_Stoixeiou_Oliko;
Pinakas<double, 6> U_Stoixeiou_Topiko;

bool Allagi_Montelou = true;
int modelsBegun = 0;
std::int16_t drawnGroup = 1;
int analysesFinished = 0;
bool Sfalma_Epilisis = false;
bool hasResults = false;
bool mechanismSuspected = false;
std::string Onoma_Arxeiou;
std::optional<std::uint64_t> knownFileSum;
std::int16_t Katastasi_Provolis = view::model;
std::string currentFolder;
std::string Anafora;
bool Nai_Dedomena = false, Nai_Metakiniseis = false, Nai_Entaseis = false, Nai_Antidraseis = false;
bool sectionsChosen = false;

float Patima_X = 0, Patima_Y = 0;
float Agkyra_X = 0, Agkyra_Y = 0;
std::int16_t Kombos_Arxis = 0;
bool Neos_Kombos_Sto_Patima = false;

double Epilegmeno_Xroma = 0;
std::string Glossa = "English";
bool Nai_Agglika = true;
Pinakas<std::string, languageSlots> Pinakas_Glossas;

float Klimaka = 100;
double Arxi_X = -2;
double Arxi_Y = 2;
Pinakas<double, zoomSteps + 1, 3, 0> Istoriko_Zoom;
std::int16_t Thesi_Istorikou = 0;
bool denseGridReported = false;
std::int16_t gridPosition = 0;
std::optional<RoundedPicture> roundingReportedFor;
std::array<std::optional<CutDiagram>, view::deformed + 1> cutReportedFor;
std::optional<float> chosenGridStep;

CanvasView currentView()
{
    return {Klimaka, Arxi_X, Arxi_Y};
}

void setView(const CanvasView &shown)
{
    Klimaka = shown.scale;
    Arxi_X = shown.originX;
    Arxi_Y = shown.originY;
}

void resetView()
{
    Klimaka = 100;
    Arxi_X = -2;
    Arxi_Y = 2;
}

void resetZoomHistory()
{
    Thesi_Istorikou = 0;
    denseGridReported = false;
    Istoriko_Zoom.clear();
    Istoriko_Zoom(0, 1) = Klimaka;
    Istoriko_Zoom(0, 2) = Arxi_Y;
    Istoriko_Zoom(0, 3) = Arxi_X;
}

void clearWorkingTables()
{
    K_Oliko.clear();
    K_Anadiataxi.clear();
    K_ff.clear();
    K_fs.clear();
    K_sf.clear();
    K_ss.clear();
    P_Oliko.clear();
    P_Eleftheroi.clear();
    U_Eleftheroi.clear();
    R_Desmevmena.clear();
    Seira_Vathmon.clear();
    Entasi_Oliki.clear();
    T_Pinakas.clear();
    T_Anastrofos.clear();
    K_Topiko.clear();
    K_Stoixeiou.clear();
    F_Pakton_Oliko.clear();
    F_Pakton_Topiko.clear();
    U_Stoixeiou_Oliko.clear();
    U_Stoixeiou_Topiko.clear();
}

void Katharismos_Montelou()
{
    ++modelsBegun;
    drawnGroup = 1;
    Arithmos_Kombon = Arithmos_Stoixeion = Arithmos_Omadon = 0;
    Akrotata.clear();
    Komboi.clear();
    Elatiria.clear();
    Omades.clear();
    Stoixeia.clear();

    Metatopiseis.clear();
    Entasi_Topiki.clear();
    Antidraseis.clear();
    hasResults = mechanismSuspected = false;

    clearWorkingTables();
    Eleftheroi_Vathmoi = Desmevmenoi_Vathmoi = 0;
}

void resetStore()
{
    Katharismos_Montelou();
    Allagi_Montelou = true;
    Sfalma_Epilisis = false;
    Onoma_Arxeiou.clear();
    knownFileSum.reset();
    Katastasi_Provolis = view::model;
    currentFolder.clear();
    Anafora.clear();
    Nai_Dedomena = Nai_Metakiniseis = Nai_Entaseis = Nai_Antidraseis = sectionsChosen = false;
    Patima_X = Patima_Y = Agkyra_X = Agkyra_Y = 0;
    Kombos_Arxis = 0;
    Neos_Kombos_Sto_Patima = false;
    Epilegmeno_Xroma = 0;
    Glossa = "English";
    Nai_Agglika = true;
    Pinakas_Glossas.clear();
    setStandardSettings();
    resetView();
    resetZoomHistory();
    denseGridReported = false;
    gridPosition = 0;
    roundingReportedFor.reset();
    cutReportedFor.fill(std::nullopt);
    chosenGridStep.reset();
}

} // namespace veskora
