#include "services/properties/PropertiesList.h"
#include "services/properties/ModifiedWatcher.h"
#include "services/properties/Viewport.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

namespace {

typedef FenPropertiesList<FenViewport> List;

QStringList names(List const& list)
{
    QStringList names;
    for (unsigned i = 0; i < list.size(); ++i) names << list[i].name();
    return names;
}

TEST(FenPropertiesList, GivesItemsNamesOfTheirOwn)
{
    FenModifiedGroup group;
    List list(group);
    for (char const* name : {"a", "a", "b", "a", "a.2"}) list.append(name);
    EXPECT_EQ((QStringList{"a", "a.2", "b", "a.3", "a.2.2"}), names(list));
    EXPECT_TRUE(!list.removeAt(5) && list.removeAt(1));
    list.append("a");
    EXPECT_EQ((QStringList{"a", "b", "a.3", "a.2.2", "a.2"}), names(list));
    FenProperties other(group);
    EXPECT_FALSE(list.insert(&other, true) || list.insert(nullptr, true)) << "no item";
    LogCapture log;
    log.expect("index < size()");
    list[99].width.set(5.0);
    EXPECT_EQ(5U, list.size());
    for (int i = 0; i < 20000; ++i) list.append("many"); // would take minutes if every suffix were tried
    EXPECT_EQ("many.20000", list.back()->name());
}

TEST(FenPropertiesList, CopiesAndAssignsItsItems)
{
    FenModifiedGroup group;
    List source(group), target(group);
    source.append("a").width.set(2.0);
    source.append("b");
    List copy(source);

    target.append("z");
    target = source;
    EXPECT_EQ((QStringList{"a", "b"}), names(target));
    FenModifiedWatcher const watcher(&target[0]);
    watcher.reset();
    copy[0].width.set(3.0);
    target = copy; // the same names: the items stay
    EXPECT_TRUE(watcher.modified());
    EXPECT_EQ(3.0, target[0].width.get());
}

} // namespace
