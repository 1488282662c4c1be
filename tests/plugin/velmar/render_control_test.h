// What the tests of render control share: a running SDK with a fresh render target, the list of SDK operations that a
// piece of work makes, and the errors that it logs.
#pragma once

#include <velmar/graph.h>
#include <velmar/node.h>
#include <velmar/project.h>

#include <glog/logging.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <regex>
#include <string>
#include <vector>

#include "engine/graph/operation_log.h"
#include "plugin/velmar/render_targets.h"
#include "plugin/velmar/setters/camera.h"
#include "plugin/velmar/vel_manager.h"

namespace Velmar {

/// Gathers the errors that are logged while it lives.
class ErrorLog : public google::LogSink {
public:
    ErrorLog() { google::AddLogSink(this); }
    ~ErrorLog() override { google::RemoveLogSink(this); }
    std::vector<std::string> lines;

private:
    void send(google::LogSeverity severity, const char*, const char*, int, const std::tm*, const char* message,
              std::size_t size) override {
        if (severity >= google::GLOG_ERROR) lines.emplace_back(message, size);
    }
};

/// The SDK operations of `work`, one line each.
inline std::vector<std::string> Operations(const std::function<void()>& work) {
    Engine::OperationLog::begin();
    work();
    return Engine::OperationLog::end();
}

/// An operation line without its item and its values: "setPinValue 133", "createInternal 19", "update".
inline std::string Step(const std::string& line) {
    static const std::regex with_id(R"(^(\w+) \w+:.*? (\d+)\b.*)");
    std::smatch match;
    if (std::regex_match(line, match, with_id)) return match[1].str() + " " + match[2].str();
    return line.substr(0, line.find(' '));
}

/// The steps of `work`, in order.
inline std::vector<std::string> Steps(const std::function<void()>& work) {
    std::vector<std::string> steps;
    for (const std::string& line : Operations(work)) steps.push_back(Step(line));
    return steps;
}

/// How often a step stands among the steps.
inline std::size_t Count(const std::vector<std::string>& steps, const std::string& step) {
    return static_cast<std::size_t>(std::count(steps.begin(), steps.end(), step));
}

class RenderControlTest : public testing::Test {
protected:
    void SetUp() override {
        if (ApiProjectManager::rootNodeGraph() == nullptr) {
            const char* error = nullptr;
            ASSERT_TRUE(apiMode_Shared_start("Velmar tests", false, &error, nullptr, nullptr)) << error;
        }
        VelmarManager::CreateRenderTarget();
        VelmarManager::FlushGeometryGroup();
        VelmarManager::SetRenderState(VelmarManager::StateType::Stopped);
        CameraSetter::SetPosition({0, 0, -50}, {0, 0, 0}, {0, 1, 0});
    }
    void TearDown() override { VelmarManager::SetRenderState(VelmarManager::StateType::Stopped); }

    static ApiNode* Target() { return VelmarManager::RenderTarget(); }
    static ApiNode* Camera() { return Target()->inputNode(PIN_CAMERA); }
    static ApiNode* Film() { return Target()->inputNode(PIN_FILM_SETTINGS); }
    static Vec2<int> FilmSize() { return Film()->getPinInt2(PIN_RESOLUTION); }
    static void SetFilm(int width, int height) {
        Target()
            ->createInternal(PIN_FILM_SETTINGS, NODE_FILM_SETTINGS, true, true)
            ->setPinValue(PIN_RESOLUTION, Vec2<int>{width, height}, true);
    }
};

}  // namespace Velmar
