#include "DataCases.h"
#include "LabelLayout.h"

#include <sstream>

namespace veskora {
namespace {

TEST(LabelLayout, WritesOnceAndMovesAsLittleAsNeededAlongTheOrdinate)
{
    for (const auto &[given, expected] : dataCases("label_layout.txt")) {
        std::istringstream words(given.substr(given.find('|') + 1));
        std::vector<ValueLabel> labels;
        std::vector<LabelBox> obstacles;
        Crowded crowded = Crowded::stay;
        for (std::string word; words >> word;)
            if (word == "box") {
                auto &[left, top, right, bottom] = obstacles.emplace_back();
                words >> left >> top >> right >> bottom;
            } else if (word == "leave-out") {
                crowded = Crowded::leaveOut;
            } else {
                int node = 0;
                double x = 0, y = 0, up = 0, right = 0;
                words >> node >> x >> y >> up >> right;
                labels.push_back(
                    {word, {x, y, x + 10, y + 4}, {node, {x - right, y + up}, {x, y}}});
            }
        const auto [places, withoutRoom] =
            layOutLabels(labels, obstacles, {0, 0, 100, 100}, crowded);
        ASSERT_EQ(places.size(), labels.size()) << given;
        std::ostringstream told;
        for (std::size_t i = 0; i < places.size(); ++i) {
            told << (i > 0 ? " " : "");
            const auto &[node, foot, tip] = labels[i].ordinate;
            if (places[i])
                told << (foot.x != tip.x ? places[i]->x : -places[i]->y) + 0.0; // and no minus 0
            else
                told << "gone";
        }
        if (withoutRoom > 0)
            told << ", " << withoutRoom << " without room";
        EXPECT_EQ(told.str(), expected) << given;
    }
}

} // namespace
} // namespace veskora
