#include "ModelText.h"

#include "Fault.h"
#include "ItemReader.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"
#include "Settings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace veskora {

namespace {

constexpr std::string_view lineEnd = "\r\n";

constexpr std::array<std::string_view, 5> banner = {
    "***********************************", "*        VESK! Input file         *",
    "***********************************", "*        Do NOT Modify !!!        *",
    "***********************************",
};

/// A line of the section Rithmiseis. The format grew by appending: a file of an earlier stage ends
/// where the first line of the next stage would stand. Now that sections follow, it grows by those.
struct SettingLine
{
    int stage;                             ///< that brought the line
    std::optional<StoreVariable> variable; ///< none in the retired line, which is 0
    SettingValue substitute = {};          ///< for a file of the stage before
};

constexpr std::array settingLines = std::to_array<SettingLine>({
    {1, &nai_aksones},
    {1, std::nullopt},
    {1, &nai_grid},
    {1, &nai_komboi},
    {1, &nai_arithmisi_kombon},
    {1, &nai_desmefseis},
    {1, &nai_sint_kombon},
    {1, &nai_stoixeia},
    {1, &nai_arithmisi_stoixeion},
    {1, &nai_eleftheroseis},
    {1, &nai_omades},
    {1, &nai_miki},
    {1, &nai_fortiseis_si},
    {1, &nai_times_fortiseon_si},
    {1, &nai_fortiseis_om},
    {1, &nai_times_fortiseon_om},
    {1, &nai_times_M},
    {1, &nai_times_Q},
    {1, &nai_times_N},
    {1, &Q_sin_Ina},
    {1, &N_sin_Ina},
    {1, &xroma_background},
    {1, &xroma_aksonon},
    {1, &xroma_grid},
    {1, &xroma_stoixeion},
    {1, &xroma_kombon},
    {1, &xroma_sigkentromenon},
    {1, &xroma_omoiomorfon},
    {1, &xroma_M},
    {1, &xroma_Q},
    {1, &xroma_N},
    {1, &dekadika_M},
    {1, &dekadika_Q},
    {1, &dekadika_N},
    {1, &Ena_cm_posa_KNm_M},
    {1, &Ena_cm_posa_KN_Q},
    {1, &Ena_cm_posa_KN_N},
    {1, &Klimaka},
    {2, &Arxi_X, -2.0},
    {2, &Arxi_Y, 2.0},
    {2, &kannab, 1.0F},
    {2, &nai_graf_stir, true},
    {3, &Nai_Apolites_Sint, false},
    {3, &Nai_Sxetikes_Sint, true},
    {4, &xroma_paramorfosis, 16711680.0},
    {4, &Ena_cm_posa_m_epi_1000, 100.0F},
    {5, &M_sin_Tension, true},
    {5, &nai_springs, true},
});

// ---------------------------------------------------------------------------------------- reading

/// An item as a value for its variable.
struct ReadValue
{
    const ItemReader &reader;
    const std::string &item;
    static constexpr const char *what = "a view setting";

    SettingValue operator()(const bool *) const { return reader.asDouble(item, what) == 1; }
    SettingValue operator()(const std::int16_t *) const
    {
        using Limits = std::numeric_limits<std::int16_t>;
        const int number = reader.asInteger(item, what, Limits::min(), Limits::max());
        return static_cast<std::int16_t>(number);
    }
    SettingValue operator()(const float *) const { return reader.asSingle(item, what); }
    SettingValue operator()(const double *) const { return reader.asDouble(item, what); }
};

/// The settings and the view of a file, kept aside until the whole file has been read.
class PendingSettings
{
public:
    /// Reads the section from its first line on.
    /// @return the stage of the file, of those that brought lines here
    int read(ItemReader &reader)
    {
        int stage = settingLines.front().stage;
        for (const SettingLine &line : settingLines) {
            const std::string item = reader.item();
            if (line.stage != stage && item == modelEndLine) {
                substituteFor(line.stage);
                break;
            }
            stage = line.stage;
            if (line.variable)
                values_.emplace_back(*line.variable,
                                     std::visit(ReadValue{reader, item}, *line.variable));
        }
        return stage;
    }

    /// Reads a line for a switch behind the section.
    void readSwitch(ItemReader &reader, bool *variable)
    {
        const std::string item = reader.item();
        values_.emplace_back(variable, ReadValue{reader, item}(variable));
    }

    /// What no line may come for.
    void assume(const StoreVariable &variable, const SettingValue &value)
    {
        values_.emplace_back(variable, value);
    }

    void takeOver() const
    {
        for (const auto &[variable, value] : values_)
            assign(variable, value);
    }

private:
    void substituteFor(int stage)
    {
        for (const SettingLine &line : settingLines)
            if (line.stage == stage && line.variable)
                values_.emplace_back(*line.variable, line.substitute);
    }

    std::vector<std::pair<StoreVariable, SettingValue>> values_;
};

/// Reads a section's title, its count, and the empty line behind it.
std::int16_t readHead(ItemReader &reader, const char *rows, int most)
{
    reader.skip();
    const std::int16_t count = reader.asCount(reader.item(), rows, most);
    reader.skip();
    return count;
}

void readGroups(ItemReader &reader)
{
    constexpr std::array what = {"Young's modulus E", "a section area A",
                                 "a section moment of inertia I"};
    Arithmos_Omadon = readHead(reader, "groups", maxGroups);
    for (int g = 1; g <= Arithmos_Omadon; ++g) {
        reader.skip();
        for (int column = group::E; column <= group::I; ++column)
            Omades(g, column) =
                reader.asDouble(reader.item(), what[static_cast<std::size_t>(column - 1)]);
        reader.skip();
    }
}

void readNodes(ItemReader &reader)
{
    constexpr std::array what = {
        "an x coordinate",      "a y coordinate",   "a restraint (0 or 1)", "a restraint (0 or 1)",
        "a restraint (0 or 1)", "a nodal force Fx", "a nodal force Fy",     "a nodal moment M"};
    Arithmos_Kombon = readHead(reader, "nodes", maxNodes);
    for (int n = 1; n <= Arithmos_Kombon; ++n) {
        reader.skip();
        for (int column = node::x; column <= node::M; ++column) {
            const std::string item = reader.item();
            const char *name = what[static_cast<std::size_t>(column - 1)];
            const bool isCode = column >= node::fixedX && column <= node::fixedRotation;
            Komboi(n, column) = isCode ? static_cast<float>(reader.asInteger(item, name, 0, 1))
                                       : reader.asSingle(item, name);
        }
        reader.skip();
    }
}

void readElements(ItemReader &reader)
{
    Arithmos_Stoixeion = readHead(reader, "elements", maxElements);
    const auto row = [&reader](const char *what, int count) {
        return static_cast<float>(reader.asRow(reader.item(), what, count));
    };
    const auto hinge = [&reader] {
        return static_cast<float>(reader.asInteger(reader.item(), "a hinge (0 or 1)", 0, 1));
    };
    for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
        reader.skip();
        Stoixeia(e, element::nodeI) = row("node", Arithmos_Kombon);
        Stoixeia(e, element::nodeJ) = row("node", Arithmos_Kombon);
        Stoixeia(e, element::group) = row("group", Arithmos_Omadon);
        Stoixeia(e, element::hingeI) = hinge();
        Stoixeia(e, element::hingeJ) = hinge();
        Stoixeia(e, element::wx) = reader.asSingle(reader.item(), "an elemental load wx");
        Stoixeia(e, element::wy) = reader.asSingle(reader.item(), "an elemental load wy");
        reader.skip();
    }
}

void readSprings(ItemReader &reader)
{
    const int count = reader.asCount(reader.item(), "springs", maxNodes);
    for (int i = 0; i < count; ++i) {
        const int n = reader.asRow(reader.item(), "node", Arithmos_Kombon);
        for (int component = 1; component <= 3; ++component)
            Elatiria(n, component) = reader.asSingle(reader.item(), "a spring constant");
    }
}

// ---------------------------------------------------------------------------------------- writing

/// The text of a file, line by line.
class Lines
{
public:
    void printed(std::string_view text) { (text_ += text) += lineEnd; }
    template <typename Number>
    void written(Number number)
    {
        // No such number comes into the store; were it written, the file could not be read again.
        if (!std::isfinite(static_cast<double>(number)))
            throw Fault("A number of the model is infinite");
        printed(numberText(number));
    }
    const std::string &text() const { return text_; }

private:
    std::string text_;
};

template <typename Table>
void writeTable(Lines &lines, const char *title, int count, int columns, const Table &table)
{
    lines.printed(title);
    lines.written(count);
    lines.printed("");
    for (int row = 1; row <= count; ++row) {
        lines.written(row);
        for (int column = 1; column <= columns; ++column)
            lines.written(table(row, column));
        lines.printed("");
    }
}

/// A node whose spring constants are all negative or 0 loses them here.
void writeSprings(Lines &lines)
{
    lines.written(countRows(Arithmos_Kombon, hasSpring));
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        if (hasSpring(n)) {
            lines.written(n);
            for (const float constant : Elatiria.row(n))
                lines.written(constant);
        }
}

/// A section behind the settings.
struct LaterSection
{
    const char *title;
    void (*read)(ItemReader &, PendingSettings &);
    void (*write)(Lines &);
    /// Whether the model has anything for it; none of a section that every file has. Those that may
    /// be missing stand last, and a reader that knows none of them stops before.
    bool (*isNeeded)() = nullptr;
};

constexpr std::array laterSections = std::to_array<LaterSection>({
    {"Elatiria", [](ItemReader &reader, PendingSettings &) { readSprings(reader); }, writeSprings},
    {"Small symbol of held rotation",
     [](ItemReader &reader, PendingSettings &pending) {
         pending.readSwitch(reader, &smallHeldRotation);
     },
     [](Lines &lines) { lines.written(+smallHeldRotation); }, [] { return smallHeldRotation; }},
});

void readSections(ItemReader &reader)
{
    Komboi.clear();
    Elatiria.clear();
    Omades.clear();
    Stoixeia.clear();
    reader.skip(); // the empty line behind the banner
    readGroups(reader);
    readNodes(reader);
    readElements(reader);
    reader.skip(); // the title Rithmiseis
    PendingSettings pending;
    pending.assume(&smallHeldRotation, false);
    if (pending.read(reader) == settingLines.back().stage)
        for (const LaterSection &section : laterSections) {
            if (section.isNeeded != nullptr && !reader.follows(section.title))
                break;     // what stands here is not looked at
            reader.skip(); // its title, or the line's end behind it
            section.read(reader, pending);
        }
    pending.takeOver();
}

} // namespace

bool hasBanner(ItemReader &reader)
try {
    // All five are read before the comparison: a file too short for a banner is a failed read.
    std::array<std::string, banner.size()> items;
    std::ranges::generate(items, [&] { return reader.item(); });
    return std::ranges::equal(items, banner);
} catch (const Fault &) {
    if (!reader.isItemTooLong())
        throw;
    return false; // no more one of ours than any other text
}

bool readModelText(ItemReader &reader)
{
    if (!hasBanner(reader))
        return false;
    ++modelsBegun;
    drawnGroup = 1;
    readSections(reader);
    return true;
}

std::string modelText()
{
    Lines lines;
    for (const std::string_view line : banner)
        lines.printed(line);
    lines.printed("");
    writeTable(lines, "Omades", Arithmos_Omadon, group::I, Omades);
    writeTable(lines, "Komboi", Arithmos_Kombon, node::M, Komboi);
    writeTable(lines, "Stoixeia", Arithmos_Stoixeion, element::used, Stoixeia);
    lines.printed("Rithmiseis");
    for (const SettingLine &line : settingLines)
        if (line.variable) // a switch as 0 or 1
            std::visit([&](const auto *value) { lines.written(+*value); }, *line.variable);
        else
            lines.written(0);
    for (const LaterSection &section : laterSections)
        if (section.isNeeded == nullptr || section.isNeeded()) {
            lines.printed(section.title);
            section.write(lines);
        }
    lines.printed(modelEndLine);
    return lines.text();
}

} // namespace veskora
