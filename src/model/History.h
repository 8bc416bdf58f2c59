#pragma once
/// @file
/// The steps that the user took with the model, to go back and forth on.

#include "Metablites.h"

#include <cstddef>
#include <deque>
#include <string>
#include <tuple>

namespace veskora {

/// A copy of all tables of the model and their counts.
using ModelTables = std::tuple<std::int16_t, std::int16_t, std::int16_t, decltype(Komboi),
                               decltype(Elatiria), decltype(Omades), decltype(Stoixeia)>;

/// Those of the store, to be copied or written.
inline auto modelTables()
{
    return std::tie(Arithmos_Kombon, Arithmos_Stoixeion, Arithmos_Omadon, Komboi, Elatiria, Omades,
                    Stoixeia);
}

/// Whether the store holds the tables of @p other, byte for byte.
bool isInStore(const ModelTables &other);

/// The model as it stood after each of the user's actions. Nobody tells of an edit: `takeStep`
/// looks whether the tables are another than they were. It has one model's steps; where the store
/// holds another one (`modelsBegun`), the next call begins afresh.
class History
{
public:
    static constexpr std::size_t limit = 1000; ///< steps kept; the oldest go first

    History() { begin(); }

    /// What the log says of the action that goes on; what it deletes is seldom what it is for.
    void noteLine(const std::string &line, bool isDeletion = false);

    /// To be called between two actions: what differs since the last call is a step, and what
    /// was undone before is gone. An analysis that has finished since belongs to the step reached.
    void takeStep();

    /// @name One step back or forth
    /// `Allagi_Montelou` becomes false where the last finished analysis saw these tables.
    /// @return what the step was, as the log told it; none where there is no step
    /// @{
    const std::string *undo();
    const std::string *redo();
    /// @}

private:
    struct Step
    {
        ModelTables tables;
        std::string change; ///< that led to them
        int number;         ///< no other step ever has the same
    };

    void begin();
    void add(const std::string &change);
    void restore() const;
    std::string changeText() const;

    std::deque<Step> steps_; ///< the first is where the oldest step began
    std::size_t now_ = 0;    ///< the one whose tables the store holds
    int lastNumber_ = 0;
    int analysed_ = 0; ///< number of the step that the results belong to, 0 for none
    int model_ = 0;    ///< `modelsBegun` at the beginning
    int analyses_ = 0; ///< `analysesFinished` when it last looked
    std::string line_; ///< that stands for those noted
    bool isDeletion_ = false;
    int lines_ = 0; ///< that were noted
};

} // namespace veskora
