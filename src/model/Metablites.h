#pragma once
/// @file
/// The one store of the process: model tables, results, working tables, view, flags; the settings
/// stand in `Settings.h`.
///
/// Rows are one-based and dense: rows 1 to the count of a table are live, those behind it are 0,
/// and who deletes a row or empties a table leaves them so. Model quantities have no unit of their
/// own; the user keeps them consistent (for instance kN and m). Everybody may read and write the
/// store, from one thread. `resetStore` puts all of it back to its start values.

#include "Pinakas.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace veskora {

inline constexpr int maxNodes = 200;
inline constexpr int maxElements = 300;
inline constexpr int maxGroups = 300;
inline constexpr int maxDofs = 3 * maxNodes; ///< degrees of freedom, hence equations

/// Columns of `Komboi`.
namespace node {
inline constexpr int x = 1; ///< coordinates, global axes
inline constexpr int y = 2;
inline constexpr int fixedX = 3; ///< restraints: 1 constrained, 0 free
inline constexpr int fixedY = 4;
inline constexpr int fixedRotation = 5;
inline constexpr int Fx = 6; ///< nodal loads along the global axes
inline constexpr int Fy = 7;
inline constexpr int M = 8; ///< nodal moment, counter-clockwise
} // namespace node

/// Columns of `Omades`.
namespace group {
inline constexpr int E = 1; ///< Young's modulus
inline constexpr int A = 2; ///< section area
inline constexpr int I = 3; ///< second moment of area
} // namespace group

/// Columns of `Stoixeia`. Columns 8 and 9 are neither read nor written nor moved, and a model file
/// has no place for them in the rows of elements: a new value of each element needs a section of
/// its own behind the settings.
namespace element {
inline constexpr int nodeI = 1; ///< row numbers, held as floats
inline constexpr int nodeJ = 2;
inline constexpr int group = 3;
inline constexpr int hingeI = 4; ///< 1 hinge, 0 rigid
inline constexpr int hingeJ = 5;
inline constexpr int wx = 6; ///< force per unit of the element's own length, global axes
inline constexpr int wy = 7;
inline constexpr int used = wy; ///< the last column that is read and written
} // namespace element

/// What the canvas shows, the values of `Katastasi_Provolis`.
namespace view {
inline constexpr std::int16_t model = 0;
inline constexpr std::int16_t M = 1; ///< diagrams
inline constexpr std::int16_t Q = 2;
inline constexpr std::int16_t N = 3;
inline constexpr std::int16_t deformed = 4;
} // namespace view

/// @name Model tables
/// @{
extern std::int16_t Arithmos_Kombon;    ///< number of nodes
extern std::int16_t Arithmos_Stoixeion; ///< number of elements
extern std::int16_t Arithmos_Omadon;    ///< number of E,A,I groups

extern Pinakas<float, maxNodes, 8> Komboi;      ///< nodes, columns `node::`
extern Pinakas<float, maxNodes, 3> Elatiria;    ///< springs Kx, Ky, Kz of the node of the same row
extern Pinakas<double, maxGroups, 3> Omades;    ///< E,A,I groups, columns `group::`
extern Pinakas<float, maxElements, 9> Stoixeia; ///< elements, columns `element::`
/// @}

/// @name Results
/// A table that no analysis has filled reads 0; an edit of the model leaves them as they are.
/// @{
extern Pinakas<double, maxDofs>
    Metatopiseis; ///< displacements: 3n-2 x, 3n-1 y, 3n rotation of node n
/// Forces that the nodes apply to the element's ends, in local axes: axial, transverse, moment at
/// i, then at j; positive along positive local axes and counter-clockwise.
extern Pinakas<double, maxElements, 6> Entasi_Topiki;
extern Pinakas<double, maxNodes, 3>
    Antidraseis;                     ///< reactions Rx, Ry, Mz; of use at constrained freedoms only
extern Pinakas<double, 19> Akrotata; ///< the extremes, rows `extreme::`
/// @}

/// @name Working tables of the analysis
/// They hold nothing of value outside an analysis. Degrees of freedom count naturally, as in
/// `Metatopiseis`, unless a comment says permuted: the free ones first, then the constrained.
/// @{
extern PinakasErgasias<maxDofs, maxDofs> K_Oliko;      ///< stiffness of the structure
extern PinakasErgasias<maxDofs, maxDofs> K_Anadiataxi; ///< the same, permuted
extern PinakasErgasias<maxDofs, maxDofs + 1> K_ff;     ///< free by free
extern PinakasErgasias<maxDofs, maxDofs> K_fs;         ///< free by constrained; nobody reads it
extern PinakasErgasias<maxDofs, maxDofs> K_sf;         ///< constrained by free
extern PinakasErgasias<maxDofs, maxDofs> K_ss;         ///< constrained by constrained
extern Pinakas<double, maxDofs> P_Oliko;               ///< sum of the fixed-end forces
extern Pinakas<double, maxDofs + 1, 1, 0>
    P_Eleftheroi;                             ///< right-hand side, free freedoms; entry 0 unused
extern Pinakas<double, maxDofs> U_Eleftheroi; ///< solution, free freedoms
extern Pinakas<double, maxDofs> R_Desmevmena; ///< `K_sf` times the solution; nobody reads it
extern Pinakas<double, maxDofs>
    Seira_Vathmon; ///< natural number of the freedom at each permuted position
extern Pinakas<double, maxElements, 6> Entasi_Oliki; ///< end forces in global axes
extern std::int16_t Eleftheroi_Vathmoi;              ///< number of free degrees of freedom
extern std::int16_t Desmevmenoi_Vathmoi;             ///< number of constrained ones

/// Of the element at hand; positions are axial (x), transverse (y), rotation at i, then at j.
extern Pinakas<double, 6, 6> T_Pinakas;       ///< rotation from global to local axes
extern Pinakas<double, 6, 6> T_Anastrofos;    ///< its transpose
extern Pinakas<double, 6, 6> K_Topiko;        ///< stiffness, local axes
extern Pinakas<double, 6, 6> K_Stoixeiou;     ///< stiffness, global axes
extern Pinakas<double, 6> F_Pakton_Oliko;     ///< fixed-end forces, global axes
extern Pinakas<double, 6> F_Pakton_Topiko;    ///< fixed-end forces, local axes
extern Pinakas<double, 6> U_Stoixeiou_Oliko;  ///< end displacements, global axes
extern Pinakas<double, 6> U_Stoixeiou_Topiko; ///< end displacements, local axes
/// @}

/// @name State
/// @{
extern bool Allagi_Montelou; ///< the model differs from what the last analysis saw
extern int analysesFinished; ///< counts up with each; the results are those of the last
extern int modelsBegun;      ///< counts up whenever another model takes the place of
                             ///< the one before, as by New and Open
/// The group that the user wants elements drawn on the canvas to have; `groupToDraw` is the one
/// that they get.
extern std::int16_t drawnGroup;
extern bool Sfalma_Epilisis;      ///< the last solve failed
extern bool hasResults;           ///< the result tables hold those of an analysis
extern bool mechanismSuspected;   ///< the structure that the results are of can probably move
extern std::string Onoma_Arxeiou; ///< path of the model file, empty for an unnamed model
/// `sumOf` what this process last read from that file or wrote to it; none where it knows none.
extern std::optional<std::uint64_t> knownFileSum;
extern std::int16_t Katastasi_Provolis; ///< what the canvas shows, one of `view`
/// Where file dialogs start: the folder of the last file used; empty before there was one.
extern std::string currentFolder;
extern std::string Anafora; ///< report text, empty between commands
/// The report sections that the user last chose: data, displacements, element forces, reactions.
extern bool Nai_Dedomena, Nai_Metakiniseis, Nai_Entaseis, Nai_Antidraseis;
extern bool sectionsChosen;     ///< whether the user has chosen yet
extern double Epilegmeno_Xroma; ///< the colour picker's colour word, given and picked
/// @}

/// @name Mouse on the canvas
/// Canvas centimetres.
/// @{
extern float Patima_X, Patima_Y;  ///< the pointer at the last left press
extern float Agkyra_X, Agkyra_Y;  ///< the same plus the origin of the view at that moment
extern std::int16_t Kombos_Arxis; ///< node at which the last press began; it keeps its old value
                                  ///< where a press set none
extern bool
    Neos_Kombos_Sto_Patima; ///< this press defined a node and the pointer has not moved since
/// @}

/// @name Language
/// @{
inline constexpr int languageSlots = 2500;
extern std::string Glossa; ///< name of the active language pack
extern bool Nai_Agglika;   ///< it is "English": the defaults in the code stand
extern Pinakas<std::string, languageSlots> Pinakas_Glossas;
/// @}

/// @name View
/// @{
extern float Klimaka; ///< scale 1:`Klimaka`; one world unit is 100/`Klimaka` cm of canvas
extern double Arxi_X; ///< shift of the world origin, canvas cm; larger moves the drawing left
extern double Arxi_Y; ///< the same upward from the canvas's bottom edge
inline constexpr int zoomSteps = 100;
/// One view a row, rows 0 to 100: scale, `Arxi_Y`, `Arxi_X`.
extern Pinakas<double, zoomSteps + 1, 3, 0> Istoriko_Zoom;
extern std::int16_t Thesi_Istorikou; ///< row of the current view
/// Whether the view shown was said to have too dense a grid, and its row at the last redraw.
extern bool denseGridReported;
extern std::int16_t gridPosition;
/// @}

/// A picture of results whose values are rounded.
struct RoundedPicture
{
    std::int16_t view, decimals;
    bool operator==(const RoundedPicture &) const = default;
};
/// The one whose values were said to be too large to be shown.
extern std::optional<RoundedPicture> roundingReportedFor;

struct CanvasView
{
    float scale; ///< `Klimaka`
    double originX, originY;
    bool operator==(const CanvasView &) const = default;
};
CanvasView currentView();
void setView(const CanvasView &shown);
/// Of which results, in which view.
struct CutDiagram
{
    CanvasView view;
    int analysis; ///< `analysesFinished`
    bool operator==(const CutDiagram &) const = default;
};
/// Of each picture of `view` what was last said to be cut off.
extern std::array<std::optional<CutDiagram>, view::deformed + 1> cutReportedFor;

/// The grid step that the user has given in this run, which New keeps while it is in force.
extern std::optional<float> chosenGridStep;

/// The view of a new model: scale 100, the world origin 2 cm from the left and bottom edges.
void resetView();

/// Forgets the zoom history; the current view becomes its row 0.
void resetZoomHistory();

/// Makes the working tables of the analysis 0; the counts of freedoms stay.
void clearWorkingTables();

/// Empties the model: counts, extremes, model tables, results and working tables all become 0.
/// Settings, language and zoom history stay.
void Katharismos_Montelou();

/// Puts the whole store back to its values at process start, with the default settings.
void resetStore();

} // namespace veskora
