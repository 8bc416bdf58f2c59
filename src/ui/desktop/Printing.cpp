#include "Printing.h"

#include "Desktop.h"
#include "Files.h"
#include "Metablites.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

namespace veskora {

namespace {

/// The content of the file.
std::string pdfOf(const PrintJob &job)
{
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    pdf.setPageSize(job.paper);
    pdf.setTitle(job.title);
    (void)job.print(pdf); // memory takes all of it
    return content.toStdString();
}

} // namespace

void savePdf(const PrintJob &job)
{
    const std::string path = writeAskedFile([&job] { return pdfOf(job); },
                                            Metafrasi(1730, "PDF files") + " (*.pdf)|*.pdf",
                                            job.path, job.suffix, ".pdf");
    if (!path.empty())
        Grammi_Log(Metafrasi(1731, "PDF file:") + " " + path, logColour::black);
}

void printOut(const PrintJob &job)
{
    const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
    if (standard.isNull()) {
        if (desktop().message(job.pdfInstead, Icon::question, Buttons::yesNo) == Answer::yes)
            savePdf(job);
        return;
    }
    QPrinter printer(standard, QPrinter::HighResolution);
    printer.setDocName(job.title);
    if (!job.print(printer))
        desktop().message(Metafrasi(366, "An error occured while trying to print. The printing "
                                         "cannot be completed"),
                          Icon::critical);
}

} // namespace veskora
