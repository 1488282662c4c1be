// What the tests of scene texts share: a running project, graphs to write and read, and what was said on the way.
#pragma once

#include "engine/graph/project.h"
#include "engine/graph/records.h"

#include <gtest/gtest.h>
#include <velmar/graph.h>
#include <velmar/project.h>

#include <string>
#include <string_view>

namespace Velmar::Engine {

/// Starts the project, hands out root graphs of the usual version, and gathers the log.
class TextTest : public testing::Test {
protected:
    static constexpr unsigned kVersion = 3080100;

    TextTest() { Project::start(); }
    ~TextTest() override { Project::stop(); }

    static ApiRootNodeGraph* newRoot() { return ApiRootNodeGraph::create(kVersion); }

    static std::string exported(ApiRootNodeGraph* graph) { return graph->exportToString(nullptr, true); }

    /// Reads a text into a graph; the log lines of it are in `log` afterwards.
    bool import(ApiRootNodeGraph* graph, std::string_view text) {
        testing::internal::CaptureStderr();
        const bool taken = graph->import(text.data(), text.size(), nullptr, version, nullptr, nullptr);
        log = testing::internal::GetCapturedStderr();
        return taken;
    }

    /// The graph that a text gives; the test fails when the text is refused.
    ApiRootNodeGraph* imported(std::string_view text) {
        ApiRootNodeGraph* graph = newRoot();
        EXPECT_TRUE(import(graph, text)) << log << text;
        return graph;
    }

    static std::string scene(const std::string& items) {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<velmar-scene version=\"3080100\">\n" + items +
               "</velmar-scene>\n";
    }

    unsigned version = 0;
    std::string log;
};

/// Whether two graphs hold the same: items in the same order, with the same names, places, flags, attributes bit by
/// bit, pins, owners and wiring. Where they differ, the answer says it.
testing::AssertionResult sameGraphs(const ApiNodeGraph* a, const ApiNodeGraph* b);

}  // namespace Velmar::Engine
