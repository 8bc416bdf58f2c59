#pragma once
/// @file
/// Ways to paper and to PDF files.

#include "Functions.h"

#include <QPageSize>
#include <QString>

#include <functional>
#include <string>

class QPagedPaintDevice;

namespace veskora {

/// What can be laid on pages.
struct PrintJob
{
    QString title;
    std::string path, suffix; ///< of the model; what stands behind its name in that of a PDF file
    std::function<bool(QPagedPaintDevice &)> print; ///< whether the device took all of it
    QPageSize paper{QPageSize::A4};                 ///< of a PDF file
    std::string pdfInstead = Metafrasi(1729, "There is no default printer. Do you want to save the "
                                             "report as a PDF file instead?");
};

/// Writes the pages to a PDF file that the user is asked for, and logs it. A failure is reported.
void savePdf(const PrintJob &job);

/// Prints on the system's default printer; where there is none, offers `savePdf` instead. A failure
/// is reported.
void printOut(const PrintJob &job);

} // namespace veskora
