#include "Jobs.h"

#include "FileSystem.h"
#include "ResultTables.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace veskora {

namespace {

// A record is what was made of a model, as texts, each behind its size. Writer and reader are one
// program, so numbers stand as they do in memory.

using Size = std::uint64_t;

void putText(std::string &record, std::string_view text)
{
    const Size size = text.size();
    record.append(reinterpret_cast<const char *>(&size), sizeof size).append(text);
}

std::string takeText(std::string_view &record)
{
    Size size = 0;
    if (record.size() >= sizeof size)
        std::memcpy(&size, record.data(), sizeof size);
    if (record.size() < sizeof size || record.size() - sizeof size < size)
        throw std::runtime_error("a temporary file was changed by another program");
    std::string text(record.substr(sizeof size, size));
    record.remove_prefix(sizeof size + size);
    return text;
}

/// Keeps what is made of a model, and what is told meanwhile, as a record.
class Recorder : public Receiver
{
public:
    BatchDesktop &desktop() { return desktop_; }
    const std::string &record() const { return record_; }

    void take(std::size_t output, const Made &made) override
    {
        putTold();
        for (const std::string &text :
             {std::to_string(output), made.content, made.note, made.failure})
            putText(record_, text);
    }
    void end(bool failed, const CsvRow &summary) override
    {
        putTold();
        putText(record_, failed ? "failed" : "ended");
        for (const std::string &cell : summary)
            putText(record_, cell);
    }

private:
    void putTold()
    {
        putText(record_, told_.view());
        told_.str({});
    }

    std::ostringstream told_;
    BatchDesktop desktop_{told_};
    std::string record_;
};

void replay(std::string_view record, Delivery &delivery, std::ostream &err)
{
    for (;;) {
        err << takeText(record) << std::flush;
        const std::string output = takeText(record);
        if (output == "failed" || output == "ended") {
            CsvRow summary;
            while (!record.empty())
                summary.push_back(takeText(record));
            return delivery.end(output == "failed", summary);
        }
        Made made;
        for (std::string *text : {&made.content, &made.note, &made.failure})
            *text = takeText(record);
        delivery.take(std::stoul(output), made);
    }
}

/// A temporary file that goes with its last descriptor; null where there can be none.
std::unique_ptr<Descriptor> namelessFile()
{
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
    std::string name = (folder / "veskora-XXXXXX").string();
    const int number = error ? -1 : ::mkostemp(name.data(), O_CLOEXEC);
    if (number < 0)
        return nullptr;
    ::unlink(name.c_str());
    return std::make_unique<Descriptor>(number);
}

/// How many of @p wanted files can be open beside those that a model needs; at least one.
std::size_t openFiles(std::size_t wanted)
{
    constexpr rlim_t others = 16;
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return wanted;
    const rlimit raised = {std::min<rlim_t>(wanted + others, limit.rlim_max), limit.rlim_max};
    if (limit.rlim_cur < raised.rlim_cur && ::setrlimit(RLIMIT_NOFILE, &raised) == 0)
        limit = raised;
    return std::clamp<rlim_t>(limit.rlim_cur - std::min(limit.rlim_cur, others), 1, wanted);
}

bool writeAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return true;
}

bool readAll(int file, char *bytes, std::size_t size, off_t &from)
{
    while (size > 0) {
        const ssize_t count = ::pread(file, bytes, size, from);
        if (count == 0 || (count < 0 && errno != EINTR))
            return false;
        const auto taken = std::max<ssize_t>(count, 0);
        bytes += taken;
        size -= static_cast<std::size_t>(taken);
        from += taken;
    }
    return true;
}

/// Models that one process runs.
struct Share
{
    std::size_t next, end;                 ///< those whose records are still to be replayed
    pid_t process = 0;                     ///< 0: it has ended
    std::optional<int> killedBy{};         ///< the signal
    std::unique_ptr<Descriptor> records{}; ///< each is one text; null: no process was started
    off_t replayed = 0;                    ///< bytes of them
};

/// Exit status of a process whose records find no room.
constexpr int noRoom = 2;

class Processes
{
public:
    Processes(int jobs, const Task &task, Delivery &delivery, BatchDesktop &desktop,
              std::ostream &err)
        : jobs_(static_cast<std::size_t>(jobs)),
          task_(task),
          delivery_(delivery),
          desktop_(desktop),
          err_(err)
    {}

    void run()
    {
        // Enough for one process to pay for its start, and enough shares for all to end together. A
        // share is handed over whole: drawn models take long, and what is done is to be seen soon.
        constexpr std::size_t sharesOfEach = 4;
        const std::size_t largestShare = task_.start ? 4 : 16;
        const std::size_t count = models().size(), most = openFiles(sharesOfEach * jobs_);
        const std::size_t share =
            std::clamp<std::size_t>(count / sharesOfEach / jobs_, 1, largestShare);
        ::signal(SIGCHLD, SIG_DFL); // a caller that ignores it would leave no ends to wait for
        for (std::size_t next = 0; next < count || !shares_.empty();) {
            for (; next < count && running_ < jobs_ && shares_.size() < most;
                 next = shares_.back().end) {
                shares_.push_back({.next = next, .end = std::min(next + share, count)});
                start(shares_.back());
            }
            while (!shares_.empty() && shares_.front().process == 0) {
                Share &first = shares_.front();
                deliver(first);
                if (first.next < first.end)
                    settle(first);
                if (first.next < first.end)
                    start(first);
                else
                    shares_.pop_front();
            }
            if (running_ > 0)
                awaitOne();
        }
    }

private:
    const std::vector<std::string> &models() const { return task_.order.models; }

    /// A process forked from one that draws would have a toolkit that does not work, and without
    /// room each model would be run twice.
    bool mayFork() const { return !hasStarted_ && withoutRoom_ < 3; }

    void start(Share &share)
    {
        share.records = mayFork() ? namelessFile() : nullptr;
        share.replayed = 0;
        share.killedBy.reset();
        const pid_t parent = ::getpid();
        share.process = share.records ? ::fork() : -1;
        if (share.process == 0)
            work(share, parent);
        if (share.process > 0)
            ++running_;
        else
            share.process = 0;
    }

    /// All that the new process does. It leaves what it shares with its parent as it is.
    [[noreturn]] void work(const Share &share, pid_t parent)
    try {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // nobody would read what it makes
        if (::getppid() != parent)
            ::_exit(EXIT_FAILURE);
        if (task_.start)
            task_.start();
        for (std::size_t i = share.next; i < share.end; ++i) {
            Recorder recorder;
            setDesktop(&recorder.desktop());
            runModel(models()[i], task_, recorder.desktop(), recorder);
            std::string text;
            putText(text, recorder.record());
            if (!writeAll(share.records->number(), text))
                ::_exit(noRoom);
        }
        ::_exit(EXIT_SUCCESS);
    } catch (...) { // its parent tries the model, and meets the same
        ::_exit(EXIT_FAILURE);
    }

    void awaitOne()
    {
        int ending = 0;
        const pid_t ended = ::waitpid(-1, &ending, 0);
        const bool haveAll = ended < 0 && errno == ECHILD;
        for (Share &share : shares_)
            if (share.process > 0 && (haveAll || share.process == ended)) {
                share.process = 0;
                if (WIFSIGNALED(ending))
                    share.killedBy = WTERMSIG(ending);
                if (WIFEXITED(ending) && WEXITSTATUS(ending) == noRoom)
                    ++withoutRoom_;
                --running_;
            }
    }

    /// Hands over what a process that has ended made of its share.
    void deliver(Share &share)
    {
        for (; share.next < share.end; ++share.next) {
            const std::optional<std::string> record = nextRecord(share);
            if (!record)
                return;
            delivery_.begin(models()[share.next]);
            replay(*record, delivery_, err_);
        }
    }

    /// Deals with the model at which a process has ended. Where it was killed, the model is left to
    /// the next process once.
    void settle(Share &share)
    {
        if (!share.killedBy)
            runHere(share.next++);
        else if (std::exchange(killed_, share.next) == share.next)
            giveUp(share.next++, *share.killedBy);
    }

    static std::optional<std::string> nextRecord(Share &share)
    {
        Size size = 0;
        struct stat status;
        if (!share.records || ::fstat(share.records->number(), &status) != 0)
            return std::nullopt;
        const int file = share.records->number();
        if (!readAll(file, reinterpret_cast<char *>(&size), sizeof size, share.replayed)
            || size > static_cast<Size>(status.st_size - share.replayed))
            return std::nullopt;
        std::string record(size, '\0');
        if (!readAll(file, record.data(), size, share.replayed))
            return std::nullopt;
        return record;
    }

    void runHere(std::size_t i)
    {
        if (task_.start && !std::exchange(hasStarted_, true))
            task_.start();
        delivery_.begin(models()[i]);
        runModel(models()[i], task_, desktop_, delivery_);
    }

    void giveUp(std::size_t i, int signal)
    {
        delivery_.begin(models()[i]);
        desktop_.tell(models()[i] + ": its process was killed twice, by signal "
                      + std::to_string(signal));
        delivery_.end(true, task_.order.summary.empty()
                                ? CsvRow()
                                : summaryRow(models()[i], ModelStatus::killed));
    }

    const std::size_t jobs_;
    const Task &task_;
    Delivery &delivery_;
    BatchDesktop &desktop_;
    std::ostream &err_;
    std::deque<Share> shares_; ///< in the order of the models
    std::size_t running_ = 0;
    std::optional<std::size_t> killed_; ///< the model at which a process was killed last
    int withoutRoom_ = 0;               ///< processes whose records found none
    bool hasStarted_ = false;           ///< this process draws itself
};

} // namespace

void runInProcesses(int jobs, const Task &task, Delivery &delivery, BatchDesktop &desktop,
                    std::ostream &err)
{
    Processes(jobs, task, delivery, desktop, err).run();
}

} // namespace veskora
