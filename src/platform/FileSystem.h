#pragma once
/// @file
/// Files as the program handles them: only regular ones are read, and a written one is there whole
/// or not at all. Paths are UTF-8. A refusal is a `Fault` with the system's reason, unless a
/// routine says otherwise.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace veskora {

/// Owns a file descriptor.
class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor();
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    int number() const { return number_; }
    bool valid() const { return number_ >= 0; }

    /// Closes now, so that an error that the system reports only at closing is seen.
    void close();

private:
    int number_;
};

/// A regular file opened for reading.
class InputFile
{
public:
    explicit InputFile(const std::string &path);

    /// Reads up to @p size bytes; 0 at the end of the file.
    std::size_t read(char *buffer, std::size_t size);

private:
    Descriptor descriptor_;
};

enum class Durability {
    untilPowerFails, ///< scratch files
    onDisk,          ///< what the user saves
};

/// Puts @p content into @p path so that at every moment either the old file or the whole new one
/// stands there: it is written beside the target and renamed over it. Symbolic links are followed;
/// owner, group, mode and access list of the old file are kept.
///
/// Where the folder forbids new files, a new file could not have all of these, or the old one has
/// other hard links, it is written in place. Its old content then stands in the recovery folder
/// meanwhile; it is written back when something fails, and where not even that succeeds the fault
/// says where it is kept.
void writeWholeFile(const std::string &path, std::string_view content, Durability durability);

/// The same on disk, where nobody asks why it failed.
/// @return whether it was written
bool tryWriteWholeFile(const std::string &path, std::string_view content);

/// Puts @p content into a new file, which its owner alone can read at every moment.
/// Fault: what the system refused, as where there is such a file or a link of that name.
void writePrivateFile(const std::string &path, std::string_view content, Durability durability);

/// The same in the place of what stands there: at every moment the old file or the whole new one
/// does. It outlasts the process at once, and the machine when it is brought to the disk.
void replacePrivateFile(const std::string &path, std::string_view content);

/// Waits for the disk to have the file; where it cannot, or there is none, nothing happens.
void bringFileToDisk(const std::string &path);

/// Removes such a file, and what is left of a writing that was cut off.
void removePrivateFile(const std::string &path);

/// All that stands in a regular file.
std::string wholeFile(const std::string &path);

/// A sum that tells one content from another (FNV-1a of 64 bits): it is the same in every build.
std::uint64_t sumOf(std::string_view content);
/// That of what stands in a regular file; none where it cannot be read.
std::optional<std::uint64_t> sumOfFile(const std::string &path);

/// While it lives, another copy of the program that wants the same one waits: for what must be
/// read, changed and written in one piece. Nobody waits for more than two seconds, as for a copy
/// that was stopped, nor where the system knows no locks: then the last one has its way.
class Turn
{
public:
    /// @param file  to be locked; made, with its folder, where it is not there
    explicit Turn(const std::string &file);

private:
    Descriptor descriptor_;
};

/// A file that one process holds locked. The lock goes with the process, however it ends.
class LockFile
{
public:
    /// A new file. @return null where the system refuses it, or there is such a file
    static std::unique_ptr<LockFile> make(const std::string &path);
    /// One that is there. @return null where another process has it, or it is not the user's own
    static std::unique_ptr<LockFile> take(const std::string &path);

    /// Whether others find it: nobody has cleaned the folder up.
    bool isThere() const;
    /// Removes the file; the lock goes with this object.
    void remove();

private:
    LockFile(std::string path, int flags);
    bool lock();

    std::string path_;
    Descriptor descriptor_;
};

/// The folder for the scratch file of this copy of the program: @p programFolder where it can be
/// written and no other running copy uses it, else the private one.
std::string scratchFolder(const std::string &programFolder);

/// The folder of what comes with the program: language packs, help, examples, the web page. They
/// are in share/veskora-ml of the tree in which the program is installed, wherever that was moved
/// to, else beside the program itself.
std::string suppliedFilesFolder(const std::string &programFolder);

/// A folder among the temporary files that no other user can enter, removed at the end.
std::string privateFolder();
/// For an end at which the destructors of static objects do not run.
void removePrivateFolder();

/// The folder that @p path stands in, as an absolute path.
std::string folderOf(const std::string &path);

/// Whether files can be made in @p folder.
bool isWritableFolder(const std::string &folder);

/// The working directory when it is worth starting from, else @p documentsFolder: a program started
/// from a menu stands in "/", and one started from read-only media cannot save there.
std::string startFolder(const std::string &documentsFolder);

} // namespace veskora
