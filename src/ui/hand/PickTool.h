#pragma once

#include "Tool.h"

namespace veskora {

struct CanvasObjects;

/// Tells which element is clicked, in every view. It draws nothing.
class PickTool : public Tool
{
    Q_OBJECT
public:
    explicit PickTool(CanvasObjects &) {}

    bool press(const Point &at) override;
    void move(const Point &) override {}
    void release(const Point &) override {}
    void cancel() override {}
    void takeBack() override {}
    QCursor pointer(double) const override { return Qt::PointingHandCursor; }
};

} // namespace veskora
