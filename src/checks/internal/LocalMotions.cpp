#include "LocalMotions.h"

#include "Metablites.h"
#include "RowQueries.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <tuple>

namespace veskora {

namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using Eigen::VectorXd;
using Rows = std::vector<Index>;

/// Below it an entry is none, beside 1 and after noise of some 1e-15.
constexpr double zero = 1e-10;

/// The parts of a space that have no freedom in common.
std::vector<Rows> parts(const MatrixXd &projector)
{
    std::vector<Index> parent(static_cast<std::size_t>(projector.rows()));
    std::iota(parent.begin(), parent.end(), 0);
    const auto root = [&](Index row) {
        while (parent[static_cast<std::size_t>(row)] != row)
            row = parent[static_cast<std::size_t>(row)] =
                parent[static_cast<std::size_t>(parent[static_cast<std::size_t>(row)])];
        return row;
    };
    for (Index column = 0; column < projector.cols(); ++column)
        for (Index row = 0; row < column; ++row)
            if (std::abs(projector(row, column)) > zero)
                parent[static_cast<std::size_t>(root(column))] = root(row);

    std::vector<Rows> byRoot(parent.size());
    for (Index row = 0; row < projector.rows(); ++row)
        if (projector(row, row) > zero)
            byRoot[static_cast<std::size_t>(root(row))].push_back(row);
    std::erase_if(byRoot, [](const Rows &rows) { return rows.empty(); });
    return byRoot;
}

/// The same space with a 1 in each column where all others have 0, at the first rows of @p order
/// that allow it.
MatrixXd reduced(MatrixXd space, const Rows &order)
{
    constexpr double pivotable = 1e-4;
    Index done = 0;
    for (const Index row : order) {
        if (done == space.cols())
            break;
        Index pivot = 0;
        if (space.row(row).tail(space.cols() - done).cwiseAbs().maxCoeff(&pivot) < pivotable)
            continue;
        space.col(done).swap(space.col(done + pivot));
        space.col(done) /= space(row, done);
        for (Index column = 0; column < space.cols(); ++column)
            if (column != done)
                space.col(column) -= space(row, column) * space.col(done);
        ++done;
    }
    return space;
}

/// One part of a space, the rows of its own.
class Part
{
public:
    Part(const MatrixXd &projector, const Rows &rows, const std::vector<std::size_t> &freedoms)
        : projector_(projector(rows, rows))
    {
        for (const Index row : rows)
            freedoms_.push_back(static_cast<int>(freedoms[static_cast<std::size_t>(row)]) + 1);
        const auto dimension = std::lround(projector_.trace());
        const Eigen::ColPivHouseholderQR<MatrixXd> factors(projector_);
        space_ = factors.householderQ() * MatrixXd::Identity(projector_.rows(), dimension);
    }

    std::vector<VectorXd> localMotions()
    {
        if (space_.cols() == 1)
            return {space_.col(0)};
        addAlongOneAxis();
        addOfSmallGroups();
        addReduced();
        return mostLocal();
    }

private:
    Rows rowsWhere(auto holds) const
    {
        Rows rows;
        for (std::size_t row = 0; row < freedoms_.size(); ++row)
            if (holds(freedoms_[row]))
                rows.push_back(static_cast<Index>(row));
        return rows;
    }

    /// Candidates that move nothing but @p rows: where the projector keeps a vector of theirs
    /// whole, that vector is in the space.
    void addWithin(const Rows &rows)
    {
        if (rows.empty())
            return;
        const Eigen::SelfAdjointEigenSolver<MatrixXd> solver(projector_(rows, rows));
        constexpr double whole = 1 - 1e-12; // outside lies the square root of the rest
        const Index count = (solver.eigenvalues().array() > whole).count();
        if (count == 0)
            return;
        Rows order(rows.size());
        std::iota(order.begin(), order.end(), 0);
        const MatrixXd inside = reduced(solver.eigenvectors().rightCols(count), order);
        for (Index column = 0; column < count; ++column) {
            VectorXd motion = VectorXd::Zero(projector_.rows());
            motion(rows) = inside.col(column);
            candidates_.push_back(motion);
        }
    }

    void addAlongOneAxis()
    {
        for (int k = 1; k <= 3; ++k)
            addWithin(rowsWhere([k](int freedom) { return componentOf(freedom) == k; }));
    }

    /// Of each node alone, with its neighbours, and with theirs.
    void addOfSmallGroups()
    {
        std::set<int> nodes;
        for (const int freedom : freedoms_)
            nodes.insert(nodeOfFreedom(freedom));
        constexpr int rings = 3;
        for (const int node : nodes) {
            std::set<int> group = {node};
            for (int ring = 0; ring < rings; ++ring) {
                addWithin(
                    rowsWhere([&](int freedom) { return group.contains(nodeOfFreedom(freedom)); }));
                std::set<int> wider = group;
                for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
                    const int i = nodeOf(e, element::nodeI), j = nodeOf(e, element::nodeJ);
                    if (group.contains(i) || group.contains(j))
                        wider.insert({i, j});
                }
                group = std::move(wider);
            }
        }
    }

    /// Bases that hold one node and its followers still but for one motion each; they complete what
    /// the groups leave out.
    void addReduced()
    {
        Rows order(freedoms_.size());
        std::iota(order.begin(), order.end(), 0);
        constexpr double most = 2e7; // multiplications, all bases together
        const double each = static_cast<double>(space_.cols() * space_.cols() * projector_.rows());
        const auto bases = static_cast<std::size_t>(
            std::clamp(most / each, 2.0, static_cast<double>(order.size())));
        const std::size_t step = (order.size() + bases - 1) / bases;
        for (std::size_t first = 0; first < order.size(); first += step) {
            const MatrixXd basis = reduced(space_, order);
            for (Index column = 0; column < basis.cols(); ++column)
                candidates_.emplace_back(basis.col(column));
            std::rotate(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(step),
                        order.end());
        }
    }

    /// Nodes and freedoms that a candidate moves.
    std::pair<std::size_t, std::size_t> extent(const VectorXd &motion) const
    {
        const double limit = 1e-9 * motion.cwiseAbs().maxCoeff();
        std::set<int> nodes;
        std::size_t moving = 0;
        for (std::size_t row = 0; row < freedoms_.size(); ++row)
            if (std::abs(motion(static_cast<Index>(row))) > limit) {
                nodes.insert(nodeOfFreedom(freedoms_[row]));
                ++moving;
            }
        return {nodes.size(), moving};
    }

    /// The smallest candidates that are independent of those before.
    std::vector<VectorXd> mostLocal() const
    {
        using Ranked = std::tuple<std::size_t, std::size_t, std::size_t>;
        std::vector<Ranked> ranked;
        for (std::size_t c = 0; c < candidates_.size(); ++c) {
            const auto [nodes, moving] = extent(candidates_[c]);
            ranked.emplace_back(nodes, moving, c);
        }
        std::sort(ranked.begin(), ranked.end());

        std::vector<VectorXd> chosen;
        MatrixXd directions(projector_.rows(), space_.cols()); // orthonormal, of those chosen
        for (const auto &[nodes, moving, c] : ranked) {
            const auto count = static_cast<Index>(chosen.size());
            if (count == space_.cols())
                break;
            VectorXd rest = candidates_[c].normalized();
            const auto before = directions.leftCols(count);
            rest -= before * (before.transpose() * rest);
            constexpr double independent = 1e-4;
            if (const double norm = rest.norm(); norm > independent) {
                directions.col(count) = rest / norm;
                chosen.push_back(candidates_[c]);
            }
        }
        return chosen;
    }

    MatrixXd projector_, space_;
    std::vector<int> freedoms_; ///< natural numbers, from 1
    std::vector<VectorXd> candidates_;
};

} // namespace

std::vector<VectorXd> localMotions(const MatrixXd &space, const std::vector<std::size_t> &freedoms)
{
    const MatrixXd projector = space * space.transpose();
    std::vector<VectorXd> all;
    for (const Rows &rows : parts(projector))
        for (const VectorXd &local : Part(projector, rows, freedoms).localMotions()) {
            VectorXd motion = VectorXd::Zero(projector.rows());
            motion(rows) = local;
            all.push_back(motion);
        }
    return all;
}

} // namespace veskora
