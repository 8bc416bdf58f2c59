#pragma once
/// @file
/// The desktop of a process with a window.

#include "Desktop.h"

#include <QSettings>
#include <QString>

class QWidget;

namespace veskora {

/// UTF-8 text with CR LF as Qt shows it.
QString qtText(const std::string &text);
std::string plainText(const QString &text);

/// Makes @p window the active one, also when it is minimised or covered.
void bringToFront(QWidget &window);

/// `applicationTitle` for Qt.
QString applicationName();

/// What the desktop hands on to the main window.
class MainWindowSurface
{
public:
    virtual ~MainWindowSurface() = default;
    virtual QWidget *window() = 0;
    virtual void insertLog(const std::string &text, std::uint32_t colour, bool bold) = 0;
    virtual void setCaption(const std::string &text) = 0;
    virtual void setPointer(Pointer pointer) = 0;
    virtual void setAnalysing(bool isOn) = 0;
    virtual void repaintMainWindow() = 0;
    virtual void repaintLog() = 0;
    virtual void redraw() = 0;
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

    /// @p window has its filters over the application by now.
    void attach(MainWindowSurface *window);

    Answer message(const std::string &text, Icon icon, Buttons buttons) override;
    std::string askText(const std::string &question) override;
    std::optional<std::string> askOpenFile(const FileQuestion &question) override;
    std::optional<std::string> askSaveFile(const FileQuestion &question) override;
    void insertLog(const std::string &text, std::uint32_t colour, bool bold) override;
    void setCaption(const std::string &text) override;
    void setPointer(Pointer pointer) override;
    void setAnalysing(bool isOn) override;
    void repaintMainWindow() override;
    void repaintLog() override;
    void redraw() override;
    TimeOfDay timeOfDay() override;
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

    static inline QWidget *owner_ = nullptr;

    MainWindowSurface *window_ = nullptr;
    QSettings settings_;
};

} // namespace veskora
