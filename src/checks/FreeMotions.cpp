#include "FreeMotions.h"

#include "LocalMotions.h"
#include "MotionKind.h"
#include "ScaledStiffness.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <random>

namespace veskora {

namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using Eigen::VectorXd;

/// The eigenvectors that are no sound ones, by what they are.
struct Spaces
{
    MatrixXd free, nearlyFree, unstable;
    double smallest = 1; ///< eigenvalue of the sound ones
};

MatrixXd columns(const MatrixXd &matrix, const std::vector<Index> &chosen)
{
    return matrix(Eigen::all, chosen);
}

Spaces eigenspaces(const ScaledStiffness &stiffness)
{
    const MatrixXd K = stiffness.matrix().cast<double>();
    Eigen::SelfAdjointEigenSolver<MatrixXd> solver(K, Eigen::EigenvaluesOnly);
    Spaces spaces;
    spaces.smallest = solver.eigenvalues()(0);
    if (spaces.smallest >= doubtfulBelow)
        return spaces; // vectors cost four times the values

    solver.compute(K);
    std::vector<Index> free, nearlyFree, unstable;
    spaces.smallest = 1;
    for (Index k = 0; k < K.cols(); ++k) {
        double value = solver.eigenvalues()(k);
        if (value < doubtfulBelow)
            value = static_cast<double>(stiffness.quotient(solver.eigenvectors().col(k)));
        if (value <= -freeBelow)
            unstable.push_back(k);
        else if (value < freeBelow)
            free.push_back(k);
        else if (value < nearlyFreeBelow)
            nearlyFree.push_back(k);
        else
            spaces.smallest = std::min(spaces.smallest, value);
    }
    spaces.free = columns(solver.eigenvectors(), free);
    spaces.nearlyFree = columns(solver.eigenvectors(), nearlyFree);
    spaces.unstable = columns(solver.eigenvectors(), unstable);
    return spaces;
}

using ExtendedMatrix = Eigen::SparseMatrix<Extended>;

template <typename Scalar>
Eigen::SparseMatrix<Scalar> shifted(const ExtendedMatrix &K, double shift)
{
    Eigen::SparseMatrix<Scalar> sum = K.cast<Scalar>();
    Eigen::SparseMatrix<Scalar> identity(K.rows(), K.cols());
    identity.setIdentity();
    sum += static_cast<Scalar>(shift) * identity;
    return sum;
}

/// The space of the smallest eigenvalues, freed by a step of inverse iteration in extended
/// precision from what rounding has mixed into it; what local motions are told by are its zeros.
MatrixXd refined(const MatrixXd &space, const ScaledStiffness &stiffness)
{
    if (space.cols() == 0)
        return space;
    constexpr double shift = 1e-15;
    const Eigen::SimplicialLDLT<ExtendedMatrix> factors(
        shifted<Extended>(stiffness.matrix(), shift));
    if (factors.info() != Eigen::Success)
        return space;
    const Eigen::Matrix<Extended, Eigen::Dynamic, Eigen::Dynamic> solved =
        factors.solve(space.cast<Extended>());
    const MatrixXd cleaned = solved.colwise().normalized().cast<double>();
    const Eigen::HouseholderQR<MatrixXd> orthonormal(cleaned);
    return orthonormal.householderQ() * MatrixXd::Identity(space.rows(), space.cols());
}

// -------------------------------------------------------------------------------- many told as one

/// Where both have one shape, one cause, and one direction if they are shifts.
bool areOfOneKind(const Finding &a, const Finding &b)
{
    const auto &first = std::get<Motion>(a.facts), &second = std::get<Motion>(b.facts);
    constexpr double parallel = 1 - 1e-6;
    return a.kind == b.kind && first.cause == second.cause && first.shape == second.shape
           && (first.shape != Motion::Shape::shift
               || std::abs(first.x * second.x + first.y * second.y) > parallel);
}

/// Where both move single nodes, each in the same way.
bool areAlike(const Finding &a, const Finding &b)
{
    const auto &first = std::get<Motion>(a.facts), &second = std::get<Motion>(b.facts);
    if (first.moves.size() > static_cast<std::size_t>(first.count) || second.moves.size() != 1)
        return false;
    if (first.cause == Motion::Cause::noElement) // such a node goes every way
        return a.kind == b.kind && second.cause == Motion::Cause::noElement;
    return first.shape != Motion::Shape::turn && a.groups == b.groups && areOfOneKind(a, b);
}

void join(std::vector<int> &rows, const std::vector<int> &more)
{
    std::vector<int> all;
    std::set_union(rows.begin(), rows.end(), more.begin(), more.end(), std::back_inserter(all));
    rows = std::move(all);
}

void join(Finding &finding, const Finding &other)
{
    join(finding.nodes, other.nodes);
    join(finding.elements, other.elements);
    join(finding.groups, other.groups);
    auto &motion = std::get<Motion>(finding.facts);
    const auto &more = std::get<Motion>(other.facts);
    motion.count += more.count;
    motion.eigenvalue = std::min(motion.eigenvalue, more.eigenvalue);
    for (const Motion::Move &move : more.moves)
        if (std::none_of(motion.moves.begin(), motion.moves.end(),
                         [&](const Motion::Move &known) { return known.node == move.node; }))
            motion.moves.push_back(move);
    const double sign = motion.x * more.x + motion.y * more.y < 0 ? -1 : 1;
    for (std::size_t k = 0; k < motion.displacements.size(); ++k)
        motion.displacements[k] += sign * more.displacements[k];
}

/// The motions of a model, gathered one after the other.
class Motions
{
public:
    explicit Motions(const ScaledStiffness &stiffness) : stiffness_(stiffness) {}

    void addLoose()
    {
        for (const std::size_t freedom : stiffness_.loose()) {
            ExtendedVector u = ExtendedVector::Zero(3 * Arithmos_Kombon);
            u(static_cast<Index>(freedom)) = 1;
            add(describedMotion(FindingKind::freeMotion, u, stiffness_.members()));
        }
    }

    void addLocal(FindingKind kind, const MatrixXd &space)
    {
        for (const VectorXd &motion : localMotions(space, stiffness_.freedoms()))
            add(described(kind, motion));
    }

    /// Those of an indefinite stiffness share no eigenspace: the first stands for all.
    void addUnstable(const MatrixXd &space)
    {
        if (space.cols() == 0)
            return;
        Finding finding = described(FindingKind::unstable, space.col(0));
        std::get<Motion>(finding.facts).count = static_cast<int>(space.cols());
        findings_.push_back(std::move(finding));
    }

    /// Where many are of one shape and cause, no list of them would be read.
    std::vector<Finding> take()
    {
        constexpr std::ptrdiff_t many = 6;
        std::vector<Finding> few;
        for (const Finding &finding : findings_) {
            const auto isSame = [&](const Finding &other) { return areOfOneKind(other, finding); };
            const auto known = std::find_if(few.begin(), few.end(), isSame);
            if (known != few.end()
                && std::count_if(findings_.begin(), findings_.end(), isSame) >= many)
                join(*known, finding);
            else
                few.push_back(finding);
        }
        return few;
    }

private:
    Finding described(FindingKind kind, const VectorXd &scaled) const
    {
        Finding finding =
            describedMotion(kind, stiffness_.displacements(scaled), stiffness_.members());
        std::get<Motion>(finding.facts).eigenvalue =
            static_cast<double>(stiffness_.quotient(scaled));
        return finding;
    }

    void add(Finding finding)
    {
        const auto alike =
            std::find_if(findings_.begin(), findings_.end(),
                         [&](const Finding &known) { return areAlike(known, finding); });
        if (alike != findings_.end())
            join(*alike, finding);
        else
            findings_.push_back(std::move(finding));
    }

    const ScaledStiffness &stiffness_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> findMotions()
{
    const ScaledStiffness stiffness;
    Motions motions(stiffness);
    motions.addLoose();
    Finding sound = {FindingKind::noFreeMotion, Severity::good, {}, {}, {}, {}};
    if (stiffness.size() > 0) {
        const Spaces spaces = eigenspaces(stiffness);
        motions.addLocal(FindingKind::freeMotion, refined(spaces.free, stiffness));
        motions.addUnstable(spaces.unstable);
        motions.addLocal(FindingKind::nearlyFree, spaces.nearlyFree);
        sound.facts = spaces.smallest;
    }
    std::vector<Finding> found = motions.take();
    return found.empty() ? std::vector{sound} : found;
}

bool canMoveFreely()
{
    const ScaledStiffness stiffness;
    if (!stiffness.loose().empty())
        return true;
    if (stiffness.size() == 0)
        return false;
    // Inverse iteration about -1e-13: a free motion grows a thousand times as fast as any that is
    // not at least nearly free.
    const auto K = shifted<double>(stiffness.matrix(), freeBelow);
    const Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> factors(K);
    if (factors.info() != Eigen::Success) { // a pivot of exactly 0, which may mean nothing
        const std::vector<Finding> found = findMotions();
        return std::any_of(found.begin(), found.end(), [](const Finding &finding) {
            return finding.kind == FindingKind::freeMotion;
        });
    }
    std::mt19937 random(1);
    VectorXd x(stiffness.size());
    for (double &entry : x)
        entry = static_cast<double>(random()) / static_cast<double>(std::mt19937::max()) - 0.5;
    constexpr int steps = 4;
    for (int step = 0; step < steps; ++step)
        x = factors.solve(x).eval().normalized();
    const auto value = static_cast<double>(stiffness.quotient(x));
    return std::abs(value) < freeBelow;
}

} // namespace veskora
