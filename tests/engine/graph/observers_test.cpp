#include "engine/graph/observers.h"

#include "engine/catalog/engine_ids.h"
#include "engine/graph/graph_test.h"
#include "engine/graph/graph_walk.h"

#include <memory>
#include <stdexcept>
#include <thread>

namespace Velmar::Engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Event = ApiChangeManager::ChangeEvent;

class ObserverTest : public GraphTest {};

TEST_F(ObserverTest, EventsAreSingleBits) {
    EXPECT_EQ(Event::ITEM_ADDED, 1);
    EXPECT_EQ(Event::ITEM_DELETE, 2);
    EXPECT_EQ(Event::CONNECTION_CHANGED, 4);
    EXPECT_EQ(Event::DESTINATION_ADDED, 8);
    EXPECT_EQ(Event::PINS_CHANGED, 16);
    EXPECT_EQ(Event::ITEM_VALUE_CHANGED, 32);
    EXPECT_EQ(Event::ITEM_NAME_CHANGED, 64);
    EXPECT_EQ(Event::ITEM_MOVED, 128);
    EXPECT_EQ(Event::LINKER_ORDER_CHANGED, 256);
    EXPECT_EQ(Event::ITEM_UI_OPERATION_FLAG_CHANGED, 512);
}

TEST_F(ObserverTest, HearsOfEachKindOfChangeOnItsItem) {
    ApiNode* group = make(NODE_GEOMETRY_GROUP);
    ApiNode* mesh = make(NODE_MESH);
    Listener listener;
    listener.listen(group);
    group->setName("all");
    group->setPosition({1, 2});
    group->set(ATTR_PIN_COUNT, 1, true);
    group->connectToIx(0, mesh, true, false);
    group->setUIOperationFlags(4);
    EXPECT_THAT(listener.types(),
                ElementsAre(Event::ITEM_NAME_CHANGED, Event::ITEM_MOVED, Event::ITEM_VALUE_CHANGED, Event::PINS_CHANGED,
                            Event::CONNECTION_CHANGED, Event::ITEM_UI_OPERATION_FLAG_CHANGED));
    for (const Event& event : listener.events) {
        EXPECT_EQ(event.changed_item, group);
        EXPECT_EQ(event.owner, root);
    }
    listener.events.clear();
    group->destroy();
    EXPECT_THAT(listener.types(), ElementsAre(Event::ITEM_DELETE));
}

TEST_F(ObserverTest, HearsOnlyWhatItsMaskNames) {
    ApiNode* mesh = make(NODE_MESH);
    Listener listener;
    listener.listen(mesh, Event::ITEM_NAME_CHANGED | Event::ITEM_DELETE);
    mesh->setPosition({1, 2});
    mesh->set(ATTR_SMOOTHING, false, true);
    mesh->setName("a");
    EXPECT_THAT(listener.types(), ElementsAre(Event::ITEM_NAME_CHANGED));
    listener.listen(mesh, Event::ITEM_MOVED);
    mesh->setName("b");
    mesh->setPosition({3, 4});
    EXPECT_THAT(listener.types(), ElementsAre(Event::ITEM_NAME_CHANGED, Event::ITEM_MOVED))
        << "a second call replaces the mask";
}

TEST_F(ObserverTest, OfAGraphHearsOfItemsThatItGainsAndLoses) {
    Listener listener;
    listener.listen(root);
    ApiNode* mesh = make(NODE_MESH);
    ASSERT_THAT(listener.types(), ElementsAre(Event::ITEM_ADDED));
    EXPECT_EQ(listener.events[0].changed_item, mesh);
    EXPECT_EQ(listener.events[0].owner, root);
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode::create(NODE_MESH, graph, true);
    EXPECT_EQ(listener.events.size(), 2U) << "not of what a graph inside gains";
    listener.events.clear();
    mesh->destroy();
    ASSERT_THAT(listener.types(), ElementsAre(Event::ITEM_DELETE));
    EXPECT_EQ(listener.events[0].changed_item, mesh);
    EXPECT_EQ(listener.events[0].owner, root);
}

TEST_F(ObserverTest, ADeletedItemStillTellsWhatItWasButStandsNowhere) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    mesh->setName("chair");
    bool called = false;
    Listener listener([&](const Event& event) {
        called = true;
        EXPECT_STREQ(event.changed_item->name(), "chair");
        EXPECT_EQ(event.changed_item->toNode()->type(), NODE_MESH);
        EXPECT_EQ(event.owner, root);
        EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), nullptr);
        EXPECT_THAT(ownedItems(root), ElementsAre(map));
        map->connectTo(PIN_GEOMETRY, mesh, true, false);
        EXPECT_EQ(map->connectedNode(PIN_GEOMETRY), nullptr) << "it takes no part any more";
        mesh->setName("ghost");
        mesh->destroy();
    });
    listener.listen(mesh, Event::ITEM_DELETE);
    mesh->destroy();
    EXPECT_TRUE(called);
    EXPECT_EQ(listener.events.size(), 1U);
    EXPECT_STREQ(mesh->name(), "");
}

TEST_F(ObserverTest, OfAnInternalNodeHearsWithItsOwnerAndPin) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    unsigned pin = 0;
    ASSERT_TRUE(findPin(camera, PIN_FOV, pin));
    Listener listener;
    listener.listen(camera->connectedNode(PIN_FOV));
    camera->setPinValue(PIN_FOV, 12.0F, true);
    ASSERT_THAT(listener.types(), ElementsAre(Event::ITEM_VALUE_CHANGED));
    EXPECT_EQ(listener.events[0].owner, camera);
    EXPECT_EQ(listener.events[0].pin_index, pin);
    listener.events.clear();
    camera->connectTo(PIN_FOV, nullptr, true, false);
    ASSERT_THAT(listener.types(), ElementsAre(Event::ITEM_DELETE));
    EXPECT_EQ(listener.events[0].owner, camera);
    EXPECT_EQ(listener.events[0].pin_index, pin);
}

TEST_F(ObserverTest, AUserHearsOfAChangedValueOnItsPin) {
    ApiNode* camera = make(NODE_THIN_LENS_CAMERA);
    unsigned pin = 0;
    ASSERT_TRUE(findPin(camera, PIN_FOV, pin));
    Listener listener;
    listener.listen(camera, Event::ITEM_VALUE_CHANGED);
    camera->setPinValue(PIN_FOV, 12.0F, true);
    ASSERT_EQ(listener.events.size(), 1U);
    EXPECT_EQ(listener.events[0].changed_item, camera);
    EXPECT_EQ(listener.events[0].pin_index, pin);
}

TEST_F(ObserverTest, TheSunTellsOfEachChangeOfPlaceAndTime) {
    ApiNode* environment = make(NODE_DAYLIGHT_ENVIRONMENT);
    ApiNode* sun = environment->inputNode(PIN_SUN_DIRECTION);
    Listener at_sun;
    Listener at_environment;
    at_sun.listen(sun, Event::ITEM_VALUE_CHANGED);
    at_environment.listen(environment, Event::ITEM_VALUE_CHANGED);
    sun->setPinValue(PIN_LATITUDE, 10.0F, true);
    sun->setPinValue(PIN_LONGITUDE, 10.0F, true);
    sun->setPinValue(PIN_MONTH, 7, true);
    sun->setPinValue(PIN_DAY, 14, true);
    sun->setPinValue(PIN_HOUR, 9.5F, true);
    sun->setPinValue(PIN_GMT_OFFSET, 2, true);
    EXPECT_EQ(at_sun.events.size(), 6U) << "one for each";
    EXPECT_EQ(at_environment.events.size(), 6U);
    sun->setPinValue(PIN_GMT_OFFSET, 2, true);
    EXPECT_EQ(at_sun.events.size(), 6U);
    environment->setPinValue(PIN_TURBIDITY, 3.0F, true);
    EXPECT_EQ(at_sun.events.size(), 6U);
    EXPECT_EQ(at_environment.events.size(), 7U);
}

TEST_F(ObserverTest, ANodeThatGetsItsDefaultNodesHasNotChangedItsValue) {
    ApiNode* environment = bare(NODE_DAYLIGHT_ENVIRONMENT);
    ApiNode* sun = bare(NODE_SUN_DIRECTION);
    environment->connectTo(PIN_SUN_DIRECTION, sun, true, false);
    Listener listener;
    listener.listen(sun, Event::ITEM_VALUE_CHANGED);
    listener.listen(environment, Event::ITEM_VALUE_CHANGED);
    sun->configureEmptyPins();
    EXPECT_THAT(listener.events, IsEmpty());
}

TEST_F(ObserverTest, AValueIsHeardOfThroughLinks) {
    ApiNode* image = make(NODE_IMAGE);
    ApiNode* link = make(NODE_LINK_TEXTURE);
    ApiNode* number = make(NODE_FLOAT);
    link->connectTo(PIN_TEXTURE, number, true, false);
    image->connectTo(PIN_POWER, link, true, false);
    Listener listener;
    listener.listen(image, Event::ITEM_VALUE_CHANGED);
    number->setIx(0, 0.5F, true);
    EXPECT_EQ(listener.events.size(), 1U);
    link->connectTo(PIN_TEXTURE, make(NODE_FLOAT), true, false);
    EXPECT_EQ(listener.events.size(), 2U);
}

TEST_F(ObserverTest, ANodeHearsThatItGainedAUser) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* map = make(NODE_MATERIAL_MAP);
    Listener listener;
    listener.listen(mesh);
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    EXPECT_THAT(listener.types(), ElementsAre(Event::DESTINATION_ADDED));
    map->connectTo(PIN_GEOMETRY, mesh, true, false);
    EXPECT_EQ(listener.events.size(), 1U);
}

TEST_F(ObserverTest, IsCalledAfterTheChangeWithinTheCallOnItsThread) {
    ApiNode* mesh = make(NODE_MESH);
    const std::thread::id here = std::this_thread::get_id();
    bool called = false;
    Listener listener([&](const Event&) {
        called = true;
        EXPECT_EQ(mesh->getFloat(ATTR_SMOOTHING_ANGLE), 1.0F);
        EXPECT_EQ(std::this_thread::get_id(), here);
    });
    listener.listen(mesh);
    mesh->set(ATTR_SMOOTHING_ANGLE, 1.0F, true);
    EXPECT_TRUE(called);
}

TEST_F(ObserverTest, MayStopObservingFromInsideItsCallback) {
    ApiNode* mesh = make(NODE_MESH);
    Listener second;
    Listener first([&](const Event&) {
        ApiChangeManager::stopObserving(mesh, first.observer);
        ApiChangeManager::stopObserving(second.observer);
    });
    first.listen(mesh);
    second.listen(mesh);
    mesh->setName("a");
    mesh->setName("b");
    EXPECT_EQ(first.events.size(), 1U);
    EXPECT_THAT(second.events, IsEmpty()) << "stopped before its turn";
}

TEST_F(ObserverTest, ARecordThatStoppedIsNotTouchedAgain) {
    ApiNode* mesh = make(NODE_MESH);
    auto short_lived = std::make_unique<Listener>();
    short_lived->listen(mesh);
    Listener first([&](const Event&) { short_lived.reset(); });
    ApiChangeManager::stopObserving(short_lived->observer);
    first.listen(mesh);
    short_lived->listen(mesh);
    mesh->setName("a");
    EXPECT_EQ(short_lived, nullptr);
    mesh->setName("b");
    EXPECT_EQ(first.events.size(), 2U);
}

TEST_F(ObserverTest, WhoJoinsDuringAnEventWaitsForTheNext) {
    ApiNode* mesh = make(NODE_MESH);
    Listener late;
    Listener first([&](const Event&) { late.listen(mesh); });
    first.listen(mesh);
    mesh->setName("a");
    EXPECT_THAT(late.events, IsEmpty());
    mesh->setName("b");
    EXPECT_EQ(late.events.size(), 1U);
}

TEST_F(ObserverTest, MayChangeTheGraphFromInsideItsCallback) {
    ApiNode* mesh = make(NODE_MESH);
    ApiNode* other = make(NODE_MESH);
    Listener listener([&](const Event& event) {
        if (event.changed_item != mesh) return;
        other->setName("changed too");
        mesh->destroy();
        make(NODE_SCATTER);
    });
    listener.listen(mesh, Event::ITEM_NAME_CHANGED | Event::ITEM_MOVED);
    listener.listen(other, Event::ITEM_NAME_CHANGED);
    mesh->setName("a");
    EXPECT_EQ(listener.events.size(), 2U);
    EXPECT_FALSE(isAlive(mesh));
    EXPECT_STREQ(other->name(), "changed too");
    EXPECT_THAT(nodes(root, NODE_SCATTER), ::testing::SizeIs(1));
}

TEST_F(ObserverTest, EndingTheRestOfADestroyedGraphInACallbackIsHarmless) {
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode* a = ApiNode::create(NODE_MESH, graph, true);
    ApiNode* b = ApiNode::create(NODE_MESH, graph, true);
    Listener listener([&](const Event&) {
        a->destroy();
        b->destroy();
        graph->destroy();
        root->clear();
    });
    listener.listen(a);
    listener.listen(b);
    graph->destroy();
    EXPECT_EQ(listener.events.size(), 2U);
    EXPECT_FALSE(isAlive(graph));
    EXPECT_FALSE(isAlive(b));
}

TEST_F(ObserverTest, AnExceptionPassesThroughTheCallAndTheChangeStays) {
    ApiNode* mesh = make(NODE_MESH);
    Listener thrower([](const Event&) { throw std::runtime_error("no"); });
    Listener other;
    thrower.listen(mesh);
    other.listen(mesh);
    EXPECT_THROW(mesh->setName("a"), std::runtime_error);
    EXPECT_STREQ(mesh->name(), "a");
    EXPECT_EQ(other.events.size(), 1U) << "the others hear of it all the same";
    EXPECT_THROW(mesh->set(ATTR_SMOOTHING, false, true), std::runtime_error);
    EXPECT_FALSE(mesh->getBool(ATTR_SMOOTHING));
}

TEST_F(ObserverTest, AnExceptionDuringADestructionLeavesTheGraphWhole) {
    ApiNode* target = make(NODE_RENDER_TARGET);
    ApiNode* camera = target->createInternal(PIN_CAMERA, NODE_THIN_LENS_CAMERA, true, true);
    ApiNodeGraph* graph = ApiNodeGraph::create(GRAPH_STANDARD, root);
    ApiNode* link = ApiNode::create(NODE_LINK_FIRST, graph, true);
    ApiNode* inside = ApiNode::create(NODE_MESH, graph, true);
    link->connectTo(PIN_GEOMETRY, inside, true, false);
    target->connectTo(PIN_RENDER_GEOMETRY, link, true, false);
    Listener thrower([](const Event&) { throw 42; });
    for (ApiItem* item : std::initializer_list<ApiItem*>{target, camera, link, inside}) thrower.listen(item);

    EXPECT_THROW(graph->destroy(), int);
    EXPECT_FALSE(isAlive(graph));
    EXPECT_FALSE(isAlive(inside));
    EXPECT_EQ(target->connectedNode(PIN_RENDER_GEOMETRY), nullptr);
    EXPECT_THROW(target->createInternal(PIN_CAMERA, NODE_PANORAMIC_CAMERA, true, true), int);
    EXPECT_FALSE(isAlive(camera));
    EXPECT_EQ(target->connectedNode(PIN_CAMERA)->type(), NODE_PANORAMIC_CAMERA);
    EXPECT_THAT(ownedItems(root), ElementsAre(target));
    EXPECT_THROW(target->destroy(), int);
    EXPECT_THAT(ownedItems(root), IsEmpty());
}

TEST_F(ObserverTest, ObservationEndsForAllForOneOrForOnePair) {
    ApiNode* a = make(NODE_MESH);
    ApiNode* b = make(NODE_MESH);
    Listener first;
    Listener second;
    const auto rename = [&] {
        a->setName(a->name() == std::string("x") ? "y" : "x");
        b->setName(a->name());
    };
    for (Listener* listener : {&first, &second}) {
        listener->listen(a);
        listener->listen(b);
    }
    ApiChangeManager::stopObserving(a, first.observer);
    rename();
    EXPECT_EQ(first.events.size(), 1U);
    EXPECT_EQ(second.events.size(), 2U);
    ApiChangeManager::stopObserving(second.observer);
    rename();
    EXPECT_EQ(first.events.size(), 2U);
    EXPECT_EQ(second.events.size(), 2U);
    ApiChangeManager::stopObserving();
    rename();
    EXPECT_EQ(first.events.size(), 2U);
    ApiChangeManager::stopObserving(a, first.observer);
}

TEST_F(ObserverTest, NullAndDestroyedItemsAreIgnored) {
    ApiNode* mesh = make(NODE_MESH);
    mesh->destroy();
    Listener listener;
    listener.listen(nullptr);
    listener.listen(mesh);
    ApiChangeManager::stopObserving(nullptr, listener.observer);
    ApiChangeManager::stopObserving(mesh, listener.observer);
    mesh->setName("a");
    make(NODE_MESH);
    EXPECT_THAT(listener.events, IsEmpty());
}

TEST_F(ObserverTest, ARecordWithoutACallbackIsSkipped) {
    ApiNode* mesh = make(NODE_MESH);
    ApiChangeManager::Observer none{};
    ApiChangeManager::observeApiItem(mesh, none, 1023);
    mesh->setName("a");
    EXPECT_STREQ(mesh->name(), "a");
    ApiChangeManager::stopObserving(none);
}

}  // namespace
}  // namespace Velmar::Engine
