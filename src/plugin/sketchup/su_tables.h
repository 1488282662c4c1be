// The tables of the mirror, for SketchupManager's own sources alone.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "plugin/materials/su_material.h"
#include "plugin/sketchup/definition.h"
#include "plugin/sketchup/entity_table.h"
#include "plugin/sketchup/float4x4.h"
#include "plugin/sketchup/geometry_stream.h"
#include "plugin/sketchup/instance.h"

namespace Velmar {

struct SuTables {
    /// The tables of the process. They are never destroyed: a process that exits without an ordered stop must not call
    /// an SDK that is gone already.
    static SuTables& Shared();

    EntityTable entities;                                    ///< everything, the root included; what all lookups use
    std::map<int, std::shared_ptr<Definition>> definitions;  ///< every definition that was added; not the root
    std::map<int, std::shared_ptr<SuMaterial>> materials;
    std::shared_ptr<Definition> root_def;
    std::vector<std::shared_ptr<Instance>> edit_mode_instances;  ///< the edit list; duplicates are allowed
    Float4x4 edit_transform;                                     ///< of the current edit context: host axes, metres
    int active_entity_id = kNoId;                                ///< the definition that the stream will fill
    /// Definitions that turn towards the camera. Emptied by a flush; nothing fills it yet.
    std::map<int, std::shared_ptr<Definition>> face_camera_definitions;
    GeometryStream stream;

    std::uint64_t walks = 0;               ///< number of the latest walk of a scene evaluation
    std::uint64_t definition_changes = 0;  ///< goes up with each change of `definitions`
    std::uint32_t collection = 0;          ///< number of the latest garbage collection
    std::uint64_t collected_state = 0;  ///< state of tables and lists that it left, in which nothing is to be dropped
};

}  // namespace Velmar
