#pragma once
/// @file
/// Of which moment is what a window shows.

#include "History.h"
#include "Metablites.h"

#include <QTimer>

#include <string>

namespace veskora {

/// Model and results as they stand when it is made.
struct Moment
{
    bool isOfModel() const { return isInStore(tables); }
    /// Whether another model or file has been opened since; one opened anew is the same.
    bool isOfOtherFile() const
    {
        return model != modelsBegun && (path.empty() || path != Onoma_Arxeiou);
    }
    bool isOfResults() const { return analyses == analysesFinished; }

    std::string path = Onoma_Arxeiou;
    int model = modelsBegun;
    ModelTables tables = modelTables();
    int analyses = analysesFinished;
};

/// Calls @p look of @p window again and again. Nobody tells of an edit; to compare a moment costs
/// less than a microsecond.
template <typename Window>
void lookOften(Window *window, void (Window::*look)())
{
    constexpr int often = 300; // ms
    auto *timer = new QTimer(window);
    timer->setObjectName("LookTimer");
    QObject::connect(timer, &QTimer::timeout, window, look);
    timer->start(often);
}

} // namespace veskora
