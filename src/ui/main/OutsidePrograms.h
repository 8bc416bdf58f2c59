#pragma once
/// @file
/// Programs of the desktop. One that does not start is ignored.

namespace veskora {

void startCalculator();
/// The maker's page, in the browser.
void openWebPage();

} // namespace veskora
