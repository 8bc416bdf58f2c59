// Whole drawings against accepted ones. In the files of tests/data/drawings/ indented lines are
// orders, and below one that draws stand the primitives that come of it, the pen that it leaves,
// and what it says in the log. scripts/accept-drawings writes what comes now, and pictures to look
// at.

#include "Analysis.h"
#include "DiagramOutline.h"
#include "FreedomArrows.h"
#include "MotionShape.h"
#include "RecordingKanvas.h"
#include "RowMarks.h"
#include "Settings.h"
#include "Steps.h"
#include "Sxediastika.h"
#include "Zoom.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <sstream>

namespace veskora {
namespace {

namespace fs = std::filesystem;
using Words = std::istringstream;

template <typename Value>
std::vector<Value> rest(Words &words)
{
    return {std::istream_iterator<Value>(words), {}};
}

/// The values of a row from a column on.
template <typename Value>
void put(auto &table, Words &words)
{
    int row = 0, column = 0;
    words >> row >> column;
    for (const Value value : rest<Value>(words))
        table(row, column++) = value;
}

class Drawings : public DrawingTest
{
protected:
    /// The next drawing of a file: up to the next empty line.
    static std::string next(std::istream &file)
    {
        std::string text;
        for (std::string line; std::getline(file, line) && !line.empty();)
            text += line + "\n";
        return text;
    }

    /// The same with what its orders draw now.
    std::string anew(const std::string &drawing)
    {
        resetStore();
        kanvas = RecordingKanvas();
        originAt(0, 0);
        std::istringstream lines(drawing);
        std::string text;
        for (std::string line; std::getline(lines, line);)
            if (line.starts_with("# "))
                text += line + "\n";
            else if (line.starts_with("  "))
                text += line + "\n" + obey(line);
        return text;
    }

private:
    std::string obey(const std::string &line)
    {
        Words words(line);
        std::string order;
        words >> order;
        kanvas.clear();
        orders_.at(order)(words);
        if (order.starts_with("draw"))
            return kanvas.text() + logged();
        return order.starts_with("zoom")
                   ? record("view", {Klimaka, Arxi_X, Arxi_Y}) + "\n" + logged()
                   : "";
    }

    std::string logged()
    {
        std::string text;
        for (const LogLine &line : std::exchange(desktop.log, {}))
            text += "log " + std::to_string(line.colour) + " '" + line.text + "'\n";
        return text;
    }

    static void set(const std::string &key, const std::string &value)
    {
        const auto found = std::ranges::find(settings, key, &Setting::key);
        ASSERT_NE(found, settings.end()) << key;
        Words words(value);
        std::visit([&](auto *variable) { words >> std::boolalpha >> *variable; }, found->value);
    }

    void place(Words &words)
    {
        double x = 0, y = 0, scale = 0;
        words >> x >> y >> scale;
        originAt(x, y, static_cast<float>(scale));
        Apothikefsi_Zoom();
    }

    void draw(std::int16_t mode)
    {
        Katastasi_Provolis = mode;
        Ananeosi_Sxediou();
        reportCutDiagram();
    }

    steps::Document steps_;
    using Order = std::function<void(Words &)>;
    const std::map<std::string, Order> orders_ = {
        {"model",
         [](Words &words) {
             buildModel({std::istreambuf_iterator<char>(words), {}});
         }},
        {"set",
         [](Words &words) {
             for (const std::string &word : rest<std::string>(words))
                 set(word.substr(0, word.find('=')), word.substr(word.find('=') + 1));
         }},
        {"origin", [this](Words &words) { place(words); }},                   // X Y SCALE
        {"view", [](Words &words) { words >> Klimaka >> Arxi_X >> Arxi_Y; }}, // as a damaged file's
        {"canvas", [this](Words &words) { words >> kanvas.w >> kanvas.h; }},
        {"fill", [this](Words &words) { words >> kanvas.pen.fillOn >> kanvas.pen.fillColour; }},
        {"analyse",
         [this](Words &) {
             analyse();
             desktop.log.clear();
         }},
        {"results", // are there or not, of an old model or not, of a mechanism or not
         [](Words &words) { words >> hasResults >> Allagi_Montelou >> mechanismSuspected; }},
        {"nodes", [](Words &words) { put<float>(Komboi, words); }}, // ROW COLUMN VALUES
        {"members", [](Words &words) { put<float>(Stoixeia, words); }},
        {"forces", [](Words &words) { put<double>(Entasi_Topiki, words); }},
        {"moves", // FREEDOM VALUES
         [](Words &words) {
             int freedom = 0;
             words >> freedom;
             for (const double move : rest<double>(words))
                 Metatopiseis(freedom++) = move;
         }},
        {"zoom-fit", [](Words &) { Zoom_Best_Fit(); }},
        {"zoom-diagram", [](Words &) { Zoom_Diagram(); }},
        {"zoom-window", // between two places of the canvas
         [](Words &words) {
             const auto at = rest<double>(words);
             Zoom_Parathyrou(at.at(0), at.at(1), at.at(2), at.at(3));
         }},
        {"zoom-drag", // from one height to another
         [](Words &words) {
             const auto at = rest<double>(words);
             Zoom_Syrsimatos(at.at(0), at.at(1));
         }},
        {"draw-model", [this](Words &) { draw(view::model); }},
        {"draw-M", [this](Words &) { draw(view::M); }},
        {"draw-Q", [this](Words &) { draw(view::Q); }},
        {"draw-N", [this](Words &) { draw(view::N); }},
        {"draw-D", [this](Words &) { draw(view::deformed); }},
        {"draw-sketch", [](Words &) { Sxedio_Grigoro(); }},
        {"draw-nodes", [](Words &) { Sxedio_Kombon(); }},
        {"draw-elements", [](Words &) { Sxedio_Stoixeion(); }},
        {"draw-nodal-loads", [](Words &) { Sxedio_Fortiseon_Si(); }},
        {"draw-uniform-loads", [](Words &) { Sxedio_Fortiseon_Om(); }},
        {"draw-motion", [](Words &words) { drawMotion(rest<double>(words)); }},
        {"draw-marks", [](Words &words) { markRows(std::array{2}, rest<int>(words)); }},
        {"draw-freedoms", [](Words &words) { drawFreedoms(rest<int>(words), 3); }},
        {"steps", [this](Words &) { steps_ = steps::stepsOfAnalysis({}); }},
        {"draw-step", // SECTION of the steps of the model as it was then
         [this](Words &words) {
             const auto id = rest<std::string>(words).front();
             for (const steps::Section &section : steps_.sections)
                 for (const steps::Block &block : section.blocks)
                     if (const auto *drawn = std::get_if<steps::Picture>(&block);
                         drawn != nullptr && section.id == id)
                         steps::drawStepPicture(*drawn);
         }},
        {"draw-end-forces", // COSINE SINE of the element's direction, FORCES
         [](Words &words) {
             double c = 0, s = 0;
             words >> c >> s;
             drawEndForces(c, s, rest<std::string>(words));
         }},
    };
};

TEST_F(Drawings, AreThoseAccepted)
{
    const char *accepting = std::getenv("VESKORA_ACCEPT_DRAWINGS");
    std::size_t drawings = 0;
    for (const auto &entry : fs::directory_iterator(TEST_DATA "/drawings")) {
        const std::string path = entry.path().string();
        std::istringstream file(contentOf(path));
        std::string found;
        for (std::string drawing = next(file); !drawing.empty(); drawing = next(file)) {
            const std::string now = anew(drawing);
            EXPECT_EQ(now, drawing) << path << "; to accept the first: scripts/accept-drawings";
            found += (found.empty() ? "" : "\n") + now;
            ++drawings;
        }
        EXPECT_EQ(file.peek(), EOF) << path << ": an empty line too many";
        if (accepting != nullptr)
            write(path, found);
    }
    EXPECT_GT(drawings, 0U);
}

} // namespace
} // namespace veskora
