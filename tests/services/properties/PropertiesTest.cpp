#include "services/properties/Properties.h"
#include "services/properties/ModifiedWatcher.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

/// Writes down which renames it hears of, and counts the living.
class Listener : public FenProperties {
public:
    inline static int alive = 0;
    QStringList heard;

    Listener(FenModifiedGroup& group, QString const& name)
        : FenProperties(group)
    {
        rename(name);
        ++alive;
    }
    ~Listener() override { --alive; }
    void onDependentRename(QString const& oldName, QString const& newName) override
    {
        heard << oldName + ">" + newName;
    }
};

/// Has a by-value child, which owns what is inserted below it.
class Nest : public Listener {
public:
    Listener inner;

    explicit Nest(FenModifiedGroup& group)
        : Listener(group, "nest")
        , inner(group, "inner")
    {
        insert(&inner, true);
    }
};

TEST(FenProperties, MakesAbsentChildrenAndRefusesWhatDoesNotFitIntoATree)
{
    FenModifiedGroup group;
    FenProperties root(group), other(group);
    FenProperties const& constRoot = root;
    EXPECT_EQ(nullptr, root.back());
    EXPECT_EQ(nullptr, constRoot.child("made", "kind"));
    FenProperties* const made = root.child("made", "kind");
    EXPECT_EQ("kind", made->type());
    EXPECT_EQ(made, root.child("made", "other kind"));

    Listener a(group, "a"), sameName(group, "a");
    ASSERT_TRUE(root.insert(&a, true));
    for (FenProperties* const wrong : std::vector<FenProperties*>{nullptr, &root, &a, &sameName}) {
        EXPECT_FALSE(root.insert(wrong, true));
        EXPECT_FALSE(other.remove(wrong) || other.erase(wrong));
    }
    EXPECT_FALSE(other.insert(&a, true) || a.insert(&root, true)) << "it has a parent; a circle";
    for (int i = 0; i < 100; ++i) root.child(QString::number(i), {}); // a large subtree is searched otherwise
    EXPECT_TRUE(!a.insert(&root, true) && other.insert(&root, true) && !a.insert(&other, true));
}

TEST(FenProperties, CopiesTakeNameTypeAndStoreOnlyAndRenamesAreToldToSiblings)
{
    FenModifiedGroup group;
    FenProperties root(group), target(group);
    Listener a(group, "a"), b(group, "b");
    a.setType("kind");
    a.string().setValue("key", 1);
    a.child("below", {});
    root.insert(&a, true);
    root.insert(&b, true);
    EXPECT_TRUE(!a.rename("b") && a.rename("c"));
    EXPECT_EQ(QStringList{"a>c"}, b.heard + a.heard);

    FenProperties copy(a);
    EXPECT_EQ("c kind 1", copy.name() + ' ' + copy.type() + ' ' + copy.getString("key", {}));
    EXPECT_TRUE(!copy.parent() && copy.size() == 0);
    target.rename("target");
    target.setValue("own", "gone afterwards");
    target = a;
    EXPECT_EQ("target kind", target.name() + ' ' + target.type());
    EXPECT_EQ(QStringList{"key"}, target.string().keys());
    EXPECT_EQ(0U, target.size());
    FenModifiedWatcher const watcher(&target);
    watcher.reset();
    FenProperties(target).setValue("key", "2");
    EXPECT_FALSE(watcher.modified()) << "a copied store tells its own node";
}

TEST(FenProperties, DestroysWhateverIsBelowIt)
{
    FenModifiedGroup group;
    Listener::alive = 0;
    {
        Listener survivor(group, "survivor");
        {
            FenProperties root(group);
            auto* const nest = new Nest(group);
            nest->inner.insert(new Nest(group), false); // owned, nested, owned, nested
            root.insert(nest, false);
            root.insert(&survivor, true);
            EXPECT_EQ(5, Listener::alive);
        }
        EXPECT_EQ(1, Listener::alive);
        EXPECT_EQ(nullptr, survivor.parent());
        auto* owned = new Listener(group, "owned");
        survivor.insert(owned, false);
        delete owned; // leaves its parent by itself
        EXPECT_EQ(0U, survivor.size());
        owned = new Listener(group, "owned");
        ASSERT_TRUE(survivor.insert(owned, false) && survivor.remove(owned));
        EXPECT_EQ(nullptr, owned->parent()) << "a removed child lives on";
        ASSERT_TRUE(survivor.insert(owned, false) && survivor.erase(owned));
        EXPECT_EQ(1, Listener::alive) << "an erased one does not";
    }
    EXPECT_EQ(0, Listener::alive);
}

/// Many nodes, as one long chain or as children of one node, are built, changed, looked at and taken
/// down. With recursion or quadratic steps this dies or takes minutes.
TEST(FenProperties, ManyNodesAreNoBurden)
{
    unsigned const count = 40000;
    FenModifiedGroup group;
    FenProperties root(group);
    FenProperties* last = &root;
    for (unsigned i = 0; i < count; ++i) last = last->child("chain", {});
    for (FenProperties* node = last; node; node = node->parent()) node->setValue("key", "1");
    ASSERT_TRUE(root.erase(root.front()));

    auto* top = new FenProperties(group); // from the bottom up
    for (unsigned i = 0; i < count; ++i) {
        auto* const above = new FenProperties(group);
        above->insert(top, false);
        top = above;
    }
    delete top;

    for (unsigned i = 0; i < count; ++i) root.child(QString::number(i), {})->setValue("key", "1");
    for (unsigned i = 0; i < count / 4; ++i)
        for (unsigned place : {0U, root.size() - 3, root.size() / 2}) root.erase(root.at(place));
    EXPECT_EQ(count - count / 4 * 3, root.size());
}

} // namespace
