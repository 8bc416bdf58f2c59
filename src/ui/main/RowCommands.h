#pragma once
/// @file
/// What the canvas's pop-up does to rows of the model.

#include <functional>
#include <vector>

namespace veskora {

struct CanvasObjects;
class Hand;

/// Edits about the row under the pointer, each with a line in the log for every row that it has
/// changed. Where nothing is to change, they say so.
class RowCommands
{
public:
    RowCommands(const CanvasObjects &canvas, Hand &hand) : canvas_(canvas), hand_(hand) {}

    void holdRotation(int n);
    void holdRotationsOfHinges();
    void deleteNode(int n);

    void hingeBothEnds(int e);
    void hingeGroup(int e); ///< all elements of the group that element @p e is of
    void shareLoads(int e); ///< with these
    void drawInGroup(int e);

private:
    void finish(const std::vector<int> &rows, const std::function<void(int)> &log) const;

    const CanvasObjects &canvas_;
    Hand &hand_;
};

} // namespace veskora
