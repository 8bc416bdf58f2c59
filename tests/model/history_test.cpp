#include "History.h"
#include "ScriptedDesktop.h"

namespace veskora {
namespace {

using Steps = StoreTest;

TEST_F(Steps, TheOldestGoFirstAndANewOneEndsWhatWasUndone)
{
    History history;
    Arithmos_Kombon = 1;
    const int last = static_cast<int>(History::limit) + 3;
    for (int i = 1; i <= last; ++i) {
        Komboi(1, node::x) = static_cast<float>(i);
        if (Allagi_Montelou = i != last - 1; !Allagi_Montelou)
            ++analysesFinished;
        history.noteLine(std::to_string(i));
        history.takeStep();
        history.takeStep(); // nothing has changed since
    }
    for (int i = last; i > 3; --i) {
        const std::string *line = history.undo();
        ASSERT_TRUE(line != nullptr && *line == std::to_string(i));
        ASSERT_EQ(Komboi(1, node::x), i - 1);
        ASSERT_EQ(Allagi_Montelou, i != last);
    }
    EXPECT_EQ(history.undo(), nullptr);
    Elatiria(1, 3) = -0.0F; // equal to what was there, and another number all the same
    history.takeStep();
    EXPECT_EQ(history.redo(), nullptr);
    EXPECT_EQ(*history.undo(), "Model changed");
    Komboi(2, node::x) = 5; // an analysis sees this, and no step ever has it
    ++analysesFinished;
    Komboi(2, node::x) = 6;
    Allagi_Montelou = true;
    history.takeStep();
    history.undo();
    EXPECT_TRUE(Allagi_Montelou);
}

} // namespace
} // namespace veskora
