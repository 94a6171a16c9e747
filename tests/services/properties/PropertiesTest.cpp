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

TEST(FenProperties, MakesAnAbsentChildOnce)
{
    FenModifiedGroup group;
    FenProperties root(group);
    FenProperties const& constRoot = root;
    EXPECT_EQ(nullptr, constRoot.child("a", "kind"));
    EXPECT_EQ(nullptr, root.front());
    EXPECT_EQ(nullptr, root.back());
    FenProperties* const made = root.child("a", "kind");
    ASSERT_NE(nullptr, made);
    EXPECT_EQ("kind", made->type());
    EXPECT_FALSE(made->nested());
    EXPECT_EQ(made, root.child("a", "other kind"));
    EXPECT_EQ(made, constRoot.child("a", "kind"));
    FenProperties* const second = root.child("b", {});
    EXPECT_EQ(2U, root.size());
    EXPECT_EQ(made, root.front());
    EXPECT_EQ(second, root.back());
    EXPECT_EQ(second, root["b"]);
    EXPECT_EQ(made, root[0]);
}

TEST(FenProperties, RefusesWhatDoesNotFitIntoATree)
{
    FenModifiedGroup group;
    FenProperties root(group), other(group);
    Listener a(group, "a"), sameName(group, "a");
    EXPECT_FALSE(root.insert(nullptr, true));
    EXPECT_FALSE(root.insert(&root, true));
    ASSERT_TRUE(root.insert(&a, true));
    EXPECT_FALSE(root.insert(&a, true)) << "it has a parent";
    EXPECT_FALSE(other.insert(&a, true));
    EXPECT_FALSE(root.insert(&sameName, true));
    EXPECT_FALSE(a.insert(&root, true)) << "a circle";
    EXPECT_FALSE(other.remove(&a));
    EXPECT_FALSE(other.erase(&a));
    EXPECT_FALSE(root.remove(nullptr));
    EXPECT_FALSE(root.erase(nullptr));
    for (int i = 0; i < 100; ++i) root.child(QString::number(i), {}); // a large subtree is searched otherwise
    EXPECT_FALSE(a.insert(&root, true));
    EXPECT_TRUE(other.insert(&root, true));
    EXPECT_FALSE(a.insert(&other, true));
}

TEST(FenProperties, RenamingIsToldToTheSiblings)
{
    FenModifiedGroup group;
    FenProperties root(group);
    Listener a(group, "a"), b(group, "b");
    root.insert(&a, true);
    root.insert(&b, true);
    EXPECT_FALSE(a.rename("b"));
    EXPECT_TRUE(a.rename("c"));
    EXPECT_EQ(QStringList{"a>c"}, b.heard);
    EXPECT_EQ(QStringList{}, a.heard);
    EXPECT_EQ(&a, root.at("c"));
    EXPECT_EQ(nullptr, root.at("a"));
}

TEST(FenProperties, CopiesTakeNameTypeAndStoreOnly)
{
    FenModifiedGroup group;
    FenProperties root(group);
    Listener a(group, "a");
    a.setType("kind");
    a.string().setValue("key", 1);
    a.child("below", {});
    root.insert(&a, true);

    FenProperties const copy(a);
    EXPECT_EQ("a", copy.name());
    EXPECT_EQ("kind", copy.type());
    EXPECT_EQ("1", copy.getString("key", {}));
    EXPECT_EQ(nullptr, copy.parent());
    EXPECT_EQ(0U, copy.size());

    FenProperties target(group);
    target.rename("target");
    target.setValue("own", "gone afterwards");
    FenModifiedWatcher const watcher(&target);
    watcher.reset();
    target = a;
    EXPECT_TRUE(watcher.modified());
    EXPECT_EQ("target", target.name());
    EXPECT_EQ("kind", target.type());
    EXPECT_EQ(QStringList{"key"}, target.string().keys());
    EXPECT_EQ("def", target.getString("own", "def"));
    EXPECT_EQ(0U, target.size());

    watcher.reset();
    FenProperties copied(copy);
    copied.setValue("key", "2");
    EXPECT_FALSE(watcher.modified()) << "a copied store tells its own node";
    EXPECT_EQ("1", copy.getString("key", {}));
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
            root.insert(new Listener(group, "leaf"), false);
            root.insert(&survivor, true);
            survivor.child("its own", {});
            EXPECT_EQ(6, Listener::alive);
        }
        EXPECT_EQ(1, Listener::alive);
        EXPECT_EQ(nullptr, survivor.parent());
        EXPECT_EQ(1U, survivor.size());
        auto* const direct = new Listener(group, "direct");
        survivor.insert(direct, false);
        delete direct; // leaves its parent by itself
        EXPECT_EQ(1U, survivor.size());
        auto* const owned = new Listener(group, "owned");
        ASSERT_TRUE(survivor.insert(owned, false) && survivor.remove(owned));
        EXPECT_EQ(nullptr, owned->parent()) << "a removed child lives on";
        ASSERT_TRUE(survivor.insert(owned, false) && survivor.erase(owned));
        EXPECT_EQ(1, Listener::alive) << "an erased one does not, unless it is nested";
        FenProperties root(group);
        ASSERT_TRUE(root.insert(&survivor, true) && root.erase(&survivor));
    }
    EXPECT_EQ(0, Listener::alive);
}

/// 100,000 nodes, as one long chain or as children of one node, are built, changed, looked at and
/// taken down. With recursion or quadratic steps this dies or takes minutes.
TEST(FenProperties, ManyNodesAreNoBurden)
{
    unsigned const count = 100000;
    FenModifiedGroup group;
    FenProperties root(group);
    FenModifiedWatcher const watcher(&root);

    FenProperties* last = &root;
    for (unsigned i = 0; i < count; ++i) last = last->child("chain", {});
    for (FenProperties* node = last; node; node = node->parent()) node->setValue("key", "1");
    EXPECT_TRUE(watcher.modified());
    ASSERT_TRUE(root.erase(root.front()));

    FenProperties* top = new FenProperties(group); // from the bottom up
    for (unsigned i = 0; i < count; ++i) {
        auto* const above = new FenProperties(group);
        ASSERT_TRUE(above->insert(top, false));
        top = above;
    }
    delete top;

    for (unsigned i = 0; i < count; ++i) root.child(QString::number(i), {});
    for (unsigned i = 0; i < count; ++i) root.at(i)->setValue("key", QString::number(i));
    EXPECT_EQ("99999", root.at("99999")->getString("key", {}));
    for (unsigned i = 0; i < count / 4; ++i) { // from the front, the back and the middle
        root.erase(root.front());
        root.erase(root.back());
        root.erase(root.at(root.size() / 2));
    }
    EXPECT_EQ(count - count / 4 * 3, root.size());
}

} // namespace
