#pragma once
/// @file
/// The analysis as plain loops in their stated order, on tables created afresh at full size: what
/// the engine's numbers are held against, bit by bit, and its speed in the benchmarks.
///
/// Written from the formulas alone; it shares nothing with the engine but the model tables.

#include <vector>

namespace veskora::literal {

/// A table of Doubles counted from 1.
class Table
{
public:
    explicit Table(int rows, int columns = 1)
        : columns_(columns),
          cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns))
    {}
    double &operator()(int row, int column = 1)
    {
        return cells_[static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns_)
                      + static_cast<std::size_t>(column - 1)];
    }
    double operator()(int row, int column = 1) const
    {
        return const_cast<Table &>(*this)(row, column);
    }

private:
    int columns_;
    std::vector<double> cells_;
};

/// Gauss elimination without pivoting over the first @p n rows; @p A and @p b are destroyed.
/// @return false on a zero divisor or a result that is infinite or not a number
bool eliminate(Table &A, Table &b, Table &x, int n);

struct Results
{
    bool solved = false;
    Table displacements{600};
    Table endForces{300, 6};
    Table reactions{200, 3};
};

/// One element; rows and columns from 1. `fixedEnd` in global axes.
struct Element
{
    int ni, nj;
    double L, T[7][7], K[7][7], global[7][7], fixedEnd[7];
};
Element elementOf(int e);

/// The assembled equations of the model in the store.
struct Equations
{
    int free = 0;
    Table whole{600, 600}, permuted{600, 600};
    Table ff{600, 601}, fs{600, 600}, sf{600, 600}, ss{600, 600};
    Table loads{600}, order{600};
};
Equations assemble();

/// Analyses the model of the store.
Results analyse();

} // namespace veskora::literal
