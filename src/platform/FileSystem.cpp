#include "FileSystem.h"

#include "Fault.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace veskora {

namespace {

Fault systemFault(int error)
{
    return {Fault::Kind::system, std::generic_category().message(error)};
}

[[noreturn]] void fail(int error = errno)
{
    throw systemFault(error);
}

/// Owns a file descriptor.
class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor()
    {
        if (number_ >= 0)
            ::close(number_);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    int number() const { return number_; }
    bool valid() const { return number_ >= 0; }

    /// Closes now, so that an error that the system reports only at closing is seen.
    void close()
    {
        const int number = number_;
        number_ = -1;
        if (::close(number) != 0)
            fail();
    }

private:
    int number_;
};

void writeAll(int descriptor, std::string_view content, Durability durability)
{
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor, content.data(), content.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            fail(written == 0 ? ENOSPC : errno);
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    if (durability == Durability::onDisk && ::fsync(descriptor) != 0)
        fail();
}

/// Follows symbolic links by hand, so that a link to a file that is not there yet leads to its
/// target too.
fs::path resolveLinks(fs::path path)
{
    constexpr int mostLinks = 40; // as the kernel's own limit
    for (int followed = 0; fs::is_symlink(fs::symlink_status(path)); ++followed) {
        if (followed == mostLinks)
            fail(ELOOP);
        const fs::path target = fs::read_symlink(path);
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

/// A name beside the target, removed again unless it was renamed.
class TemporaryFile
{
public:
    TemporaryFile(const fs::path &target, mode_t mode)
        : name_(target.parent_path() / (".veskora-" + std::to_string(::getpid()) + ".new")),
          descriptor_(open(name_, mode))
    {}
    ~TemporaryFile()
    {
        if (!renamed_)
            ::unlink(name_.c_str());
    }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    Descriptor &descriptor() { return descriptor_; }
    bool valid() const { return opened_; }

    void renameTo(const fs::path &target)
    {
        if (::rename(name_.c_str(), target.c_str()) != 0)
            fail();
        renamed_ = true;
    }

private:
    int open(const std::string &name, mode_t mode)
    {
        // A file of this name can only be left over from a process that died: the name is ours.
        ::unlink(name.c_str());
        const int number = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        opened_ = number >= 0;
        renamed_ = !opened_;
        return number;
    }

    std::string name_;
    bool opened_ = false;
    bool renamed_ = false;
    Descriptor descriptor_;
};

void syncFolder(const fs::path &folder)
{
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.valid())
        (void)::fsync(descriptor.number()); // some file systems cannot; the file itself is safe
}

void writeInPlace(const fs::path &target, std::string_view content, Durability durability)
{
    Descriptor file(::open(target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
    if (!file.valid())
        fail();
    writeAll(file.number(), content, durability);
    file.close();
}

/// A folder that no other user can enter, removed with the process.
class PrivateFolder
{
public:
    PrivateFolder()
    {
        std::error_code ignored;
        fs::path base = fs::temp_directory_path(ignored);
        if (base.empty())
            base = "/tmp";
        std::string pattern = (base / "veskora-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            fail();
        path_ = pattern;
    }
    ~PrivateFolder()
    {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    PrivateFolder(const PrivateFolder &) = delete;
    PrivateFolder &operator=(const PrivateFolder &) = delete;
    const std::string &path() const { return path_; }

private:
    std::string path_;
};

/// The first running copy to lock the program's folder may write there. The lock goes with the
/// process, so a crash leaves nothing behind.
bool claimsFolder(const std::string &folder)
{
    static std::string claimed;
    static std::optional<Descriptor> lock;
    if (lock && claimed == folder)
        return true;
    if (!isWritableFolder(folder))
        return false;
    lock.reset();
    claimed.clear();
    lock.emplace(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!lock->valid() || ::flock(lock->number(), LOCK_EX | LOCK_NB) != 0)
        return false;
    claimed = folder;
    return true;
}

} // namespace

InputFile::InputFile(const std::string &path)
    // Without O_NONBLOCK, opening a pipe that nobody writes would wait for ever.
    : descriptor_(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
{
    if (descriptor_ < 0)
        fail();
    struct stat status = {};
    const int answer = ::fstat(descriptor_, &status);
    if (answer != 0 || !S_ISREG(status.st_mode)) {
        const int error = answer != 0 ? errno : S_ISDIR(status.st_mode) ? EISDIR : 0;
        ::close(descriptor_);
        throw error != 0 ? systemFault(error)
                         : Fault(Fault::Kind::system, "It is not a regular file");
    }
}

InputFile::~InputFile()
{
    ::close(descriptor_);
}

std::size_t InputFile::read(char *buffer, std::size_t size)
{
    for (;;) {
        const ssize_t count = ::read(descriptor_, buffer, size);
        if (count >= 0)
            return static_cast<std::size_t>(count);
        if (errno != EINTR)
            fail();
    }
}

void writeWholeFile(const std::string &path, std::string_view content, Durability durability)
try {
    const fs::path target = resolveLinks(fs::path(path));
    struct stat old = {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode))
        fail(EISDIR);
    if (exists && !S_ISREG(old.st_mode))
        throw Fault(Fault::Kind::system, "It is not a regular file");
    // A rename asks the folder's permission only; a file that its owner protected stays protected.
    if (exists && ::access(target.c_str(), W_OK) != 0)
        fail();

    // What only its owner may read must not be readable for a moment either.
    TemporaryFile temporary(target, exists ? 0600 : 0666);
    if (!temporary.valid()) {
        const int error = errno;
        if (exists && (error == EACCES || error == EPERM || error == EROFS))
            return writeInPlace(target, content, durability);
        fail(error);
    }
    Descriptor &file = temporary.descriptor();
    writeAll(file.number(), content, durability);
    if (exists) {
        (void)!::fchown(file.number(), old.st_uid, old.st_gid); // only the superuser always may
        if (::fchmod(file.number(), old.st_mode & 07777) != 0)
            fail();
    }
    file.close();
    temporary.renameTo(target);
    if (durability == Durability::onDisk)
        syncFolder(folderOf(target.string()));
} catch (const fs::filesystem_error &error) {
    throw Fault(Fault::Kind::system, error.code().message());
}

std::string scratchFolder(const std::string &programFolder)
{
    if (claimsFolder(programFolder))
        return programFolder;
    static const PrivateFolder folder;
    return folder.path();
}

std::string folderOf(const std::string &path)
{
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return error ? std::string("/") : absolute.parent_path().string();
}

bool isWritableFolder(const std::string &folder)
{
    struct stat status = {};
    return ::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode)
           && ::access(folder.c_str(), W_OK | X_OK) == 0;
}

std::string startFolder(const std::string &documentsFolder)
{
    std::error_code error;
    const fs::path working = fs::current_path(error);
    if (!error && working != working.root_path() && isWritableFolder(working.string()))
        return working.string();
    return documentsFolder;
}

} // namespace veskora
