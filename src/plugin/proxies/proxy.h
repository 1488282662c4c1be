// A mesh from a file that stands in for the geometry of definitions. Shared by the definitions that use it; the node
// goes with the last of them. Ruby thread only.
#pragma once

#include <string>

namespace Velmar {

class ApiNode;

/// A file and the mesh node that was loaded from it, which stands in the root graph.
class Proxy {
public:
    Proxy(ApiNode* mesh_node, std::string file_path);
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;
    /// Destroys the node, unless a pin owns it.
    ~Proxy();

    ApiNode* node;
    std::string path;  ///< as it was given
};

}  // namespace Velmar
