#pragma once
/// @file
/// Where the main window stands, from one run of the program to the next.

class QWidget;

namespace veskora {

/// Shows @p window where and as large as the user's settings have it, on a screen that is there.
void showAtStoredPlace(QWidget *window);

void Apothikefsi_Geometrias(const QWidget *window);

} // namespace veskora
