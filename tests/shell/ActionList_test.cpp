#include "MuralaFixture.h"

#include "uActionList.h"
#include "uItemWork.h"

using namespace murala;

using Actions = TMuralaFixture;

TEST_F(Actions, AreBegunFromTheEventLoopAndNotWhileTheProgramWorks)
{
    AddPictures(2);
    TActionList actions([](const std::exception& error) { FAIL() << error.what(); });
    std::vector<std::function<void()>> posted;
    actions.Post = [&](std::function<void()> execute) { posted.push_back(std::move(execute)); };
    actions.IsWorking = [&] { return m_murala->Core.Pauses.IsWorking(); };
    int removed = 0;
    const auto nothing = [](TMuWallpaper&) {};
    actions[aRemove].OnExecute = [&] {
        ++removed;
        const TItems items{&Item(0), &Item(1)};
        WorkOn(m_murala->Core, items, "Removing", [&](TMuWallpaper&) {
            actions.Request(aRemove); // the same key comes again
            actions.Execute(aRemove);
            EXPECT_THROW(WorkOn(m_murala->Core, items, "Other", nothing), std::runtime_error);
        });
    };
    actions.Request(aRemove);
    actions.Request(aRemove);
    EXPECT_EQ(removed, 0);
    for (std::size_t i = 0; i < posted.size(); ++i)
        posted[i]();
    EXPECT_EQ(removed, 2);
    EXPECT_EQ(posted.size(), 2U);
    EXPECT_FALSE(m_murala->Core.Pauses.IsPaused());
}
