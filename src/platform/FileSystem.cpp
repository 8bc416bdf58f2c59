#include "FileSystem.h"

#include "Fault.h"
#include "RecoveryFolder.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace veskora {

namespace {

[[noreturn]] void fail(int error = errno)
{
    throw Fault(std::generic_category().message(error));
}

void requireRegularFile(const struct stat &status)
{
    if (S_ISDIR(status.st_mode))
        fail(EISDIR);
    if (!S_ISREG(status.st_mode))
        throw Fault("It is not a regular file");
}

/// Whether the answer is that of a file system that has no such thing.
bool isUnknownHere(int error)
{
    return error == EINVAL || error == ENOTSUP; // EOPNOTSUPP is the same number
}

void writeAll(int descriptor, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor, content.data(), content.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            fail(written == 0 ? ENOSPC : errno);
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

void bringToDisk(int descriptor, Durability durability)
{
    if (durability == Durability::onDisk && ::fsync(descriptor) != 0 && !isUnknownHere(errno))
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

/// A file beside the target with a name of its own, removed again unless it was renamed.
class TemporaryFile
{
public:
    explicit TemporaryFile(const fs::path &target)
        : name_(target.parent_path() / ".veskora-XXXXXX"),
          descriptor_(::mkostemp(name_.data(), O_CLOEXEC)),
          exists_(descriptor_.valid())
    {}
    ~TemporaryFile()
    {
        if (exists_)
            ::unlink(name_.c_str());
    }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    const std::string &name() const { return name_; }
    Descriptor &descriptor() { return descriptor_; }
    bool valid() const { return exists_; }

    /// @return whether the system allowed it
    bool renameTo(const fs::path &target)
    {
        const bool renamed = ::rename(name_.c_str(), target.c_str()) == 0;
        exists_ = exists_ && !renamed;
        return renamed;
    }

private:
    std::string name_;
    Descriptor descriptor_;
    bool exists_;
};

/// Whether a refusal of the folder is one that a file written in place does not meet: a folder that
/// forbids new files, or one where only owners may replace, or a file mounted by itself.
bool allowsWritingInPlace(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY || error == EXDEV;
}

/// The mode that a new file gets from the user's mask.
mode_t newFileMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

void syncFolder(const fs::path &folder)
{
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.valid())
        (void)::fsync(descriptor.number()); // some file systems cannot; the file itself is safe
}

/// The access lists that a file has beyond its mode, as the system stores them.
std::string accessLists(const std::string &path)
{
    std::string lists;
    for (const char *name : {"system.posix_acl_access", "system.nfs4_acl"}) {
        std::string list(65536, '\0'); // the kernel has none longer
        const ssize_t size = ::getxattr(path.c_str(), name, list.data(), list.size());
        lists.append(list, 0, size > 0 ? static_cast<std::size_t>(size) : 0);
    }
    return lists;
}

/// Gives a new file group, owner and mode of the file that it is to replace.
/// @return whether it took them all, and has the same access list
bool takesAfter(TemporaryFile &file, const fs::path &target, const struct stat &old)
{
    const int number = file.descriptor().number();
    // One by one: the group may be allowed where the owner is not.
    (void)!::fchown(number, static_cast<uid_t>(-1), old.st_gid);
    (void)!::fchown(number, old.st_uid, static_cast<gid_t>(-1));
    (void)::fchmod(number, old.st_mode & 07777);
    struct stat now = {};
    return ::fstat(number, &now) == 0 && now.st_gid == old.st_gid && now.st_uid == old.st_uid
           && now.st_mode == old.st_mode && accessLists(file.name()) == accessLists(target);
}

/// Writes a new file beside @p target and renames it over it.
/// @param old  what stands there; null where nothing does
/// @return false, with nothing changed, where a new file cannot take the place of the old one
bool replaceFile(const fs::path &target, const struct stat *old, std::string_view content,
                 Durability durability)
{
    const auto refused = [old] {
        if (old == nullptr || !allowsWritingInPlace(errno))
            fail();
        return false;
    };
    if (old != nullptr && old->st_nlink > 1)
        return false; // its other names would keep the old content
    TemporaryFile temporary(target);
    if (!temporary.valid())
        return refused();
    Descriptor &file = temporary.descriptor();
    if (old != nullptr && !takesAfter(temporary, target, *old))
        return false;
    if (old == nullptr && ::fchmod(file.number(), newFileMode()) != 0 && !isUnknownHere(errno)
        && errno != EPERM)
        fail();
    writeAll(file.number(), content);
    bringToDisk(file.number(), durability);
    file.close();
    if (!temporary.renameTo(target))
        return refused();
    if (durability == Durability::onDisk)
        syncFolder(folderOf(target.string()));
    return true;
}

/// Not emptied first: room that the old content has cannot run out while it is written back.
void overwrite(const fs::path &target, std::string_view content, Durability durability)
{
    Descriptor file(::open(target.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file.valid())
        fail();
    writeAll(file.number(), content);
    if (::ftruncate(file.number(), static_cast<off_t>(content.size())) != 0)
        fail();
    bringToDisk(file.number(), durability);
    file.close();
}

bool holds(const fs::path &path, const std::string &content)
try {
    return wholeFile(path.string()) == content;
} catch (const Fault &) {
    return false;
}

/// Writes the old file itself. Until that is done its old content stands in the recovery folder,
/// where a crash leaves it.
void writeInPlace(const fs::path &target, std::string_view content, Durability durability)
{
    const std::string old = wholeFile(target.string());
    const auto keep = [&] { return keepInRecoveryFolder(old, target.extension().string()); };
    std::string copy = keep();
    std::error_code ignored;
    try {
        overwrite(target, content, durability);
    } catch (const Fault &fault) {
        try {
            if (!holds(target, old))
                overwrite(target, old, durability);
        } catch (const Fault &) {
            // What counts is what stands there, which is asked next.
        }
        if (!holds(target, old)) {
            if (copy.empty())
                copy = keep();
            throw Fault(fault.facts() + "; the old file is damaged, "
                        + (copy.empty() ? "and its content could not be kept"
                                        : "its content is kept in " + copy));
        }
        fs::remove(copy, ignored);
        throw;
    }
    fs::remove(copy, ignored);
}

/// A folder that no other user can enter, removed by the process that made it.
class PrivateFolder
{
public:
    PrivateFolder() = default;
    ~PrivateFolder() { remove(); }
    PrivateFolder(const PrivateFolder &) = delete;
    PrivateFolder &operator=(const PrivateFolder &) = delete;

    /// Its path; made anew when it is not there, as after a clean-up of temporary files.
    const std::string &path()
    {
        if (maker_ != ::getpid() || !isWritableFolder(path_))
            make();
        return path_;
    }

    void remove()
    {
        std::error_code ignored;
        if (maker_ == ::getpid()) // a child that was forked off must leave it
            fs::remove_all(path_, ignored);
    }

private:
    void make()
    {
        std::error_code ignored;
        fs::path base = fs::temp_directory_path(ignored);
        if (base.empty())
            base = "/tmp";
        std::string pattern = (base / "veskora-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            fail();
        path_ = pattern;
        maker_ = ::getpid();
    }

    std::string path_;
    pid_t maker_ = 0;
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

Descriptor::~Descriptor()
{
    if (valid())
        ::close(number_);
}

void Descriptor::close()
{
    if (::close(std::exchange(number_, -1)) != 0)
        fail();
}

InputFile::InputFile(const std::string &path)
    // Without O_NONBLOCK, opening a pipe that nobody writes would wait for ever.
    : descriptor_(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
{
    struct stat status = {};
    if (!descriptor_.valid() || ::fstat(descriptor_.number(), &status) != 0)
        fail();
    requireRegularFile(status);
}

std::size_t InputFile::read(char *buffer, std::size_t size)
{
    for (;;) {
        const ssize_t count = ::read(descriptor_.number(), buffer, size);
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
    if (exists)
        requireRegularFile(old);
    // A rename asks the folder's permission only; a file that its owner protected stays protected.
    if (exists && ::access(target.c_str(), W_OK) != 0)
        fail();

    if (!replaceFile(target, exists ? &old : nullptr, content, durability))
        writeInPlace(target, content, durability);
} catch (const fs::filesystem_error &error) {
    throw Fault(error.code().message());
}

bool tryWriteWholeFile(const std::string &path, std::string_view content)
try {
    writeWholeFile(path, content, Durability::onDisk);
    return true;
} catch (const Fault &) {
    return false;
}

void writePrivateFile(const std::string &path, std::string_view content, Durability durability)
{
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file.valid())
        fail();
    try {
        writeAll(file.number(), content);
        bringToDisk(file.number(), durability);
        file.close();
    } catch (const Fault &) {
        (void)::unlink(path.c_str());
        throw;
    }
    if (durability == Durability::onDisk)
        syncFolder(folderOf(path));
}

namespace {

std::string partOf(const std::string &path)
{
    return path + ".part";
}

} // namespace

void removePrivateFile(const std::string &path)
{
    (void)::unlink(path.c_str());
    (void)::unlink(partOf(path).c_str());
}

void replacePrivateFile(const std::string &path, std::string_view content)
{
    const std::string part = partOf(path);
    (void)::unlink(part.c_str());
    writePrivateFile(part, content, Durability::untilPowerFails);
    if (::rename(part.c_str(), path.c_str()) != 0)
        fail();
}

void bringFileToDisk(const std::string &path)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file.valid() && ::fsync(file.number()) == 0)
        syncFolder(folderOf(path));
}

std::string wholeFile(const std::string &path)
{
    InputFile file(path);
    std::string content;
    std::array<char, 16384> piece;
    while (const std::size_t count = file.read(piece.data(), piece.size()))
        content.append(piece.data(), count);
    return content;
}

namespace {

std::uint64_t sumOf(std::string_view content, std::uint64_t before)
{
    for (const char byte : content)
        before = (before ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    return before;
}

constexpr std::uint64_t sumOfNothing = 0xcbf29ce484222325U;

} // namespace

std::uint64_t sumOf(std::string_view content)
{
    return sumOf(content, sumOfNothing);
}

std::optional<std::uint64_t> sumOfFile(const std::string &path)
try {
    InputFile file(path);
    std::uint64_t sum = sumOfNothing;
    std::array<char, 16384> piece;
    while (const std::size_t count = file.read(piece.data(), piece.size()))
        sum = sumOf({piece.data(), count}, sum);
    return sum;
} catch (const Fault &) {
    return std::nullopt;
}

namespace {

int openedLock(const std::string &file)
{
    std::error_code ignored;
    fs::create_directories(fs::path(file).parent_path(), ignored);
    // Some network file systems lock only what may be written.
    return ::open(file.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
}

} // namespace

Turn::Turn(const std::string &file) : descriptor_(openedLock(file))
{
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 2s;
    while (::flock(descriptor_.number(), LOCK_EX | LOCK_NB) != 0
           && (errno == EWOULDBLOCK || errno == EINTR) && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(5ms);
}

LockFile::LockFile(std::string path, int flags)
    : path_(std::move(path)),
      descriptor_(::open(path_.c_str(), flags | O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600))
{}

bool LockFile::isThere() const
{
    struct stat status = {};
    return ::fstat(descriptor_.number(), &status) == 0 && status.st_nlink > 0
           && status.st_uid == ::geteuid();
}

/// Its last holder may have removed the file between the opening and the lock.
bool LockFile::lock()
{
    return descriptor_.valid() && ::flock(descriptor_.number(), LOCK_EX | LOCK_NB) == 0
           && isThere();
}

std::unique_ptr<LockFile> LockFile::make(const std::string &path)
{
    std::unique_ptr<LockFile> file(new LockFile(path, O_CREAT | O_EXCL));
    if (file->lock())
        return file;
    if (file->descriptor_.valid())
        file->remove(); // a file system that knows no locks
    return nullptr;
}

std::unique_ptr<LockFile> LockFile::take(const std::string &path)
{
    std::unique_ptr<LockFile> file(new LockFile(path, 0));
    return file->lock() ? std::move(file) : nullptr;
}

void LockFile::remove()
{
    (void)::unlink(path_.c_str());
}

std::string scratchFolder(const std::string &programFolder)
{
    if (claimsFolder(programFolder))
        return programFolder;
    return privateFolder();
}

std::string suppliedFilesFolder(const std::string &programFolder)
{
    const fs::path installed =
        (fs::path(programFolder) / VESKORA_SUPPLIED_FILES).lexically_normal();
    std::error_code error;
    return fs::is_directory(installed, error) ? installed.string() : programFolder;
}

namespace {

PrivateFolder &ownFolder()
{
    static PrivateFolder folder;
    return folder;
}

} // namespace

std::string privateFolder()
{
    return ownFolder().path();
}

void removePrivateFolder()
{
    ownFolder().remove();
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
