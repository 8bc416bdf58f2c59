#include "LabelLayout.h"

#include <gtest/gtest.h>

namespace veskora {
namespace {

/// A value of 10 by 4 with its corner at the end of an ordinate, which stands @p up from its foot
/// and may lean by @p right.
struct Value
{
    const char *text;
    int node;
    double x, y, up, right = 0;
};

constexpr double stays = 0, gone = -1000; ///< in place of how far it moves outwards

TEST(LabelLayout, WritesOnceAndMovesAsLittleAsNeededAlongTheOrdinate)
{
    struct Case
    {
        const char *name;
        std::vector<Value> values;
        std::vector<double> outwards; ///< of each value
        std::vector<LabelBox> obstacles = {};
        Crowded crowded = Crowded::stay;
        int withoutRoom = 0;
    };
    const Value a = {"5", 1, 50, 50, 20};
    for (const Case &c : std::vector<Case>{
             {"two elements at a node", {a, {"5", 1, 70, 60, 0, 20}}, {stays, gone}},
             {"other sign", {a, {"-5", 1, 70, 60, 0, 20}}, {stays, stays}},
             {"other node", {a, {"5", 2, 70, 60, 0, 20}}, {stays, stays}},
             {"three at a node, two of them at one place",
              {a, {"5", 1, 50, 50.5, 20}, {"5", 1, 80, 60, 0, 20}},
              {stays, gone, stays}},
             {"nothing in the way", {a, {"6", 2, 70, 50, 20}}, {stays, stays}, {{0, 0, 50, 100}}},
             {"over a text", {a}, {1}, {{50, 53, 60, 60}}},
             {"sideways", {{"5", 1, 50, 50, 0, 20}}, {6}, {{40, 50, 56, 54}}},
             {"inwards where the way out is barred", {a}, {-3}, {{50, 30, 60, 53}}},
             {"never beyond the foot", {{"5", 1, 50, 50, 2}}, {stays}, {{50, 30, 60, 53}}},
             {"no further than twice its height", {a}, {stays}, {{50, 40, 60, 70}}},
             {"the first of two", {a, {"6", 2, 50, 52, 20}}, {2, stays}},
             {"not past another's end", {a, {"6", 2, 50, 48, 20}}, {-2, stays}},
             {"the longer of two that end together is the outer one",
              {{"5", 1, 50, 50.5, 20}, {"6", 1, 50, 50, 20.5}},
              {stays, 3.5}},
             {"no direction", {{"0", 1, 50, 50, 0}}, {stays}, {{50, 53, 60, 60}}},
             {"not out of the picture", {{"5", 1, 50, 1, 20}}, {-2}, {{50, 0, 60, 3}}},
             {"the first is not seen", {{"5", 1, 50, 102, 20}, a}, {stays, stays}},
             {"no place, and it stays", {a}, {stays}, {{40, 20, 70, 70}}},
             {"no place, and it goes", {a}, {gone}, {{40, 20, 70, 70}}, Crowded::leaveOut, 1},
             {"the smaller gives way",
              {{"1", 1, 50, 52, 4}, {"90", 2, 50, 50, 30}, {"8", 3, 48, 49, 1}},
              {-2, stays, gone},
              {{40, 40, 70, 49}},
              Crowded::leaveOut,
              1},
             {"what the edge would cut goes",
              {{"5", 1, 95, 50, 20}},
              {gone},
              {},
              Crowded::leaveOut,
              1},
         }) {
        std::vector<ValueLabel> labels;
        for (const Value &v : c.values)
            labels.push_back({v.text,
                              {v.x, v.y, v.x + 10, v.y + 4},
                              {v.node, {v.x - v.right, v.y + v.up}, {v.x, v.y}}});
        const auto [places, withoutRoom] =
            layOutLabels(labels, c.obstacles, {0, 0, 100, 100}, c.crowded);
        EXPECT_EQ(withoutRoom, c.withoutRoom) << c.name;
        ASSERT_EQ(places.size(), c.outwards.size());
        for (std::size_t i = 0; i < places.size(); ++i) {
            const double moved = !places[i]               ? gone
                                 : c.values[i].right != 0 ? places[i]->x
                                                          : -places[i]->y;
            EXPECT_NEAR(moved, c.outwards[i], 1e-9) << c.name << ", value " << i;
        }
    }
}

} // namespace
} // namespace veskora
