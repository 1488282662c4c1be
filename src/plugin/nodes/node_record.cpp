#include "plugin/nodes/node_record.h"

#include <json/value.h>

#include <utility>

namespace Velmar {

namespace {

// The functions below throw Json::Exception for values of the wrong kind.

NodeRecord readRecord(const Json::Value& json);

/// The elements of the list of that name; the null value stands for an empty list.
const Json::Value& list(const Json::Value& json, const char* name) {
    const Json::Value& elements = json[name];
    if (!elements.isNull() && !elements.isArray()) throw Json::LogicError("a list is wanted");
    return elements;
}

std::string pinName(const Json::Value& pin_record) {
    return pin_record["info"]["name"].asString();
}

void readParams(const Json::Value& json, NodeRecord& record) {
    const Json::Value& params = list(json, "params");
    record.has_params = !params.isNull();
    record.params.reserve(params.size());
    for (const Json::Value& param : params) {
        if (auto attribute = ReadAttributeRecord(param)) record.params.push_back(*std::move(attribute));
    }
}

void readPins(const Json::Value& json, NodeRecord& record) {
    const Json::Value& pins = list(json, "nodes");
    record.pins.reserve(pins.size());
    for (const Json::Value& element : pins) {
        std::string pin_name = pinName(element);
        if (pin_name.empty()) continue;
        NodeRecord pin = readRecord(element);
        pin.pin_name = std::move(pin_name);
        record.pins.push_back(std::move(pin));
    }
}

NodeRecord readRecord(const Json::Value& json) {
    NodeRecord record;
    record.type = NodeType{json.get("type", static_cast<int>(NodeRecord::kNoType)).asInt()};
    if (record.type == NodeRecord::kEmptyPin) return record;
    record.name = json["name"].asString();
    record.pin_owned = json["pin_owned"].asBool();
    readParams(json, record);
    readPins(json, record);
    return record;
}

}  // namespace

std::optional<NodeRecord> ReadNodeRecord(const Json::Value& json) {
    if (json.isNull()) return std::nullopt;
    try {
        return readRecord(json);
    } catch (const Json::Exception&) {
        return std::nullopt;
    }
}

}  // namespace Velmar
