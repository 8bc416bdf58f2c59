// The steps of single elements: to their stiffness and load, and back to their end forces.

#include "element.h"
#include "epilisi.h"
#include "StepsRun.h"

#include <algorithm>

namespace veskora::steps {

void StepsRun::showFormulasOfElements()
{
    open("elements", 1, Metafrasi(1983, "Stiffness and load of the elements"));
    if (choice_.elements.empty()) {
        const std::string texts =
            Metafrasi(2044, "Of the %1 elements none is shown.|The model has no elements.");
        return tell(
            filled(part(texts, Arithmos_Stoixeion > 0 ? 0 : 1), {numberText(Arithmos_Stoixeion)}));
    }
    if (static_cast<int>(choice_.elements.size()) < Arithmos_Stoixeion)
        tell(filled(Metafrasi(2039, "Of the %1 elements these are shown: %2."),
                    {numberText(Arithmos_Stoixeion), rowList(choice_.elements)}));
    add(rotationFormula());
    std::vector<ElementType> types, loaded;
    for (const ElementType type :
         {ElementType::P2, ElementType::hingeAtI, ElementType::hingeAtJ, ElementType::P1}) {
        const auto isOfType = [type](int e) { return elementType(e) == type; };
        const auto isLoadedOne = [&](int e) { return isOfType(e) && isLoadedElement(e); };
        const auto &all = choice_.elements;
        if (std::any_of(all.begin(), all.end(), isOfType))
            types.push_back(type);
        if (std::any_of(all.begin(), all.end(), isLoadedOne))
            loaded.push_back(type);
    }
    for (const ElementType type : types) {
        tell(filled(Metafrasi(1984, "Stiffness in local axes, type %1:"), {typeText(type)}));
        add(stiffnessFormula(type));
    }
    tell(Metafrasi(1987, "It is turned to global axes:"));
    const Line transposed = symbol("T", "", "T");
    add(Formula{symbol("K", "e") + " = " + transposed + " " + symbol("k") + " " + symbol("T")});
    if (loaded.empty())
        return;
    tell(Metafrasi(1986, "The load of an element is given in global axes, per unit of its length. "
                         "It is turned to local axes, which gives the fixed-end forces:"));
    add(Formula{"n = " + scalar("w", "x") + " c + " + scalar("w", "y") + " s"});
    add(Formula{"q = −" + scalar("w", "x") + " s + " + scalar("w", "y") + " c"});
    add(fixedEndFormula(loaded));
    add(Formula{symbol("F", "e", "0") + " = " + transposed + " " + symbol("f", "", "0")});
}

void StepsRun::assembleElements()
{
    showFormulasOfElements();
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        Ipologismos_T(e);
        Ipologismos_K_Topiko(e);
        Ipologismos_K_Stoixeiou();
        Synthesi_K(e);
        Ipologismos_F_Pakton(e);
        Synthesi_P(e);
        noteOrigins(e);
        if (std::count(choice_.elements.begin(), choice_.elements.end(), e) > 0) {
            Topika_F_Pakton();
            showElement(e);
        }
    }
}

void StepsRun::noteOrigins(int e)
{
    const auto [ni, nj] = elementNodes(e);
    const auto freedom = [ni = ni, nj = nj](int k) {
        return k <= 3 ? freedomOf(ni, k) : freedomOf(nj, k - 3);
    };
    for (int r = 1; r <= 6; ++r) {
        for (int c = 1; c <= 6; ++c)
            if (K_Stoixeiou(r, c) != 0)
                origins_[{freedom(r), freedom(c)}].push_back(e);
        if (F_Pakton_Oliko(r) != 0)
            origins_[{freedom(r), 0}].push_back(e);
    }
}

void StepsRun::showElement(int e)
{
    const auto [ni, nj] = elementNodes(e);
    const auto [length, c, s] = elementGeometry(e);
    const int g = elementGroup(e);
    const std::string name = numberText(e);
    open("element-" + name, 2, filled(Metafrasi(1988, "Element %1"), {name}));
    tell(filled(Metafrasi(1989, "From node %1 to node %2, group %3, type %4."),
                {numberText(ni), numberText(nj), numberText(g), typeText(elementType(e))}));
    Grid data{false, {}, {}, {}, {{{}, {}}}};
    const auto put = [&](const Line &symbol, double value) {
        data.columns.push_back({symbol});
        data.rows.front().cells.push_back(number(value));
    };
    put("E", Omades(g, group::E));
    put("A", Omades(g, group::A));
    put("I", Omades(g, group::I));
    put("L", length);
    put("c", c);
    put("s", s);
    put(scalar("w", "x"), Stoixeia(e, element::wx));
    put(scalar("w", "y"), Stoixeia(e, element::wy));
    add(data);

    const std::vector<Cell> local = cellsOf(localFreedoms()), freedoms = freedomsOf(e);
    add(matrixOf(symbol("T"), local, freedoms, T_Pinakas));
    add(matrixOf(symbol("k"), local, local, K_Topiko));
    add(matrixOf(symbol("K", "e"), freedoms, freedoms, K_Stoixeiou));
    if (isLoadedElement(e)) {
        add(matrixOf(symbol("f", "", "0"), local, {{""}}, F_Pakton_Topiko));
        add(matrixOf(symbol("F", "e", "0"), freedoms, {{""}}, F_Pakton_Oliko));
    } else {
        tell(Metafrasi(1992, "It bears no load, and its fixed-end forces are 0."));
    }
    std::string numbers;
    for (const int n : {ni, nj})
        for (int component = 1; component <= 3; ++component)
            numbers += (numbers.empty() ? "" : ", ") + freedomNumber(freedomOf(n, component));
    tell(filled(Metafrasi(1990, "Rows, columns and forces go to the freedoms %1."), {numbers}));
    add(Links{Metafrasi(2036, "Further on:"),
              {{Metafrasi(1996, "Equations of the structure"), "equations"},
               {filled(Metafrasi(2018, "End forces of element %1"), {name}), "forces-" + name}}});
}

void StepsRun::recoverEndForces()
{
    open("end-forces", 1, Metafrasi(2016, "Back to the elements"));
    tell(Metafrasi(2019, "The displacements of the ends are those of their nodes, turned to local "
                         "axes. The stiffness times them, with the fixed-end forces added, gives "
                         "the end forces."));
    add(Formula{symbol("u") + " = " + symbol("T") + " " + symbol("U", "e")});
    add(Formula{symbol("f") + " = " + symbol("k") + " " + symbol("u") + " + "
                + symbol("f", "", "0")});
    add(Formula{symbol("F", "e") + " = " + symbol("T", "", "T") + " " + symbol("f")});
    Entasi_Topiki.clear();
    Entasi_Oliki.clear();
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        Metatopiseis_Stoixeiou(e);
        Ipologismos_T(e);
        Topikes_Metatopiseis();
        Ipologismos_K_Topiko(e);
        const bool isShown = std::count(choice_.elements.begin(), choice_.elements.end(), e) > 0;
        std::array<double, 6> product{};
        if (isShown) { // without fixed-end forces the stage gives k u alone
            F_Pakton_Topiko.clear();
            Entasi_Stoixeiou(e);
            std::copy_n(Entasi_Topiki.row(e).begin(), 6, product.begin());
            std::fill_n(Entasi_Topiki.row(e).begin(), 6, 0.0);
        }
        Ipologismos_F_Pakton(e);
        Topika_F_Pakton();
        Entasi_Stoixeiou(e);
        Oliki_Entasi_Stoixeiou(e);
        if (isShown)
            showEndForces(e, product);
    }
}

void StepsRun::showEndForces(int e, const std::array<double, 6> &product)
{
    const std::string name = numberText(e);
    open("forces-" + name, 2, filled(Metafrasi(2018, "End forces of element %1"), {name}));
    Grid grid{false,
              {},
              {},
              {{symbol("U", "e")},
               {symbol("u")},
               {symbol("k") + " " + symbol("u")},
               {symbol("f", "", "0")},
               {symbol("f")},
               {symbol("F", "e")}},
              {}};
    Picture picture{Picture::Kind::element,
                    filled(Metafrasi(2017, "Element %1, its axes, and the forces of the nodes on "
                                           "its ends, drawn where they are positive."),
                           {name})};
    picture.element = e;
    const ElementGeometry geometry = elementGeometry(e);
    picture.c = geometry.c;
    picture.s = geometry.s;
    const std::string places = Metafrasi(
        2046, "%1: along x; along the element|%1: along y; across the element|%1: rotation");
    for (int k = 1; k <= 6; ++k) {
        const auto at = static_cast<std::size_t>(k - 1);
        grid.rows.push_back({{filled(part(places, at % 3), {k <= 3 ? "i" : "j"})},
                             {number(U_Stoixeiou_Oliko(k)), number(U_Stoixeiou_Topiko(k)),
                              number(product[at]), number(F_Pakton_Topiko(k)),
                              number(Entasi_Topiki(e, k)), number(Entasi_Oliki(e, k))}});
        picture.endForces.push_back(grid.rows.back().cells[4].text.plainText());
    }
    add(picture);
    add(grid);
    add(Links{Metafrasi(2035, "Its matrices:"),
              {{filled(Metafrasi(1988, "Element %1"), {name}), "element-" + name}}});
}

} // namespace veskora::steps
