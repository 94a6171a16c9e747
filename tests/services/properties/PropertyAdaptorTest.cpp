#include "services/properties/PropertyAdaptor.h"
#include "services/properties/ModifiedWatcher.h"
#include "services/properties/SiblingName.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

typedef FenPropertyAdaptor<double> Number;

/// A node as nodes are: properties are members, assignment is the compiler's.
struct Node : FenProperties {
    Number size;
    FenModifiedWatcher watcher;

    explicit Node(FenModifiedGroup& group)
        : FenProperties(group)
        , size(*this, "size", 1.5, "mm")
        , watcher(this)
    {
    }
    Node(Node const& other)
        : FenProperties(other)
        , size(*this, other.size)
        , watcher(this)
    {
    }
    Node& operator=(Node const&) = default;
};

TEST(FenPropertyAdaptor, DeclaresOnlyWhatTheStoreLacksAndFollowsIt)
{
    FenModifiedGroup group;
    FenProperties owner(group);
    owner.setValue("stored", "7.5");
    owner.string().setUnit("stored", "cm");
    Number stored(owner, "stored", 1.0, "mm"), fresh(owner, "fresh", 1.0, "mm"), twin(owner, "fresh", 0, {});
    EXPECT_EQ(7.5, stored.get());
    EXPECT_EQ("cm mm", stored.getUnit() + ' ' + fresh.getUnit());
    owner.setValue("fresh", "2");
    EXPECT_EQ(2.0, fresh.get());
    for (double const value : {3.0, 4.0}) {
        fresh.set(value);
        EXPECT_EQ(value, twin.get());
        group.lock();
    }
    FenPropertyAdaptor<QList<QColor>> colors(owner, "colors", {QColor::fromHsvF(0.3f, 0.5f, 0.7f)}, {});
    QList<QColor> const locked = colors.get();
    group.unlock();
    group.unlock();
    colors.set({QColor::fromHsvF(0.3f, 0.5f, 0.7f)});
    EXPECT_EQ(locked, colors.get()) << "what is set is what the store holds";
}

TEST(FenPropertyAdaptor, CopiesAndAssignmentsTakeValuesAndUnits)
{
    FenModifiedGroup group;
    Node source(group), target(group);
    source.size.set(9.0);
    source.size.setUnit("km");
    Node copy(source);
    target = source;
    for (Node* node : {&copy, &target}) {
        EXPECT_EQ("9 km", node->size.getString() + ' ' + node->size.getUnit());
        EXPECT_TRUE(node->watcher.modified());
        node->watcher.reset();
        node->size.set(8.0);
    }
    EXPECT_EQ(9.0, source.size.get());
    FenProperties other(group); // has a unit, and no value
    other.string().setUnit("size", "m");
    Number const there(other, source.size), unitless(other, "unitless", 5.0, QString());
    EXPECT_EQ("9 m", there.getString() + ' ' + there.getUnit()) << "a unit of its own is kept";
    target.size = unitless;
    EXPECT_EQ("5 km", target.size.getString() + ' ' + target.size.getUnit()) << "no unit replaces none";
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
}

TEST(FenPropertyAdaptor, NamesOfSiblingsFollowTheirRename)
{
    FenModifiedGroup group;
    FenProperties node(group);
    FenPropertyAdaptor<QString> one(node, "one", "a", {}), none(node, "none", "", {});
    FenPropertyAdaptor<QStringList> list(node, "list", {"b", "a", "c", "a"}, {});
    EXPECT_TRUE(fen::followRename(one, "a", "z") && fen::followRename(list, "a", "z"));
    EXPECT_FALSE(fen::followRename(none, "", "z") || fen::followRename(list, "", "z"));
    EXPECT_EQ("z [\"b\",\"z\",\"c\",\"z\"]", one.getString() + ' ' + none.getString() + list.getString());
}

TEST(FenPropertyAdaptor, KeepsItsLastValueWhenTheOwnerIsGone)
{
    FenModifiedGroup group;
    auto owner = std::make_unique<FenProperties>(group);
    Number number(*owner, "number", 2.0, "mm");
    owner.reset();
    number.set(3.0);
    EXPECT_EQ(2.0, number.get());
    EXPECT_EQ("", number.getUnit() + number.getString());
}

} // namespace
