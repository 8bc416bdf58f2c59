#pragma once
/// @file
/// The 19 extremes of the results, read off the live tables.
///
/// Element extremes look at the two ends only: the vertex of a moment parabola inside a span is no
/// part of them. With no node or no element they are what row 1 of the table gives, 0 before any
/// analysis. Signs of stress resultants: N is -column 1 of `Entasi_Topiki` at i and column 4 at j,
/// Q is column 2 and -column 5, M is -column 3 and column 6.

namespace veskora {

/// @name Displacements, in the model's length unit
/// @{
double Bres_Max_Abs_Ux();
double Bres_Max_Ux();
double Bres_Min_Ux();
double Bres_Max_Abs_Uy();
double Bres_Max_Uy();
double Bres_Min_Uy();
double Bres_Max_U(); ///< of the resultant of x and y
/// @}

/// @name Rotations, radians
/// @{
double Bres_Max_Abs_Rot();
double Bres_Max_Rot();
double Bres_Min_Rot();
/// @}

/// @name Stress resultants at element ends
/// @{
double Bres_Max_Abs_M();
double Bres_Max_M();
double Bres_Min_M();
double Bres_Max_Abs_Q();
double Bres_Max_Q();
double Bres_Min_Q();
double Bres_Max_Abs_N();
double Bres_Max_N();
double Bres_Min_N();
/// @}

/// Stores all 19, in the order above, in `Akrotata`.
void storeExtremes();

} // namespace veskora
