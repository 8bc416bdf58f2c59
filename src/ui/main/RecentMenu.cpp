#include "RecentMenu.h"

#include "FileCommands.h"
#include "Mnemonics.h"
#include "RecentFiles.h"
#include "Text.h"
#include "WindowParts.h"

#include <QMenu>
#include <QRegularExpression>
#include <QTextDocument>

#include <algorithm>
#include <filesystem>

namespace veskora {

namespace {

std::string nameOf(const std::string &path)
{
    return std::filesystem::path(path).filename().string();
}

/// The file's name; behind it the folder where another one of @p files is called the same.
QString captionOf(const std::string &path, const std::vector<std::string> &files)
{
    const auto sameName = [&path](const std::string &other) {
        return nameOf(other) == nameOf(path);
    };
    std::string caption = nameOf(path);
    if (std::ranges::count_if(files, sameName) > 1)
        caption += " (" + std::filesystem::path(path).parent_path().string() + ")";
    static const QRegularExpression control("[\\x00-\\x1f]"); // a tab would part the entry
    return qtText(caption).replace(control, " ").replace('&', "&&");
}

} // namespace

RecentMenu::RecentMenu(QMenu *menu, FileCommands &files) : menu_(menu), files_(files)
{
    menu->setToolTipsVisible(true);
    connect(menu, &QMenu::aboutToShow, this, &RecentMenu::fill);
}

void RecentMenu::fill()
{
    QAction *none = menu_->actions().front();
    for (QAction *entry : menu_->actions().mid(1))
        delete entry;
    const std::vector<std::string> files = recentFiles();
    none->setVisible(files.empty());
    for (const std::string &path : files) {
        QAction *entry = menu_->addAction(captionOf(path, files));
        entry->setObjectName(QString("mnuRECENT%1item").arg(menu_->actions().size() - 1));
        const QString tip = qtText(path);
        describe(entry, Qt::mightBeRichText(tip) ? "<p>" + tip.toHtmlEscaped() + "</p>" : tip);
        connect(entry, &QAction::triggered, &files_, [this, path] { files_.openRecent(path); });
    }
    assignMnemonics(menu_->actions());
}

} // namespace veskora

#include "moc_RecentMenu.cpp"
