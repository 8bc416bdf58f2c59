// Published problems and closed forms: the numbers that an engineer can look up.

#include "Analysis.h"

#include <algorithm>
#include <cmath>

namespace veskora {
namespace {

using Verification = StoreTest;

/// How far a result may be from a @p published one, relative: what its @p problem says, else half a
/// unit of the last digit.
double tolerance(const std::string &problem, const std::string &published)
{
    const std::string within = "Compare within ";
    const auto stated = problem.find(within);
    if (stated != std::string::npos
        && problem.find(published + " is published rounded") == std::string::npos)
        return std::stod(problem.substr(stated + within.size())) / 100;
    const std::string mantissa = published.substr(0, published.find_first_of("eE"));
    const auto point = std::min(mantissa.find('.'), mantissa.size() - 1);
    const auto decimals = static_cast<double>(mantissa.size() - 1 - point);
    return 0.5 * std::pow(10, -decimals) / std::abs(std::stod(mantissa));
}

// A blank line parts the problems of a file; what stands before the first has no values.
TEST_F(Verification, ResultsAreThoseOfBooksAndFormulas)
{
    for (const std::string file : {"problems", "closed_forms", "classroom", "formulas"}) {
        const std::string content = contentOf(TEST_DATA "/" + file + ".txt");
        std::size_t values = 0;
        for (std::size_t at = 0, end = 0; end != std::string::npos; at = end + 2) {
            end = content.find("\n\n", at);
            const std::string problem = content.substr(at, end - at);
            const std::vector<Expectation> expectations = buildModel(problem);
            if (expectations.empty())
                continue;
            analyse();
            for (const auto &expected : expectations)
                EXPECT_LE(std::abs(expected.found() / std::stod(expected.value) - 1),
                          tolerance(problem, expected.value))
                    << problem.substr(0, problem.find('\n')) << ": " << expected.table << " "
                    << expected.row << " " << expected.column << " is " << expected.found()
                    << ", published " << expected.value;
            values += expectations.size();
        }
        EXPECT_GT(values, 20U) << file;
    }
}

} // namespace
} // namespace veskora
