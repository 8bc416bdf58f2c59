// Published problems and closed forms: the numbers that an engineer can look up.

#include "Analysis.h"

#include <cmath>
#include <fstream>
#include <iostream>
#include <map>
#include <numbers>
#include <sstream>

namespace veskora {
namespace {

using Verification = StoreTest;

std::string number(double value)
{
    std::ostringstream text;
    text.precision(17);
    text << value;
    return text.str();
}

/// Half a unit of the last digit of a value published as @p text, relative.
double publishedTolerance(const std::string &text)
{
    const std::string mantissa = text.substr(0, text.find_first_of("eE"));
    double step = 0.5;
    if (const auto point = mantissa.find('.'); point != std::string::npos)
        step *= std::pow(10, -static_cast<double>(mantissa.size() - point - 1));
    return step / std::abs(std::stod(mantissa));
}

// Each block of the file is one problem: "# title", sources, records. The tolerance is the one its
// source line names, else one unit of the last published digit.
TEST_F(Verification, PublishedProblems)
{
    const std::map<std::string, double> tolerances = {{"V01", 2e-4}, {"V02", 1e-5}, {"V03", 3e-4},
                                                      {"V04", 1e-5}, {"V12", 1e-3}, {"V15", 1e-7}};
    std::ifstream file(TEST_DATA "/problems.txt");
    std::string title, text;
    int problems = 0;
    double worst = 0;
    std::string worstOf;
    const auto check = [&] {
        if (text.empty())
            return;
        SCOPED_TRACE(title);
        ++problems;
        const auto expectations = buildModel(text);
        analyse();
        std::istringstream words(text);
        for (const Expectation &expected : expectations) {
            std::string word; // the value as published, for its digits
            while (words >> word && word != "=") {
            }
            words >> word >> word >> word >> word;
            const auto known = tolerances.find(title.substr(0, 3));
            const double tolerance =
                known != tolerances.end() ? known->second : 2 * publishedTolerance(word);
            const double difference = std::abs(expected.found() / expected.value - 1);
            EXPECT_LE(difference, tolerance)
                << expected.table << " " << expected.row << " " << expected.column << ": "
                << expected.found() << ", published " << expected.value;
            if (difference / tolerance > worst) {
                worst = difference / tolerance;
                worstOf = title + ", " + number(difference);
            }
        }
        text.clear();
    };
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("# V")) {
            check();
            title = line.substr(2);
        } else if (!title.empty() && !line.empty() && line.front() != '#') {
            text += line + "\n";
        }
    }
    check();
    EXPECT_EQ(problems, 16);
    std::cout << "nearest to its tolerance: " << worstOf << "\n";
}

struct ClosedForm
{
    const char *what;
    std::string model; ///< with its "=" records
};

// E I L of the members below. Axial stiffness plays no part in most formulas; where members in
// bending also stretch, the area makes that negligible.
constexpr double E = 2.1e8, I = 1e-4, A = 0.01, L = 5, q = 12, EI = E * I;

std::string eq(const char *where, double value)
{
    return "= " + std::string(where) + " " + number(value) + ";";
}

TEST_F(Verification, ClosedForms)
{
    const std::string group = "G " + number(E) + " " + number(A) + " " + number(I) + ";";
    const std::string beam =
        "E 1 2 1 0 0 0 -12; E 2 3 1 0 0 0 -12;"; // two halves, node 2 at mid-span
    const auto span = [&](const char *left, const char *right) {
        return group + "N 0 0 " + left + "; N 2.5 0; N 5 0 " + right + ";";
    };
    const double L4 = L * L * L * L, L3 = L * L * L, root = std::sqrt(2.0);

    // Fixed portal, Kleinlogel: k = Ib h / (Ic l); H at the beam, then w on the beam.
    const double h = 4, l = 6, Ic = 2e-4, k = 4e-4 * h / (Ic * l), H = 30, w = 20;
    const std::string portal = "G 2.1e8 1e6 2e-4; G 2.1e8 1e6 4e-4;"
                               "N 0 0 xxx; N 0 4 ooo %H 0 0; N 6 4; N 6 0 xxx;"
                               "E 1 2 1; E 2 3 2 0 0 0 %w; E 3 4 1;";
    const auto loaded = [&](double side, double beamLoad) {
        std::string text = portal;
        text.replace(text.find("%H"), 2, number(side));
        return text.replace(text.find("%w"), 2, number(-beamLoad));
    };
    const double ring = 2 * std::numbers::pi; // for the polygons below

    std::vector<ClosedForm> forms = {
        // S. Timoshenko, Strength of Materials, Part I: beams under uniform load.
        {"fixed beam, wL2/12, wL2/24, wL4/384EI",
         span("xxx", "xxx") + beam + eq("f 1 3", q * L * L / 12) + eq("f 1 6", q * L * L / 24)
             + eq("u 2 2", -q * L4 / 384 / EI) + eq("r 3 2", q * L / 2)},
        {"propped cantilever, 3/8 and 5/8 wL, wL2/8",
         span("xxx", "oxo") + beam + eq("r 1 2", 5 * q * L / 8) + eq("r 3 2", 3 * q * L / 8)
             + eq("r 1 3", q * L * L / 8) + eq("u 2 2", -q * L4 / 192 / EI)
             + eq("u 3 3", q * L3 / 48 / EI)},
        {"simple beam, 5wL4/384EI, wL3/24EI",
         span("xxo", "oxo") + beam + eq("u 2 2", -5 * q * L4 / 384 / EI)
             + eq("u 1 3", -q * L3 / 24 / EI) + eq("f 1 6", q * L * L / 8)},
        {"cantilever, wL4/8EI, wL3/6EI", span("xxx", "ooo") + beam + eq("u 3 2", -q * L4 / 8 / EI)
                                             + eq("u 3 3", -q * L3 / 6 / EI)
                                             + eq("r 1 3", q * L * L / 2)},
        {"one member hinged at j, then at i: 5/8, 3/8, 1/8 at the rigid end",
         group
             + "N 0 0 xxx; N 5 0 xxx; N 10 0 xxx; N 20 1 xxo; N 22 1;"
               "E 1 2 1 0 1 0 -12; E 2 3 1 1 0 0 -12; E 4 5 1;E 5 3 1 1 1;S 5 1 1 0;"
             + eq("f 1 2", 37.5) + eq("f 1 5", 22.5) + eq("f 1 3", 37.5) + eq("f 2 2", 22.5)
             + eq("f 2 5", 37.5) + eq("f 2 6", -37.5) + eq("r 2 2", 45)},
        // The following by the force method (Timoshenko, Strength of Materials, Part I, ch. V and
        // X).
        // Tip force of the spring: (wL4/8EI) / (1/k + L3/3EI).
        {"cantilever on a tip spring",
         group + "N 0 0 xxx; N 5 0; S 2 0 8000 0; E 1 2 1 0 0 0 -12;"
             + eq("u 2 2", -q * L4 / 8 / EI / (1.0 / 8000 + L3 / 3 / EI) / 8000)},
        {"cantilever with a rotation spring at its foot: P L/k + P L2/3EI",
         group + "N 0 0 xxo; N 5 0 ooo 0 -10 0; S 1 0 0 500; E 1 2 1;" + eq("u 1 3", -10 * L / 500)
             + eq("u 2 2", -10 * L * L / 500 - 10 * L3 / 3 / EI)},
        {"springs alone hold a loaded node", "G 1 1 1; N 0 0 ooo 8 -9 10; S 1 2 3 5;"
                                                 + eq("u 1 1", 4) + eq("u 1 2", -3)
                                                 + eq("u 1 3", 2)},
        {"a spring at a restraint does nothing",
         group + "N 0 0 xxx; N 5 0 oxo; S 1 9 9 9; S 2 0 7 0; E 1 2 1 0 0 0 -12;"
             + eq("r 2 2", 3 * q * L / 8) + eq("r 1 3", q * L * L / 8)},
        // By statics and the fixed beam. Vertical load w per unit of true length on a 3-4-5 member:
        // w cos = 0.6 w across it.
        {"inclined fixed member under a global load",
         group + "N 0 0 xxx; N 3 4 xxx; N 10 0 xxo; N 12 0 oxo; E 1 2 1 0 0 0 -10; E 3 4 1;"
             + eq("f 1 1", 20) + eq("f 1 2", 15) + eq("f 1 3", 12.5) + eq("f 1 6", -12.5)
             + eq("r 1 2", 25) + eq("r 2 2", 25)},
        // By statics and Hooke's law. Two bars at 45 degrees under P: S = P / sqrt 2, v = P l / (E
        // A).
        {"two-bar truss",
         "G 1000 2 1; N 0 0 xxx; N 2 0 xxx; N 1 -1 oox 0 -10 0; E 1 3 1 1 1; E 2 3 1 1 1;"
             + eq("f 1 4", 10 / root) + eq("u 3 2", -10 * root / 2000)},
        // By statics. Three-hinged frame, w on the beam: H = w l2 / (8 h).
        {"three-hinged frame", "G 2.1e8 1e6 2e-4; N 0 0 xxo; N 0 4; N 3 4; N 6 4; N 6 0 xxo;"
                               "E 1 2 1; E 2 3 1 0 1 0 -20; E 3 4 1 0 0 0 -20; E 4 5 1;"
                                   + eq("r 1 1", 20 * 36 / 32.0) + eq("r 1 2", 60) + eq("f 2 3", 90)
                                   + eq("f 3 6", -90)},
        // By Hooke's law. Bar under load along itself: u = w L2 / (2 E A).
        {"bar under its own load", group + "N 0 0 xxx; N 0 -5 xox; E 1 2 1 1 1 0 -12;"
                                       + eq("u 2 2", -q * L * L / 2 / (E * A))
                                       + eq("r 1 2", q * L)},
        {"fixed portal pushed at the beam",
         loaded(H, 0) + eq("r 1 3", H * h * (3 * k + 1) / (2 * (6 * k + 1)))
             + eq("f 1 6", H * h * 3 * k / (2 * (6 * k + 1)))
             + eq("r 4 2", 3 * H * h * k / (l * (6 * k + 1)))
             + eq("u 3 1", H * h * h * h * (3 * k + 2) / (12 * E * Ic * (6 * k + 1)))},
        {"fixed portal, load on the beam", loaded(0, w) + eq("r 1 1", w * l * l / (4 * h * (k + 2)))
                                               + eq("r 1 3", -w * l * l / (12 * (k + 2)))
                                               + eq("f 2 3", w * l * l / (6 * (k + 2)))},
    };
    // Quarter-circle cantilever of n chords, P down at its end (Timoshenko, Castigliano), and a
    // ring of n chords under two opposite loads: the polygon's own value, computed in 30 digits.
    const auto arc = [&](int chords, double v, double u, double rotation) {
        std::string text = "G 1 1e7 1;";
        for (int i = 0; i <= chords; ++i) {
            const double t = ring / 4 * i / chords;
            text += "N " + number(std::sin(t)) + " " + number(std::cos(t) - 1)
                    + (i == 0        ? " xxx;"
                       : i == chords ? " ooo 0 -1 0;"
                                     : ";");
            if (i > 0)
                text += "E " + std::to_string(i) + " " + std::to_string(i + 1) + " 1;";
        }
        const std::string end = "u " + std::to_string(chords + 1);
        forms.push_back({"quarter circle", text + eq((end + " 2").c_str(), v)
                                               + eq((end + " 1").c_str(), u)
                                               + eq((end + " 3").c_str(), rotation)});
    };
    arc(10, -0.356718, -0.499488, -0.572265);
    arc(20, -0.356324, -0.499872, -0.571164);
    arc(40, -0.356227, -0.499968, -0.570888);
    arc(90, -0.356201, -0.499994, -0.570815);

    double worst = 0;
    for (const ClosedForm &form : forms) {
        SCOPED_TRACE(form.what);
        const bool sixDigits = std::string(form.what) == "quarter circle";
        const auto expectations = buildModel(form.model);
        ASSERT_FALSE(expectations.empty());
        analyse();
        for (const Expectation &expected : expectations) {
            const double difference = std::abs(expected.found() / expected.value - 1);
            EXPECT_LE(difference, sixDigits ? 2e-6 : 1e-7)
                << expected.table << " " << expected.row << " " << expected.column << ": "
                << expected.found() << ", formula " << expected.value;
            if (!sixDigits)
                worst = std::max(worst, difference);
        }
    }
    std::cout << "worst difference from a closed form: " << worst << "\n";
}

// The polygon's share of the exact change of diameter, pi/4 - 2/pi, grows with its corners.
TEST_F(Verification, ARingApproachesTheCircle)
{
    const double exact = std::numbers::pi / 4 - 2 / std::numbers::pi;
    for (const auto &[chords, share] :
         {std::pair{24, 0.9860}, {48, 0.99645}, {96, 0.99911}, {192, 0.99978}}) {
        std::string text = "G 1 1e7 1;";
        for (int i = 0; i < chords; ++i) {
            const double t = 2 * std::numbers::pi * i / chords;
            const bool top = i == chords / 4, bottom = i == 3 * chords / 4;
            text += "N " + number(std::cos(t)) + " " + number(std::sin(t))
                    + (bottom ? " xxx;"
                       : top  ? " xox 0 -1 0;"
                              : ";")
                    + "E " + std::to_string(i + 1) + " " + std::to_string((i + 1) % chords + 1)
                    + " 1;";
        }
        buildModel(text);
        analyse();
        EXPECT_NEAR(-displacement(chords / 4 + 1, 2) / exact, share, 6e-5) << chords;
    }
}

} // namespace
} // namespace veskora
