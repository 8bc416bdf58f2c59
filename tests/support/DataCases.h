#pragma once
/// @file
/// Cases that stand in the files of tests/data/: what is given and what is expected.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace veskora {

/// What stands before and behind "=>" on each line of the file @p name; those that begin with "#"
/// are for the reader.
inline std::vector<std::pair<std::string, std::string>> dataCases(const std::string &name)
{
    std::ifstream file(TEST_DATA "/" + name);
    std::vector<std::pair<std::string, std::string>> cases;
    for (std::string line; std::getline(file, line);)
        if (const auto arrow = line.find("=>"); !line.empty() && line[0] != '#') {
            EXPECT_NE(arrow, std::string::npos) << name << ": " << line;
            cases.emplace_back(line.substr(0, line.find_last_not_of(' ', arrow - 1) + 1),
                               line.substr(std::min(line.size(), arrow + 3)));
        }
    EXPECT_FALSE(cases.empty()) << name;
    return cases;
}

} // namespace veskora
