#pragma once
/// @file
/// The toolkit's own texts in the program's language.

#include <QHash>
#include <QTranslator>

namespace veskora {

/// Speaks for the toolkit: by its own translations where it has the language, else by the words of
/// the program's pack for its file and colour dialogs and the menus of text fields.
class ToolkitTexts : public QTranslator
{
public:
    /// Begins to speak, in the language `Glossa`; packs are named in English, as the toolkit's
    /// languages are. To be called once.
    void takeLanguage();

    QString translate(const char *context, const char *source, const char *comment,
                      int number) const override;
    bool isEmpty() const override;

private:
    QHash<QString, QString> words_; ///< by the toolkit's English; empty where it needs none
};

} // namespace veskora
