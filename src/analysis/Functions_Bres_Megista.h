#pragma once
/// @file
/// The 19 extremes of the results, read off the live tables.
///
/// Element extremes look at the two ends only: the vertex of a moment parabola inside a span is no
/// part of them. With no node or no element they are what row 1 of the table gives, 0 before any
/// analysis.

#include "Metablites.h"

namespace veskora {

/// Rows of `Akrotata`.
namespace extreme {
inline constexpr int absUx = 1;
inline constexpr int maxUx = 2;
inline constexpr int minUx = 3;
inline constexpr int absUy = 4;
inline constexpr int maxUy = 5;
inline constexpr int minUy = 6;
inline constexpr int maxU = 7;
inline constexpr int absRotation = 8;
inline constexpr int maxRotation = 9;
inline constexpr int minRotation = 10;
inline constexpr int absM = 11;
inline constexpr int maxM = 12;
inline constexpr int minM = 13;
inline constexpr int absQ = 14;
inline constexpr int maxQ = 15;
inline constexpr int minQ = 16;
inline constexpr int absN = 17;
inline constexpr int maxN = 18;
inline constexpr int minN = 19;
} // namespace extreme

/// A stress resultant, as diagrams show it: an end force with a sign, which is the other one at j.
struct StressResultant
{
    int column; ///< of `Entasi_Topiki` at i; at j three more
    double signI;

    double atI(int e) const { return signI * Entasi_Topiki(e, column); }
    double atJ(int e) const { return -signI * Entasi_Topiki(e, column + 3); }
};
inline constexpr StressResultant resultantM = {3, -1};
inline constexpr StressResultant resultantQ = {2, 1};
inline constexpr StressResultant resultantN = {1, -1};

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

/// Stores all 19 in `Akrotata`. Fault: one beyond a Double's range.
void storeExtremes();

} // namespace veskora
