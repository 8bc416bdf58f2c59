#pragma once
/// @file
/// The steps of the analysis as data: what the engine's stages make of the model in the store,
/// one after the other, for those who want to follow or check it by hand. Window, HTML file and
/// tests are fed by it alone.
///
/// Numbers of freedoms are permuted ones, as in `K_ff`: the free ones first, then those held.

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace veskora::steps {

/// A piece of text in one style; `superscript` stands over a `subscript` before it.
struct Run
{
    enum class Style { plain, matrix, subscript, superscript };
    std::string text;
    Style style = Style::plain;
};

/// A line of text or formula.
struct Line
{
    Line() = default;
    Line(const char *plain) : Line(std::string(plain)) {}
    Line(std::string plain) : runs{{std::move(plain)}} {}
    Line(std::vector<Run> all) : runs(std::move(all)) {}

    std::string plainText() const;

    std::vector<Run> runs;
};
Line operator+(Line first, const Line &second);

struct Paragraph
{
    std::string text;
    bool isWarning = false; ///< of results that are not to be trusted
};

struct Formula
{
    Line line;
};

struct Cell
{
    Line text;
    std::optional<double> value = {}; ///< the very number of the stage that `text` rounds
    std::string origin = {};          ///< what an entry was added up from; empty where not told
    bool isHeld = false;              ///< it belongs to a freedom that is held
    bool isFree = false;              ///< it names one that is free
};

struct GridRow
{
    Cell label;
    std::vector<Cell> cells;
};

/// A matrix, a column of numbers or a table.
struct Grid
{
    bool isMatrix = false;
    Line name;   ///< of a matrix
    Line corner; ///< over the labels of the rows
    std::vector<Cell> columns;
    std::vector<GridRow> rows;
};

/// To other sections of the document.
struct Links
{
    std::string lead;
    std::vector<std::pair<std::string, std::string>> links; ///< text, id of the section
};

/// What is to be drawn; `drawStepPicture` does, but for a pattern.
struct Picture
{
    enum class Kind {
        freedoms, ///< the model with numbered freedoms
        element,  ///< one element with local axes and end forces
        pattern   ///< which entries of the structure's matrix are not 0
    };
    Kind kind;
    std::string caption;
    int free = 0;                  ///< how many freedoms are
    std::vector<int> numbers = {}; ///< freedoms: at `freedomOf(n, k) - 1`; 0: not shown
    int element = 0;
    double c = 1, s = 0; ///< element: cosine and sine of the angle from global to local x
    std::vector<std::string> endForces = {}; ///< element: local, as shown
    int size = 0;                            ///< pattern: rows and columns
    /// Pattern: row and column, from 1, in the order of rows.
    std::vector<std::pair<int, int>> entries = {};
};

using Block = std::variant<Paragraph, Formula, Grid, Links, Picture>;

struct Section
{
    std::string id; ///< for links; the same in every language
    int level;      ///< 1, or 2 below one
    std::string heading;
    std::vector<Block> blocks = {};
};

struct Document
{
    std::string title;
    std::vector<Section> sections;
    bool isComplete = false; ///< else the last section says why the steps end there
};

/// Up to so many elements a model is shown whole.
inline constexpr int wholeUpTo = 8;
inline constexpr int mostDigits = 15;

/// What is shown in full. Of the structure's equations these are the rows of `nodes`.
struct Choice
{
    std::vector<int> elements, nodes;
    int digits = 4; ///< significant ones
};

/// @p wished with the rows that exist, in rising order. Where none is named, all of a small model,
/// and the first element of a larger one; without nodes, those that the elements join.
Choice completed(Choice wished);

/// Runs the stages of the analysis over the model in the store and tells what each does. Results,
/// flags, counts of freedoms and log stay as they are; the working tables are empty afterwards.
Document stepsOfAnalysis(const Choice &wished);

/// Draws on `Picture1` what @p picture asks for, but for a pattern; view and settings stay. Of a
/// model that has changed since, freedoms are drawn at the nodes that both have.
void drawStepPicture(const Picture &picture);

} // namespace veskora::steps
