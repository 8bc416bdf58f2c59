#include "DataCases.h"
#include "Files.h"
#include "Models.h"
#include "ModelSlips.h"
#include "ScriptedDesktop.h"

#include <filesystem>
#include <sstream>

namespace veskora {
namespace {

using Slips = StoreTest;

/// As "kind: n1 n2 e3 g4, 1-3" for each.
std::string slips()
{
    static constexpr std::array names = {"broken", "lone nodes", "on element",    "crossing",
                                         "nodes",  "elements",   "support loads", "held alone",
                                         "groups", "stiffness",  "short",         "none"};
    std::ostringstream text;
    for (const auto &[kind, severity, nodes, elements, groups, facts] : findSlips()) {
        text << (text.tellp() > 0 ? "; " : "")
             << names.at(static_cast<std::size_t>(kind)
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
    }
    return text.str();
}

TEST_F(Slips, AreToldWithTheirRows)
{
    for (const auto &[model, says] : dataCases("slips.txt")) {
        buildModel(model);
        EXPECT_EQ(slips(), says) << model;
    }
}

TEST_F(Slips, WellMadeModelsHaveNone)
{
    for (const auto &entry : std::filesystem::recursive_directory_iterator(EXAMPLES))
        if (std::string file = entry.path(); entry.path().extension() == ".vsk") {
            ASSERT_TRUE(Anagnosi_Arxeiou(file));
            const bool showsAllSupports = entry.path().stem() == "supports";
            EXPECT_EQ(slips(), showsAllSupports ? "held alone: n3" : "none:") << file;
        }
}

} // namespace
} // namespace veskora
