#include "StepsHtml.h"

#include "Functions.h"
#include "MathFunc.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace veskora::steps {

namespace {

// Wide matrices shrink, as a page has no more room; what fits one is not torn.
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
p.formula { margin-left: 2em; font-family: "Liberation Serif", "Times New Roman", serif; font-size: 17px; }
div.grid { margin: 1em 0; overflow-x: auto; break-inside: avoid; }
div.grid p.name { display: inline-block; vertical-align: middle; margin: 0 .5em 0 2em; }
table { border-collapse: collapse; display: inline-table; vertical-align: middle; }
td, th { padding: 2px 9px; text-align: right; white-space: nowrap; font-weight: normal; }
th { color: #5b656e; } th.held { color: #a04000; font-style: italic; }
td.held { background: #f3efe9; }
table.table td, table.table th { border: 1px solid #cfd4d9; }
table.table th { background: #f1f3f5; } table.table td.text { text-align: left; white-space: normal; }
table.matrix td:nth-child(2) { border-left: 2px solid #202428; }
table.matrix td:last-child { border-right: 2px solid #202428; }
td[title] { cursor: help; }
.wide { font-size: 12px; } .wide td, .wide th { padding: 1px 5px; }
.widest { font-size: 10px; } .widest td, .widest th { padding: 1px 3px; }
figure { margin: 1em 0; break-inside: avoid; } figcaption { color: #5b656e; font-size: 14px; }
figure img { max-width: 100%; height: auto; }
sub, sup { line-height: 0; }
h2, h3 { break-after: avoid; } p.formula, p.lead { break-after: avoid; }
@page { margin: 14mm; } @page across { size: landscape; }
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
    const std::string classes = cell.isHeld ? "held" : isText ? "text" : "";
    return element(joined({name, attribute("class", classes), attribute("title", cell.origin)}),
                   html(cell.text));
}

std::string html(const Paragraph &paragraph)
{
    const bool leads = paragraph.text.ends_with(':');
    return element(leads ? "p class=\"lead\"" : "p", escaped(paragraph.text)) + "\n";
}

std::string html(const Formula &formula)
{
    return element("p class=\"formula\"", html(formula.line)) + "\n";
}

std::string html(const Grid &grid)
{
    const auto isEmpty = [](const Cell &cell) { return cell.text.plainText().empty(); };
    const bool isLabelled = std::any_of(grid.rows.begin(), grid.rows.end(),
                                        [&](const GridRow &row) { return !isEmpty(row.label); });
    std::string text;
    if (!std::all_of(grid.columns.begin(), grid.columns.end(), isEmpty)) {
        std::string header = isLabelled ? element("th", html(grid.corner)) : "";
        for (const Cell &column : grid.columns)
            header += html(column, "th");
        text += element("tr", header) + "\n";
    }
    for (const GridRow &row : grid.rows) {
        std::string line = isLabelled ? html(row.label, "th") : "";
        for (const Cell &cell : row.cells)
            line += html(cell, "td");
        text += element("tr", line) + "\n";
    }
    constexpr std::size_t wide = 8, widest = 16; // columns that a page has room for
    const std::size_t columns = grid.columns.size();
    const std::string classes =
        joined({grid.isMatrix ? "matrix" : "table", columns > widest ? " widest"
                                                    : columns > wide ? " wide"
                                                                     : ""});
    const std::string name =
        grid.name.runs.empty() ? "" : element("p class=\"name\"", html(grid.name));
    return element(columns > widest ? "div class=\"grid across\"" : "div class=\"grid\"",
                   name + element(joined({"table", attribute("class", classes)}), text))
           + "\n";
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
