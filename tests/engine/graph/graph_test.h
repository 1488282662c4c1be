// A project for each test, and short words for what tests of the graph do all the time.
#pragma once

#include "engine/graph/change_log.h"
#include "engine/graph/operation_log.h"
#include "engine/graph/project.h"

#include <velmar/arrays.h>
#include <velmar/change.h>
#include <velmar/graph.h>
#include <velmar/info.h>
#include <velmar/node.h>
#include <velmar/project.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace Velmar::Engine {

class GraphTest : public ::testing::Test {
protected:
    GraphTest() {
        EXPECT_TRUE(Project::start());
        root = ApiProjectManager::rootNodeGraph();
        ChangeLog::take();
    }
    ~GraphTest() override { Project::stop(); }

    ApiNode* make(NodeType type) { return ApiNode::create(type, root, true); }
    ApiNode* bare(NodeType type) { return ApiNode::create(type, root, false); }

    /// A mesh with that many material slots, "mat_1" and so on.
    ApiNode* meshWithSlots(unsigned count) {
        ApiNode* mesh = make(NODE_MESH);
        setSlots(mesh, count);
        return mesh;
    }
    static void setSlots(ApiNode* mesh, unsigned count) {
        std::vector<std::string> names;
        std::vector<const char*> pointers;
        for (unsigned i = 1; i <= count; ++i) names.push_back("mat_" + std::to_string(i));
        for (const std::string& name : names) pointers.push_back(name.c_str());
        mesh->set(ATTR_MATERIAL_NAMES, pointers.data(), pointers.size(), true);
    }

    static std::vector<ApiItem*> ownedItems(const ApiNodeGraph* graph) {
        ApiItemArray items;
        graph->getOwnedItems(items);
        return {items.items(), items.items() + items.size()};
    }

    static std::vector<ApiNode*> nodes(const ApiNodeGraph* graph, NodeType type, bool recurse = false) {
        ApiNodeArray found;
        graph->findNodes(type, found, recurse);
        return {found.items(), found.items() + found.size()};
    }

    /// "node pin" for each use of a node.
    static std::vector<std::string> users(const ApiNode* node) {
        ApiNodeArray found;
        ApiStringArray pins;
        node->destinationNodes(found, pins);
        EXPECT_EQ(found.size(), pins.size());
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < found.size(); ++i) {
            texts.push_back(std::string(found.get(i)->name()) + " " + pins.get(i));
        }
        return texts;
    }

    ApiRootNodeGraph* root = nullptr;
};

inline bool operator==(const Change& a, const Change& b) {
    return a.kind == b.kind && a.item == b.item && a.id == b.id;
}

/// Observes items and keeps what it hears; `then` runs in each callback.
class Listener {
public:
    using Event = ApiChangeManager::ChangeEvent;

    explicit Listener(std::function<void(const Event&)> then = {}) : then_(std::move(then)) {
        observer.callback = [](const Event& event, void* user) {
            auto* self = static_cast<Listener*>(user);
            self->events.push_back(event);
            if (self->then_) self->then_(event);
        };
        observer.user = this;
    }
    ~Listener() { ApiChangeManager::stopObserving(observer); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    void listen(const ApiItem* item, std::uint32_t mask = 1023) {
        ApiChangeManager::observeApiItem(item, observer, mask);
    }
    std::vector<Event::Type> types() const {
        std::vector<Event::Type> list;
        for (const Event& event : events) list.push_back(event.type);
        return list;
    }

    ApiChangeManager::Observer observer{};
    std::vector<Event> events;

private:
    std::function<void(const Event&)> then_;
};

}  // namespace Velmar::Engine
