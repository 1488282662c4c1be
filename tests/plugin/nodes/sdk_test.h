// What the tests of the node tools share: a running library with an empty project, and short words for making and
// reading trees.
#pragma once

#include <json/value.h>
#include <velmar/arrays.h>
#include <velmar/graph.h>
#include <velmar/info.h>
#include <velmar/node.h>
#include <velmar/project.h>

#include <glog/logging.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "engine/catalog/engine_ids.h"
#include "engine/graph/operation_log.h"
#include "plugin/nodes/node_utils.h"
#include "plugin/utils/message.h"

namespace Velmar {

/// A node type that no library has.
inline constexpr NodeType kNoSuchType{29999};

class SdkTest : public testing::Test {
protected:
    void SetUp() override {
        const char* error = "";
        ASSERT_TRUE(apiMode_Shared_start("Velmar tests", false, &error, nullptr, nullptr)) << error;
    }
    void TearDown() override { apiMode_Shared_exit(nullptr); }

    static ApiNodeGraph* Root() { return ApiProjectManager::rootNodeGraph(); }

    static ApiNode* Make(NodeType type, const char* name = nullptr) {
        ApiNode* const node = ApiNode::create(type, Root(), true);
        EXPECT_NE(node, nullptr) << type;
        if (node != nullptr && name != nullptr) node->setName(name);
        return node;
    }

    /// A free node on a pin.
    static ApiNode* Put(ApiNode* owner, PinId pin, NodeType type) {
        ApiNode* const node = Make(type);
        owner->connectTo(pin, node, true, false);
        EXPECT_EQ(owner->connectedNode(pin), node);
        return node;
    }

    /// A node that the pin owns.
    static ApiNode* PutInternal(ApiNode* owner, PinId pin, NodeType type) {
        ApiNode* const node = owner->createInternal(pin, type, true, true);
        EXPECT_NE(node, nullptr);
        return node;
    }

    static Json::Value Record(ApiNode* node) { return NodeUtils::NodeToStr(node, true); }
    static ApiNode* FromRecord(const Json::Value& json) { return NodeUtils::StrToNode(json, 0, nullptr, PIN_UNKNOWN); }
    static int Update(const Json::Value& json, ApiNode* node) {
        return NodeUtils::UpdateNode(json, node, PIN_UNKNOWN, nullptr, false);
    }

    static Json::Value Parse(const std::string& text) {
        Json::Value json = Message::StringToJson(text);
        EXPECT_FALSE(json.isNull()) << text;
        return json;
    }

    /// The record of the pin, to read and to change.
    static Json::Value& PinRecord(Json::Value& record, const std::string& pin_name) {
        static Json::Value none;
        for (Json::Value& pin : record["nodes"]) {
            if (pin["info"]["name"].asString() == pin_name) return pin;
        }
        ADD_FAILURE() << "no pin record for " << pin_name;
        return none = Json::Value();
    }

    static Json::Value& Param(Json::Value& record, const std::string& name) {
        static Json::Value none;
        for (Json::Value& param : record["params"]) {
            if (param["name"].asString() == name) return param;
        }
        ADD_FAILURE() << "no attribute record for " << name;
        return none = Json::Value();
    }

    static std::size_t RootItems() {
        ApiItemArray items;
        Root()->getOwnedItems(items);
        return items.size();
    }

    /// All types that can be made, ascending.
    static std::vector<NodeType> CreatableTypes() {
        std::vector<NodeType> types;
        for (int number = 1; number < 32768; ++number) {
            const NodeType type{number};
            if (*ApiInfo::getNodeTypeName(type) == 0) continue;
            ApiNode* node = ApiNode::create(type, Root(), true);
            if (node == nullptr) continue;
            types.push_back(type);
            NodeUtils::SafeDestroy(node);
        }
        return types;
    }

    /// The SDK operations of `work`, one line each.
    static std::vector<std::string> Operations(const std::function<void()>& work) {
        Engine::OperationLog::begin();
        work();
        return Engine::OperationLog::end();
    }
};

/// Keeps texts that do not parse out of the log while it lives.
class QuietLog {
public:
    QuietLog() : level_(FLAGS_minloglevel) { FLAGS_minloglevel = google::GLOG_FATAL; }
    ~QuietLog() { FLAGS_minloglevel = level_; }
    QuietLog(const QuietLog&) = delete;
    QuietLog& operator=(const QuietLog&) = delete;

private:
    int level_;
};

}  // namespace Velmar
