// What stands in the mirror of the host's model: definitions and instances, under the ids that the script layer gives
// them. Entities are always made as shared objects; the tables of SketchupManager share ownership. Ruby thread only.
#pragma once

#include <cstdint>
#include <memory>

namespace Velmar {

/// Ids that the script layer does not give away.
inline constexpr int kRootDefinitionId = -2;  ///< the model itself: its loose geometry and its top-level instances
inline constexpr int kNoId = -1;              ///< no definition, no material, nothing active

/// An object of the host's model.
class Entity : public std::enable_shared_from_this<Entity> {
public:
    enum Type : int { kDefinition = 1, kInstance = 2 };

    Entity(int entity_id, Type entity_type) : id(entity_id), type(entity_type) {}
    Entity(const Entity&) = delete;
    Entity& operator=(const Entity&) = delete;
    virtual ~Entity() = default;

    bool IsDefinition() const { return type == kDefinition; }
    bool IsInstance() const { return type == kInstance; }

    const int id;
    const Type type;
    /// Number of the latest garbage collection that found it among the children of a definition.
    std::uint32_t listed_in = 0;
};

}  // namespace Velmar
