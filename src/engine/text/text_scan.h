// A first look at a text, before any tree is built of it: how deep it nests, and whether it holds what no scene text
// has. Costs one pass and no memory, so a text of nothing but nesting costs nothing more.
#pragma once

#include <string_view>

namespace Velmar::Engine {

/// Depth of the deepest element of an XML text, 1 for the outermost. Throws Refusal for a document type, with the
/// entities that it may declare, for a zero byte, and for a depth beyond SceneFormat::kDeepest. A text that is no
/// well-formed XML may pass; the parser finds that.
unsigned scanDepth(std::string_view text);

}  // namespace Velmar::Engine
