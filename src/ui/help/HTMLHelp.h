#pragma once
/// @file
/// The online help.

#include <functional>
#include <memory>

class QString;
class QWidget;

namespace veskora {

class HelpViewer;

/// The online help: the compiled help file `Veskora_ML` among those supplied with the program, in a
/// viewer window of its own that stays usable while a dialog is open.
///
/// A topic is an id of the help file: the object name of a window, or the class name of a box of
/// the toolkit. A help file that is missing or damaged is told to the user; the program goes on.
class HTMLHelp
{
public:
    /// @param openExample  is given the name of an example when a link to it is followed, and never
    ///                     within an event of the viewer's: a question may come
    explicit HTMLHelp(std::function<void(const QString &name)> openExample);
    ~HTMLHelp(); // in the .cpp, where HelpViewer is complete

    void showContents();
    void showIndex();
    void showSearch();

    /// The topic of @p front, or of the window it belongs to; the contents where none has any.
    void showTopicOf(const QWidget *front);

    /// Closes the viewer, if there is one.
    void close();

private:
    /// @return the viewer, null when the help cannot be opened, which the user is then told
    HelpViewer *open();

    const std::function<void(const QString &name)> openExample_;
    std::unique_ptr<HelpViewer> viewer_; ///< made at the first use
};

} // namespace veskora
