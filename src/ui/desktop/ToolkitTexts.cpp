#include "ToolkitTexts.h"

#include "Functions.h"
#include "Metablites.h"
#include "Text.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

#include <utility>
#include <vector>

namespace veskora {

namespace {

using Word = std::pair<const char *, std::string>; ///< the toolkit's English, the pack's text

std::vector<Word> fileDialogWords()
{
    return {
        {"Open", Metafrasi(3, "Open")},
        {"&Open", Metafrasi(1775, "&Open")},
        {"Save", Metafrasi(4, "Save")},
        {"&Save", Metafrasi(1776, "&Save")},
        {"Save As", Metafrasi(1777, "Save As")},
        {"Cancel", Metafrasi(2003, "Cancel")},
        {"&Cancel", Metafrasi(1778, "&Cancel")},
        {"OK", Metafrasi(2002, "OK")},
        {"&Yes", Metafrasi(2130, "Yes")},
        {"&No", Metafrasi(2131, "No")},
        {"Look in:", Metafrasi(1779, "Look in:")},
        {"Directory:", Metafrasi(1780, "Directory:")},
        {"File &name:", Metafrasi(1781, "File &name:")},
        {"Files of type:", Metafrasi(1782, "Files of type:")},
        {"Back", Metafrasi(2175, "Back")},
        {"Go back", Metafrasi(2175, "Back")},
        {"Forward", Metafrasi(2176, "Forward")},
        {"Go forward", Metafrasi(2176, "Forward")},
        {"Parent Directory", Metafrasi(1783, "Parent Directory")},
        {"Go to the parent directory", Metafrasi(1783, "Parent Directory")},
        {"Create New Folder", Metafrasi(1784, "Create New Folder")},
        {"Create a New Folder", Metafrasi(1784, "Create New Folder")},
        {"&New Folder", Metafrasi(1785, "&New Folder")},
        {"New Folder", Metafrasi(1786, "New Folder")},
        {"List View", Metafrasi(1787, "List View")},
        {"Change to list view mode", Metafrasi(1787, "List View")},
        {"Detail View", Metafrasi(1788, "Detail View")},
        {"Change to detail view mode", Metafrasi(1788, "Detail View")},
        {"Name", Metafrasi(1789, "Name")},
        {"Size", Metafrasi(1790, "Size")},
        {"Type", Metafrasi(335, "Type")},
        {"Date Modified", Metafrasi(1791, "Date Modified")},
        {"Computer", Metafrasi(1792, "Computer")},
        {"Recent Places", Metafrasi(1793, "Recent Places")},
        {"Folder", Metafrasi(1818, "Folder")},
        {"File Folder", Metafrasi(1818, "Folder")},
        {"Directories", Metafrasi(1794, "Directories")},
        {"&Rename", Metafrasi(1795, "&Rename")},
        {"&Delete", Metafrasi(1796, "&Delete")},
        {"Remove", Metafrasi(1797, "Remove")},
        {"Show &hidden files", Metafrasi(1798, "Show &hidden files")},
        {"%1 already exists.\nDo you want to replace it?",
         "%1" + Metafrasi(147, " already exists. Do you want to replace it?")},
        {"Are you sure you want to delete '%1'?",
         Metafrasi(1799, "Are you sure you want to delete '%1'?")},
        {"%1\nFile not found.\nPlease verify the correct file name was given.",
         "%1\r\n"
             + Metafrasi(1800, "File not found. Please verify the correct file name was given.")},
        {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
         "%1\r\n"
             + Metafrasi(1801, "Directory not found. Please verify the correct directory name was "
                               "given.")},
    };
}

std::vector<Word> otherWords()
{
    return {
        {"Select Color", Metafrasi(1601, "Select color")},
        {"&Basic colors", Metafrasi(1802, "&Basic colors")},
        {"&Custom colors", Metafrasi(1803, "&Custom colors")},
        {"&Add to Custom Colors", Metafrasi(1804, "&Add to Custom Colors")},
        {"&Pick Screen Color", Metafrasi(1805, "&Pick Screen Color")},
        {"Hu&e:", Metafrasi(1806, "Hu&e:")},
        {"&Sat:", Metafrasi(1807, "&Sat:")},
        {"&Val:", Metafrasi(1808, "&Val:")},
        {"&Red:", Metafrasi(1809, "&Red:")},
        {"&Green:", Metafrasi(1810, "&Green:")},
        {"Bl&ue:", Metafrasi(1811, "Bl&ue:")},
        {"&Undo", Metafrasi(1812, "&Undo")},
        {"&Redo", Metafrasi(1813, "&Redo")},
        {"Cu&t", Metafrasi(1814, "Cu&t")},
        {"&Copy", Metafrasi(1815, "&Copy")},
        {"&Paste", Metafrasi(1816, "&Paste")},
        {"Delete", Metafrasi(2005, "Delete")},
        {"Select All", Metafrasi(1817, "Select All")},
    };
}

} // namespace

void ToolkitTexts::takeLanguage()
{
    for (int number = QLocale::C + 1; number <= QLocale::LastLanguage; ++number)
        if (const auto language = static_cast<QLocale::Language>(number);
            QLocale::languageToString(language) == qtText(Glossa))
            (void)load(QLocale(language), "qtbase", "_",
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (QTranslator::isEmpty() && !Nai_Agglika)
        for (const auto &words : {fileDialogWords(), otherWords()})
            for (const auto &[source, text] : words)
                if (!text.empty()) // of a pack that lacks it the toolkit's own is better than none
                    words_.insert(source, qtText(text));
    QCoreApplication::installTranslator(this);
}

QString ToolkitTexts::translate(const char *context, const char *source, const char *comment,
                                int number) const
{
    return words_.isEmpty() ? QTranslator::translate(context, source, comment, number)
                            : words_.value(source);
}

bool ToolkitTexts::isEmpty() const
{
    return words_.isEmpty() && QTranslator::isEmpty();
}

} // namespace veskora
