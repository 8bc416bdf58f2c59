#pragma once
/// @file
/// The desktop of a process with a window.

#include "Desktop.h"
#include "SettingsFile.h"

#include <QTimer>

class QWidget;

namespace veskora {

/// Makes @p window the active one, also when it is minimised or covered.
void bringToFront(QWidget &window);

/// `applicationTitle` for Qt.
QString applicationName();

/// The main window as the desktop knows it: what it is told, and the widget that boxes stand over.
class MainWindowSurface : public WindowSurface
{
public:
    virtual QWidget *widget() { return nullptr; }
};

/// While it lives, boxes and dialogs stand over @p window, which outlives it, instead of the main
/// window.
class BoxOwner
{
public:
    explicit BoxOwner(QWidget *window);
    ~BoxOwner();
    BoxOwner(const BoxOwner &) = delete;
    BoxOwner &operator=(const BoxOwner &) = delete;

private:
    QWidget *before_;
};

/// Boxes and dialogs of Qt; log, caption and picture of the main window; settings in a file of the
/// user's under the application's name.
class QtDesktop : public Desktop
{
public:
    QtDesktop();

    /// Whether a box or a file dialog waits for an answer: whoever asked has not ended.
    static bool isAsking() { return asking_ > 0; }

    /// @p window has its filters over the application by now.
    void attach(MainWindowSurface *window);

    Answer message(const std::string &text, Icon icon, Buttons buttons) override;
    std::size_t choose(const std::string &text, const std::vector<std::string> &answers,
                       std::size_t escape) override;
    std::string askText(const std::string &question) override;
    std::optional<std::string> askOpenFile(const FileQuestion &question) override;
    std::optional<std::string> askSaveFile(const FileQuestion &question) override;
    void insertLog(const std::string &text, std::uint32_t colour, bool bold) override
    {
        window_->insertLog(text, colour, bold);
    }
    void setCaption(const std::string &text) override { window_->setCaption(text); }
    void setPointer(Pointer pointer) override { window_->setPointer(pointer); }
    void setAnalysing(bool isOn) override { window_->setAnalysing(isOn); }
    void repaintMainWindow() override { window_->repaintMainWindow(); }
    void repaintLog() override { window_->repaintLog(); }
    void redraw() override { window_->redraw(); }
    std::string setting(std::string_view section, std::string_view key,
                        std::string_view standard) override;
    void storeSetting(std::string_view section, std::string_view key,
                      std::string_view value) override;
    std::string writeSettings() override;
    std::string programFolder() override;
    std::string documentsFolder() override;
    std::string dataFolder() override;

private:
    friend class BoxOwner;
    QWidget *parent() const;

    class Asking;

    static inline QWidget *owner_ = nullptr;
    static inline int asking_ = 0;

    MainWindowSurface none_;
    MainWindowSurface *window_ = &none_;
    SettingsFile settings_;
    QTimer writing_; ///< of what was stored, when the program has time
};

} // namespace veskora
