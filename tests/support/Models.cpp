#include "Models.h"

#include "Metablites.h"
#include "ModelEdits.h"
#include "RowQueries.h"

#include <algorithm>
#include <numeric>
#include <sstream>

namespace veskora {

double Expectation::found() const
{
    switch (table) {
    case 'u':
        return Metatopiseis(freedomOf(row, column));
    case 'r':
        return Komboi(row, node::fixedX - 1 + column) == 1
                   ? Antidraseis(row, column)
                   : -Elatiria(row, column) * Metatopiseis(freedomOf(row, column));
    default:
        return Entasi_Topiki(row, column);
    }
}

int putNode(double x, double y, const std::string &code, double Fx, double Fy, double M)
{
    const int n = addNode(static_cast<float>(x), static_cast<float>(y));
    for (std::size_t k = 0; k < 3; ++k)
        Komboi(n, node::fixedX + static_cast<int>(k)) = code.at(k) == 'x' ? 1.0F : 0.0F;
    Komboi(n, node::Fx) = static_cast<float>(Fx);
    Komboi(n, node::Fy) = static_cast<float>(Fy);
    Komboi(n, node::M) = static_cast<float>(M);
    return n;
}

int putElement(int i, int j, int group, int hingeI, int hingeJ, double wx, double wy)
{
    const int e = addElement(i, j, group);
    Stoixeia(e, element::hingeI) = static_cast<float>(hingeI);
    Stoixeia(e, element::hingeJ) = static_cast<float>(hingeJ);
    Stoixeia(e, element::wx) = static_cast<float>(wx);
    Stoixeia(e, element::wy) = static_cast<float>(wy);
    return e;
}

int putGroup(double E, double A, double I)
{
    const int g = ++Arithmos_Omadon;
    Omades(g, group::E) = E;
    Omades(g, group::A) = A;
    Omades(g, group::I) = I;
    return g;
}

std::vector<Expectation> buildModel(const std::string &text)
{
    Katharismos_Montelou();
    std::vector<Expectation> expectations;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream records(line.substr(0, line.find('#')));
        for (std::string record; std::getline(records, record, ';');) {
            std::istringstream in(record);
            std::string kind, code = "ooo";
            double a = 0, b = 0, c = 0, d = 0, e = 0, f = 0, g = 0;
            in >> kind;
            if (kind == "G") {
                in >> a >> b >> c;
                putGroup(a, b, c);
            } else if (kind == "N") {
                in >> a >> b >> code >> c >> d >> e;
                putNode(a, b, code.empty() ? "ooo" : code, c, d, e);
            } else if (kind == "E") {
                in >> a >> b >> c >> d >> e >> f >> g;
                putElement(static_cast<int>(a), static_cast<int>(b), static_cast<int>(c),
                           static_cast<int>(d), static_cast<int>(e), f, g);
            } else if (kind == "S") {
                in >> a >> b >> c >> d;
                const int n = static_cast<int>(a);
                Elatiria(n, 1) = static_cast<float>(b);
                Elatiria(n, 2) = static_cast<float>(c);
                Elatiria(n, 3) = static_cast<float>(d);
            } else if (kind == "=") {
                Expectation expected;
                in >> expected.table >> expected.row >> expected.column >> expected.value;
                expectations.push_back(expected);
            }
        }
    }
    return expectations;
}

void buildStoreyFrame()
{
    buildStoreys(25);
}

void buildStoreys(int levels)
{
    constexpr int lines = 8;
    Katharismos_Montelou();
    putGroup(3e7, 0.24, 0.0072);
    putGroup(3e7, 0.18, 0.0054);
    for (int level = 0; level < levels; ++level)
        for (int line = 0; line < lines; ++line)
            putNode(5.0 * line, 3.2 * level, level == 0 ? "xxx" : "ooo",
                    line == 0 && level > 0 ? 12 : 0);
    const auto at = [](int level, int line) { return level * lines + line + 1; };
    for (int level = 1; level < levels; ++level)
        for (int line = 0; line < lines; ++line)
            putElement(at(level - 1, line), at(level, line), 1);
    // Five of fourteen bays stay open, evenly spread: all of them would be past the limit.
    constexpr int bays = lines - 1;
    for (int level = 1; level < levels; ++level)
        for (int line = 0; line < bays; ++line)
            if (5 * (bays * level + line) % 14 >= 5)
                putElement(at(level, line), at(level, line + 1), 2, 0, 0, 0, -25);
}

void shuffleNodes(std::mt19937 &random)
{
    std::vector<int> places(static_cast<std::size_t>(Arithmos_Kombon));
    std::iota(places.begin(), places.end(), 1);
    std::ranges::shuffle(places, random);
    const auto nodes = Komboi;
    const auto springs = Elatiria;
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        const int place = places[static_cast<std::size_t>(n - 1)];
        std::ranges::copy(nodes.row(n), Komboi.row(place).begin());
        std::ranges::copy(springs.row(n), Elatiria.row(place).begin());
    }
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        for (const int end : {element::nodeI, element::nodeJ}) {
            float &reference = Stoixeia(e, end);
            reference = static_cast<float>(places[static_cast<std::size_t>(reference) - 1]);
        }
}

void buildRandomFrame(std::mt19937 &random, int nodes)
{
    const auto uniform = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    const auto oneIn = [&](int n) { return std::uniform_int_distribution(1, n)(random) == 1; };
    const auto pick = [&](int most) { return std::uniform_int_distribution(1, most)(random); };
    Katharismos_Montelou();
    for (int g = 0; g < 3; ++g)
        putGroup(uniform(1e7, 2e8), uniform(1e-3, 1e-1), uniform(1e-5, 1e-3));
    for (int n = 1; n <= nodes; ++n) {
        constexpr std::array codes = {"xoo", "oxo", "oox", "xxo", "xox", "oxx", "xxx"};
        putNode(uniform(-20, 20), uniform(-20, 20),
                n == 1     ? "xxx"
                : oneIn(5) ? codes[static_cast<std::size_t>(pick(7) - 1)]
                           : "ooo",
                uniform(-50, 50), uniform(-50, 50), uniform(-50, 50));
        for (int k = 1; k <= 3; ++k)
            Elatiria(n, k) = oneIn(8) ? static_cast<float>(uniform(10, 1e5)) : 0.0F;
        if (n > 1) // rigid at both ends, so that the whole holds together
            putElement(pick(n - 1), n, pick(3), 0, 0, uniform(-9, 9), uniform(-9, 9));
    }
    for (int extra = nodes / 2; extra > 0 && Arithmos_Stoixeion < maxElements && nodes > 2;
         --extra) {
        const int i = pick(nodes);
        const int j = i % nodes + 1;
        putElement(i, j, pick(3), oneIn(2), oneIn(2), uniform(-9, 9), uniform(-9, 9));
    }
}

} // namespace veskora
