#include "plugin/sketchup/face_materials.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <random>

#include "plugin/materials/su_material.h"

namespace Velmar {
namespace {

TEST(FaceMaterials, AgreesWithAnOrderedMap) {
    std::mt19937 random(12);
    FaceMaterials faces;
    std::map<int, FaceMaterials::Material> expected;
    const auto pick_id = [&random] { return static_cast<int>(random() % 60) - 30; };
    const auto pick_material = [&random] {
        return random() % 4 == 0 ? nullptr : std::make_shared<SuMaterial>(static_cast<int>(random()));
    };
    for (int round = 0; round < 3000; ++round) {
        if (random() % 3 == 0) {
            std::vector<std::pair<int, FaceMaterials::Material>> batch(random() % 20);
            for (auto& [id, material] : batch) {
                id = pick_id();
                material = pick_material();
                expected[id] = material;
            }
            faces.Assign(batch);
        } else if (random() % 50 == 0) {
            faces.Clear();
            expected.clear();
        } else {
            const int id = pick_id();
            const auto material = pick_material();
            faces.Set(id, material);
            expected[id] = material;
        }
        ASSERT_EQ(faces.Size(), expected.size());
        for (int id = -31; id <= 31; ++id) {
            const auto found = expected.find(id);
            ASSERT_EQ(faces.Contains(id), found != expected.end());
            if (found == expected.end()) continue;
            ASSERT_EQ(*faces.Find(id), found->second);
        }
    }
}

TEST(FaceMaterials, TakesIdsInAnyOrder) {
    FaceMaterials faces;
    std::vector<std::pair<int, FaceMaterials::Material>> batch;
    for (int i = 0; i < 100'000; ++i) batch.emplace_back(INT_MAX - i, nullptr);
    batch.emplace_back(INT_MIN, nullptr);
    faces.Assign(batch);
    EXPECT_EQ(faces.Size(), 100'001u);
    EXPECT_TRUE(faces.Contains(INT_MIN));
    EXPECT_TRUE(faces.Contains(INT_MAX));
    EXPECT_FALSE(faces.Contains(0));
}

}  // namespace
}  // namespace Velmar
