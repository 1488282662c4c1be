// From a model file's units and axes to the host's. It knows nothing of the file formats: model readers agree on
// metres, Y up, with whatever a file says of its own unit and axes multiplied into the root node's transform.
#pragma once

#include <assimp/matrix3x3.h>
#include <assimp/matrix4x4.h>

#include <array>

namespace Velmar::Host {

/// A change of coordinates by a rotation and one positive scale: every point of the file goes through it, and every
/// transform between two nodes is conjugated by it, so that the hierarchy stays and all its levels are in inches.
class AxisChange {
public:
    /// Takes the root node's transform along when it is such a change itself, as in a file that has its own unit or
    /// up-axis. `takesRoot()` then says that the root node has no transform left.
    explicit AxisChange(const aiMatrix4x4& root);

    bool takesRoot() const { return takes_root_; }
    aiVector3D point(const aiVector3D& p) const;
    /// A direction keeps its length.
    aiVector3D direction(const aiVector3D& d) const;
    /// Row-vector form with the translation in elements 12 to 14.
    std::array<double, 16> transform(const aiMatrix4x4& local) const;

private:
    using Rows = std::array<std::array<double, 3>, 3>;

    Rows rotation_;
    double scale_;
    bool takes_root_;
};

}  // namespace Velmar::Host
