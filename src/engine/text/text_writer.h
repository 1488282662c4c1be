// Takes what an XML document prints into a text.
#pragma once

#include <pugixml.hpp>

#include <string>

namespace Velmar::Engine {

struct TextWriter final : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }
};

}  // namespace Velmar::Engine
