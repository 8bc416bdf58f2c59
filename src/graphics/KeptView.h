#pragma once
/// @file
/// A drawing of its own beside that on the screen.

#include "Metablites.h"
#include "Registry.h"

#include <vector>

namespace veskora {

/// What drawing reads of the store beside the model, and writes: given back at the end of the
/// scope.
class KeptView
{
public:
    KeptView()
    {
        for (const Setting &setting : settings)
            values_.push_back(currentValue(setting));
    }
    ~KeptView()
    {
        for (std::size_t i = 0; i < values_.size(); ++i)
            takeOver(settings[i], values_[i]);
        setView(view_);
        Katastasi_Provolis = shown_;
        roundingReportedFor = rounding_;
        denseGridReported = denseGrid_;
        gridPosition = gridPosition_;
    }
    KeptView(const KeptView &) = delete;
    KeptView &operator=(const KeptView &) = delete;

private:
    std::vector<SettingValue> values_;
    const CanvasView view_ = currentView();
    const std::int16_t shown_ = Katastasi_Provolis;
    const std::optional<RoundedPicture> rounding_ = roundingReportedFor;
    const bool denseGrid_ = denseGridReported;
    const std::int16_t gridPosition_ = gridPosition;
};

} // namespace veskora
