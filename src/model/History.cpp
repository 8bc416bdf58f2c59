#include "History.h"

#include "Functions.h"
#include "MathFunc.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace veskora {

namespace {

template <typename T>
bool haveSameBytes(const T &a, const T &b)
{
    static_assert(std::is_trivially_copyable_v<T>);
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): the bits are meant, of -0 and NaN too
    return std::memcmp(&a, &b, sizeof a) == 0;
}

} // namespace

bool isInStore(const ModelTables &other)
{
    const auto store = modelTables();
    return [&]<std::size_t... I>(std::index_sequence<I...>)
    {
        return (haveSameBytes(std::get<I>(store), std::get<I>(other)) && ...);
    }
    (std::make_index_sequence<std::tuple_size_v<ModelTables>>());
}

void History::begin()
{
    steps_.clear();
    model_ = modelsBegun;
    analyses_ = analysesFinished;
    analysed_ = 0;
    add({});
}

void History::add(const std::string &change)
{
    steps_.push_back({modelTables(), change, ++lastNumber_});
    if (steps_.size() > limit + 1)
        steps_.pop_front();
    now_ = steps_.size() - 1;
}

void History::noteLine(const std::string &line, bool isDeletion)
{
    if (lines_++ > 0 && isDeletion && !isDeletion_)
        return;
    line_ = line;
    isDeletion_ = isDeletion;
}

void History::takeStep()
{
    if (modelsBegun != model_) {
        begin();
    } else if (!isInStore(steps_[now_].tables)) {
        const std::string change = changeText();
        steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(now_) + 1, steps_.end());
        add(change);
    }
    lines_ = 0;
    // One that an edit has followed unseen saw tables that no step has.
    if (std::exchange(analyses_, analysesFinished) != analysesFinished)
        analysed_ = Allagi_Montelou ? 0 : steps_[now_].number;
}

/// Most actions log last what the whole of them was.
std::string History::changeText() const
{
    if (lines_ > 1)
        return line_ + " (" + Metafrasi(1826, "further lines:") + " " + numberText(lines_ - 1)
               + ")";
    return lines_ == 1 ? line_ : Metafrasi(1827, "Model changed");
}

const std::string *History::undo()
{
    if (now_ == 0)
        return nullptr;
    const Step &undone = steps_[now_--];
    restore();
    return &undone.change;
}

const std::string *History::redo()
{
    if (now_ + 1 == steps_.size())
        return nullptr;
    ++now_;
    restore();
    return &steps_[now_].change;
}

void History::restore() const
{
    modelTables() = steps_[now_].tables;
    Allagi_Montelou = steps_[now_].number != analysed_;
}

} // namespace veskora
