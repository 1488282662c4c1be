#include "plugin/sketchup/entity_table.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>

#include "plugin/sketchup/instance.h"

namespace Velmar {
namespace {

/// The table's index and counts say the same as its entries.
void ExpectConsistent(const EntityTable& table, int low, int high) {
    std::size_t instances = 0, empties = 0;
    for (const auto& [id, entity] : table.Entries()) {
        EXPECT_EQ(table.Find(id), entity.get());
        EXPECT_EQ(table.FindInstance(id), std::dynamic_pointer_cast<Instance>(entity).get());
        EXPECT_EQ(table.FindDefinition(id), std::dynamic_pointer_cast<Definition>(entity).get());
        if (entity == nullptr) ++empties;
        if (entity != nullptr && entity->IsInstance()) ++instances;
    }
    EXPECT_EQ(table.InstanceCount(), instances);
    EXPECT_EQ(table.EmptyCount(), empties);
    for (int id = low; id < high; ++id) {
        if (table.Entries().contains(id)) continue;
        EXPECT_EQ(table.Find(id), nullptr) << id;
    }
}

TEST(EntityTable, FindsWhatStandsInItUnderRandomChanges) {
    std::mt19937 random(9);
    EntityTable table;
    for (int round = 0; round < 20'000; ++round) {
        const int id = static_cast<int>(random() % 300) - 150;
        switch (random() % 6) {
            case 0:
            case 1:
                table.Set(id, std::make_shared<Instance>(id));
                break;
            case 2:
                table.Set(id, std::make_shared<Definition>(id));
                break;
            case 3:
                table.Set(id, nullptr);
                break;
            default:
                table.Erase(id);
        }
        if (round % 500 == 0) ExpectConsistent(table, -200, 200);
    }
    ExpectConsistent(table, -200, 200);
    table.Clear();
    ExpectConsistent(table, -200, 200);
    EXPECT_TRUE(table.Entries().empty());
}

TEST(EntityTable, TakesIdsOfAnyPattern) {
    EntityTable table;
    std::vector<int> ids = {INT_MIN, INT_MAX, 0, -1, -2};
    for (int i = 1; i < 20'000; ++i) ids.push_back(i * 65'536 + (i % 3));
    for (int i = 1; i < 20'000; ++i) ids.push_back(-8 * i);
    for (const int id : ids) table.Set(id, std::make_shared<Instance>(id));
    for (const int id : ids) {
        ASSERT_NE(table.Find(id), nullptr);
        ASSERT_EQ(table.Find(id)->id, id);
    }
    EXPECT_EQ(table.Find(1), nullptr);
}

TEST(EntityTable, KeepsTheOldEntityAliveUntilTheTableIsWhole) {
    EntityTable table;
    const auto first = std::make_shared<Instance>(1);
    table.Set(1, first);
    EXPECT_EQ(first.use_count(), 2);
    table.Set(1, std::make_shared<Instance>(1));
    EXPECT_EQ(first.use_count(), 1);
    EXPECT_NE(table.Find(1), first.get());
}

TEST(EntityTable, ItsVersionGoesUpWithEachChange) {
    EntityTable table;
    std::uint64_t version = table.Version();
    const auto expect_new_version = [&] {
        EXPECT_GT(table.Version(), version);
        version = table.Version();
    };
    table.Set(1, std::make_shared<Instance>(1));
    expect_new_version();
    table.Set(1, nullptr);
    expect_new_version();
    table.Erase(1);
    expect_new_version();
    table.Erase(1);
    EXPECT_EQ(table.Version(), version) << "nothing was there to erase";
    table.Clear();
    expect_new_version();
}

}  // namespace
}  // namespace Velmar
