// Graphs: items that own items. Root graphs can be written to text and read back.
#pragma once

#include <velmar/arrays.h>
#include <velmar/item.h>
#include <velmar/node_types.h>

namespace Velmar {

/// A graph that owns nodes and other graphs.
class VELMAR_SDK ApiNodeGraph : public ApiItem {
public:
    /// A new graph inside `owner`; null when the type is unknown, a root graph's, or `owner` is null.
    static ApiNodeGraph* create(NodeGraphType type, ApiNodeGraph* owner);

    NodeGraphType type() const;
    /// Destroys all items of the graph.
    void clear();
    /// Copies `item` and everything it depends on into this graph, wiring included, each dependency once, and returns
    /// the copy of `item`. What stands beside `item` comes to stand beside its copy, and so does what stands in a graph
    /// around it; what stands in another graph brings that graph along, as a graph of the same name in this one that
    /// holds what was needed. A graph is copied with all its items; a node that a pin owns becomes a free one. Null for
    /// a null item.
    ApiItem* copyItemTree(const ApiItem* item);

    /// The first node of a type in this graph, in creation order, or null.
    ApiNode* findFirstNode(NodeType type) const;
    /// Replaces the contents of `nodes` by the nodes of a type in this graph, with `recurse` in graphs inside it too.
    void findNodes(NodeType type, ApiNodeArray& nodes, bool recurse) const;
    /// Replaces the contents of `items` by the graph's own items, nodes and graphs, in creation order.
    void getOwnedItems(ApiItemArray& items) const;

    /// Moves the view so that the middle of the items' places stands at `offset`, in view units. No item moves.
    void recenter(Vec2<float> offset);
    /// Lays the graph's items out as a tree without overlaps, users below what they use, from the origin on; `recurse`
    /// does so in graphs inside it too. Nothing but their places changes.
    void unfold(bool recurse);
    /// Dissolves this graph in its owner and replaces the contents of `items`, unless that is null, by what came out;
    /// `recurse` dissolves the graphs inside it too. Items keep the places at which they were seen. A root graph stays
    /// as it is.
    void ungroup(bool recurse, ApiItemArray* items);

protected:
    ApiNodeGraph() = default;
    ~ApiNodeGraph() = default;

private:
    friend struct ItemRecord;
};

/// A graph that can be written to scene text and read back.
class VELMAR_SDK ApiRootNodeGraph : public ApiNodeGraph {
public:
    /// Maps the name of an asset in a scene to a path; null keeps the name. `user` is handed through.
    using AssetResolver = const char* (*)(const char* asset, void* user);

    /// A free root graph that is not the project's. `version` is the scene version that the caller writes for, 3080100
    /// for instance. It ends with destroy().
    static ApiRootNodeGraph* create(unsigned version);

    /// The graph as scene text, never null, empty on failure; valid until the next call on the graph. `path` is the
    /// file that the text will stand in, or null: names of asset files under its folder are written relative to it.
    /// Without `with_assets` the names of asset files are left out. Connections to nodes outside the graph are not part
    /// of the text. A graph of a newer version than the library's is not written.
    const char* exportToString(const char* path, bool with_assets);
    /// Reads scene text of `size` bytes into the graph, behind what stands there. Names of asset files go through
    /// `resolver`; a relative name that it does not know is put behind the folder of `path`, when there is one.
    /// `version_out` receives the text's version, also when it is newer than the library's and therefore refused.
    /// Nodes of types that the library does not know are kept as stand-ins. False, a line in the log, and an unchanged
    /// graph, when the text is refused.
    bool import(const char* text, std::size_t size, const char* path, unsigned& version_out, AssetResolver resolver,
                void* user);
    /// Reads a scene file or a scene package, told apart by what they hold, into the graph. Relative names of asset
    /// files stand under the folder of the file; those of a package under the folder that it is unpacked to, which
    /// lasts as long as the process.
    bool import(const char* path, unsigned& version_out, AssetResolver resolver, void* user);

protected:
    ApiRootNodeGraph() = default;
    ~ApiRootNodeGraph() = default;

private:
    friend struct ItemRecord;
};

}  // namespace Velmar
