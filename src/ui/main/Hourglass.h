#pragma once

#include <QCursor>
#include <QPointer>

#include <vector>

namespace veskora {

/// The hourglass over one window and all its parts, but not over its dialogs.
class Hourglass
{
public:
    void show(QWidget *window);
    void hide(); ///< gives every part its own pointer back

private:
    struct Part
    {
        QPointer<QWidget> widget;
        bool hadOwn;
        QCursor pointer;
    };
    std::vector<Part> parts_; ///< none while it is not shown
};

} // namespace veskora
