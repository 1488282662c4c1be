// Writes a graph as scene text. Changes nothing.
#pragma once

#include "engine/graph/records.h"

#include <functional>
#include <string>

namespace Velmar::Engine {

struct WriteOptions {
    /// What a file's name is written as; an empty answer leaves the name out. Names stand as they are without it.
    std::function<std::string(const std::string& name)> asset_name;
};

/// The text of a root graph. A connection to a node that stands outside it is not part of it. Throws Refusal when the
/// graph is more than a text may hold: its version is newer than the engine, it nests too deeply, or it has more pins
/// than would be read again.
std::string writeScene(const GraphRecord& root, const WriteOptions& options);

}  // namespace Velmar::Engine
