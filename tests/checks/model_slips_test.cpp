#include "Files.h"
#include "Models.h"
#include "ModelSlips.h"
#include "ScriptedDesktop.h"

#include <filesystem>
#include <sstream>

namespace veskora {
namespace {

using Slips = StoreTest;

/// As "kind: n1 n2 e3 g4, 1-3; " for each.
std::string slips()
{
    static constexpr std::array names = {"broken", "lone nodes", "on element",    "crossing",
                                         "nodes",  "elements",   "support loads", "held alone",
                                         "groups", "stiffness",  "short",         "none"};
    std::ostringstream text;
    for (const auto &[kind, severity, nodes, elements, groups, facts] : findSlips()) {
        text << names.at(static_cast<std::size_t>(kind)
                         - static_cast<std::size_t>(FindingKind::brokenElements))
             << ":";
        for (const auto &[letter, rows] :
             {std::pair{" n", nodes}, {" e", elements}, {" g", groups}})
            for (const int row : rows)
                text << letter << row;
        if (const auto *pairs = std::get_if<Pairs>(&facts))
            for (const auto &[first, second] : *pairs)
                text << ", " << first << "-" << second;
        if (const auto *ratio = std::get_if<double>(&facts))
            text << ", " << *ratio;
        text << "; ";
    }
    return text.str();
}

TEST_F(Slips, AreToldWithTheirRows)
{
    const std::string group = "G 1 1 1;", beam = group + "N 0 0 xxx; N 8 0; E 1 2 1;";
    const std::string slope = group + "N 1000 2000; N 1003 2004; E 1 2 1;";
    using Case = std::pair<std::string, const char *>;
    for (const auto &[model, says] : {
             Case{beam, "none:; "},
             {"", "none:; "},
             {beam + "E 2 9 1; E 9 9 1; E 1 2 5; E 1 1 1; N 0 0; E 1 3 1",
              "broken: e2 e3 e4 e5 e6; nodes: n1 n3, 1-3; "},
             {beam + "N 3 3", "lone nodes: n3; "},
             // On the axis, within the tolerance or not, and beside the ends.
             {beam + "N 3 .0009; N 4 1; E 3 4 1", "on element: n3 e1, 3-1; "},
             {beam + "N 3 .0011; N 4 1; E 3 4 1", "none:; "},
             {beam + "N 8.0009 0; N 9 0; E 3 4 1", "nodes: n2 n3, 2-3; "},
             {slope + "N 1001.5 2002; N 1000 2004; E 3 4 1", "on element: n3 e1, 3-1; "},
             {beam + "N 3 0; N 9 0; E 3 4 1", "on element: n2 n3 e1 e2, 2-2, 3-1; "},
             // Crossing inside both, beside an end, past an end, at a common node.
             {beam + "N 3 -.01; N 4 1; E 3 4 1", "crossing: e1 e2, 1-2; "},
             {slope + "N 1000 2004; N 1003 2000; E 3 4 1", "crossing: e1 e2, 1-2; "},
             {beam + "N 8.0005 -.0005; N 8 1; E 3 4 1", "nodes: n2 n3, 2-3; "},
             {beam + "N 8.1 -1; N 8.1 1; E 3 4 1", "none:; "},
             {beam + "N 4 1; E 2 3 1; N 4 2; E 4 1 1", "none:; "},
             {group + "N 0 0 xxo 5 0 0; N 8 0 ooo 0 5 0; N 9 0 oxo 0 5 5; E 1 2 1; E 2 3 1",
              "support loads: n1 n3; "},
             {group + "N 0 0 oox; N 8 0 oox; N 9 0 xox; E 1 2 1 1 0; E 2 3 1", "held alone: n2; "},
             {"G 1 1 1;" + beam + "G 1 1 1; E 2 1 3", "elements: e1 e2, 1-2; groups: g2; "},
             // E A / L with E A / L, E I / L with E I / L where something bends.
             {beam + "G 1e9 1 1; N 8 8; E 2 3 2", "stiffness: e1 e2, 1e+09; "},
             {beam + "G 1 1e5 1e-5; N 8 8; E 2 3 2", "none:; "},
             {beam + "G -1 1 1e-10; N 8 8; E 3 2 2 0 1", "stiffness: e1 e2, 1e+10; "},
             {beam + "G 1 1 1e-10; N 8 8; E 3 2 2 1 1", "none:; "},
             {beam + "N 8 .007; E 2 3 1", "short: e2; "},
             {beam + "N 8 .009; E 2 3 1", "none:; "},
         }) {
        SCOPED_TRACE(model);
        buildModel(model);
        EXPECT_EQ(slips(), says);
    }
}

TEST_F(Slips, WellMadeModelsHaveNone)
{
    for (const auto &entry : std::filesystem::recursive_directory_iterator(EXAMPLES))
        if (std::string file = entry.path(); entry.path().extension() == ".vsk") {
            ASSERT_TRUE(Anagnosi_Arxeiou(file));
            const bool showsAllSupports = entry.path().stem() == "supports";
            EXPECT_EQ(slips(), showsAllSupports ? "held alone: n3; " : "none:; ") << file;
        }
}

} // namespace
} // namespace veskora
