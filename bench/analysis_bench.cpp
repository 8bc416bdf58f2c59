// The elimination and the whole analysis beside the plain loops, on frames at the limit.

#include "BenchDesktop.h"
#include "elimination.h"
#include "epilisi.h"
#include "LiteralSolver.h"
#include "Models.h"

#include <benchmark/benchmark.h>
#include <Eigen/Sparse>

#include <string>

namespace veskora {
namespace {

enum class Numbering { storey, shuffled };

void buildFrame(Numbering numbering)
{
    buildStoreyFrame();
    std::mt19937 random(1);
    if (numbering == Numbering::shuffled)
        shuffleNodes(random);
}

/// The free equations of the frame, assembled.
struct Equations
{
    explicit Equations(Numbering numbering)
    {
        buildFrame(numbering);
        for (int e = 1; e <= Arithmos_Stoixeion; ++e) {
            Ipologismos_T(e);
            Ipologismos_K_Topiko(e);
            Ipologismos_K_Stoixeiou();
            Synthesi_K(e);
            Ipologismos_F_Pakton(e);
            Synthesi_P(e);
        }
        Arithmisi_Vathmon();
        Diamerisi_K();
        Dexi_Meli();
        n = Eleftheroi_Vathmoi;
        b.assign(&P_Eleftheroi(1), &P_Eleftheroi(1) + n);
    }

    int n = 0;
    std::vector<double> b;
};

void eliminationLiteral(benchmark::State &state, Numbering numbering)
{
    const BenchDesktop desktop;
    const Equations equations(numbering);
    literal::Table given(600, 601), x(600);
    for (int row = 1; row <= equations.n; ++row)
        for (int column = 1; column <= equations.n; ++column)
            given(row, column) = std::as_const(K_ff)(row, column);
    for (auto _ : state) {
        state.PauseTiming();
        literal::Table A = given;
        literal::Table b(600);
        for (int k = 1; k <= equations.n; ++k)
            b(k) = equations.b[static_cast<std::size_t>(k - 1)];
        state.ResumeTiming();
        if (!literal::eliminate(A, b, x, equations.n))
            state.SkipWithError("the equations could not be solved");
    }
}

void elimination(benchmark::State &state, Numbering numbering)
{
    const BenchDesktop desktop;
    const Equations equations(numbering);
    std::vector<double> x(equations.b.size());
    for (auto _ : state) {
        state.PauseTiming();
        Diamerisi_K();
        std::vector<double> b = equations.b;
        state.ResumeTiming();
        solveSymmetric(K_ff, b, x);
        benchmark::DoNotOptimize(x.data());
    }
}

void analysisLiteral(benchmark::State &state, Numbering numbering)
{
    const BenchDesktop desktop;
    buildFrame(numbering);
    for (auto _ : state)
        benchmark::DoNotOptimize(literal::analyse());
}

void analysis(benchmark::State &state, Numbering numbering)
{
    const BenchDesktop desktop;
    buildFrame(numbering);
    for (auto _ : state) {
        Epilisi();
        benchmark::DoNotOptimize(&Metatopiseis(1));
    }
    if (Sfalma_Epilisis)
        state.SkipWithError("the frame could not be analysed");
}

/// Ordering, factorisation and solution; the matrix is filled before.
void eigenSparse(benchmark::State &state, Numbering numbering)
{
    const BenchDesktop desktop;
    const Equations equations(numbering);
    std::vector<Eigen::Triplet<double>> entries;
    for (int row = 1; row <= equations.n; ++row)
        for (int column = 1; column <= equations.n; ++column)
            if (const double value = std::as_const(K_ff)(row, column); value != 0)
                entries.emplace_back(row - 1, column - 1, value);
    Eigen::SparseMatrix<double> A(equations.n, equations.n);
    A.setFromTriplets(entries.begin(), entries.end());
    const Eigen::VectorXd b = Eigen::Map<const Eigen::VectorXd>(equations.b.data(), equations.n);
    for (auto _ : state) {
        const Eigen::SimplicialLLT<Eigen::SparseMatrix<double>> solver(A);
        const Eigen::VectorXd x = solver.solve(b);
        benchmark::DoNotOptimize(x.data());
    }
}

void analysisOfStoreys(benchmark::State &state, int levels)
{
    const BenchDesktop desktop;
    buildStoreys(levels);
    for (auto _ : state)
        Epilisi();
}
BENCHMARK_CAPTURE(analysisOfStoreys, small, 7)
    ->Name("analysis/56_nodes")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(analysisOfStoreys, medium, 13)
    ->Name("analysis/104_nodes")
    ->Unit(benchmark::kMicrosecond);

const bool registered = [] {
    struct Entry
    {
        const char *name;
        void (*run)(benchmark::State &, Numbering);
    };
    for (const Entry &entry : {Entry{"elimination_literal", eliminationLiteral},
                               {"elimination", elimination},
                               {"eigen_sparse", eigenSparse},
                               {"analysis_literal", analysisLiteral},
                               {"analysis", analysis}})
        for (const Numbering numbering : {Numbering::storey, Numbering::shuffled})
            benchmark::RegisterBenchmark(
                (std::string(entry.name)
                 + (numbering == Numbering::storey ? "/storey" : "/shuffled"))
                    .c_str(),
                entry.run, numbering)
                ->Unit(benchmark::kMicrosecond);
    return true;
}();

} // namespace
} // namespace veskora
