#include "ModelCheck.h"

#include "CorrectDigits.h"
#include "epilisi.h"
#include "Equilibrium.h"
#include "FreeMotions.h"
#include "Metablites.h"
#include "ModelSlips.h"
#include "RowQueries.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace veskora {

namespace {

Finding bare(FindingKind kind)
{
    return {kind, Severity::note, {}, {}, {}, {}};
}

/// What there is to say of results, with the motions known.
std::vector<Finding> checkResults(bool movesFreely)
{
    std::vector<Finding> findings;
    if (const int freedom = excessiveFreedom(); freedom != 0 && !movesFreely)
        findings.push_back({FindingKind::excessiveDisplacement,
                            Severity::warning,
                            {nodeOfFreedom(freedom)},
                            {},
                            {},
                            std::abs(Metatopiseis(freedom))});
    findings.push_back(checkEquilibrium());
    findings.push_back(movesFreely ? bare(FindingKind::digitsUnknown) : checkDigits());
    return findings;
}

/// A node that the motions tell of as loose is no slip besides.
void dropTold(std::vector<Finding> &slips, const std::vector<Finding> &motions)
{
    const auto isTold = [&](int n) {
        return std::any_of(motions.begin(), motions.end(), [n](const Finding &finding) {
            const auto *motion = std::get_if<Motion>(&finding.facts);
            return motion != nullptr && motion->cause == Motion::Cause::noElement
                   && std::binary_search(finding.nodes.begin(), finding.nodes.end(), n);
        });
    };
    std::erase_if(slips, [&](Finding &slip) {
        return slip.kind == FindingKind::nodesWithoutElement
               && std::erase_if(slip.nodes, isTold) > 0 && slip.nodes.empty();
    });
}

} // namespace

std::vector<Finding> checkModel()
{
    if (Arithmos_Kombon == 0)
        return {bare(FindingKind::noNodes)};
    std::vector<Finding> findings = findMotions();
    std::vector<Finding> slips = findSlips();
    dropTold(slips, findings);
    const bool cannotBeAnalysed =
        !slips.empty() && slips.front().kind == FindingKind::brokenElements;
    const auto add = [&findings](std::vector<Finding> more) {
        std::move(more.begin(), more.end(), std::back_inserter(findings));
    };
    if (!Allagi_Montelou)
        add(checkResults(hasFreeMotion(findings)));
    else
        add({bare(Sfalma_Epilisis || cannotBeAnalysed ? FindingKind::analysisFailed
                                                      : FindingKind::notAnalysed)});
    add(std::move(slips));
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.severity < b.severity; });
    return findings;
}

namespace {

bool hasKind(const std::vector<Finding> &findings, FindingKind kind)
{
    return std::any_of(findings.begin(), findings.end(),
                       [kind](const Finding &finding) { return finding.kind == kind; });
}

} // namespace

bool hasFreeMotion(const std::vector<Finding> &findings)
{
    return hasKind(findings, FindingKind::freeMotion);
}

bool isUnstable(const std::vector<Finding> &findings)
{
    return hasKind(findings, FindingKind::unstable);
}

} // namespace veskora
