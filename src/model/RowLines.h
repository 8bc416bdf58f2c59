#pragma once
/// @file
/// What the log says of a row that was added or changed, in the same words wherever that was done.

#include <span>
#include <string>

namespace veskora {

void logNode(int n, bool isNew);
void logElement(int e, bool isNew);

/// The beginnings of the lines about loads; a row number goes behind each.
struct LoadWords
{
    std::string isNew, changed, erased;
};
LoadWords elementalLoadWords();

/// @param loads  those that row @p row has now: Fx, Fy and where there is one M
/// @param wasLoaded  whether it had any before
/// @return empty for a row without loads before and after
std::string loadsLine(const LoadWords &words, int row, std::span<const float> loads,
                      bool wasLoaded);

} // namespace veskora
