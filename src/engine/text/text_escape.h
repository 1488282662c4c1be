// How any text, whatever bytes it holds, stands in XML and comes back unchanged. Control characters, bytes that are no
// UTF-8 and characters that XML excludes are written as _xHHHH_ with four hexadecimal digits: the character's number,
// or DC00 plus the byte for a byte outside UTF-8. An underscore that would begin such a group by chance is written
// as _x005F_. Knows nothing of XML's own references, &amp; and the like.
#pragma once

#include <string>
#include <string_view>

namespace Velmar::Engine {

/// `text` in a form that XML 1.0 can hold. `storage` keeps the answer when it is not `text` itself. A zero byte ends
/// no text here and becomes a blank, because no text of the graph has one.
std::string_view escapeText(std::string_view text, std::string& storage);

/// The text that escapeText was given. Groups that it does not write stay as they are.
std::string unescapeText(std::string_view text);

}  // namespace Velmar::Engine
