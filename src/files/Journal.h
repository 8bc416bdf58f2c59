#pragma once
/// @file
/// The journal: a copy of the model on disk while it differs from its file, so that a process that
/// is killed costs a moment's work and not that of an hour.

#include "FileSystem.h"

#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace veskora {

/// A journal on disk, held by this process: the file, and beside it the lock that tells whether its
/// process lives.
struct JournalFile
{
    std::string path; ///< a model file, behind whose end stand the name and sum of the model's own
    std::unique_ptr<LockFile> lock;

    void remove();
};

/// The file of the model that a journal is a copy of.
struct FileOfJournal
{
    std::string path;                 ///< empty where it has none
    std::optional<std::uint64_t> sum; ///< as the process knew it
};

/// A journal whose process is gone.
struct LostJournal
{
    JournalFile file;
    FileOfJournal model;
};

/// All that there are, the oldest first. Each is held until its row goes, so that no other copy of
/// the program sees it meanwhile.
std::vector<LostJournal> lostJournals();

/// Of the model whose journal @p path is; none where the file is no journal, or not a whole one.
std::optional<FileOfJournal> modelOfJournal(const std::string &path);

/// The journal of this process; there is one at most. Its file is in the recovery folder while it
/// is needed, and goes with this object.
class Journal
{
public:
    Journal();
    ~Journal();
    Journal(const Journal &) = delete;
    Journal &operator=(const Journal &) = delete;

    /// To be called once a second. Writes what has changed once it has rested since the last call,
    /// or has waited for long; the disk is waited for elsewhere.
    /// Fault: why it cannot be written, or could not the last time. The next call tries again.
    void look();

    /// The model is as its file has it, or is a new one.
    void settle();

    /// The model came from @p lost, which is this process's own from now on.
    void takeOver(LostJournal &lost);

    /// The model's text when it was last settled; empty behind `takeOver`.
    const std::string &settledText() const { return saved_; }

    /// Whether a change is on its way to the file, and may still be refused.
    bool isWriting() const { return writing_.valid(); }
    /// Until what is being written stands in its file.
    void waitForWriting();

    /// At once, for an end that nobody called for; where it cannot be, what stands there stays.
    static void keepNow() noexcept;

private:
    void startWriting();
    void finishWriting();
    void startSyncing() noexcept;
    void claimFile();
    void removeFile() noexcept;

    std::string saved_;   ///< the model's text as its file has it
    std::string seen_;    ///< and as it was at the last look
    std::string written_; ///< and as the journal has it
    int waited_ = 0;      ///< looks since the first change that the journal lacks
    int refusals_ = 0;    ///< of folders that took a lock and no journal
    JournalFile file_;    ///< without a lock where there is none
    std::future<void> writing_;
    std::future<void> syncing_; ///< a busy disk may take seconds
    bool isSyncDue_ = false;
};

} // namespace veskora
