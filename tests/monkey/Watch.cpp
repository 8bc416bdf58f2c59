#include "Watch.h"

#include "Files.h"
#include "FileSystem.h"
#include "Functions.h"
#include "History.h"
#include "ModelDialog.h"
#include "ModelText.h"
#include "Sound.h"
#include "Text.h"

#include <QApplication>

namespace veskora {

namespace {

/// One action of the user's, and none of undo's; a key may be that. Two clicks of a button are two.
bool isAction(const Line &line)
{
    static const QStringList verbs = {"menu", "pick", "click", "drag"};
    static const QStringList ways = {"mnuUNDOitem", "mnuREDOitem"};
    const bool isOne = line.verb() == "twice" ? line.isGesture() : verbs.contains(line.verb());
    return isOne && !ways.contains(line.fields.back());
}

} // namespace

std::size_t Watch::sumOfTables()
{
    std::size_t sum = 0;
    const auto add = [&sum](const auto &table) {
        const std::string_view bytes(reinterpret_cast<const char *>(&table), sizeof table);
        sum = sum * 31 + std::hash<std::string_view>()(bytes);
    };
    std::apply([&add](const auto &...table) { (add(table), ...); }, modelTables());
    return sum;
}

void Watch::begin(const Line &line)
{
    open_.push_back(++begun_);
    gestures_ += line.isGesture() ? 1 : 0;
    isHeld_ = line.verb() == "press" || (isHeld_ && line.verb() != "release");
    before_ = sumOfTables();
    seen_.insert(before_);
    model_ = modelsBegun;
}

void Watch::end(const Line &line)
{
    gestures_ -= line.isGesture() ? 1 : 0;
    isWhole_ = open_.back() == begun_ && isAction(line) && gestures_ == 0 && !isHeld_
               && model_ == modelsBegun;
    open_.pop_back();
    if (QtDesktop::isAsking()) // what asks has not ended
        return;
    requireSound();
    after_ = sumOfTables();
    seen_.insert(after_);
    if (!Allagi_Montelou)
        analysed_ = after_;
    if (!window_.window().isVisible()) // it has not started yet
        return;
    require(Klimaka > 0, "the window has a view, whatever the file had");
    const std::string name = Onoma_Arxeiou.empty() ? "Untitled.vsk" : Onoma_Arxeiou;
    require(window_.window().windowTitle().contains(qtText(name).replace("[*]", "[*][*]")),
            "the title has the name of the model");
}

bool Watch::isModelAtHand() const
{
    const QWidget *modal = QApplication::activeModalWidget();
    return QApplication::activePopupWidget() == nullptr && gestures_ == 0 && !isHeld_
           && !QtDesktop::isAsking() && !window_.canvas().isHeld()
           && (modal == nullptr || qobject_cast<const ModelDialog *>(modal) != nullptr);
}

std::size_t Watch::go(const char *action)
{
    window_.trigger(action);
    requireSound();
    const std::size_t now = sumOfTables();
    require(Allagi_Montelou || now == analysed_, "results are those of these tables");
    return now;
}

bool Watch::undo()
{
    const std::size_t now = sumOfTables();
    const bool wasWhole = isWhole_ && before_ != now && after_ == now;
    const std::size_t found = go("mnuUNDOitem");
    require(!wasWhole || found == before_, "undo takes the last action back");
    isWhole_ = false;
    if (found != now) {
        require(go("mnuREDOitem") == now, "redo finds what was undone");
        go("mnuUNDOitem");
    }
    return found != now;
}

bool Watch::redo()
{
    const std::size_t now = sumOfTables();
    const std::size_t found = go("mnuREDOitem");
    isWhole_ = false;
    require(found == now || seen_.contains(found), "redo finds what was there");
    return found != now;
}

bool Watch::walk()
{
    const bool wasChanged = Allagi_Montelou;
    std::vector<std::size_t> sums = {sumOfTables()};
    for (std::size_t sum = go("mnuUNDOitem"); sum != sums.back(); sum = go("mnuUNDOitem")) {
        require(seen_.contains(sum), "undo finds what was there");
        sums.push_back(sum);
    }
    const bool isLong = sums.size() > 1;
    while (sums.size() > 1) {
        sums.pop_back();
        require(go("mnuREDOitem") == sums.back(), "redo finds each step");
    }
    require(Allagi_Montelou == wasChanged, "results are as current as they were");
    return isLong;
}

void Watch::requireRoundTrip(const std::string &folder)
{
    std::string first = folder + "/end.vsk", second = folder + "/end2.vsk";
    const std::string text = modelText();
    require(Apothikefsi_Arxeiou(first, true), "the model can be written");
    require(wholeFile(first) == text, "the file holds the model");
    require(Anagnosi_Arxeiou(first), "the file can be read");
    requireSound();
    require(Apothikefsi_Arxeiou(second, true), "the model can be written again");
    require(wholeFile(second) == text, "what was read is written the same");
}

} // namespace veskora
