#include "services/properties/ModifiedWatcher.h"
#include "services/properties/Properties.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <set>
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
        for (int step = 0; step < 3000; ++step) {
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
            ASSERT_EQ(nullptr, root.at(QString::number(named)));
            if (model.empty()) continue;
            for (std::size_t i : {std::size_t(0), upTo(model.size()), model.size() - 1}) {
                FenProperties* const node = root.at(model[i]);
                ASSERT_TRUE(node && node == root.at(unsigned(i))) << "step " << step << ", place " << i;
            }
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
    for (int round = 0; round < 20; ++round) {
        std::vector<std::unique_ptr<FenProperties>> nodes;
        std::vector<FenModifiedWatcher> watchers;
        std::vector<std::set<std::size_t>> dependants(count); // the model's edges
        std::vector<std::size_t> parents(count); // itself for none
        std::vector<bool> expected(count, false);
        for (std::size_t i = 0; i < count; ++i) {
            nodes.push_back(std::make_unique<FenProperties>(group));
            nodes[i]->rename(QString::number(i));
            watchers.emplace_back(nodes[i].get());
            parents[i] = i == 0 || random() % 3 == 0 ? i : random() % i;
            nodes[parents[i]]->insert(nodes[i].get(), true); // refused for itself
        }
        for (auto const& watcher : watchers) watcher.reset();
        for (int step = 0; step < 150; ++step) {
            std::size_t const a = node(), b = node();
            switch (random() % 6) {
            case 0:
                nodes[a]->depend().insert(*nodes[b]);
                dependants[a].insert(b);
                break;
            case 2:
                nodes[a]->depend().erase(*nodes[b]);
                dependants[a].erase(b);
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
                    open.insert(open.end(), dependants[next].begin(), dependants[next].end());
                    open.push_back(parents[next]);
                }
            }
            for (std::size_t i = 0; i < count; ++i)
                ASSERT_EQ(expected[i], watchers[i].modified()) << "round " << round << ", step " << step;
        }
        std::shuffle(nodes.begin(), nodes.end(), random); // and any order of destruction is fine
    }
}

} // namespace
