// The tables, one for each group of node types, and the names of numbers.
#pragma once

#include "engine/catalog/rows.h"

#include <span>

namespace Velmar::Engine {

struct PinName {
    PinId id;
    const char* name;
};

struct AttributeName {
    AttributeId id;
    const char* name;
};

std::span<const NodeTypeRow> geometryTypes();
std::span<const NodeTypeRow> cameraTypes();
std::span<const NodeTypeRow> environmentTypes();
std::span<const NodeTypeRow> kernelTypes();
std::span<const NodeTypeRow> materialTypes();
std::span<const NodeTypeRow> pictureTypes();  ///< render target, film, imager, post-processing
std::span<const NodeTypeRow> textureTypes();
std::span<const NodeTypeRow> valueTypes();  ///< value nodes, transforms, links, project settings

std::span<const PinName> pinNames();
std::span<const AttributeName> attributeNames();

}  // namespace Velmar::Engine
