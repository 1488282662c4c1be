// Lists that graph and node queries fill. The caller makes one, hands it to a query and destroys it.
#pragma once

#include <velmar/export.h>

#include <cstddef>
#include <memory>

namespace Velmar {

class ApiItem;
class ApiNode;

/// A list of borrowed item pointers.
class VELMAR_SDK ApiItemArray {
public:
    ApiItemArray();
    ~ApiItemArray();
    ApiItemArray(const ApiItemArray&) = delete;
    ApiItemArray& operator=(const ApiItemArray&) = delete;

    std::size_t size() const;
    /// The element at `index`, or null beyond the end.
    ApiItem* get(std::size_t index) const;
    /// Pointer to the first element; null for an empty list. Valid until the list is filled again.
    ApiItem* const* items() const;
    /// Used by queries, and by callers who gather a list of their own.
    void clear();
    void append(ApiItem* item);

private:
    struct Storage;
    std::unique_ptr<Storage> storage_;
};

/// A list of borrowed node pointers.
class VELMAR_SDK ApiNodeArray {
public:
    ApiNodeArray();
    ~ApiNodeArray();
    ApiNodeArray(const ApiNodeArray&) = delete;
    ApiNodeArray& operator=(const ApiNodeArray&) = delete;

    std::size_t size() const;
    /// The element at `index`, or null beyond the end.
    ApiNode* get(std::size_t index) const;
    /// Pointer to the first element; null for an empty list. Valid until the list is filled again.
    ApiNode* const* items() const;
    void clear();
    void append(ApiNode* node);

private:
    struct Storage;
    std::unique_ptr<Storage> storage_;
};

/// A list of texts, parallel to a node list.
class VELMAR_SDK ApiStringArray {
public:
    ApiStringArray();
    ~ApiStringArray();
    ApiStringArray(const ApiStringArray&) = delete;
    ApiStringArray& operator=(const ApiStringArray&) = delete;

    std::size_t size() const;
    /// The text at `index`, empty beyond the end; valid until the list changes.
    const char* get(std::size_t index) const;
    void clear();
    void append(const char* text);

private:
    struct Storage;
    std::unique_ptr<Storage> storage_;
};

}  // namespace Velmar
