#include "services/properties/PropertyAdaptor.h"
#include "services/properties/ModifiedWatcher.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

typedef FenPropertyAdaptor<double> Number;

/// A node as nodes are: properties are members, assignment is the compiler's.
struct Node : FenProperties {
    Number size;
    FenPropertyAdaptor<QString> text;
    FenModifiedWatcher watcher;

    explicit Node(FenModifiedGroup& group)
        : FenProperties(group)
        , size(*this, "size", 1.5, "mm")
        , text(*this, "text", "t", QString())
        , watcher(this)
    {
    }
    Node(Node const& other)
        : FenProperties(other)
        , size(*this, other.size)
        , text(*this, other.text)
        , watcher(this)
    {
    }
    Node& operator=(Node const&) = default;
};

TEST(FenPropertyAdaptor, DeclaresOnlyWhatTheStoreLacks)
{
    FenModifiedGroup group;
    FenProperties owner(group);
    owner.setValue("stored", "7.5");
    owner.string().setUnit("stored", "cm");
    Number const stored(owner, "stored", 1.0, "mm");
    EXPECT_EQ(7.5, stored.get());
    EXPECT_EQ("cm", stored.getUnit());
    Number const fresh(owner, "fresh", 1.0, "mm");
    EXPECT_EQ("1", owner.getString("fresh", {}));
    EXPECT_EQ("mm", fresh.getUnit());
    EXPECT_EQ("fresh", fresh.name());
    EXPECT_EQ("double", owner.string().typeName("stored"));
}

TEST(FenPropertyAdaptor, FollowsTheStoreAndItsTwins)
{
    FenModifiedGroup group;
    Node node(group);
    Number twin(node, "size", 0.0, QString());
    EXPECT_EQ(1.5, twin.get());
    node.setValue("size", "2");
    EXPECT_EQ(2.0, node.size.get());
    node.size.set(3.0);
    EXPECT_EQ(3.0, twin.get());
    EXPECT_EQ("3", twin.getString());
    group.lock();
    twin.set(4.0);
    EXPECT_EQ(4.0, node.size.get());
    group.unlock();
}

TEST(FenPropertyAdaptor, CopiesAndAssignmentsTakeValuesAndUnits)
{
    FenModifiedGroup group;
    Node source(group);
    source.size.set(9.0);
    source.size.setUnit("km");

    Node copy(source);
    EXPECT_EQ(9.0, copy.size.get());
    EXPECT_EQ("km", copy.size.getUnit());
    copy.size.set(8.0);
    EXPECT_EQ(9.0, source.size.get());

    FenProperties other(group); // has a unit, and no value
    other.string().setUnit("size", "m");
    Number const there(other, source.size);
    EXPECT_EQ(9.0, there.get());
    EXPECT_EQ("m", there.getUnit()) << "a unit of its own is kept";

    Node target(group);
    target = source;
    EXPECT_EQ(9.0, target.size.get());
    EXPECT_EQ("km", target.size.getUnit());
    EXPECT_TRUE(target.watcher.modified());
    target.watcher.reset();
    Number unitless(other, "unitless", 5.0, QString());
    target.size = target.size;
    EXPECT_FALSE(target.watcher.modified());
    target.size = unitless;
    EXPECT_EQ(5.0, target.size.get());
    EXPECT_EQ("km", target.size.getUnit()) << "no unit replaces none";
}

TEST(FenPropertyAdaptor, ReadsZeroWhereNothingCanBeRead)
{
    FenModifiedGroup group;
    Node node(group);
    LogCapture log;
    log.expect("value \"wide\" of property \"size\" is no double");
    node.setValue("size", "wide");
    group.lock();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(0.0, node.size.get());
    group.unlock();
    EXPECT_EQ(1, log.errors().size());
    static_cast<FenProperties&>(node) = FenProperties(group); // knows no key
    EXPECT_EQ(0.0, node.size.get());
    EXPECT_EQ("", node.text.get());
}

TEST(FenPropertyAdaptor, KeepsItsLastValueWhenTheOwnerIsGone)
{
    FenModifiedGroup group;
    auto owner = std::make_unique<FenProperties>(group);
    Number number(*owner, "number", 2.0, "mm");
    owner.reset();
    number.set(3.0);
    number.setUnit("cm");
    EXPECT_EQ(2.0, number.get());
    EXPECT_EQ("", number.getUnit());
    EXPECT_EQ("", number.getString());
}

} // namespace
