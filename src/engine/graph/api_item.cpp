// Items, as the SDK knows them: identity, place and life. Their attributes stand in api_attributes.cpp.
#include "engine/graph/edit.h"
#include "engine/graph/operation_log.h"

#include <velmar/item.h>

namespace Velmar {

using Engine::Edit;
using Engine::GraphRecord;
using Engine::NodeRecord;
using Engine::OperationLog;
using Engine::World;

const char* ApiItem::name() const {
    const ItemRecord* record = ItemRecord::of(this);
    return record == nullptr ? "" : record->name.c_str();
}

void ApiItem::setName(const char* name) {
    OperationLog::record("setName", this, name);
    ItemRecord* record = ItemRecord::alive(this);
    if (record == nullptr) return;
    Edit edit;
    edit.rename(*record, name == nullptr ? "" : name);
    edit.finish();
}

bool ApiItem::isNode() const {
    return NodeRecord::of(this) != nullptr;
}

bool ApiItem::isGraph() const {
    return GraphRecord::of(this) != nullptr;
}

ApiNode* ApiItem::toNode() {
    return isNode() ? static_cast<ApiNode*>(this) : nullptr;
}

const ApiNode* ApiItem::toNode() const {
    return isNode() ? static_cast<const ApiNode*>(this) : nullptr;
}

ApiNodeGraph* ApiItem::toGraph() {
    return isGraph() ? static_cast<ApiNodeGraph*>(this) : nullptr;
}

const ApiNodeGraph* ApiItem::toGraph() const {
    return isGraph() ? static_cast<const ApiNodeGraph*>(this) : nullptr;
}

ApiNodeGraph* ApiItem::graphOwner() const {
    const ItemRecord* record = ItemRecord::of(this);
    return record == nullptr || record->owner == nullptr ? nullptr : record->owner->graph();
}

bool ApiItem::pinOwned() const {
    const NodeRecord* record = NodeRecord::of(this);
    return record != nullptr && record->pin_owned;
}

Vec2<float> ApiItem::position() const {
    const ItemRecord* record = ItemRecord::of(this);
    return record == nullptr ? Vec2<float>{} : record->position;
}

void ApiItem::setPosition(Vec2<float> position) {
    OperationLog::record("setPosition", this, position);
    ItemRecord* record = ItemRecord::alive(this);
    if (record == nullptr) return;
    Edit edit;
    edit.move(*record, position);
    edit.finish();
}

void ApiItem::destroy() {
    OperationLog::record("destroy", this);
    ItemRecord* record = ItemRecord::alive(this);
    if (record == nullptr) return;
    Edit edit;
    edit.destroy(*record);
    edit.finish();
}

void ApiItem::evaluate() {
    OperationLog::record("evaluate", this);
    NodeRecord* record = NodeRecord::alive(this);
    if (record == nullptr) return;
    Edit edit;
    edit.evaluate(*record);
    edit.finish();
}

void ApiItem::select() {
    OperationLog::record("select", this);
    if (ItemRecord::alive(this) != nullptr) World::current()->selected = this;
}

void ApiItem::setUIOperationFlags(int flags) {
    OperationLog::record("setUIOperationFlags", this, flags);
    ItemRecord* record = ItemRecord::alive(this);
    if (record == nullptr) return;
    Edit edit;
    edit.setFlags(*record, flags);
    edit.finish();
}

}  // namespace Velmar
