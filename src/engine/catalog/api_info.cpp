// Names of numbers, and what fits where.
#include "engine/catalog/catalog.h"

#include <velmar/info.h>

#include <map>

namespace Velmar {
namespace {

using Engine::Catalog;
using Engine::TypeEntry;

std::map<NodePinType, std::vector<NodeType>> fittingTypes() {
    std::map<NodePinType, std::vector<NodeType>> lists;
    for (int kind = PIN_TYPE_BOOL; kind <= PIN_TYPE_STRING; ++kind) {
        for (const TypeEntry* entry : Catalog::types()) {
            const auto pin = static_cast<NodePinType>(kind);
            if (Catalog::fits(entry->row->output, pin) && !Catalog::isLink(entry->row->type)) {
                lists[pin].push_back(entry->row->type);
            }
        }
    }
    return lists;
}

}  // namespace

const char* ApiInfo::getNodeTypeName(NodeType type) {
    const TypeEntry* entry = Catalog::find(type);
    return entry == nullptr ? "" : entry->row->type_name;
}

const char* ApiInfo::getPinIdName(PinId id) {
    return Catalog::pinName(id);
}

const char* ApiInfo::getPinTypeName(NodePinType type) {
    switch (type) {
        case PIN_TYPE_UNKNOWN:
            return "";
        case PIN_TYPE_BOOL:
            return "bool";
        case PIN_TYPE_FLOAT:
            return "float";
        case PIN_TYPE_INT:
            return "int";
        case PIN_TYPE_TRANSFORM:
            return "transform";
        case PIN_TYPE_TEXTURE:
            return "texture";
        case PIN_TYPE_EMISSION:
            return "emission";
        case PIN_TYPE_MATERIAL:
            return "material";
        case PIN_TYPE_CAMERA:
            return "camera";
        case PIN_TYPE_ENVIRONMENT:
            return "environment";
        case PIN_TYPE_IMAGER:
            return "imager";
        case PIN_TYPE_KERNEL:
            return "kernel";
        case PIN_TYPE_GEOMETRY:
            return "geometry";
        case PIN_TYPE_MEDIUM:
            return "medium";
        case PIN_TYPE_FILM_SETTINGS:
            return "film settings";
        case PIN_TYPE_POSTPROC:
            return "postproc";
        case PIN_TYPE_ENUM:
            return "enum";
        case PIN_TYPE_RENDER_TARGET:
            return "render target";
        case PIN_TYPE_STRING:
            return "string";
    }
    return "";
}

const char* ApiInfo::getGraphTypeName(NodeGraphType type) {
    switch (type) {
        case GRAPH_UNKNOWN:
            return "";
        case GRAPH_STANDARD:
            return "VELMAR_GRAPH";
        case GRAPH_ROOT:
            return "VELMAR_ROOTGRAPH";
    }
    return "";
}

const char* ApiInfo::getAttributeIdName(AttributeId id) {
    return Catalog::attributeName(id);
}

const char* ApiInfo::getAttributeTypeName(AttributeType type) {
    static constexpr const char* names[] = {"",       "bool",   "int",    "int2",   "int3",     "int4", "float",
                                            "float2", "float3", "float4", "string", "filename", "byte", "matrix"};
    const auto index = static_cast<std::size_t>(type);
    return index < std::size(names) ? names[index] : "";
}

void ApiInfo::getCompatibleTypes(NodePinType type, const NodeGraphType*& graph_types, std::size_t& graph_count,
                                 const NodeType*& node_types, std::size_t& node_count) {
    static const auto& lists = *new auto(fittingTypes());
    graph_types = nullptr;
    graph_count = 0;
    const auto found = lists.find(type);
    const bool any = found != lists.end();
    node_types = any ? found->second.data() : nullptr;
    node_count = any ? found->second.size() : 0;
}

}  // namespace Velmar
