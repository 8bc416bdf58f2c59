#include "FreeMotions.h"

#include "LocalMotions.h"
#include "MotionKind.h"
#include "Relative.h"
#include "ScaledStiffness.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <random>

namespace veskora {

namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using Eigen::VectorXd;
using std::abs;

/// Eigenvectors of one kind, and the smallest of their eigenvalues.
struct Space
{
    MatrixXd vectors;
    double smallest = 1;
};

struct Spaces
{
    Space free, nearlyFree, unstable;
    double smallest = 1; ///< eigenvalue of the sound ones
};

/// How large an eigenvalue may become by the rounding of coordinates alone.
double roundingLimit(const ScaledStiffness &stiffness)
{
    double limit = 0;
    for (const auto &member : stiffness.members())
        limit = std::max(limit, static_cast<double>(coordinateRounding(member) / member.length));
    constexpr double several = 4;
    return several * limit * limit;
}

Spaces eigenspaces(const ScaledStiffness &stiffness)
{
    const MatrixXd K = stiffness.matrix().cast<double>();
    Eigen::SelfAdjointEigenSolver<MatrixXd> solver(K, Eigen::EigenvaluesOnly);
    Spaces spaces;
    spaces.smallest = solver.eigenvalues()(0);
    const double doubtful = std::max(doubtfulBelow, roundingLimit(stiffness));
    if (spaces.smallest >= doubtful)
        return spaces; // vectors cost four times the values

    solver.compute(K);
    std::vector<Index> free, nearlyFree, unstable;
    const auto keep = [](Space &space, std::vector<Index> &columns, Index k, double value) {
        space.smallest = std::min(space.smallest, value);
        columns.push_back(k);
    };
    spaces.smallest = 1;
    for (Index k = 0; k < K.cols(); ++k) {
        double value = solver.eigenvalues()(k);
        const VectorXd vector = solver.eigenvectors().col(k);
        if (value < doubtful)
            value = static_cast<double>(stiffness.quotient(vector));
        if (value <= -freeBelow)
            keep(spaces.unstable, unstable, k, value);
        else if (value < freeBelow)
            keep(spaces.free, free, k, value);
        else if (value < nearlyFreeBelow
                 || (value < doubtful && stiffness.isStrainedByRounding(vector)))
            keep(spaces.nearlyFree, nearlyFree, k, value);
        else
            spaces.smallest = std::min(spaces.smallest, value);
    }
    spaces.free.vectors = solver.eigenvectors()(Eigen::all, free);
    spaces.nearlyFree.vectors = solver.eigenvectors()(Eigen::all, nearlyFree);
    spaces.unstable.vectors = solver.eigenvectors()(Eigen::all, unstable);
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

    void addLocal(FindingKind kind, const Space &space)
    {
        if (space.vectors.cols() == 1) {
            add(described(kind, space.vectors.col(0), space.smallest));
            return;
        }
        for (const VectorXd &motion : localMotions(space.vectors, stiffness_.freedoms()))
            add(described(kind, motion, space.smallest));
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
    Finding described(FindingKind kind, const VectorXd &scaled, double eigenvalue) const
    {
        Finding finding =
            describedMotion(kind, stiffness_.displacements(scaled), stiffness_.members());
        std::get<Motion>(finding.facts).eigenvalue = eigenvalue;
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

/// Whether the loads do work on a motion that strains nothing: along its elements it is linear.
/// Beside the whole motion its noise across the loads is nothing.
bool doLoadsWork(const ExtendedVector &u, const std::vector<Member<Extended>> &members)
{
    const Extended length = longest(members);
    Extended farthest = 0; // what turns counts by what it moves at a member's length
    for (int freedom = 1; freedom <= 3 * Arithmos_Kombon; ++freedom)
        farthest = std::max(
            farthest, Extended(abs(u(freedom - 1)) * (componentOf(freedom) == 3 ? length : 1)));
    Extended work = 0, size = 0;
    const auto add = [&](int k, Extended load, Extended displacement) {
        work += load * displacement;
        size += abs(load) * farthest / (k == 3 ? length : 1);
    };
    for (int n = 1; n <= Arithmos_Kombon; ++n)
        for (int k = 1; k <= 3; ++k)
            add(k, Komboi(n, node::Fx - 1 + k), u(freedomOf(n, k) - 1));
    for (const auto &member : members)
        for (int k = 1; k <= 2; ++k)
            add(k, member.length * Extended(Stoixeia(member.e, element::wx - 1 + k)),
                (u(freedomOf(member.nodeI, k) - 1) + u(freedomOf(member.nodeJ, k) - 1)) / 2);
    constexpr double noise = 1e-9;
    return abs(work) > Extended(noise) * size;
}

} // namespace

std::vector<Finding> findMotions()
{
    const ScaledStiffness stiffness;
    Motions motions(stiffness);
    motions.addLoose();
    Finding sound = {FindingKind::noFreeMotion, Severity::good, {}, {}, {}, {}};
    if (stiffness.size() > 0) {
        Spaces spaces = eigenspaces(stiffness);
        spaces.free.vectors = refined(spaces.free.vectors, stiffness);
        motions.addLocal(FindingKind::freeMotion, spaces.free);
        motions.addLocal(FindingKind::unstable, spaces.unstable);
        motions.addLocal(FindingKind::nearlyFree, spaces.nearlyFree);
        sound.facts = spaces.smallest;
    }
    std::vector<Finding> found = motions.take();
    return found.empty() ? std::vector{sound} : found;
}

FreeMotion quickTest()
{
    const ScaledStiffness stiffness;
    FreeMotion found = FreeMotion::none;
    for (const std::size_t freedom : stiffness.loose()) {
        ExtendedVector u = ExtendedVector::Zero(3 * Arithmos_Kombon);
        u(static_cast<Index>(freedom)) = 1;
        found = std::max(found, doLoadsWork(u, stiffness.members()) ? FreeMotion::loaded
                                                                    : FreeMotion::unloaded);
    }
    if (stiffness.size() == 0)
        return found;
    // Inverse iteration about -1e-13: a free motion grows a thousand times as fast as any that is
    // not in doubt. A pivot of exactly 0, as negative stiffnesses may leave, is moved off.
    double shift = freeBelow;
    Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> factors;
    do {
        factors.compute(shifted<double>(stiffness.matrix(), shift));
        shift *= 1.5;
    } while (factors.info() != Eigen::Success && shift < 10 * freeBelow);
    if (factors.info() != Eigen::Success)
        return found;
    // As many negative pivots as eigenvalues (Sylvester).
    const bool isUnstable = (factors.vectorD().array() < 0).any();
    std::mt19937 random(1);
    VectorXd x(stiffness.size());
    for (double &entry : x)
        entry = static_cast<double>(random()) / static_cast<double>(std::mt19937::max()) - 0.5;
    constexpr int steps = 4;
    for (int step = 0; step < steps; ++step)
        x = factors.solve(x).eval().normalized();
    if (abs(stiffness.quotient(x)) < Extended(freeBelow))
        found = std::max(found, doLoadsWork(stiffness.displacements(x), stiffness.members())
                                    ? FreeMotion::loaded
                                    : FreeMotion::unloaded);
    return found == FreeMotion::none && isUnstable ? FreeMotion::unstable : found;
}

} // namespace veskora
