#include "Steps.h"

#include "Metablites.h"
#include "RowQueries.h"

#include <algorithm>

namespace veskora::steps {

namespace {

void keepExisting(std::vector<int> &rows, int last)
{
    std::erase_if(rows, [last](int row) { return row < 1 || row > last; });
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
}

} // namespace

std::string Line::plainText() const
{
    std::string text;
    for (const Run &run : runs)
        text += run.text;
    return text;
}

Line operator+(Line first, const Line &second)
{
    first.runs.insert(first.runs.end(), second.runs.begin(), second.runs.end());
    return first;
}

Choice completed(Choice wished)
{
    auto &[elements, nodes, digits] = wished;
    digits = std::clamp(digits, 1, mostDigits);
    keepExisting(elements, Arithmos_Stoixeion);
    keepExisting(nodes, Arithmos_Kombon);
    const auto all = [](int) { return true; };
    const bool isOpen = elements.empty() && nodes.empty();
    if (isOpen && Arithmos_Stoixeion <= wholeUpTo) {
        elements = rowsWhere(Arithmos_Stoixeion, all);
        nodes = rowsWhere(Arithmos_Kombon, all);
    } else if (isOpen) {
        elements = {1};
    }
    if (nodes.empty()) {
        for (const int e : elements)
            for (const int end : {element::nodeI, element::nodeJ})
                nodes.push_back(nodeOf(e, end));
        keepExisting(nodes, Arithmos_Kombon);
    }
    return wished;
}

} // namespace veskora::steps
