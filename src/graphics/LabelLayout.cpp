#include "LabelLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veskora {

namespace {

/// Of a label's height: ends of ordinates that are no further apart are one to the eye.
constexpr double onePlace = 0.25;
constexpr double touching = 1e-6; ///< boxes that only touch do not overlap

double height(const LabelBox &box)
{
    return box.bottom - box.top;
}

LabelBox moved(const LabelBox &box, Point by)
{
    return {box.left + by.x, box.top + by.y, box.right + by.x, box.bottom + by.y};
}

bool overlap(const LabelBox &a, const LabelBox &b)
{
    return std::min(a.right, b.right) - std::max(a.left, b.left) > touching
           && std::min(a.bottom, b.bottom) - std::max(a.top, b.top) > touching;
}

bool contains(const LabelBox &area, const LabelBox &box)
{
    return box.left >= area.left && box.top >= area.top && box.right <= area.right
           && box.bottom <= area.bottom;
}

double length(const Ordinate &ordinate)
{
    return distance(ordinate.foot, ordinate.tip);
}

bool endTogether(const ValueLabel &a, const ValueLabel &b)
{
    return distance(a.ordinate.tip, b.ordinate.tip) <= onePlace * height(a.box);
}

/// The lengths over which something may move along a line.
struct Stretch
{
    double from = -std::numeric_limits<double>::infinity();
    double to = std::numeric_limits<double>::infinity();
};

/// Narrows @p stretch to where the range from @p low to @p high, which moves by @p speed, overlaps
/// that from @p otherLow to @p otherHigh.
void narrow(Stretch &stretch, double low, double high, double speed, double otherLow,
            double otherHigh)
{
    if (speed == 0) {
        if (high <= otherLow || low >= otherHigh)
            stretch.to = stretch.from; // never
        return;
    }
    const double a = (otherLow - high) / speed, b = (otherHigh - low) / speed;
    stretch.from = std::max(stretch.from, std::min(a, b));
    stretch.to = std::min(stretch.to, std::max(a, b));
}

class Layout
{
public:
    Layout(std::span<const ValueLabel> labels, std::span<const LabelBox> obstacles,
           const LabelBox &area, Crowded crowded)
        : labels_(labels),
          boxes_(obstacles.begin(), obstacles.end()),
          area_(area),
          stays_(crowded == Crowded::stay)
    {
        for (const ValueLabel &label : labels)
            if (!isRepeated(label))
                written_.push_back(&label);
        // Of ordinates that end in one place the longer has its value further out.
        std::stable_sort(written_.begin(), written_.end(),
                         [](const ValueLabel *a, const ValueLabel *b) {
                             return length(a->ordinate) > length(b->ordinate);
                         });
        firstLabel_ = boxes_.size();
        for (const ValueLabel *label : written_)
            boxes_.push_back(stays_ ? std::optional(label->box) : std::nullopt);
    }

    LabelPlaces places()
    {
        // One that had no place may have it when others have moved; none has it when more came.
        const int sweeps = stays_ ? 3 : 1;
        for (int i = 0; i < sweeps; ++i)
            for (std::size_t k = 0; k < written_.size(); ++k)
                findPlace(k);
        LabelPlaces result;
        result.moves.resize(labels_.size());
        for (std::size_t k = 0; k < written_.size(); ++k) {
            const ValueLabel &label = *written_[k];
            const auto &box = boxes_[firstLabel_ + k];
            if (box)
                result.moves[static_cast<std::size_t>(&label - labels_.data())] =
                    Point{box->left - label.box.left, box->top - label.box.top};
            else
                ++result.withoutRoom;
        }
        return result;
    }

private:
    bool isRepeated(const ValueLabel &label) const
    {
        const int node = label.ordinate.node;
        const auto meeting =
            std::count_if(labels_.begin(), labels_.end(),
                          [node](const ValueLabel &other) { return other.ordinate.node == node; });
        return std::any_of(labels_.data(), &label, [&](const ValueLabel &earlier) {
            return earlier.ordinate.node == node && earlier.text == label.text
                   && contains(area_, earlier.box) && (meeting == 2 || endTogether(earlier, label));
        });
    }

    bool isFree(std::size_t k, const LabelBox &box) const
    {
        for (std::size_t i = 0; i < boxes_.size(); ++i)
            if (i != firstLabel_ + k && boxes_[i] && overlap(box, *boxes_[i]))
                return false;
        return true;
    }

    /// Free and inside; one that is cut off by the edge anyway may be so elsewhere too.
    bool mayStand(std::size_t k, const LabelBox &box) const
    {
        return isFree(k, box)
               && (contains(area_, box) || (stays_ && !contains(area_, written_[k]->box)));
    }

    void findPlace(std::size_t k)
    {
        auto &box = boxes_[firstLabel_ + k];
        if (box && isFree(k, *box))
            return;
        box = freeBox(k);
        if (!box && stays_)
            box = written_[k]->box;
    }

    /// Whether no other ordinate ends nearer to where the label then begins.
    bool seemsItsOwn(const ValueLabel &label, Point by) const
    {
        const Point tip = label.ordinate.tip, now = {tip.x + by.x, tip.y + by.y};
        return std::all_of(labels_.begin(), labels_.end(), [&](const ValueLabel &other) {
            return endTogether(label, other)
                   || distance(now, other.ordinate.tip) > distance(now, tip);
        });
    }

    /// How far label @p k may go to be clear of one box, outwards first, the nearest first.
    std::vector<double> ways(std::size_t k, Point outwards, double whole) const
    {
        const LabelBox &box = written_[k]->box;
        const double limit =
            2
            * (std::abs(outwards.x) * (box.right - box.left) + std::abs(outwards.y) * height(box));
        std::vector<double> found;
        for (std::size_t i = 0; i < boxes_.size(); ++i) {
            if (i == firstLabel_ + k || !boxes_[i])
                continue;
            const LabelBox &other = *boxes_[i];
            Stretch stretch;
            narrow(stretch, box.left, box.right, outwards.x, other.left, other.right);
            narrow(stretch, box.top, box.bottom, outwards.y, other.top, other.bottom);
            if (stretch.from >= stretch.to)
                continue;
            if (stretch.to > 0 && stretch.to <= limit)
                found.push_back(stretch.to);
            if (stretch.from < 0 && -stretch.from <= std::min(limit, whole))
                found.push_back(stretch.from);
        }
        std::sort(found.begin(), found.end(), [](double a, double b) {
            return (a > 0) == (b > 0) ? std::abs(a) < std::abs(b) : a > b;
        });
        return found;
    }

    /// The box of label @p k where it overlaps none.
    std::optional<LabelBox> freeBox(std::size_t k) const
    {
        const ValueLabel &label = *written_[k];
        const auto &[node, foot, tip] = label.ordinate;
        const double whole = length(label.ordinate);
        if (mayStand(k, label.box))
            return label.box;
        if (whole == 0)
            return std::nullopt;
        const Point outwards = {(tip.x - foot.x) / whole, (tip.y - foot.y) / whole};
        for (const double way : ways(k, outwards, whole)) {
            const Point by = {way * outwards.x, way * outwards.y};
            const LabelBox box = moved(label.box, by);
            if (mayStand(k, box) && seemsItsOwn(label, by))
                return box;
        }
        return std::nullopt;
    }

    std::span<const ValueLabel> labels_;
    std::vector<const ValueLabel *> written_;
    /// The obstacles, then the written labels where they are now; none has no place.
    std::vector<std::optional<LabelBox>> boxes_;
    std::size_t firstLabel_ = 0;
    LabelBox area_;
    bool stays_;
};

} // namespace

LabelPlaces layOutLabels(std::span<const ValueLabel> labels, std::span<const LabelBox> obstacles,
                         const LabelBox &area, Crowded crowded)
{
    return Layout(labels, obstacles, area, crowded).places();
}

} // namespace veskora
