#pragma once
/// @file
/// Programs of the desktop. One that does not start is ignored.

class QString;

namespace veskora {

void startCalculator();
/// The maker's page, in the browser.
void openWebPage();
/// In the program that the desktop has for its kind.
void openFile(const QString &path);

} // namespace veskora
