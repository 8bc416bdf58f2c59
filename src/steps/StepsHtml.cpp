#include "StepsHtml.h"

#include "Functions.h"
#include "MathFunc.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>

namespace veskora::steps {

namespace {

// What fits a page is not torn. Colours are those of the drawing of the freedoms: blue free, grey
// held.
constexpr const char *style = R"(
body { font: 15px/1.45 "Liberation Sans", Arial, sans-serif; color: #202428; margin: 0 2em 3em 19em; }
nav { position: fixed; left: 0; top: 0; bottom: 0; width: 16em; overflow: auto; padding: 1em;
  background: #f1f3f5; border-right: 1px solid #cfd4d9; font-size: 14px; }
nav ul { list-style: none; margin: 0; padding: 0; }
nav li { margin: .25em 0; } nav li.below { margin-left: 1.2em; }
a { color: #1a5a96; text-decoration: none; }
h1 { font-size: 25px; } h2 { font-size: 20px; border-bottom: 1px solid #cfd4d9; margin-top: 2em; }
h3 { font-size: 16px; margin-top: 1.8em; }
p { max-width: 46em; }
p.warning { color: #a01010; font-weight: bold; }
p.formula { margin-left: 2em; font-family: "Liberation Serif", "Times New Roman", serif; font-size: 17px; }
div.grid { margin: 1em 0; overflow-x: auto; }
div.part { margin: .6em 0; } div.whole { break-inside: avoid; }
div.grid p.name { display: inline-block; vertical-align: middle; margin: 0 .5em 0 2em; }
table { border-collapse: collapse; vertical-align: middle; } .whole table { display: inline-table; }
tr { break-inside: avoid; }
td, th { padding: 2px 9px; text-align: right; white-space: nowrap; font-weight: normal; }
th { color: #3c454d; } th.free, td.free { color: #0040c0; }
th.held, td.held { color: #707070; font-style: italic; }
table.table td, table.table th { border: 1px solid #cfd4d9; }
table.table th { background: #f1f3f5; } table.table td.text { text-align: left; white-space: normal; }
table.opens td:nth-child(2) { border-left: 2px solid #202428; }
table.closes td:last-child { border-right: 2px solid #202428; }
td[title] { cursor: help; }
.wide { font-size: 12px; } .wide td, .wide th { padding: 1px 5px; }
.widest { font-size: 11px; } .widest td, .widest th { padding: 1px 3px; }
figure { margin: 1em 0; break-inside: avoid; } figcaption { color: #5b656e; font-size: 14px; }
figure img { max-width: 100%; height: auto; }
sub, sup { line-height: 0; }
h2, h3 { break-after: avoid; } p.formula, p.lead { break-after: avoid; }
@page { margin: 14mm; } @page across { size: landscape; }
@media (max-width: 60em) { body { margin: 0 1em 2em; }
  nav { position: static; width: auto; border: 0; margin: 0 -1em; } nav ul { columns: 16em; }
  p.formula, div.grid p.name { margin-left: .5em; } }
@media print { body { margin: 0; font-size: 10pt; } nav { position: static; width: auto; border: 0; }
  div.grid { overflow: visible; } div.across { page: across; } .wide { font-size: 7pt; } .widest { font-size: 6pt; } }
)";

std::string escaped(const std::string &text)
{
    std::string result;
    for (const char c : text)
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += c;
        }
    return result;
}

std::string joined(std::initializer_list<std::string_view> parts)
{
    std::string text;
    for (const std::string_view part : parts)
        text += part;
    return text;
}

/// @param name  with its attributes
std::string element(std::string_view name, std::string_view content)
{
    return joined({"<", name, ">", content, "</", name.substr(0, name.find(' ')), ">"});
}

std::string attribute(std::string_view name, const std::string &value)
{
    return value.empty() ? "" : joined({" ", name, "=\"", escaped(value), "\""});
}

std::string linkTo(const std::string &id, const std::string &text)
{
    return element(joined({"a", attribute("href", joined({"#", id}))}), escaped(text));
}

/// As an image of its own: within the page, the names that two pictures give to their fonts and
/// outlines would be one.
std::string dataAddress(const std::string &svg)
{
    constexpr std::string_view digits = "0123456789ABCDEF", plain = " /:;,=+()-_.'!*";
    std::string text = "data:image/svg+xml,";
    for (const char c : svg) {
        const auto code = static_cast<unsigned char>(c);
        if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')
            || plain.find(c) != std::string_view::npos)
            text += c;
        else
            (text += '%') += {digits[code / 16], digits[code % 16]};
    }
    return text;
}

std::string html(const Line &line)
{
    std::string text;
    for (const Run &run : line.runs)
        switch (run.style) {
        case Run::Style::plain:
            text += escaped(run.text);
            break;
        case Run::Style::matrix:
            text += element("b", escaped(run.text));
            break;
        case Run::Style::subscript:
            text += element("sub", escaped(run.text));
            break;
        case Run::Style::superscript:
            text += element("sup", escaped(run.text));
            break;
        }
    return text;
}

std::string html(const Cell &cell, const char *name)
{
    const bool isText = !cell.value && name == std::string("td") && cell.text.runs.size() == 1;
    const char *const classes = cell.isHeld ? "held" : cell.isFree ? "free" : isText ? "text" : "";
    return element(joined({name, attribute("class", classes), attribute("title", cell.origin)}),
                   html(cell.text));
}

std::string html(const Paragraph &paragraph)
{
    const char *const classes = paragraph.isWarning             ? "warning"
                                : paragraph.text.ends_with(':') ? "lead"
                                                                : "";
    return element(joined({"p", attribute("class", classes)}), escaped(paragraph.text)) + "\n";
}

std::string html(const Formula &formula)
{
    return element("p class=\"formula\"", html(formula.line)) + "\n";
}

/// How large a table is set so that paper holds it.
struct Setting
{
    const char *classes;
    double font, padding; ///< points; of a cell, both sides
    double room;          ///< across the page
    bool isAcross;        ///< a page on its side
};
constexpr double upright = 515, across = 760; // points, of A4 and of Letter
constexpr std::array<Setting, 4> settingsByWidth = {{{"", 10, 13.5, upright, false},
                                                     {" wide", 7, 7.5, upright, false},
                                                     {" widest", 6, 4.5, upright, false},
                                                     {" widest", 6, 4.5, across, true}}};

bool isEmpty(const Cell &cell)
{
    return cell.text.plainText().empty();
}

/// In digits; a text breaks into lines where it stands in a table.
std::size_t lengthOf(const Cell &cell, bool isMatrix)
{
    constexpr std::size_t longestWord = 14;
    std::size_t length = 0;
    for (const char c : cell.text.plainText())
        length += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
    return cell.value || isMatrix ? length : std::min(length, longestWord);
}

/// One table, or one after the other the parts of a matrix that is too wide for a page.
class GridWriter
{
public:
    explicit GridWriter(const Grid &grid) : grid_(grid)
    {
        for (const GridRow &row : grid.rows) {
            isLabelled_ = isLabelled_ || !isEmpty(row.label);
            labels_ = std::max(labels_, lengthOf(row.label, true));
        }
        for (std::size_t column = 0; column < grid.columns.size(); ++column) {
            std::size_t length = lengthOf(grid.columns[column], grid.isMatrix);
            for (const GridRow &row : grid.rows)
                length = std::max(length, lengthOf(row.cells[column], grid.isMatrix));
            lengths_.push_back(length);
        }
        for (const Setting &setting : settingsByWidth)
            if (setting_ = &setting; endOfPart(0) == lengths_.size())
                return;
        setting_ = &settingsByWidth[1]; // of parts, each can as well be read
    }

    std::string text() const
    {
        constexpr std::size_t onOnePage = 30; // rows
        std::string parts;
        const bool isWhole = grid_.rows.size() <= onOnePage;
        for (std::size_t first = 0; first < lengths_.size(); first = endOfPart(first)) {
            Line name = grid_.name;
            if (first > 0)
                name = "…";
            parts +=
                element(isWhole ? "div class=\"part whole\"" : "div class=\"part\"",
                        (grid_.name.runs.empty() ? "" : element("p class=\"name\"", html(name)))
                            + part(first, endOfPart(first)));
        }
        return element(setting_->isAcross ? "div class=\"grid across\"" : "div class=\"grid\"",
                       parts)
               + "\n";
    }

private:
    double widthOf(std::size_t length) const
    {
        constexpr double digit = 0.556; // of the font's size, as of all its digits
        return digit * setting_->font * static_cast<double>(length) + setting_->padding;
    }
    /// The column behind the last that fits a page together with column @p first.
    std::size_t endOfPart(std::size_t first) const
    {
        double width = isLabelled_ ? widthOf(labels_) : 0;
        width += widthOf(grid_.name.plainText().size()) + widthOf(lengths_[first]);
        std::size_t end = first + 1;
        while (end < lengths_.size() && width + widthOf(lengths_[end]) <= setting_->room)
            width += widthOf(lengths_[end++]);
        return end;
    }

    std::string part(std::size_t first, std::size_t end) const
    {
        const auto cells = [=](const std::vector<Cell> &all, const char *name) {
            std::string text;
            for (std::size_t column = first; column < end; ++column)
                text += html(all[column], name);
            return text;
        };
        const auto row = [&](const std::string &label, const std::string &content) {
            return element("tr", (isLabelled_ ? label : "") + content) + "\n";
        };
        std::string head, body;
        if (!std::all_of(grid_.columns.begin(), grid_.columns.end(), isEmpty))
            head = element("thead",
                           row(element("th", html(grid_.corner)), cells(grid_.columns, "th")));
        for (const GridRow &line : grid_.rows)
            body += row(html(line.label, "th"), cells(line.cells, "td"));
        const std::string classes = joined(
            {grid_.isMatrix ? "matrix" : "table", grid_.isMatrix && first == 0 ? " opens" : "",
             grid_.isMatrix && end == lengths_.size() ? " closes" : "", setting_->classes});
        return element(joined({"table", attribute("class", classes)}),
                       head + element("tbody", body));
    }

    const Grid &grid_;
    const Setting *setting_ = nullptr;
    bool isLabelled_ = false;
    std::size_t labels_ = 0;           ///< length of the longest
    std::vector<std::size_t> lengths_; ///< of the columns
};

std::string html(const Grid &grid)
{
    return grid.columns.empty() ? "" : GridWriter(grid).text();
}

std::string html(const Links &links)
{
    std::string text = escaped(links.lead);
    for (const auto &[name, id] : links.links)
        text += (&name == &links.links.front().first ? " " : ", ") + linkTo(id, name);
    return element("p", text) + "\n";
}

std::string contents(const Document &document)
{
    std::string text;
    for (const Section &section : document.sections)
        text += element(section.level > 1 ? "li class=\"below\"" : "li",
                        linkTo(section.id, section.heading))
                + "\n";
    return element("nav", element("ul", "\n" + text)) + "\n";
}

} // namespace

int patternPixels(const Picture &pattern)
{
    constexpr int most = 480; // small matrices get 12 for each entry
    return std::min(most, 12 * pattern.size);
}

std::string patternSvg(const Picture &pattern)
{
    const std::string size = numberText(pattern.size), free = numberText(pattern.free);
    const std::string pixels = numberText(patternPixels(pattern));
    std::string path;
    for (auto entry = pattern.entries.begin(); entry != pattern.entries.end();) {
        const auto [row, first] = *entry;
        int end = first;
        while (entry != pattern.entries.end() && *entry == std::pair(row, end)) {
            ++entry;
            ++end;
        }
        const std::string width = numberText(end - first);
        path += joined(
            {"M", numberText(first - 1), " ", numberText(row - 1), "h", width, "v1h-", width, "z"});
    }
    const std::string line = numberText(pattern.size / 160.0);
    return joined({R"(<svg xmlns="http://www.w3.org/2000/svg" width=")",
                   pixels,
                   R"(" height=")",
                   pixels,
                   R"(" viewBox="0 0 )",
                   size,
                   " ",
                   size,
                   R"("><rect width=")",
                   size,
                   R"(" height=")",
                   size,
                   R"(" fill="#eceff1"/><rect width=")",
                   free,
                   R"(" height=")",
                   free,
                   R"(" fill="#ffffff"/><path d=")",
                   path,
                   R"(" fill="#000000"/><path fill="none" stroke="#d04000" stroke-width=")",
                   line,
                   R"(" d="M)",
                   free,
                   " 0V",
                   size,
                   "M0 ",
                   free,
                   "H",
                   size,
                   R"("/></svg>)"});
}

std::string stepsHtml(const Document &document, const DrawSvg &draw)
{
    const auto blockText = [&draw](const auto &block) {
        if constexpr (std::is_same_v<std::decay_t<decltype(block)>, Picture>) {
            const std::string image = joined({"<img", attribute("alt", block.caption), " src=\"",
                                              dataAddress(draw(block)), "\"/>"});
            return element("figure", image + element("figcaption", escaped(block.caption))) + "\n";
        } else {
            return html(block);
        }
    };
    std::string body = contents(document) + element("h1", escaped(document.title)) + "\n";
    for (const Section &section : document.sections) {
        std::string text =
            element(section.level > 1 ? "h3" : "h2", escaped(section.heading)) + "\n";
        for (const Block &block : section.blocks)
            text += std::visit(blockText, block);
        body += element(joined({"section", attribute("id", section.id)}), text) + "\n";
    }
    const std::string head = "<meta charset=\"utf-8\"/>" + element("title", escaped(document.title))
                             + element("style", style);
    const std::string root = joined(
        {"html xmlns=\"http://www.w3.org/1999/xhtml\"", attribute("lang", Metafrasi(1970, "en"))});
    const std::string parts =
        joined({"\n", element("head", head), "\n", element("body", body), "\n"});
    return joined({"<!DOCTYPE html>\n", element(root, parts), "\n"});
}

} // namespace veskora::steps
