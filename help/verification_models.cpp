// Makes the models of examples/ that problems with known answers describe.
//   veskora_verification_models DIR PROBLEMS.txt...           writes them
//   veskora_verification_models --check DIR PROBLEMS.txt...   tells whether they are up to date

#include "BatchDesktop.h"
#include "epilisi.h"
#include "FileSystem.h"
#include "Functions_Bres_Megista.h"
#include "ImageKanvas.h"
#include "Metablites.h"
#include "Models.h"
#include "ModelText.h"
#include "Registry.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <QGuiApplication>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <sstream>

namespace fs = std::filesystem;
using namespace veskora;

namespace {

/// 1, 2 or 5 times a power of ten, so that @p greatest takes about two centimetres.
float scaleFor(double greatest)
{
    if (greatest < 1e-12)
        return 100;
    const double power = std::pow(10, std::floor(std::log10(greatest / 2)));
    const double lead = greatest / 2 / power;
    return static_cast<float>((lead < 1.5 ? 1 : lead < 3.5 ? 2 : lead < 7.5 ? 5 : 10) * power);
}

/// A scale at which @p greatest can be read, and no decimals where three would leave the range of
/// values that can be shown.
void setReadable(float &scale, std::int16_t &decimals, double greatest)
{
    scale = scaleFor(greatest);
    if (greatest * std::pow(10, decimals) > std::numeric_limits<std::int32_t>::max())
        decimals = 0;
}

/// Fills the store with the problem as a user would want to open it: all of it in view, diagrams of
/// a readable size.
void prepare(const std::string &problem)
{
    resetStore();
    Fortosi_Rithmiseon();
    buildModel(problem);
    Epilisi();
    setReadable(Ena_cm_posa_KNm_M, dekadika_M, Bres_Max_Abs_M());
    setReadable(Ena_cm_posa_KN_Q, dekadika_Q, Bres_Max_Abs_Q());
    setReadable(Ena_cm_posa_KN_N, dekadika_N, Bres_Max_Abs_N());
    const QSize usualCanvas(1260, 560);
    ImageKanvas kanvas(usualCanvas);
    setPicture1(&kanvas);
    // A model of a size that the view cannot scale to stands at the finest scale there is.
    Zoom_Best_Fit();
    setPicture1(nullptr);
    // The deformation is drawn in the model's own units: a centimetre of paper is a hundredth of
    // the scale.
    Ena_cm_posa_m_epi_1000 = scaleFor(Bres_Max_U() * 1000 / (Klimaka / 100));
}

std::string contentOf(const fs::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool check = !arguments.empty() && arguments.front() == "--check";
    if (check)
        arguments.erase(arguments.begin());
    if (arguments.size() < 2) {
        std::cerr << "Usage: veskora_verification_models [--check] DIR PROBLEMS.txt...\n";
        return 2;
    }
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // no display is needed
    const QGuiApplication fonts(argc, argv);
    std::ostringstream log;
    BatchDesktop desktop(log);
    setDesktop(&desktop);
    const fs::path folder = arguments.front();
    int stale = 0;
    const auto finish = [&](const std::string &title, const std::string &problem) {
        if (title.empty())
            return;
        prepare(problem);
        const fs::path model = folder / (title.substr(0, title.find(' ')) + ".vsk");
        if (!check) {
            writeWholeFile(model.string(), modelText(), Durability::onDisk);
        } else if (contentOf(model) != modelText()) {
            std::cerr << model.string() << " is not up to date\n";
            ++stale;
        }
    };
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        std::ifstream file(arguments[i]);
        if (!file) {
            std::cerr << arguments[i] << " cannot be read\n";
            return 2;
        }
        std::string title, problem, before;
        for (std::string line; std::getline(file, line); before = line) {
            if (line.starts_with("# Source: ")) {
                finish(title, problem);
                title = before.substr(2);
                problem.clear();
            }
            problem += line + "\n";
        }
        finish(title, problem);
    }
    setDesktop(nullptr);
    return stale == 0 ? 0 : 1;
}
