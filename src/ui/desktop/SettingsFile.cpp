#include "SettingsFile.h"

#include "Fault.h"
#include "FileSystem.h"
#include "Text.h"

#include <cerrno>
#include <sys/stat.h>
#include <system_error>

namespace veskora {

namespace {

const QString escapeLetters = "abfnrtv", escapedCharacters = "\a\b\f\n\r\t\v";

/// The digit of a number to base 16, -1 for another character.
int digitOf(QChar c)
{
    bool isDigit = false;
    const int digit = QString(c).toInt(&isDigit, 16);
    return isDigit ? digit : -1;
}

/// Of the backslash at @p at, which moves to the last character that belongs to it.
QChar unescaped(const QString &raw, qsizetype &at)
{
    const QChar letter = raw.at(++at);
    if (const qsizetype known = escapeLetters.indexOf(letter); known >= 0)
        return escapedCharacters.at(known);
    if (letter != 'x')
        return letter;
    int code = 0;
    for (int digit = 0; at + 1 < raw.size() && (digit = digitOf(raw.at(at + 1))) >= 0; ++at)
        code = (code * 16 + digit) & 0xffff;
    return QChar(code);
}

/// Of what stands behind the equals sign, without blanks at its ends. A comma that is not quoted,
/// as a hand types it, is one like others.
QString decoded(const QString &raw)
{
    QString text;
    for (qsizetype at = 0; at < raw.size(); ++at)
        if (raw.at(at) == '\\' && at + 1 < raw.size())
            text += unescaped(raw, at);
        else if (raw.at(at) != '"')
            text += raw.at(at);
    if (text.startsWith("@@"))
        return text.mid(1);
    return text.startsWith('@') && text.endsWith(')') ? QString() : text; // an array, say
}

QString encoded(const QString &text)
{
    QString raw = text.startsWith('@') ? "@" : "";
    bool isNumberOpen = false; // a digit behind it would belong to it
    for (const QChar c : text) {
        const qsizetype known = escapedCharacters.indexOf(c);
        const bool isNumber = known < 0 && (c < ' ' || (isNumberOpen && digitOf(c) >= 0));
        isNumberOpen = isNumber;
        if (isNumber)
            raw += "\\x" + QString::number(c.unicode(), 16);
        else if (known >= 0)
            raw += QString("\\") + escapeLetters.at(known);
        else
            raw += c == '"' || c == '\\' ? QString("\\") + c : QString(c);
    }
    const bool isPlain = raw == raw.trimmed() && !raw.contains(';') && !raw.contains(',')
                         && !raw.contains('=') && !raw.contains('"');
    return isPlain ? raw : '"' + raw + '"';
}

} // namespace

QString SettingsFile::value(const QString &section, const QString &key)
{
    try {
        read();
    } catch (const Fault &) {
        // What is known of it counts.
    }
    const QString inFile = sections_.value(section).value(key);
    return decoded(stored_.value(section).value(key, inFile));
}

void SettingsFile::store(const QString &section, const QString &key, const QString &value)
{
    stored_[section][key] = encoded(value);
}

bool SettingsFile::write()
try {
    if (stored_.isEmpty())
        return true;
    const Turn turn(path_.toStdString() + ".turn"); // no other copy writes meanwhile
    read();                                         // what cannot be read must not be replaced
    Sections all = sections_;
    for (auto section = stored_.cbegin(); section != stored_.cend(); ++section)
        all[section.key()].insert(*section);
    if (all != sections_) {
        QString text;
        for (auto section = all.cbegin(); section != all.cend(); ++section) {
            if (!section.key().isEmpty())
                text += (text.isEmpty() ? "[" : "\n[") + section.key() + "]\n";
            for (auto key = section->cbegin(); key != section->cend(); ++key)
                text += key.key() + '=' + *key + '\n';
        }
        writeWholeFile(path_.toStdString(), text.toStdString(), Durability::onDisk);
    }
    sections_ = all;
    stored_.clear();
    read_ = stamp();
    return true;
} catch (const Fault &) {
    return false;
}

SettingsFile::Stamp SettingsFile::stamp() const
{
    struct stat status = {};
    if (::stat(path_.toUtf8(), &status) == 0)
        return {status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
    if (errno != ENOENT && errno != ENOTDIR)
        throw Fault(std::generic_category().message(errno));
    return {};
}

void SettingsFile::read()
{
    const Stamp now = stamp();
    if (now == read_)
        return;
    const QString text =
        now == Stamp() ? QString() : QString::fromStdString(wholeFile(path_.toStdString()));
    sections_.clear();
    QString section;
    for (const QString &line : text.split('\n')) {
        const QString setting = line.trimmed();
        const qsizetype equals = setting.indexOf('=');
        if (setting.startsWith(';') || setting.startsWith('#'))
            continue;
        if (setting.startsWith('[') && setting.endsWith(']'))
            section = setting.mid(1, setting.size() - 2).trimmed();
        else if (equals > 0)
            sections_[section][setting.left(equals).trimmed()] = setting.mid(equals + 1).trimmed();
    }
    read_ = now;
}

} // namespace veskora
