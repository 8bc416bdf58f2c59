#pragma once

#include "Kanvas.h"

namespace veskora {

class Highlights;

/// What lies under the pointer, and the marks that show it. Diagrams have none: there it stays what
/// it was when the model was last shown.
class UnderPointer
{
public:
    explicit UnderPointer(Highlights &marks) : marks_(marks) {}

    /// @param at  canvas centimetres
    /// @param isDragging  the element stays what it was
    /// @param isToolOn  nothing is marked
    void look(const Point &at, bool isDragging, bool isToolOn);
    void forget();

    /// @name The row under the pointer, 0 for none
    /// @{
    int Kombos_Deikti = 0;
    int Stoixeio_Deikti = 0;
    /// @}
    bool Pano_Se_Kombo() const;
    bool Pano_Se_Stoixeio() const;

    float Teleftaio_X = 0, Teleftaio_Y = 0; ///< where the pointer was, canvas cm

private:
    Highlights &marks_;
};

} // namespace veskora
