#pragma once
/// @file
/// What must hold after each line of a session, and at its end.

#include "DrivenWindow.h"
#include "Script.h"

#include <unordered_set>

namespace veskora {

/// Ends the process by `require` where something does not hold.
class Watch
{
public:
    explicit Watch(DrivenWindow &window) : window_(window) {}

    /// Around what a line does; lines that a box or a dialog waits for stand within another.
    void begin(const Line &line);
    void end(const Line &line);
    /// Amid a line that may do several things: the tables as they are by now.
    void see() { seen_.insert(sumOfTables()); }

    /// Whether undo and redo do anything now, as they do not while an action goes on: a condition
    /// of the next three.
    bool isModelAtHand() const;
    /// One step back, which must lead where the line before found the model, and forth again.
    /// @return whether it led anywhere, as of the others
    bool undo();
    bool redo();
    /// All steps back and forth again: each was seen before, and is found again on the way forth.
    bool walk();

    /// What is written is read back as it was. The folder's files "end.vsk" and "end2.vsk".
    static void requireRoundTrip(const std::string &folder);

private:
    static std::size_t sumOfTables();
    std::size_t go(const char *action);

    DrivenWindow &window_;
    std::unordered_set<std::size_t> seen_; ///< sums of the tables, before each line and behind it
    std::size_t before_ = 0;               ///< that of the tables before the last line
    std::size_t after_ = 0;                ///< and behind it
    int model_ = 0;                        ///< `modelsBegun` then
    bool isWhole_ = false;     ///< the last line began an action and ended it, by itself
    std::size_t analysed_ = 0; ///< of the tables that the results are of
    int begun_ = 0;            ///< lines
    int gestures_ = 0;         ///< on the canvas, that have not ended
    bool isHeld_ = false;      ///< a button was pressed by a line of its own
    std::vector<int> open_;    ///< the numbers of the lines that have not ended
};

} // namespace veskora
