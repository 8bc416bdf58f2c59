#include "ModelCheck.h"

#include "CorrectDigits.h"
#include "Equilibrium.h"
#include "FreeMotions.h"
#include "Metablites.h"
#include "ModelSlips.h"

#include <algorithm>
#include <iterator>

namespace veskora {

std::vector<Finding> checkModel()
{
    std::vector<Finding> findings = findMotions();
    if (Allagi_Montelou)
        findings.push_back({FindingKind::notAnalysed, Severity::note, {}, {}, {}, {}});
    else {
        findings.push_back(checkEquilibrium());
        findings.push_back(hasFreeMotion(findings)
                               ? Finding{FindingKind::digitsUnknown, Severity::note, {}, {}, {}, {}}
                               : checkDigits());
    }
    std::ranges::move(findSlips(), std::back_inserter(findings));
    return findings;
}

bool hasFreeMotion(const std::vector<Finding> &findings)
{
    return std::ranges::any_of(
        findings, [](const Finding &finding) { return finding.kind == FindingKind::freeMotion; });
}

} // namespace veskora
