#include "engine/graph/project.h"

#include "engine/catalog/engine_ids.h"
#include "engine/graph/edit.h"
#include "engine/graph/operation_log.h"

#include <velmar/project.h>

namespace Velmar {

namespace Engine {

bool Project::start() {
    if (World::current() != nullptr) return false;
    OperationLog::readEnvironment();
    World::begin();
    World& world = *World::current();
    Edit edit;
    world.root = &edit.addGraph(ItemRecord::Kind::RootGraph, nullptr);
    world.settings = &world.newNode(*Catalog::find(NODE_PROJECT_SETTINGS));
    edit.finish();
    return true;
}

void Project::stop() {
    World::end();
}

bool Project::running() {
    return World::current() != nullptr;
}

ApiItem* Project::selectedItem() {
    return World::current() == nullptr ? nullptr : World::current()->selected;
}

}  // namespace Engine

ApiRootNodeGraph* ApiProjectManager::rootNodeGraph() {
    const Engine::World* world = Engine::World::current();
    return world == nullptr ? nullptr : static_cast<ApiRootNodeGraph*>(world->root->handle);
}

ApiNode* ApiProjectManager::projectSettings() {
    const Engine::World* world = Engine::World::current();
    return world == nullptr ? nullptr : world->settings->node();
}

}  // namespace Velmar
