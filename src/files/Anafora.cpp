#include "Anafora.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "ResultWarnings.h"
#include "RowQueries.h"

#include <utility>

namespace veskora {

namespace {

constexpr std::string_view nl = "\r\n";

} // namespace

/// One report section in the making.
class ReportText
{
public:
    ReportText() : separator_(regionalDecimalSeparator()) {}

    ReportText &operator<<(std::string_view text)
    {
        text_ += text;
        return *this;
    }
    void rule(std::size_t length) { (text_.append(length, '-')) += nl; }
    void title(const std::string &text) { *this << text << nl << nl; }

    /// The plain and the signed conversion, with the regional separator.
    std::string plain(auto number) const { return localized(numberText(number)); }
    std::string withSign(auto number) const { return localized(signedNumberText(number)); }

    std::string take() { return std::move(text_); }

private:
    std::string localized(std::string text) const
    {
        return withSeparator(std::move(text), separator_);
    }

    std::string separator_;
    std::string text_;
};

namespace {

/// @p text padded with blanks on the right, or cut, to exactly @p width characters of UTF-8.
/// scripts/check-languages reads the widths of fields, and the blanks behind headings, in this
/// file.
std::string field(std::size_t width, std::string text)
{
    std::size_t characters = 0;
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        const bool beginsCharacter = (static_cast<unsigned char>(text[end]) & 0xC0) != 0x80;
        if (beginsCharacter && characters == width)
            break;
        characters += beginsCharacter ? 1 : 0;
    }
    text.resize(end);
    return text.append(width - characters, ' ');
}

std::string blanks(std::size_t count)
{
    return std::string(count, ' ');
}

std::string elementTypeText(int e)
{
    const bool hingeI = Stoixeia(e, element::hingeI) == 1;
    const bool hingeJ = Stoixeia(e, element::hingeJ) == 1;
    if (hingeI && hingeJ)
        return Metafrasi(375, "P1 (Hinges at i,j)");
    if (hingeI)
        return Metafrasi(373, "P2' (Hinge at i)");
    return hingeJ ? Metafrasi(374, "P2' (Hinge at j)") : "P2";
}

/// A load or spring field: the value, or nothing where there is none.
std::string signedUnlessZero(const ReportText &report, float value)
{
    return value != 0 ? report.withSign(value) : "";
}

void generalData(ReportText &report)
{
    report.title(Metafrasi(310, "General data"));
    const auto line = [&](const std::string &label, int number) {
        report << field(28, label) << report.plain(number) << nl;
    };
    line(Metafrasi(317, "E,A,I Element Groups:"), Arithmos_Omadon);
    line(Metafrasi(318, "Nodes:"), Arithmos_Kombon);
    line(Metafrasi(319, "Elements:"), Arithmos_Stoixeion);
    line(Metafrasi(320, "Constrained nodes:"), countRows(Arithmos_Kombon, isRestrainedNode));
    line(Metafrasi(321, "Nodes with loads on:"), countRows(Arithmos_Kombon, isLoadedNode));
    line(Metafrasi(322, "Elements with loads on:"), countRows(Arithmos_Stoixeion, isLoadedElement));
    line(Metafrasi(323, "DOFs per node:"), 3);
    line(Metafrasi(324, "Degrees Of Freedom:"), 3 * Arithmos_Kombon);
}

void groups(ReportText &report)
{
    report << nl;
    report.title(Metafrasi(353, "EAI Element Groups"));
    report << Metafrasi(902, "Group") << blanks(4)
           << field(25, Metafrasi(904, "Youngs Modulus") + " E")
           << field(25, Metafrasi(905, "Section area") + " A")
           << field(25, Metafrasi(906, "Sect. moment of inertia") + " I") << nl;
    report.rule(85);
    for (int g = 1; g <= Arithmos_Omadon; ++g) {
        report << field(8, report.plain(g));
        for (int column = group::E; column <= group::I; ++column)
            report << field(25, report.withSign(Omades(g, column)));
        report << nl;
    }
}

void nodes(ReportText &report)
{
    report << nl;
    report.title(Metafrasi(354, "Nodes"));
    report << field(15, field(9, Metafrasi(340, "Node"))) << field(15, "x") << field(15, "y")
           << field(15, Metafrasi(361, "Constraints")) << field(15, "Kx") << field(15, "Ky")
           << field(15, "Kz") << nl;
    report.rule(92);
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        report << field(15, report.plain(n)) << field(15, report.withSign(Komboi(n, node::x)))
               << field(15, report.withSign(Komboi(n, node::y))) << field(15, restraintText(n));
        for (int k = 1; k <= 3; ++k)
            report << field(15, hasSpring(n, k) ? report.plain(Elatiria(n, k)) : "");
        report << nl;
    }
}

void elements(ReportText &report)
{
    report << nl;
    report.title(Metafrasi(355, "Elements"));
    report << field(9, Metafrasi(372, "Element")) << field(8, Metafrasi(368, "Node i")) << blanks(4)
           << field(8, Metafrasi(369, "Node j")) << blanks(5) << field(25, Metafrasi(370, "Type"))
           << field(8, Metafrasi(371, "Group")) << nl;
    report.rule(64);
    for (int e = 1; e <= Arithmos_Stoixeion; ++e)
        report << field(8, report.plain(e))
               << field(8, report.withSign(Stoixeia(e, element::nodeI))) << blanks(4)
               << field(8, report.withSign(Stoixeia(e, element::nodeJ))) << blanks(6)
               << field(25, elementTypeText(e))
               << field(8, report.plain(Stoixeia(e, element::group))) << nl;
}

void nodalLoads(ReportText &report)
{
    report << nl;
    report.title(Metafrasi(376, "Nodal loads"));
    report << field(9, Metafrasi(340, "Node")) << field(25, Metafrasi(349, "Force Fx"))
           << field(25, Metafrasi(350, "Force Fy")) << field(25, Metafrasi(351, "Moment M")) << nl;
    report.rule(65);
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        if (!isLoadedNode(n))
            continue;
        report << field(8, report.plain(n));
        for (int column = node::Fx; column <= node::M; ++column)
            report << field(25, signedUnlessZero(report, Komboi(n, column)));
        report << nl;
    }
}

void elementalLoads(ReportText &report)
{
    report << nl;
    report.title(Metafrasi(357, "Elemental loads"));
    report << field(9, Metafrasi(372, "Element")) << field(25, "Fx") << field(25, "Fy") << nl;
    report.rule(41);
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        if (!isLoadedElement(e))
            continue;
        report << field(8, report.plain(e));
        for (int column = element::wx; column <= element::wy; ++column)
            report << field(25, signedUnlessZero(report, Stoixeia(e, column)));
        report << nl;
    }
}

void printData(ReportText &report)
{
    generalData(report);
    groups(report);
    nodes(report);
    elements(report);
    nodalLoads(report);
    elementalLoads(report);
    report << nl << nl;
}

void printDisplacements(ReportText &report)
{
    report << Metafrasi(340, "Node") << blanks(3) << Metafrasi(343, "x-Displacement") << blanks(11)
           << Metafrasi(344, "y-Displacement") << blanks(11) << Metafrasi(345, "z-Rotation") << nl;
    report.rule(79);
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        report << field(8, report.plain(n));
        for (int component = 1; component <= 3; ++component)
            report << field(25, report.withSign(Metatopiseis(freedomOf(n, component))));
        report << nl;
    }
    report << nl << nl;
}

void printElementForces(ReportText &report)
{
    report << field(8, Metafrasi(342, "Element")) << field(9, "i, j")
           << field(25, Metafrasi(346, "Axial force")) << field(25, Metafrasi(347, "Shear force"))
           << field(25, Metafrasi(348, "Moment")) << nl;
    report.rule(87);
    const auto endForces = [&](int e, int nodeColumn, int firstColumn) {
        report << field(8, report.plain(Stoixeia(e, nodeColumn)));
        for (int column = firstColumn; column < firstColumn + 3; ++column)
            report << field(25, report.withSign(Entasi_Topiki(e, column)));
        report << nl;
    };
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        report << field(8, report.plain(e));
        endForces(e, element::nodeI, 1);
        report << blanks(8);
        endForces(e, element::nodeJ, 4);
        report << nl;
    }
    report << nl;
}

void printReactions(ReportText &report)
{
    report << field(9, Metafrasi(340, "Node")) << Metafrasi(349, "Force Fx") << blanks(16)
           << Metafrasi(350, "Force Fy") << blanks(16) << Metafrasi(351, "Moment M") << nl;
    report.rule(75);
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        if (!isRestrainedNode(n) && !hasSpring(n))
            continue;
        report << field(8, report.plain(n));
        for (int k = 1; k <= 3; ++k) {
            const auto force = reactionAt(n, k);
            report << field(25, force ? report.withSign(*force) : "");
        }
        report << nl;
    }
}

} // namespace

const std::array<ReportSection, 4> reportSections = std::to_array<ReportSection>({
    {Phrase{311, "Data"}, Phrase{1204, "Model data"}, &Nai_Dedomena, printData},
    {Phrase{312, "Node displacements"}, Phrase{1205, "Node displacements"}, &Nai_Metakiniseis,
     printDisplacements},
    {Phrase{313, "Element forces"}, Phrase{1206, "Element forces"}, &Nai_Entaseis,
     printElementForces},
    {Phrase{314, "Constraint-Spring reactions"}, Phrase{1207, "Constraint-Spring reactions"},
     &Nai_Antidraseis, printReactions},
});

std::string ReportSection::text() const
{
    ReportText report;
    report.title(title.text());
    print(report);
    return report.take();
}

std::string Anafora_Keimenou(int kind)
{
    const auto place = static_cast<std::size_t>(kind) - 1;
    return place < reportSections.size() ? reportSections[place].text() : "";
}

std::string reportOf(const std::function<bool(const ReportSection &)> &isIn)
{
    std::string text;
    bool hasResultsIn = false;
    for (const ReportSection &section : reportSections)
        if (isIn(section)) {
            text += section.text();
            hasResultsIn = hasResultsIn || section.chosen != &Nai_Dedomena;
        }
    if (!hasResultsIn)
        return text;
    std::string head;
    for (const ResultWarning warning : resultWarnings())
        head.append(textOf(warning)).append(nl);
    return head.empty() ? text : head.append(nl) + text;
}

std::string reportFileText(const std::string &report)
{
    return report + std::string(nl);
}

} // namespace veskora
