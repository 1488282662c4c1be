#include "plugin/sketchup/entity.h"

#include <gtest/gtest.h>

#include "plugin/sketchup/definition.h"
#include "plugin/sketchup/instance.h"

namespace Velmar {
namespace {

TEST(Entity, KnowsItsKindByItsType) {
    const Definition definition(5);
    const Instance instance(6);
    EXPECT_EQ(definition.id, 5);
    EXPECT_EQ(static_cast<int>(definition.type), 1);
    EXPECT_TRUE(definition.IsDefinition());
    EXPECT_FALSE(definition.IsInstance());
    EXPECT_EQ(static_cast<int>(instance.type), 2);
    EXPECT_TRUE(instance.IsInstance());
    EXPECT_FALSE(instance.IsDefinition());
}

TEST(Instance, StartsVisibleUnplacedAndUnpainted) {
    const Instance instance(6);
    EXPECT_FALSE(instance.edit_mode);
    EXPECT_TRUE(instance.visible);
    EXPECT_EQ(instance.transform, Float4x4());
    EXPECT_EQ(instance.GetEditTransform(), Float4x4());
    EXPECT_FALSE(instance.HasPlacements());
    EXPECT_EQ(instance.definition_id, -1);
    EXPECT_EQ(instance.material_id, -1);
}

TEST(Definition, StartsEmpty) {
    const Definition definition(5);
    EXPECT_FALSE(definition.edit_mode);
    EXPECT_TRUE(definition.child_ids.empty() && definition.other_ids.empty());
    EXPECT_EQ(definition.num_entities, 0);
    EXPECT_EQ(definition.mesh, nullptr);
    EXPECT_EQ(definition.proxy, nullptr);
    EXPECT_EQ(definition.num_polys, 0u);
    EXPECT_FALSE(definition.materials_dirty);
    EXPECT_TRUE(definition.mesh_maps.empty());
}

Float4x4 Shifted(float x) {
    Float4x4 m;
    m[12] = x;
    return m;
}

TEST(Instance, FoldsAPendingEditTransformOnce) {
    Instance instance(6);
    instance.edit_mode = true;
    instance.transform = Float4x4().Scale(2);
    instance.SetEditTransform(Shifted(3));
    instance.UpdateTransform();
    EXPECT_EQ(instance.transform, Float4x4().Scale(2) * Shifted(3));
    EXPECT_EQ(instance.GetEditTransform(), Float4x4());
    instance.UpdateTransform();
    EXPECT_EQ(instance.transform, Float4x4().Scale(2) * Shifted(3));
}

TEST(Instance, DropsAPendingEditTransformOutsideEditMode) {
    Instance instance(6);
    instance.SetEditTransform(Shifted(3));
    instance.UpdateTransform();
    EXPECT_EQ(instance.transform, Float4x4());
    EXPECT_EQ(instance.GetEditTransform(), Float4x4());
    instance.edit_mode = true;
    instance.UpdateTransform();
    EXPECT_EQ(instance.transform, Float4x4());
}

}  // namespace
}  // namespace Velmar
