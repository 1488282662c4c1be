// Names of the members of a package.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace Velmar::Engine {

/// True for a member name that stays below the folder it is unpacked to on every system: parts with "/" between them,
/// none of them empty, "." or "..", without backslash, colon and control characters. A folder's name ends with "/".
bool isSafeMember(std::string_view name);

/// Gives each file a name of its own in a package, the same one whenever it is asked for.
class MemberNames {
public:
    /// Name for the file at `path`: "files/" and its own name, with a number when another file has that name.
    const std::string& of(const std::string& path);

private:
    std::unordered_map<std::string, std::string> by_path_;
    // In small letters: some systems tell no capitals apart.
    std::unordered_set<std::string> taken_;
    std::unordered_map<std::string, unsigned> last_number_;
};

}  // namespace Velmar::Engine
