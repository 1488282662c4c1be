#include "engine/text/text_scan.h"

#include "engine/text/refusal.h"
#include "engine/text/scene_format.h"

#include <algorithm>

namespace Velmar::Engine {
namespace {

constexpr auto npos = std::string_view::npos;

class Scan {
public:
    explicit Scan(std::string_view text) : text_(text) {}

    unsigned depth() {
        if (const auto zero = text_.find('\0'); zero != npos) refuse("a zero byte", zero);
        for (std::size_t at = text_.find('<'); at != npos; at = text_.find('<', at)) at = markup(at);
        return deepest_;
    }

private:
    [[noreturn]] static void refuse(const char* what, std::size_t at) {
        throw Refusal(what, static_cast<std::ptrdiff_t>(at));
    }

    // What begins at `at` with "<"; answers the place behind it.
    std::size_t markup(std::size_t at) {
        const std::string_view rest = text_.substr(at);
        if (rest.starts_with("<!--")) return behind("-->", at + 4);
        if (rest.starts_with("<![CDATA[")) return behind("]]>", at + 9);
        if (rest.starts_with("<?")) return behind("?>", at + 2);
        if (rest.starts_with("<!")) refuse("a document type or entity", at);
        if (rest.starts_with("</")) {
            if (depth_ > 0) --depth_;
            return behind(">", at + 2);
        }
        return element(at);
    }

    std::size_t behind(std::string_view end, std::size_t from) const {
        const std::size_t found = text_.find(end, from);
        return found == npos ? text_.size() : found + end.size();
    }

    // A start tag; a ">" within the quotes of an attribute does not end it.
    std::size_t element(std::size_t from) {
        std::size_t at = from;
        while (at < text_.size() && text_[at] != '>') {
            const bool quoted = text_[at] == '"' || text_[at] == '\'';
            at = quoted ? text_.find(text_[at], at + 1) : at;
            if (at != npos) ++at;
        }
        deepest_ = std::max(deepest_, depth_ + 1);
        if (deepest_ > SceneFormat::kDeepest) refuse("elements nested too deeply", from);
        if (at >= text_.size()) return text_.size();
        if (text_[at - 1] != '/') ++depth_;
        return at + 1;
    }

    std::string_view text_;
    unsigned depth_ = 0;
    unsigned deepest_ = 0;
};

}  // namespace

unsigned scanDepth(std::string_view text) {
    return Scan(text).depth();
}

}  // namespace Velmar::Engine
