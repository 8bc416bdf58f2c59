#pragma once

#include <QTextBrowser>

class QHelpEngineCore;

namespace veskora {

/// Shows the pages of a help file, its pictures sharp at every scale factor of the screen. A link
/// such as "example:truss.vsk" leads to no page but to the model of that name.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT
public:
    explicit HelpBrowser(QWidget *parent = nullptr);

    /// @param engine  must outlive this browser
    void setEngine(const QHelpEngineCore *engine) { engine_ = engine; }

    /// Marks every place where a word of the page begins with one of @p words, and shows the first.
    void mark(const QStringList &words);

    QVariant loadResource(int type, const QUrl &name) override;

signals:
    /// @param name  of the file, in the folder of the examples
    void exampleWanted(const QString &name);

protected:
    void doSetSource(const QUrl &url, QTextDocument::ResourceType type) override;

private:
    QImage picture(const QUrl &url) const;

    const QHelpEngineCore *engine_ = nullptr;
};

} // namespace veskora
