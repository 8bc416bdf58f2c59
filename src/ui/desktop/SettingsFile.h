#pragma once
/// @file
/// The file of the user's settings.

#include <QMap>
#include <QString>

namespace veskora {

/// Texts by section and key, in the toolkit's format of settings files. The toolkit's own class
/// takes a file that it cannot read for an empty one, and a disk that is full for one that took
/// everything; either way the user's settings are gone, and nobody hears of it.
///
/// Several copies of the program share the file: each reads it afresh where it was changed, and
/// writes no more than what it stored itself.
class SettingsFile
{
public:
    explicit SettingsFile(const QString &path) : path_(path) {}
    ~SettingsFile() { (void)write(); }
    SettingsFile(const SettingsFile &) = delete;
    SettingsFile &operator=(const SettingsFile &) = delete;

    const QString &path() const { return path_; }

    /// Empty where there is none, or one that is no text.
    QString value(const QString &section, const QString &key);
    void store(const QString &section, const QString &key, const QString &value);
    /// Brings to the disk what was stored. What is refused waits for the next time.
    /// @return whether all of it is there
    bool write();

private:
    using Sections = QMap<QString, QMap<QString, QString>>; ///< values as they stand in the file

    /// Of a file that is not there, all 0.
    struct Stamp
    {
        unsigned long long number = 0;
        long long size = 0, seconds = 0, nanoseconds = 0;
        bool operator==(const Stamp &) const = default;
    };

    Stamp stamp() const;
    void read();

    const QString path_;
    Sections sections_, stored_;
    Stamp read_; ///< of the file as it was last read
};

} // namespace veskora
