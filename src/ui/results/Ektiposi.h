#pragma once
/// @file
/// Reports on paper.

#include <QString>

#include <string>

class QPagedPaintDevice;

namespace veskora {

/// Prints @p text, UTF-8 with CR LF line ends, on the system's default printer; where there is
/// none, offers to write the same pages to a PDF file. Any failure is reported to the user.
void Ektiposi(const std::string &text);

/// Lays @p text on the pages of @p device: fixed pitch of 10 points, 2 cm free at the top and at
/// the left of every page, on over as many pages as it takes. The paper is turned when the longest
/// line is wider than it; a line wider still goes on in the next.
/// @return whether the device took all of it
bool printPages(QPagedPaintDevice &device, const QString &text);

} // namespace veskora
