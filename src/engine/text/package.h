// Scene packages: a ZIP file with one scene text and the files that it names, so that a scene travels as one file. A
// package is unpacked to a new folder of its own under the folder for temporary files, which goes at the end of the
// process. No member leaves that folder, whatever its name says. SDK thread only.
#pragma once

#include "engine/graph/records.h"

#include <optional>
#include <string>

namespace Velmar::Engine {

/// Reads a scene text or a scene package, told apart by their first bytes, into a graph. Relative file names stand
/// under the folder of the file or of what was unpacked. False, a line in the log, and an unchanged graph when the file
/// cannot be read or is neither. `version` is as for importScene.
bool importFile(GraphRecord& graph, const std::string& path, ApiRootNodeGraph::AssetResolver resolver, void* user,
                unsigned& version);

/// Writes a graph as a package: the text as scene.vxs, and each file that it names, once, under files/. A file that is
/// not there is left out, with a line in the log, and keeps its name in the text. One graph always gives the same
/// bytes. False, a line in the log, and no changed file, when it cannot be written.
bool writePackage(const GraphRecord& graph, const std::string& path);

/// Where a package was unpacked.
struct UnpackedPackage {
    std::string folder;      ///< with its last separator
    std::string scene_path;  ///< of the scene text within it
};

/// Unpacks a package to a new folder. Throws Refusal for a file that is no package, and for one with a member whose
/// name is absolute, goes up, holds a backslash, a colon or a control character, or stands there twice; with a member
/// that is a link or encrypted; with more members or bytes than any scene has; or without exactly one scene text at its
/// top. Nothing of it is left behind then.
UnpackedPackage unpackPackage(const std::string& path);

}  // namespace Velmar::Engine
