#include "Files.h"

#include "Anafora.h"
#include "Desktop.h"
#include "Fault.h"
#include "FileSystem.h"
#include "Functions.h"
#include "ItemReader.h"
#include "MathFunc.h"
#include "Metablites.h"
#include "RowQueries.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <system_error>

namespace veskora {

namespace {

constexpr std::string_view endLine = "END of Vesk Input File";
constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view modelExtension = ".vsk";
constexpr std::string_view reportExtension = ".txt";

constexpr std::array<std::string_view, 5> banner = {
    "***********************************", "*        VESK! Input file         *",
    "***********************************", "*        Do NOT Modify !!!        *",
    "***********************************",
};

constexpr int settingLines = 48;

/// What each line of the section Rithmiseis holds; nothing in the retired line, which is 0. The
/// lines stand in the order in which the format grew.
const std::array<std::optional<StoreVariable>, settingLines> settingsInFile = {
    &nai_aksones,
    std::nullopt,
    &nai_grid,
    &nai_komboi,
    &nai_arithmisi_kombon,
    &nai_desmefseis,
    &nai_sint_kombon,
    &nai_stoixeia,
    &nai_arithmisi_stoixeion,
    &nai_eleftheroseis,
    &nai_omades,
    &nai_miki,
    &nai_fortiseis_si,
    &nai_times_fortiseon_si,
    &nai_fortiseis_om,
    &nai_times_fortiseon_om,
    &nai_times_M,
    &nai_times_Q,
    &nai_times_N,
    &Q_sin_Ina,
    &N_sin_Ina,
    &xroma_background,
    &xroma_aksonon,
    &xroma_grid,
    &xroma_stoixeion,
    &xroma_kombon,
    &xroma_sigkentromenon,
    &xroma_omoiomorfon,
    &xroma_M,
    &xroma_Q,
    &xroma_N,
    &dekadika_M,
    &dekadika_Q,
    &dekadika_N,
    &Ena_cm_posa_KNm_M,
    &Ena_cm_posa_KN_Q,
    &Ena_cm_posa_KN_N,
    &Klimaka,
    &Arxi_X,
    &Arxi_Y,
    &kannab,
    &nai_graf_stir,
    &Nai_Apolites_Sint,
    &Nai_Sxetikes_Sint,
    &xroma_paramorfosis,
    &Ena_cm_posa_m_epi_1000,
    &M_sin_Tension,
    &nai_springs,
};

/// The lines that one stage of the format appended, and what a file without them gets for them.
struct Stage
{
    int firstLine;
    int lastLine;
    std::array<double, 4> substitutes;
};
constexpr std::array<Stage, 4> laterStages = {{
    {39, 42, {-2, 2, 1, 1}},
    {43, 44, {0, 1}},
    {45, 46, {16711680, 100}},
    {47, 48, {1, 1}},
}};
constexpr int linesOfFirstStage = 38;

// ---------------------------------------------------------------------------------------- reading

std::optional<double> numberFor(const StoreVariable &variable, const ItemReader &reader,
                                const std::string &item)
{
    constexpr const char *what = "a view setting";
    using Integer = std::numeric_limits<std::int16_t>;
    if (std::holds_alternative<std::int16_t *>(variable))
        return reader.asInteger(item, what, Integer::min(), Integer::max());
    if (std::holds_alternative<float *>(variable))
        return reader.asSingle(item, what);
    return reader.asDouble(item, what);
}

struct AssignNumber
{
    double number;
    void operator()(bool *value) const { *value = number == 1; }
    void operator()(std::int16_t *value) const { *value = static_cast<std::int16_t>(number); }
    void operator()(float *value) const { *value = static_cast<float>(number); }
    void operator()(double *value) const { *value = number; }
};

/// The settings and the view of a file, kept aside until the whole file has been read.
class PendingSettings
{
public:
    /// Reads the section from its first line on.
    /// @return whether the file is of the current stage, so that the springs follow
    bool read(ItemReader &reader)
    {
        readLines(reader, reader.item(), 1, linesOfFirstStage);
        for (const Stage &stage : laterStages) {
            const std::string item = reader.item();
            if (item == endLine) {
                for (int line = stage.firstLine; line <= stage.lastLine; ++line)
                    at(line) = stage.substitutes[static_cast<std::size_t>(line - stage.firstLine)];
                return false;
            }
            readLines(reader, item, stage.firstLine, stage.lastLine);
        }
        return true;
    }

    void takeOver() const
    {
        for (std::size_t i = 0; i < settingsInFile.size(); ++i)
            if (settingsInFile[i] && numbers_[i])
                std::visit(AssignNumber{*numbers_[i]}, *settingsInFile[i]);
    }

private:
    std::optional<double> &at(int line) { return numbers_[static_cast<std::size_t>(line - 1)]; }

    /// @param item  the first of the lines, already read
    void readLines(ItemReader &reader, std::string item, int first, int last)
    {
        for (int line = first; line <= last; ++line) {
            if (line > first)
                item = reader.item();
            if (const auto &variable = settingsInFile[static_cast<std::size_t>(line - 1)])
                at(line) = numberFor(*variable, reader, item);
        }
    }

    std::array<std::optional<double>, settingLines> numbers_;
};

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
    reader.skip(); // the title
    const int count = reader.asCount(reader.item(), "springs", maxNodes);
    for (int i = 0; i < count; ++i) {
        const int n = reader.asRow(reader.item(), "node", Arithmos_Kombon);
        for (int component = 1; component <= 3; ++component)
            Elatiria(n, component) = reader.asSingle(reader.item(), "a spring constant");
    }
}

void readModel(ItemReader &reader)
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
    if (pending.read(reader))
        readSprings(reader);
    pending.takeOver();
}

void reportWrongBanner()
{
    const std::string text =
        Metafrasi(148, "There was an error opening the file. The file could not be read.");
    desktop().message(text, Icon::critical);
    Grammi_Log(text, logColour::red, true);
}

void reportFault(const std::string &sentence, const std::string &path, const Fault &fault)
{
    const std::string text = sentence + " " + path + ": " + fault.facts();
    desktop().message(text, Icon::critical);
    Grammi_Log(text, logColour::red);
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
            throw Fault(Fault::Kind::overflow, "A number of the model is infinite");
        printed(numberText(number));
    }
    const std::string &text() const { return text_; }

private:
    std::string text_;
};

struct WriteNumber
{
    Lines &lines;
    void operator()(const bool *value) const { lines.written(*value ? 1 : 0); }
    void operator()(const std::int16_t *value) const { lines.written(int{*value}); }
    void operator()(const auto *value) const { lines.written(*value); }
};

template <typename Table>
void writeSection(Lines &lines, const char *title, int count, int columns, const Table &table)
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
    lines.printed("Elatiria");
    lines.written(countRows(Arithmos_Kombon, hasSpring));
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        if (hasSpring(n)) {
            lines.written(n);
            for (const float constant : Elatiria.row(n))
                lines.written(constant);
        }
}

} // namespace

std::string modelText()
{
    Lines lines;
    for (const std::string_view line : banner)
        lines.printed(line);
    lines.printed("");
    writeSection(lines, "Omades", Arithmos_Omadon, group::I, Omades);
    writeSection(lines, "Komboi", Arithmos_Kombon, node::M, Komboi);
    writeSection(lines, "Stoixeia", Arithmos_Stoixeion, element::wy, Stoixeia);
    lines.printed("Rithmiseis");
    for (const auto &variable : settingsInFile)
        if (variable)
            std::visit(WriteNumber{lines}, *variable);
        else
            lines.written(0);
    writeSprings(lines);
    lines.printed(endLine);
    return lines.text();
}

namespace {

std::string withoutExtension(const std::string &path)
{
    return path.empty() ? "Untitled"
                        : path.substr(0, path.size() - std::min<std::size_t>(4, path.size()));
}

bool exists(const std::string &path)
{
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

bool holdSameItems(const std::string &path, const std::string &scratch)
{
    ItemReader saved(path);
    ItemReader present(scratch);
    for (;;) {
        const std::string item = saved.item();
        if (item != present.item())
            return false;
        if (item == endLine)
            return true;
    }
}

} // namespace

const std::string &dialogFolder()
{
    if (currentFolder.empty())
        currentFolder = startFolder(desktop().documentsFolder());
    return currentFolder;
}

std::string askSavePath(const std::string &filter, const std::string &proposed,
                        const std::string &extension)
{
    std::string name = proposed;
    for (;;) {
        const std::optional<std::string> chosen =
            desktop().askSaveFile({filter, dialogFolder(), name});
        if (!chosen)
            return {};
        if (chosen->ends_with(extension))
            return *chosen;
        name = *chosen + extension;
        // The dialog asked about the shorter name.
        if (!exists(name)
            || desktop().message(
                   name + Metafrasi(147, " already exists. Do you want to replace it?"),
                   Icon::exclamation, Buttons::noYes)
                   == Answer::yes)
            return name;
    }
}

void Anagnosi_Arxeiou(std::string &path)
{
    if (path.empty()) {
        const std::optional<std::string> chosen = desktop().askOpenFile(
            {Metafrasi(1770, "Kalvorn Veskora Input files") + " (*.vsk)|*.vsk", dialogFolder()});
        if (!chosen)
            return;
        path = *chosen;
    }
    try {
        ItemReader reader(path);
        if (!hasBanner(reader))
            return reportWrongBanner();
        readModel(reader);
    } catch (const Fault &fault) {
        reportFault(Metafrasi(150, "There was an error opening the file:"), path, fault);
        Katharismos_Montelou();
        Allagi_Montelou = true;
        Onoma_Arxeiou.clear();
        showModelCaption({});
        return;
    }
    showModelCaption(path);
    Onoma_Arxeiou = path;
    currentFolder = folderOf(path);
    Allagi_Montelou = true;
    Grammi_Log(Metafrasi(149, "Open file:") + " " + path, logColour::black, true);
    resetZoomHistory();
}

bool isModelFile(const std::string &path)
try {
    InputFile file(path);
    std::string content(modelText().size() + 1, '\0'); // one more, to notice a longer file
    std::size_t filled = 0;
    while (const std::size_t count = file.read(content.data() + filled, content.size() - filled))
        filled += count;
    content.resize(filled);
    return content == modelText();
} catch (const Fault &) {
    return false;
}

bool Apothikefsi_Arxeiou(std::string &path, bool quiet)
{
    std::string target = path;
    if (target.empty())
        target = askSavePath(Metafrasi(1771, "Kalvorn Veskora files") + " (*.vsk)|*.vsk",
                             withoutExtension(Onoma_Arxeiou), std::string(modelExtension));
    if (target.empty())
        return false;
    try {
        writeWholeFile(target, modelText(),
                       quiet ? Durability::untilPowerFails : Durability::onDisk);
    } catch (const Fault &fault) {
        if (!quiet)
            reportFault(Metafrasi(152, "There was an error saving the file:"), target, fault);
        return false;
    }
    path = target;
    if (!quiet) {
        showModelCaption(target);
        Grammi_Log(Metafrasi(151, "Save file:") + " " + target, logColour::black, true);
        Onoma_Arxeiou = target;
        currentFolder = folderOf(target);
    }
    return true;
}

void Apothikefsi_Anaforas(const std::string &path)
{
    const std::string target = askSavePath(Metafrasi(1772, "Text files") + " (*.txt)|*.txt|"
                                               + Metafrasi(1773, "All files") + " (*.*)|*.*",
                                           withoutExtension(path) + std::string(reportExtension),
                                           std::string(reportExtension));
    if (target.empty())
        return;
    try {
        writeWholeFile(target, reportFileText(Anafora), Durability::onDisk);
    } catch (const Fault &fault) {
        return reportFault(Metafrasi(152, "There was an error saving the file:"), target, fault);
    }
    currentFolder = folderOf(target);
}

bool Idio_Me_To_Arxeio()
try {
    constexpr const char *name = "/z_vk~vpl.vsk";
    std::error_code ignored;
    std::string scratch = scratchFolder(desktop().programFolder()) + name;
    // A model that was opened there must not be compared with itself, and then deleted.
    if (std::filesystem::equivalent(scratch, Onoma_Arxeiou, ignored)
        || !Apothikefsi_Arxeiou(scratch, true)) {
        scratch = privateFolder() + name;
        if (!Apothikefsi_Arxeiou(scratch, true))
            return false;
    }
    const bool same = holdSameItems(Onoma_Arxeiou, scratch);
    std::filesystem::remove(scratch, ignored);
    return same;
} catch (const Fault &) {
    return false; // the saved file is gone, or one of the two ran out
}

} // namespace veskora
