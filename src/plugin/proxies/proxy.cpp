#include "plugin/proxies/proxy.h"

#include <utility>

#include "plugin/nodes/node_utils.h"

namespace Velmar {

Proxy::Proxy(ApiNode* mesh_node, std::string file_path) : node(mesh_node), path(std::move(file_path)) {}

Proxy::~Proxy() {
    NodeUtils::SafeDestroy(node);
}

}  // namespace Velmar
