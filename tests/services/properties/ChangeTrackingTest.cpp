#include "services/properties/ModifiedWatcher.h"
#include "services/properties/Properties.h"
#include "services/properties/ViewPtr.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

/// root with a child that has a child, and a node apart; a watcher on each, all reset.
struct ChangeTracking : testing::Test {
    FenModifiedGroup group;
    FenProperties root{group}, child{group}, grandchild{group}, apart{group};
    FenModifiedWatcher ofRoot{&root}, ofChild{&child}, ofGrandchild{&grandchild};

    ChangeTracking()
    {
        child.insert(&grandchild, true);
        root.insert(&child, true);
        seen();
    }
    void seen() const
    {
        for (auto const* watcher : {&ofRoot, &ofChild, &ofGrandchild}) watcher->reset();
    }
    /// Which watchers report a change, one letter for each, and resets them.
    std::string changes() const
    {
        std::string letters;
        if (ofRoot.modified()) letters += 'r';
        if (ofChild.modified()) letters += 'c';
        if (ofGrandchild.modified()) letters += 'g';
        seen();
        return letters;
    }
};

TEST_F(ChangeTracking, TreeEditsAreChangesOfTheParent)
{
    FenProperties late(group);
    late.rename("late");
    root.insert(&late, true);
    EXPECT_EQ("r", changes());
    late.rename("later");
    EXPECT_EQ("r", changes());
    root.remove(&late);
    EXPECT_EQ("r", changes());
    late.modify();
    EXPECT_EQ("", changes()) << "it is in the tree no more";
}

TEST_F(ChangeTracking, WhatIsTheSameIsNoChange)
{
    grandchild.string().setValue("number", 2.5);
    grandchild.string().setUnit("number", "mm");
    seen();
    grandchild.string().setValue("number", 2.5);
    grandchild.setValue("number", "2.5");
    grandchild.string().setUnit("number", "mm");
    grandchild.setType(grandchild.type());
    grandchild.rename(grandchild.name());
    grandchild = FenProperties(grandchild);
    EXPECT_EQ("", changes());
    grandchild.string().setUnit("number", "cm");
    EXPECT_EQ("rcg", changes());
}

TEST(FenModified, EndsAllLinksWhenItIsDestroyed)
{
    FenModifiedGroup group;
    auto source = std::make_unique<FenProperties>(group);
    auto dependant = std::make_unique<FenProperties>(group);
    FenProperties last(group);
    source->depend().insert(*dependant);
    dependant->depend().insert(last);
    last.depend().insert(*source); // a circle
    FenModifiedWatcher const watcher(&last), ofSource(source.get());
    fen::view_ptr<FenProperties const> const view(source.get());
    EXPECT_EQ(source.get(), view.get());
    watcher.reset();
    source.reset();
    EXPECT_TRUE(watcher.modified()) << "what it depended on is gone";
    EXPECT_FALSE(view || ofSource.modified() || FenModifiedWatcher(nullptr).modified());
    ofSource.touch();
    EXPECT_FALSE(ofSource.modified());
}

} // namespace
