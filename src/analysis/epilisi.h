#pragma once
/// @file
/// Linear static analysis of the plane frame in the store, by the direct stiffness method.
///
/// Element freedoms are ordered (axial, transverse, rotation) at end i, then at end j; local x runs
/// from i to j, local y is 90 degrees anticlockwise from it. In global axes the same six positions
/// are x, y, rotation at i, then at j. Rows and columns count from 1; units are the user's own.
/// Source: W. McGuire, R. H. Gallagher, R. D. Ziemian, Matrix Structural Analysis, 2nd ed., ch.
/// 4-5.
///
/// Every stored number is the same to the last bit as that of plain loops in double precision in
/// the order described: sums run in rising index, nothing is fused, L squared is L*L and L cubed
/// L*L*L. Only `Epilisi_Systimatos` handles faults; one in any other stage leaves `Epilisi`.

namespace veskora {

/// Analyses the model: fills `Metatopiseis`, `Entasi_Topiki`, `Antidraseis` and `Akrotata`, logs
/// start, finish and time, warns of a mechanism, and sets `Allagi_Montelou` to false. When the
/// solver fails, `Sfalma_Epilisis` is true and results and `Allagi_Montelou` stay as they were.
/// Faults: an element of zero length, a node or group row outside 1 to count, an end force beyond
/// a Double's range.
void Epilisi();

/// The freedom of the largest displacement in `Metatopiseis`, where that is so large that the
/// structure is probably a mechanism; else 0.
int excessiveFreedom();

/// @name Stages of one element
/// @p e is an element row, 1 to `Arithmos_Stoixeion`.
/// @{

/// Fills `T_Pinakas` and `T_Anastrofos`. Fault: zero length.
void Ipologismos_T(int e);

/// Fills `K_Topiko` for the element's hinges. With a hinge at one end the bending terms are those
/// of a member whose end moment there is zero; with two hinges only axial stiffness is left.
void Ipologismos_K_Topiko(int e);

/// `K_Stoixeiou` = `T_Anastrofos` * `K_Topiko` * `T_Pinakas`, mirrored so that it is exactly
/// symmetric.
void Ipologismos_K_Stoixeiou();

/// Adds `K_Stoixeiou` into `K_Oliko`.
void Synthesi_K(int e);

/// Fills `F_Pakton_Oliko` with the forces that the fixed ends exert on the element under its
/// uniform load, and `T_Pinakas`, `T_Anastrofos`. The load acts per unit of true length.
/// Source: as above, table 4.1 for the fixed member; 5/8 and 3/8 of qL and qL^2/8 with one hinge.
void Ipologismos_F_Pakton(int e);

/// Adds `F_Pakton_Oliko` into `P_Oliko`.
void Synthesi_P(int e);

/// Fills `U_Stoixeiou_Oliko` from `Metatopiseis`.
void Metatopiseis_Stoixeiou(int e);
/// `U_Stoixeiou_Topiko` = `T_Pinakas` * `U_Stoixeiou_Oliko`.
void Topikes_Metatopiseis();
/// `F_Pakton_Topiko` = `T_Pinakas` * `F_Pakton_Oliko`.
void Topika_F_Pakton();
/// Adds K u + f into row @p e of `Entasi_Topiki`.
void Entasi_Stoixeiou(int e);
/// Adds the same forces, turned to global axes, into row @p e of `Entasi_Oliki`.
void Oliki_Entasi_Stoixeiou(int e);
/// @}

/// @name Stages of the structure
/// @{

/// Adds the spring constants to the diagonal of `K_Oliko`.
void Synthesi_Elatirion();

/// Counts free and constrained freedoms and fills `Seira_Vathmon` and `K_Anadiataxi`: the free
/// ones first, then the constrained, each in natural order.
void Arithmisi_Vathmon();

/// Cuts `K_Anadiataxi` into `K_ff`, `K_fs`, `K_sf`, `K_ss`. Nothing later reads `K_fs`.
void Diamerisi_K();

/// Fills `P_Eleftheroi` with nodal load minus fixed-end force.
void Dexi_Meli();

/// Solves `K_ff` x = `P_Eleftheroi` into `U_Eleftheroi` (see elimination.h), destroying both.
/// A fault sets `Sfalma_Epilisis`, is logged and shown, and goes no further.
void Epilisi_Systimatos();

/// The same without a word: a fault goes on. On the diagonal of `K_ff` the pivots are left, up to
/// and with the first that is 0.
void solveFreeFreedoms();

/// `R_Desmevmena` = `K_sf` * `U_Eleftheroi`. Nothing later reads it: the reactions come from the
/// end forces.
void Ipologismos_Antidraseon_Vathmon();

/// Fills `Metatopiseis` from `U_Eleftheroi`, 0 at the constrained freedoms.
void Anaptyxi_Metatopiseon();

/// Fills `Antidraseis`: the end forces gathered at constrained freedoms, less the nodal loads of
/// every node. At a free freedom the table so holds the load with its sign reversed.
void Ipologismos_Antidraseon();
/// @}

} // namespace veskora
