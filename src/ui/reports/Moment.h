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
    bool isOfResults() const { return analyses == analysesFinished; }

    std::string path = Onoma_Arxeiou;
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
