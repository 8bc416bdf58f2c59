#include "Order.h"

#include "Functions.h"
#include "MathFunc.h"
#include "Metablites.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <string_view>

namespace veskora {

const char *const usage =
    "Usage: Veskora_batch [OPTION...] MODEL.vsk...\n"
    "\n"
    "Analyses plane frames and writes the report of each MODEL.vsk as MODEL.txt.\n"
    "The value of an option may stand behind \"=\" too, as in --jobs=4.\n"
    "\n"
    "  --out DIR  folder of the reports, made when it is not there; the working\n"
    "             directory when not given\n"
    "  -          print the reports instead\n"
    "  --check    write MODEL_check.txt too, or print it behind the report: free\n"
    "             motions, equilibrium, correct digits and slips of modelling; also of\n"
    "             a model whose analysis fails\n"
    "  --csv      write MODEL_ends.csv (N, Q, M and the end forces at both ends of each\n"
    "             element), MODEL_spans.csv (largest and smallest M between the ends)\n"
    "             and MODEL_nodes.csv (displacements and reactions) too; not with -\n"
    "  --values [N]\n"
    "             write MODEL_values.csv too: N, Q, M, deflection and displacements along\n"
    "             each element at N equal parts, 1 to 100, 10 when not given, and at the\n"
    "             extremes and zeros between; not with -\n"
    "  --summary FILE\n"
    "             write a row for each model: how the analysis ended, extremes of M and\n"
    "             of the displacements, sums of loads and reactions; - prints it;\n"
    "             DIR does not count for it\n"
    "  --regional write all these tables with semicolons between cells and commas in\n"
    "             numbers; changes nothing where your region has a decimal point\n"
    "  --pictures write MODEL_model.png, MODEL_M.png, MODEL_Q.png, MODEL_N.png\n"
    "             and MODEL_D.png too, the whole model in view; the first also of a\n"
    "             model whose analysis fails\n"
    "  --pictures=KIND[,KIND...]\n"
    "             the same as png, svg or pdf; the last two have lines and texts in\n"
    "             place of pixels, and labels moved apart where they would overlap\n"
    "  --steps    write MODEL_steps.html too: the steps of the analysis with formulas and\n"
    "             numbers, up to where it fails; all of a model of up to 8 elements\n"
    "  --steps-elements LIST\n"
    "             the elements to show there, such as 1-3,7; the first of a larger model\n"
    "             when not given\n"
    "  --steps-digits N\n"
    "             significant digits there, from 1 to 15; 4 when not given\n"
    "  --fit      give each diagram of the pictures a round scale at which it can be\n"
    "             read and stays in the picture\n"
    "  --size WxH pixels of the pictures, each from 200 to 8000; 1280x800 when not\n"
    "             given; of svg and pdf 96 are an inch\n"
    "  --label-scale F\n"
    "             make the texts of the pictures F times as large, F from 0.5 to 4\n"
    "  --pdf      write MODEL_report.pdf too: a calculation report with the model, its\n"
    "             data, diagrams and results, with --check its findings too; also of a\n"
    "             model whose analysis fails, without results\n"
    "  --paper A4|Letter\n"
    "             of that report; by the region when not given\n"
    "  --title TEXT, --author TEXT\n"
    "             at the head of that report\n"
    "  --jobs N   run models in N processes, 1 to 256, with the same output in the same\n"
    "             order; 1 when not given\n"
    "  --strict   a structure that is probably a mechanism counts as failed\n"
    "  --         what follows is a model, whatever it begins with\n"
    "  -h, --help this text\n"
    "  --version  the version of the program, and of Qt, which draws the pictures,\n"
    "             or that the program which draws them is missing\n"
    "\n"
    "Environment:\n"
    "  LC_ALL, LC_NUMERIC, LANG\n"
    "             the decimal separator of reports and, with --regional, of tables; the\n"
    "             first and the last also the paper when not given\n"
    "\n"
    "Exit status: 0 all models analysed, 1 some could not be read or analysed, or\n"
    "--check or --strict found that one can move freely, or --check that one is\n"
    "unstable, 2 wrong usage.\n";

namespace {

struct Flag
{
    std::string_view name;
    bool Order::*given;
};
constexpr auto flags = std::to_array<Flag>({
    {"-", &Order::print},
    {"--check", &Order::check},
    {"--csv", &Order::csv},
    {"--regional", &Order::regional},
    {"--pictures", &Order::pngPictures},
    {"--steps", &Order::steps},
    {"--pdf", &Order::pdf},
    {"--fit", &Order::fit},
    {"--strict", &Order::strict},
    {"--help", &Order::help},
    {"-h", &Order::help},
    {"--version", &Order::version},
});

/// A forgotten name must not make the option behind it, or the first model, the place.
bool isName(const std::string &value)
{
    return !value.empty() && !value.starts_with('-');
}

bool takeFolder(Order &order, const std::string &value)
{
    const bool isFirst = order.folder.empty();
    order.folder = value;
    return isFirst && isName(value);
}

bool takeSummary(Order &order, const std::string &value)
{
    const bool isFirst = order.summary.empty();
    order.summary = value;
    std::string ending = value; // its last letters: ".vsk" alone is a model's name too
    std::ranges::transform(ending, ending.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return isFirst && (value == "-" || isName(value)) && !ending.ends_with(modelExtension);
}

bool takeSize(Order &order, const std::string &value)
{
    const char *const end = value.data() + value.size();
    const auto [cross, noWidth] = std::from_chars(value.data(), end, order.width);
    if (noWidth != std::errc() || cross == end || *cross != 'x')
        return false;
    const auto [rest, noHeight] = std::from_chars(cross + 1, end, order.height);
    const auto isSane = [](int pixels) { return pixels >= 200 && pixels <= 8000; };
    return noHeight == std::errc() && rest == end && isSane(order.width) && isSane(order.height);
}

bool takeLabelScale(Order &order, const std::string &value)
{
    order.labelScale = numberFromWholeText(value).value_or(0);
    return order.labelScale >= 0.5 && order.labelScale <= 4;
}

bool takeElements(Order &order, const std::string &value)
{
    const auto elements = rowsFromList(value, maxElements);
    order.shownSteps.elements = elements.value_or(std::vector<int>());
    return elements.has_value();
}

bool takeDigits(Order &order, const std::string &value)
{
    const std::optional<double> digits = numberFromWholeText(value);
    if (!digits || *digits < 1 || *digits > steps::mostDigits || *digits != std::floor(*digits))
        return false;
    order.shownSteps.digits = static_cast<int>(*digits);
    return true;
}

bool takeJobs(Order &order, const std::string &value)
{
    const char *const end = value.data() + value.size();
    const auto [rest, error] = std::from_chars(value.data(), end, order.jobs);
    return error == std::errc() && rest == end && order.jobs >= 1 && order.jobs <= 256;
}

bool takePaper(Order &order, const std::string &value)
{
    order.paper = value;
    return value == "A4" || value == "Letter";
}

/// A line or a few at the head of a page.
template <std::optional<std::string> Order::*text>
bool takeText(Order &order, const std::string &value)
{
    constexpr std::size_t longest = 200;
    order.*text = value;
    return value.size() <= longest;
}

/// An option that takes what stands behind it, after "=" or as the next argument.
struct Valued
{
    std::string_view name;
    bool (*take)(Order &, const std::string &); ///< false: it is none of what the option needs
    const char *needs;
};
constexpr auto valued = std::to_array<Valued>({
    {"--out", takeFolder, "one folder"},
    {"--summary", takeSummary, "one file that is no model"},
    {"--steps-elements", takeElements, "numbers of elements from 1 to 300, as 1-3,7"},
    {"--steps-digits", takeDigits, "a whole number from 1 to 15"},
    {"--size", takeSize, "WxH in pixels, each from 200 to 8000, as 1920x1080"},
    {"--label-scale", takeLabelScale, "a number from 0.5 to 4"},
    {"--jobs", takeJobs, "a whole number of processes from 1 to 256"},
    {"--paper", takePaper, "A4 or Letter"},
    {"--title", takeText<&Order::title>, "a text of at most 200 bytes"},
    {"--author", takeText<&Order::author>, "a text of at most 200 bytes"},
});

constexpr std::string_view pictureOption = "--pictures=";
constexpr auto pictureKinds = std::to_array<Flag>(
    {{"png", &Order::pngPictures}, {"svg", &Order::svgPictures}, {"pdf", &Order::pdfPictures}});

/// Takes @p kinds, separated by commas.
/// @return what is wrong, empty when nothing
std::string takePictures(Order &order, std::string_view kinds)
{
    for (bool isLast = false; !isLast;) {
        const std::size_t comma = kinds.find(',');
        const auto *kind = std::ranges::find(pictureKinds, kinds.substr(0, comma), &Flag::name);
        if (kind == pictureKinds.end())
            return std::string(pictureOption) + " needs png, svg or pdf, or several with commas";
        order.*kind->given = true;
        isLast = comma == std::string_view::npos;
        kinds.remove_prefix(isLast ? kinds.size() : comma + 1);
    }
    return {};
}

constexpr std::string_view valuesOption = "--values";

/// Takes the option at @p i and the number of parts, where one stands behind "=" or is the next
/// argument.
std::string takeValues(Order &order, const std::vector<std::string> &arguments, std::size_t &i)
{
    order.values = true;
    std::string parts;
    if (arguments[i].size() > valuesOption.size())
        parts = arguments[i].substr(valuesOption.size() + 1);
    else if (i + 1 < arguments.size() && numberFromWholeText(arguments[i + 1]))
        parts = arguments[++i];
    else
        return {};
    const char *const end = parts.data() + parts.size();
    const auto [rest, error] = std::from_chars(parts.data(), end, order.parts);
    const bool isSane =
        error == std::errc() && rest == end && order.parts >= 1 && order.parts <= maxParts;
    return isSane ? "" : std::string(valuesOption) + " takes a whole number from 1 to 100, or none";
}

/// Takes the option at @p i and, where it has one, its value.
/// @return what is wrong, empty when nothing
std::string takeOption(Order &order, const std::vector<std::string> &arguments, std::size_t &i)
{
    const std::string &given = arguments[i];
    const std::size_t equals = given.find('=');
    const std::string name = given.substr(0, equals);
    if (const auto *flag = std::ranges::find(flags, given, &Flag::name); flag != flags.end()) {
        order.*flag->given = true;
        return {};
    }
    if (given.starts_with(pictureOption))
        return takePictures(order, std::string_view(given).substr(pictureOption.size()));
    if (name == valuesOption)
        return takeValues(order, arguments, i);
    const auto *option = std::ranges::find(valued, name, &Valued::name);
    if (option == valued.end())
        return "unknown option " + given;
    order.shapesSteps = order.shapesSteps || name.starts_with("--steps-");
    const bool isTaken = equals == std::string::npos
                             ? i + 1 < arguments.size() && option->take(order, arguments[++i])
                             : option->take(order, given.substr(equals + 1));
    if (isTaken)
        return {};
    return name + " needs " + option->needs;
}

/// What does not go together, empty when all does.
std::string contradiction(const Order &order)
{
    const Order standard;
    const bool shapesPictures = order.fit || order.width != standard.width
                                || order.height != standard.height
                                || order.labelScale != standard.labelScale;
    if (order.print && !order.folder.empty())
        return "--out and - exclude each other";
    if (order.print && order.csv)
        return "--csv and - exclude each other: three tables of a model are three files";
    if (order.print && order.values)
        return "--values and - exclude each other: the table of a model is a file";
    if (order.regional && !order.csv && !order.values && order.summary.empty())
        return "--regional needs --csv, --values or --summary";
    if (order.print && order.summary == "-")
        return "--summary - and - exclude each other: both print";
    if (shapesPictures && !order.wantsPictures())
        return "--fit, --size and --label-scale need --pictures";
    if (order.shapesSteps && !order.steps)
        return "--steps-elements and --steps-digits need --steps";
    if ((order.paper || order.title || order.author) && !order.pdf)
        return "--paper, --title and --author need --pdf";
    if (order.models.empty() || std::ranges::count(order.models, "") > 0)
        return "no model given";
    return {};
}

} // namespace

Order parse(const std::vector<std::string> &arguments)
{
    Order order;
    bool onlyModels = false;
    for (std::size_t i = 0; i < arguments.size() && order.complaint.empty(); ++i)
        if (onlyModels || !arguments[i].starts_with('-'))
            order.models.push_back(arguments[i]);
        else if (arguments[i] == "--")
            onlyModels = true;
        else
            order.complaint = takeOption(order, arguments, i);
    if (order.complaint.empty())
        order.complaint = contradiction(order);
    return order;
}

} // namespace veskora
