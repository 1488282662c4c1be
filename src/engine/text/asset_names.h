// How the files that a scene names are written beside its text, and found again. A name under the folder of the scene's
// own file is written relative to it; reading puts the folder back before relative names, so both give the same name
// letter by letter. Nothing here looks at the file system.
#pragma once

#include <velmar/graph.h>

#include <string>
#include <string_view>

namespace Velmar::Engine {

/// True for a name that begins at a root: with / or \, or with a drive letter and a colon.
bool isAbsolutePath(std::string_view name);
/// What stands before the last / or \ of a path, that one included; empty when there is none.
std::string_view folderOf(std::string_view path);

/// How names are found when a text is read.
struct AssetLookup {
    std::string folder;  ///< of the scene's file, with its last separator; empty for none
    ApiRootNodeGraph::AssetResolver resolver = nullptr;
    void* user = nullptr;

    /// The path for a name as it stands in the text: what the resolver answers; else, for a relative name, the name
    /// under the folder. An empty name stays empty and is asked of nobody.
    std::string find(const std::string& name) const;
};

/// `name` relative to `folder`, when it stands under it and would be found again; `name` otherwise.
std::string_view relativeTo(std::string_view folder, std::string_view name);

}  // namespace Velmar::Engine
