#include "Journal.h"

#include "Fault.h"
#include "Functions.h"
#include "Metablites.h"
#include "ModelText.h"
#include "Recovery.h"
#include "RecoveryFolder.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace veskora {

namespace {

constexpr const char *journalName = "Veskora_journal_";
constexpr const char *lockExtension = ".lock";

/// Looks until a change is written that others follow all the time: 6 s, as the change may be one
/// second older than the look that finds it, and a busy machine takes its time.
constexpr int longestWait = 6;

Journal *current = nullptr;

/// What stands behind the end of the model, where no reader of model files looks.
constexpr std::string_view nameLine = "Journal of the model\r\n";

std::string journalText(const std::string &text)
{
    std::error_code ignored;
    const std::string model =
        Onoma_Arxeiou.empty() ? Onoma_Arxeiou : fs::absolute(Onoma_Arxeiou, ignored).string();
    std::string tail = std::string(nameLine) + model;
    if (knownFileSum) // behind the one byte that no path has
        tail += '\0' + std::to_string(*knownFileSum);
    return text + tail;
}

FileOfJournal fileOf(const std::string &tail)
{
    FileOfJournal file = {tail.substr(0, tail.find('\0')), std::nullopt};
    const char *const end = tail.data() + tail.size();
    std::uint64_t sum = 0;
    if (file.path.size() < tail.size()) {
        const auto read = std::from_chars(tail.data() + file.path.size() + 1, end, sum);
        if (read.ec == std::errc() && read.ptr == end)
            file.sum = sum;
    }
    return file;
}

bool isBusy(const std::future<void> &work)
{
    using namespace std::chrono_literals;
    return work.valid() && work.wait_for(0s) != std::future_status::ready;
}

bool isTaken(const std::string &base)
{
    std::error_code ignored;
    return fs::exists(base + lockExtension, ignored) || fs::exists(base + modelExtension, ignored);
}

} // namespace

std::optional<FileOfJournal> modelOfJournal(const std::string &path)
try {
    const std::string text = wholeFile(path);
    const std::size_t at = text.find(std::string(modelEndLine) + "\r\n" + std::string(nameLine));
    return at == std::string::npos
               ? std::nullopt
               : std::optional(fileOf(text.substr(text.find(nameLine, at) + nameLine.size())));
} catch (const Fault &) {
    return std::nullopt;
}

void JournalFile::remove()
{
    removePrivateFile(path); // first: what is seen of the lock alone is nobody's any more
    lock->remove();
}

std::vector<LostJournal> lostJournals()
{
    std::vector<LostJournal> lost;
    std::error_code ignored;
    for (const std::string &folder : recoveryFolders())
        for (fs::directory_iterator at(folder, ignored), end; at != end; at.increment(ignored)) {
            fs::path path = at->path();
            if (!path.filename().string().starts_with(journalName)
                || path.extension() != lockExtension)
                continue;
            std::unique_ptr<LockFile> lock = LockFile::take(path.string());
            path.replace_extension(modelExtension);
            JournalFile file = {path.string(), std::move(lock)};
            if (file.lock == nullptr)
                continue;
            if (!fs::exists(file.path, ignored))
                file.remove(); // its process ended before it had written anything
            else
                lost.push_back(
                    {std::move(file), modelOfJournal(path.string()).value_or(FileOfJournal())});
        }
    std::ranges::sort(lost, {}, [](const LostJournal &one) { return one.file.path; });
    return lost;
}

Journal::Journal()
{
    current = this;
}

Journal::~Journal()
{
    removeFile();
    current = nullptr;
}

void Journal::look()
{
    std::string text = isModelEmpty() ? saved_ : modelText();
    const bool rests = text == seen_;
    seen_ = std::move(text);
    waited_ = seen_ == written_ ? 0 : waited_ + 1;
    if (isBusy(writing_))
        return;
    finishWriting();
    startSyncing();
    if (seen_ == saved_)
        removeFile();
    else if (waited_ >= longestWait || (waited_ > 0 && rests))
        startWriting();
}

void Journal::startWriting()
{
    claimFile();
    const std::string text = journalText(seen_);
    try {
        writing_ = std::async(std::launch::async, replacePrivateFile, file_.path, text);
    } catch (const std::system_error &) { // there is no thread to be had
        replacePrivateFile(file_.path, text);
    }
    written_ = seen_;
    waited_ = 0;
}

void Journal::settle()
{
    removeFile();
    saved_ = modelText();
}

void Journal::takeOver(LostJournal &lost)
{
    removeFile();
    file_ = std::move(lost.file);
    saved_.clear();
}

void Journal::keepNow() noexcept
try {
    if (current == nullptr || isModelEmpty() || modelText() == current->saved_)
        return;
    current->claimFile();
    current->waitForWriting();
    replacePrivateFile(current->file_.path, journalText(modelText()));
    bringFileToDisk(current->file_.path);
} catch (const std::exception &) {
    // The recovery file, or what the journal has, must do.
}

void Journal::waitForWriting()
{
    if (writing_.valid())
        writing_.wait();
}

void Journal::finishWriting()
{
    if (!writing_.valid())
        return;
    try {
        writing_.get();
        isSyncDue_ = true;
    } catch (...) {
        written_.clear();
        if (std::error_code ignored;
            !fs::exists(file_.path, ignored)) { // no older one to stay with
            file_.remove();
            file_ = {};
            ++refusals_;
        }
        throw;
    }
}

/// Behind the renaming: a kill in the seconds that it may take finds the new one.
void Journal::startSyncing() noexcept
try {
    if (!isSyncDue_ || isBusy(syncing_))
        return;
    syncing_ = std::async(std::launch::async, bringFileToDisk, file_.path);
    isSyncDue_ = false;
} catch (const std::system_error &) {
    // The next look tries again.
}

/// A name of its own in the first folder that allows it; one that is full allows a lock and no
/// more.
void Journal::claimFile()
{
    if (file_.lock != nullptr && file_.lock->isThere())
        return;
    const std::string name = datedName(journalName);
    std::error_code ignored;
    std::vector<std::string> folders = recoveryFolders();
    std::rotate(folders.begin(), folders.begin() + refusals_ % std::ssize(folders), folders.end());
    for (const std::string &folder : folders) {
        fs::create_directories(folder, ignored);
        std::string base = (fs::path(folder) / name).string();
        for (int number = 2; isTaken(base); ++number)
            base = (fs::path(folder) / (name + "_" + std::to_string(number))).string();
        file_ = {base + modelExtension, LockFile::make(base + lockExtension)};
        if (file_.lock != nullptr)
            return;
    }
    throw Fault("no folder takes it");
}

void Journal::removeFile() noexcept
{
    waitForWriting();
    writing_ = {};
    if (file_.lock != nullptr)
        file_.remove();
    file_ = {};
    isSyncDue_ = false;
    seen_.clear();
    written_.clear();
    waited_ = 0;
}

} // namespace veskora
