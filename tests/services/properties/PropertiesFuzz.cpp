#include "services/properties/ModifiedWatcher.h"
#include "services/properties/Properties.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace {

/// A long child list under random edits behaves like a plain vector of names.
TEST(FenProperties, RandomEditsKeepOrderAndNames)
{
    std::mt19937 random(1);
    auto const upTo = [&random](std::size_t end) { return random() % end; };
    FenModifiedGroup group;
    for (unsigned limit : {10U, 40U, 400U}) {
        FenProperties root(group);
        std::vector<QString> model;
        int named = 0;
        for (int step = 0; step < 4000; ++step) {
            std::size_t const place = model.empty() ? 0 : upTo(model.size());
            // Grows to the limit, then shrinks to nothing, and so on.
            bool const growing = (step / int(limit * 2)) % 2 == 0;
            if (model.empty() || (growing && model.size() < limit && upTo(4) > 0)) {
                model.push_back(QString::number(named++));
                root.child(model.back(), {});
            } else if (upTo(3) == 0) {
                model[place] = QString::number(named++);
                ASSERT_TRUE(root.at(unsigned(place))->rename(model[place]));
            } else {
                ASSERT_TRUE(root.erase(root.at(model[place])));
                model.erase(model.begin() + std::ptrdiff_t(place));
            }
            ASSERT_EQ(model.size(), root.size());
            std::size_t const probe = model.empty() ? 0 : upTo(model.size());
            for (std::size_t i : {std::size_t(0), probe, model.size() - 1}) {
                if (i >= model.size()) continue;
                FenProperties* const node = root.at(unsigned(i));
                ASSERT_TRUE(node && node->name() == model[i]) << "step " << step << ", place " << i;
                ASSERT_EQ(node, root.at(model[i]));
            }
            ASSERT_EQ(nullptr, root.at(QString::number(named)));
        }
    }
}

/// Random trees with random dependencies: a watcher reports exactly the changes that reach its
/// object along parents and dependants.
TEST(FenModified, ReachesExactlyWhatObservesIt)
{
    std::mt19937 random(2);
    std::size_t const count = 24;
    auto const node = [&random, count] { return random() % count; };
    FenModifiedGroup group;
    for (int round = 0; round < 50; ++round) {
        std::vector<std::unique_ptr<FenProperties>> nodes;
        std::vector<FenModifiedWatcher> watchers;
        std::vector<std::vector<std::size_t>> observers(count); // edges of the model
        std::vector<bool> expected(count, false);
        for (std::size_t i = 0; i < count; ++i) {
            nodes.push_back(std::make_unique<FenProperties>(group));
            nodes[i]->rename(QString::number(i));
            watchers.emplace_back(nodes[i].get());
            if (i == 0 || random() % 3 == 0) continue;
            std::size_t const parent = random() % i;
            nodes[parent]->insert(nodes[i].get(), true);
            observers[i].push_back(parent);
        }
        for (auto const& watcher : watchers) watcher.reset();
        for (int step = 0; step < 200; ++step) {
            std::size_t const a = node(), b = node();
            switch (random() % 4) {
            case 0:
                nodes[a]->depend().insert(*nodes[b]);
                observers[a].push_back(b);
                break;
            case 1:
                watchers[a].reset();
                expected[a] = false;
                break;
            default:
                nodes[a]->modify();
                std::vector<bool> reached(count, false);
                std::vector<std::size_t> open{a};
                while (!open.empty()) {
                    std::size_t const next = open.back();
                    open.pop_back();
                    if (reached[next]) continue;
                    reached[next] = expected[next] = true;
                    open.insert(open.end(), observers[next].begin(), observers[next].end());
                }
            }
            for (std::size_t i = 0; i < count; ++i)
                ASSERT_EQ(expected[i], watchers[i].modified()) << "round " << round << ", step " << step;
        }
        std::shuffle(nodes.begin(), nodes.end(), random); // and any order of destruction is fine
    }
}

} // namespace
