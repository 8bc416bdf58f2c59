#include "ExportFlexGrid.h"

#include "Examples.h"
#include "Fault.h"
#include "FileSystem.h"
#include "Functions.h"
#include "QtDesktop.h"
#include "ResultGrid.h"
#include "Text.h"
#include "WorkbookCheck.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QScopeGuard>
#include <QTimer>
#include <QWidget>

#include <xlsxwriter.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace veskora {

namespace {

constexpr const char *workbookType =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet";

void check(lxw_error error)
{
    if (error != LXW_NO_ERROR)
        throw Fault(lxw_strerror(error));
}

template <typename Part>
Part *checked(Part *part)
{
    if (part == nullptr)
        throw Fault("the workbook could not be made");
    return part;
}

/// Writes the cells from row @p top on; each has a format, so that empty ones are there too.
void writeCells(lxw_worksheet *sheet, lxw_format *format, const ResultGrid &grid, std::size_t top)
{
    for (int j = 0; j < grid.columnCount(); ++j) {
        const auto column = static_cast<lxw_col_t>(j);
        qsizetype longest = 0;
        for (int i = 0; i < grid.rowCount(); ++i) {
            const auto row = static_cast<lxw_row_t>(top) + static_cast<lxw_row_t>(i);
            const QString &text = grid.text(i, j);
            longest = std::max(longest, text.size());
            check(text.isEmpty()
                      ? worksheet_write_blank(sheet, row, column, format)
                      : worksheet_write_string(sheet, row, column, text.toUtf8(), format));
        }
        constexpr double cellPadding = 1.7; // characters
        check(worksheet_set_column(sheet, column, column,
                                   static_cast<double>(longest) + cellPadding, nullptr));
    }
}

void writeWarnings(lxw_workbook *book, lxw_worksheet *sheet, const std::vector<std::string> &told)
{
    if (told.empty())
        return;
    lxw_format *format = checked(workbook_add_format(book));
    format_set_font_color(format, LXW_COLOR_RED);
    for (std::size_t i = 0; i < told.size(); ++i)
        check(worksheet_write_string(sheet, static_cast<lxw_row_t>(i), 0, told[i].c_str(), format));
}

/// Writes the workbook @p path. Fault: it could not be written.
void writeWorkbook(const std::string &path, const ResultGrid &grid, const std::string &section,
                   const std::vector<std::string> &told)
{
    lxw_workbook *book = checked(workbook_new(path.c_str()));
    try {
        const std::string name = sheetName(section);
        lxw_worksheet *sheet =
            checked(workbook_add_worksheet(book, name.empty() ? nullptr : name.c_str()));
        lxw_format *format = checked(workbook_add_format(book));
        format_set_num_format(format, "@"); // what is typed over a text stays one
        writeWarnings(book, sheet, told);
        writeCells(sheet, format, grid, told.size());
        check(worksheet_ignore_errors(sheet, LXW_IGNORE_NUMBER_STORED_AS_TEXT, "A1:XFD1048576"));
    } catch (...) {
        lxw_workbook_free(book);
        throw;
    }
    check(workbook_close(book)); // only now the file is made; the book is freed, whatever comes
}

void requireWhole(const std::string &path, const ResultGrid &grid,
                  const std::vector<std::string> &told)
{
    QStringList texts;
    for (const std::string &line : told)
        texts << qtText(line);
    for (int i = 0; i < grid.rowCount(); ++i)
        for (int j = 0; j < grid.columnCount(); ++j)
            texts << grid.text(i, j);
    const qsizetype cells = texts.size();
    texts.removeAll(QString());
    requireWholeWorkbook(path, texts, cells);
}

/// The content of the workbook's file. It is made elsewhere, so that nothing but a whole one ever
/// stands where the user finds it.
std::string workbookContent(const ResultGrid &grid, const std::string &section,
                            const std::vector<std::string> &told)
{
    const std::string scratch = privateFolder() + "/workbook.xlsx";
    const QScopeGuard remove([&scratch] { QFile::remove(qtText(scratch)); });
    writeWorkbook(scratch, grid, section, told);
    requireWhole(scratch, grid, told);
    return wholeFile(scratch);
}

/// The folder of the model's file, unless that is an example, that for documents, or the user's
/// own: the first in which files can be made.
QString targetFolder(const std::string &model)
{
    const std::string documents = desktop().documentsFolder();
    const std::string beside = model.empty() ? documents : userFolder(folderOf(model));
    for (const std::string &folder : {beside, documents})
        if (isWritableFolder(folder))
            return qtText(folder);
    return QDir::homePath();
}

/// "frame Node displacements.xlsx", with a number behind it where there is such a file.
std::string freePath(const std::string &section, const std::string &model)
{
    const QString name = model.empty() ? "Untitled" : QFileInfo(qtText(model)).completeBaseName();
    const QString stem =
        QDir(targetFolder(model)).filePath((name + ' ' + qtText(section)).trimmed());
    QString path = stem + ".xlsx";
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = QString("%1 (%2).xlsx").arg(stem).arg(number);
    return plainText(path);
}

// The same slot as for printing: a language pack has one text for both.
void tellFailure()
{
    desktop().message(Metafrasi(366, "An error occured while trying to export file. The operation "
                                     "cannot be completed."),
                      Icon::critical);
}

/// Starts a program of the desktop and does not wait for it.
/// @param reads  whether what it prints is wanted; a pipe for it ends with this program, and at its
///               next word the program behind it would end too
/// @param done  gets what it printed; nothing when it failed or could not be started
template <typename Done>
QProcess *run(const QString &program, const QStringList &arguments, bool reads, Done done)
{
    // Nothing owns it: it would end its program with this one, and that of the user's workbook.
    auto *process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    if (!reads)
        process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(process, &QProcess::finished, process,
                     [process, done](int code, QProcess::ExitStatus status) {
                         process->deleteLater();
                         const bool worked = status == QProcess::NormalExit && code == 0;
                         done(worked ? std::optional(process->readAllStandardOutput())
                                     : std::nullopt);
                     });
    QObject::connect(process, &QProcess::errorOccurred, process,
                     [process, done](QProcess::ProcessError error) {
                         if (error != QProcess::FailedToStart)
                             return; // it finishes
                         process->deleteLater();
                         done(std::optional<QByteArray>());
                     });
    process->start(program, arguments);
    return process;
}

} // namespace

std::string sheetName(const std::string &section)
{
    constexpr qsizetype longest = 31;
    QString name = qtText(section);
    for (const char reserved : std::string_view(R"([]:*?/\)"))
        name.replace(reserved, ' ');
    name = name.left(longest).trimmed();
    while (name.startsWith('\''))
        name.remove(0, 1);
    while (name.endsWith('\''))
        name.chop(1);
    return plainText(name.trimmed());
}

std::string ExportFlexGrid(const ResultGrid &grid, const std::string &section,
                           const std::string &model, const std::vector<std::string> &told)
try {
    const std::string path = freePath(sheetName(section), model);
    writeWholeFile(path, workbookContent(grid, section, told), Durability::onDisk);
    Grammi_Log(Metafrasi(2102, "Workbook:") + " " + path, logColour::black);
    return path;
} catch (const Fault &fault) {
    Grammi_Log(fault.facts(), logColour::red);
    tellFailure();
    return {};
}

void openWorkbooks(const QStringList &paths, QWidget *window)
{
    const auto failed = [owner = QPointer(window),
                         told = std::make_shared<bool>(false)](const QStringList &left) {
        if (std::exchange(*told, true))
            return; // one sentence is enough for all of them
        const BoxOwner boxOwner(owner);
        showRefusal(
            (left.size() == 1
                 ? Metafrasi(1727, "Workbook written, but no program opens it:") + " "
                 : Metafrasi(1728, "Workbooks written, but no program opens them:") + "\r\n")
            + plainText(left.join("\r\n")));
    };
    QProcess *query =
        run("xdg-mime", {"query", "default", workbookType}, true,
            [paths, failed](const std::optional<QByteArray> &program) {
                if (!program || program->trimmed().isEmpty())
                    return failed(paths);
                constexpr int starting = 30000; // ms; what ends later has opened
                QElapsedTimer since;
                since.start();
                for (const QString &path : paths)
                    run("xdg-open", {path}, false, [=](const std::optional<QByteArray> &opened) {
                        if (!opened && !since.hasExpired(starting))
                            failed({path});
                    });
            });
    constexpr int longest = 5000; // ms
    QTimer::singleShot(longest, query, &QProcess::kill);
}

} // namespace veskora
