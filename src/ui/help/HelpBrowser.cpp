#include "HelpBrowser.h"

#include "Functions.h"
#include "Text.h"

#include <QBuffer>
#include <QHelpEngineCore>
#include <QImageReader>
#include <QRegularExpression>

#include <algorithm>

namespace veskora {

HelpBrowser::HelpBrowser(QWidget *parent) : QTextBrowser(parent)
{
    // Pages and pictures have colours made for a light ground, as the canvas has. A palette would
    // yield to a style sheet of the application.
    setStyleSheet("QTextEdit { background-color: white; color: black; }");
    constexpr int margin = 16;
    document()->setDocumentMargin(margin);
}

QVariant HelpBrowser::loadResource(int type, const QUrl &name)
{
    const QUrl url = source().resolved(name);
    if (engine_ == nullptr || !engine_->findFile(url).isValid()) {
        const QString text = qtText(Metafrasi(2171, "The help has no such page:"));
        return "<p>" + text + " " + url.fileName().toHtmlEscaped() + "</p>";
    }
    if (type == QTextDocument::ImageResource)
        return picture(url);
    return engine_->fileData(url);
}

void HelpBrowser::doSetSource(const QUrl &url, QTextDocument::ResourceType type)
{
    if (url.scheme() == "example")
        emit exampleWanted(url.path());
    else
        QTextBrowser::doSetSource(url, type);
}

/// A drawing is painted at the screen's pixels; a photograph of the program, taken with two pixels
/// for each logical one, is brought to them smoothly.
QImage HelpBrowser::picture(const QUrl &url) const
{
    QByteArray content = engine_->fileData(url);
    QBuffer buffer(&content);
    QImageReader reader(&buffer);
    const bool drawing = url.path().endsWith(".svg");
    const QSize size = drawing ? reader.size() : reader.size() / 2;
    const QSize pixels = size * devicePixelRatioF();
    if (drawing)
        reader.setScaledSize(pixels);
    QImage image = reader.read();
    if (!drawing)
        image = image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(devicePixelRatioF());
    return image;
}

void HelpBrowser::mark(const QStringList &words)
{
    QList<ExtraSelection> marks;
    for (const QString &word : words) {
        const QRegularExpression beginning("\\b" + QRegularExpression::escape(word) + "\\w*",
                                           QRegularExpression::CaseInsensitiveOption
                                               | QRegularExpression::UseUnicodePropertiesOption);
        for (QTextCursor at = document()->find(beginning); !at.isNull();
             at = document()->find(beginning, at)) {
            ExtraSelection mark;
            mark.cursor = at;
            mark.format.setBackground(QColor(0xff, 0xee, 0x99));
            marks.append(mark);
        }
    }
    setExtraSelections(marks);
    const auto first = std::min_element(
        marks.begin(), marks.end(),
        [](const ExtraSelection &a, const ExtraSelection &b) { return a.cursor < b.cursor; });
    if (first == marks.end())
        return;
    QTextCursor start = first->cursor;
    start.clearSelection();
    setTextCursor(start);
    ensureCursorVisible();
}

} // namespace veskora

#include "moc_HelpBrowser.cpp"
