#include "Journal.h"

#include "Fault.h"
#include "Functions.h"
#include "Metablites.h"
#include "ModelText.h"
#include "Recovery.h"
#include "RecoveryFolder.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

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
    return text + std::string(nameLine) + model;
}

std::string modelNamedIn(const fs::path &path)
try {
    const std::string text = wholeFile(path.string());
    const std::size_t at = text.find(nameLine);
    return at == std::string::npos ? std::string() : text.substr(at + nameLine.size());
} catch (const Fault &) {
    return {}; // opening it says why
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
        for (const auto &entry : fs::directory_iterator(folder, ignored)) {
            fs::path path = entry.path();
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
                lost.push_back({std::move(file), modelNamedIn(path)});
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
    if (seen_ == saved_)
        removeFile();
    else if (waited_ >= longestWait || (waited_ > 0 && rests)) {
        claimFile();
        written_ = seen_;
        waited_ = 0;
        writing_ =
            std::async(std::launch::async, replacePrivateFile, file_.path, journalText(written_));
    }
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
    } catch (const Fault &) {
        written_.clear();
        throw;
    }
    if (!isBusy(syncing_)) // behind the renaming: a kill in those seconds finds the new one
        syncing_ = std::async(std::launch::async, bringFileToDisk, file_.path);
}

/// A name of its own in the first folder that allows it.
void Journal::claimFile()
{
    if (file_.lock != nullptr && file_.lock->isThere())
        return;
    const std::string name = datedName(journalName);
    std::error_code ignored;
    for (const std::string &folder : recoveryFolders()) {
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
    seen_.clear();
    written_.clear();
    waited_ = 0;
}

} // namespace veskora
