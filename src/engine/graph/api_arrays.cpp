// The lists that queries fill.
#include <velmar/arrays.h>

#include <string>
#include <vector>

namespace Velmar {

struct ApiItemArray::Storage {
    std::vector<ApiItem*> items;
};

ApiItemArray::ApiItemArray() : storage_(std::make_unique<Storage>()) {}
ApiItemArray::~ApiItemArray() = default;

std::size_t ApiItemArray::size() const {
    return storage_->items.size();
}

ApiItem* ApiItemArray::get(std::size_t index) const {
    return index < storage_->items.size() ? storage_->items[index] : nullptr;
}

ApiItem* const* ApiItemArray::items() const {
    return storage_->items.empty() ? nullptr : storage_->items.data();
}

void ApiItemArray::clear() {
    storage_->items.clear();
}

void ApiItemArray::append(ApiItem* item) {
    storage_->items.push_back(item);
}

struct ApiNodeArray::Storage {
    std::vector<ApiNode*> nodes;
};

ApiNodeArray::ApiNodeArray() : storage_(std::make_unique<Storage>()) {}
ApiNodeArray::~ApiNodeArray() = default;

std::size_t ApiNodeArray::size() const {
    return storage_->nodes.size();
}

ApiNode* ApiNodeArray::get(std::size_t index) const {
    return index < storage_->nodes.size() ? storage_->nodes[index] : nullptr;
}

ApiNode* const* ApiNodeArray::items() const {
    return storage_->nodes.empty() ? nullptr : storage_->nodes.data();
}

void ApiNodeArray::clear() {
    storage_->nodes.clear();
}

void ApiNodeArray::append(ApiNode* node) {
    storage_->nodes.push_back(node);
}

struct ApiStringArray::Storage {
    std::vector<std::string> texts;
};

ApiStringArray::ApiStringArray() : storage_(std::make_unique<Storage>()) {}
ApiStringArray::~ApiStringArray() = default;

std::size_t ApiStringArray::size() const {
    return storage_->texts.size();
}

const char* ApiStringArray::get(std::size_t index) const {
    return index < storage_->texts.size() ? storage_->texts[index].c_str() : "";
}

void ApiStringArray::clear() {
    storage_->texts.clear();
}

void ApiStringArray::append(const char* text) {
    storage_->texts.emplace_back(text == nullptr ? "" : text);
}

}  // namespace Velmar
