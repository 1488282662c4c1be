#include "plugin/velmar/setters/quality.h"

#include <json/value.h>

#include "plugin/utils/message.h"
#include "plugin/velmar/render_control_test.h"

namespace Velmar {
namespace {

using Lines = std::vector<std::string>;

class QualityTest : public RenderControlTest {
protected:
    static Json::Value Quality(int width, int height) {
        Json::Value message;
        message["width"] = width;
        message["height"] = height;
        message["update"] = false;
        return message;
    }
    static void Apply(const Json::Value& message) { QualitySetter::Set(Message::JsonToString(message)); }
    static Json::Value With(Json::Value message, const char* key, const Json::Value& value) {
        message[key] = value;
        return message;
    }
    static ApiNode* MakeKernel() { return Target()->createInternal(PIN_KERNEL, NODE_KERNEL_DIRECT_LIGHT, true, true); }
};

const Lines kNewFilm{"createInternal 311", "setPinValue 198", "setPinValue 53", "update"};

TEST_F(QualityTest, SizesAreCappedFromAboveOnly) {
    const struct {
        Vec2<int> wish, film;
    } rows[] = {{{1001, 500}, {1000, 500}}, {{1000, 501}, {1000, 501}}, {{999, 599}, {999, 599}},
                {{500, 601}, {500, 600}},   {{501, 600}, {501, 600}},   {{502, 0}, {502, 0}},
                {{0, 400}, {0, 400}},       {{-5, -7}, {-5, -7}},       {{2147483647, 2147483647}, {1000, 600}}};
    for (const auto& row : rows) {
        Apply(Quality(row.wish.x, row.wish.y));
        EXPECT_EQ(FilmSize(), row.film) << row.wish.x << "x" << row.wish.y;
    }
}

TEST_F(QualityTest, InitWritesTheCappedDefaultSize) {
    Apply(Quality(300, 200));
    EXPECT_EQ(Steps([] { QualitySetter::Init(); }), kNewFilm);
    EXPECT_EQ(FilmSize(), (Vec2<int>{1000, 600}));
}

TEST_F(QualityTest, InitLeavesTheSamplesOfAKernelAlone) {
    MakeKernel();
    EXPECT_EQ(Count(Steps([] { QualitySetter::Init(); }), "setPinValue 108"), 0u);
}

TEST_F(QualityTest, InitForgetsTheNumberOfSamples) {
    Apply(With(Quality(1000, 600), "maxSamples", 250));
    QualitySetter::Init();
    EXPECT_EQ(Steps([] { Apply(With(Quality(1000, 600), "maxSamples", 16000)); }), Lines{});
}

TEST_F(QualityTest, AMessageThatSaysWhatStandsCallsNothing) {
    EXPECT_EQ(Steps([] { Apply(Quality(1000, 600)); }), Lines{});
    EXPECT_EQ(Steps([] { Apply(Quality(1024, 700)); }), Lines{}) << "capped to what stands";
}

TEST_F(QualityTest, UpdateAsksForOneUpdateWhenNothingElseChanged) {
    EXPECT_EQ(Steps([] { Apply(With(Quality(1000, 600), "update", true)); }), Lines{"update"});
    EXPECT_EQ(Steps([] { QualitySetter::Set("{}"); }), Lines{"update"}) << "true is the fallback";
    EXPECT_EQ(Steps([] { QualitySetter::Set("null"); }), Lines{"update"}) << "null takes all fallbacks";
}

TEST_F(QualityTest, ANewSizeMakesANewFilmAndOneUpdate) {
    ApiNode* const film = Film();
    EXPECT_EQ(Steps([] { Apply(Quality(800, 600)); }), kNewFilm);
    EXPECT_NE(Film(), film);
    EXPECT_EQ(Film()->type(), NODE_FILM_SETTINGS);
    EXPECT_EQ(Steps([] { Apply(Quality(800, 300)); }), kNewFilm) << "a new height alone";
    EXPECT_EQ(FilmSize(), (Vec2<int>{800, 300}));
}

TEST_F(QualityTest, ANewSizeCarriesTheFieldOfViewAlong) {
    Apply(Quality(600, 600));
    EXPECT_NEAR(Camera()->getPinFloat(PIN_FOV), 35.0f, 1e-3f);
    Apply(Quality(800, 400));
    EXPECT_NEAR(Camera()->getPinFloat(PIN_FOV), 64.47f, 0.01f);
}

TEST_F(QualityTest, MissingSizesTakeTheirFallback) {
    Apply(Quality(10, 20));
    QualitySetter::Set(R"({"height": 30})");
    EXPECT_EQ(FilmSize(), (Vec2<int>{1000, 30}));
    QualitySetter::Set(R"({"width": 40})");
    EXPECT_EQ(FilmSize(), (Vec2<int>{40, 600}));
}

TEST_F(QualityTest, NewSamplesGoToTheKernelWithAnUpdate) {
    ApiNode* const kernel = MakeKernel();
    const Json::Value message = With(Quality(1000, 600), "maxSamples", 250);
    EXPECT_EQ(Steps([&] { Apply(message); }), (Lines{"setPinValue 108", "update"}));
    EXPECT_EQ(kernel->getPinInt(PIN_MAX_SAMPLES), 250);
    EXPECT_EQ(Steps([&] { Apply(message); }), Lines{});
}

TEST_F(QualityTest, ANewKernelGetsItsSamplesOnlyWithANewNumber) {
    const Json::Value message = With(Quality(1000, 600), "maxSamples", 250);
    MakeKernel();
    Apply(message);
    ApiNode* const kernel = MakeKernel();
    const int untouched = kernel->getPinInt(PIN_MAX_SAMPLES);
    Apply(message);
    EXPECT_EQ(kernel->getPinInt(PIN_MAX_SAMPLES), untouched);
    Apply(With(message, "maxSamples", 251));
    EXPECT_EQ(kernel->getPinInt(PIN_MAX_SAMPLES), 251);
}

TEST_F(QualityTest, NewSamplesWithoutKernelAreRememberedAndUpdateAllTheSame) {
    Target()->connectTo(PIN_KERNEL, nullptr, true, false);
    const Json::Value message = With(Quality(1000, 600), "maxSamples", 250);
    EXPECT_EQ(Steps([&] { Apply(message); }), Lines{"update"});
    EXPECT_EQ(Steps([&] { Apply(message); }), Lines{});
}

TEST_F(QualityTest, NewSizeAndNewSamplesUpdateTwice) {
    MakeKernel();
    EXPECT_EQ(
        Steps([] { Apply(With(Quality(700, 500), "maxSamples", 99)); }),
        (Lines{"setPinValue 108", "update", "createInternal 311", "setPinValue 198", "setPinValue 53", "update"}));
}

TEST_F(QualityTest, TheViewportIsRecordedAndUsedWhenAsked) {
    EXPECT_EQ(Steps([] { EXPECT_FALSE(QualitySetter::SetSketchupExtents(800, 400)); }), Lines{});
    EXPECT_EQ(FilmSize(), (Vec2<int>{1000, 600}));
    Apply(With(Quality(10, 10), "sizeType", 2));
    EXPECT_EQ(FilmSize(), (Vec2<int>{800, 400})) << "width and height are ignored";
}

TEST_F(QualityTest, TheViewportIsCappedLikeAnyOther) {
    QualitySetter::SetSketchupExtents(2000, 2000);
    Apply(With(Quality(10, 10), "sizeType", 2));
    EXPECT_EQ(FilmSize(), (Vec2<int>{1000, 600}));
}

TEST_F(QualityTest, TheViewportBeforeAnyIsKnownIsTheOneWayToAWidthAboveTheCap) {
    Apply(With(Quality(10, 10), "sizeType", 2));
    EXPECT_EQ(FilmSize(), (Vec2<int>{1024, 600}));
}

TEST_F(QualityTest, AFollowedViewportChangesTheFilm) {
    Apply(With(Quality(10, 10), "sizeType", 2));
    EXPECT_EQ(Steps([] { EXPECT_TRUE(QualitySetter::SetSketchupExtents(640, 480)); }), kNewFilm);
    EXPECT_EQ(FilmSize(), (Vec2<int>{640, 480}));
    EXPECT_EQ(Steps([] { EXPECT_FALSE(QualitySetter::SetSketchupExtents(640, 480)); }), Lines{}) << "the same again";
    EXPECT_TRUE(QualitySetter::SetSketchupExtents(640, 481)) << "the height alone";
    EXPECT_TRUE(QualitySetter::SetSketchupExtents(641, 481)) << "the width alone";
    EXPECT_TRUE(QualitySetter::SetSketchupExtents(0, -1)) << "no lower limit";
    EXPECT_EQ(FilmSize(), (Vec2<int>{0, -1}));
}

TEST_F(QualityTest, OtherSizeTypesDoNotFollowTheViewport) {
    for (const int size_type : {0, 1, 3, -1}) {
        Apply(With(Quality(100, 100), "sizeType", size_type));
        EXPECT_FALSE(QualitySetter::SetSketchupExtents(640, 480)) << size_type;
    }
    Apply(With(Quality(100, 100), "sizeType", 2));
    QualitySetter::Set(R"({"width": 100, "height": 100})");
    EXPECT_FALSE(QualitySetter::SetSketchupExtents(320, 240)) << "a missing size type is 0";
}

TEST_F(QualityTest, ANewRenderTargetForgetsTheViewport) {
    QualitySetter::SetSketchupExtents(640, 480);
    VelmarManager::CreateRenderTarget();
    Apply(With(Quality(10, 10), "sizeType", 2));
    EXPECT_EQ(FilmSize(), (Vec2<int>{1024, 600}));
}

TEST_F(QualityTest, AnUnreadableTextChangesNothing) {
    const ErrorLog errors;
    EXPECT_EQ(Steps([] { QualitySetter::Set("{\"width\": 3"); }), Lines{});
    EXPECT_EQ(errors.lines, Lines{"Failed to parse string {\"width\": 3"});
}

TEST_F(QualityTest, AValueOfTheWrongKindChangesNothing) {
    for (const char* key : {"width", "height", "sizeType", "maxSamples", "update"}) {
        const Json::Value message = With(With(Quality(50, 60), "sizeType", 2), "maxSamples", 7);
        EXPECT_EQ(Steps([&] { EXPECT_THROW(Apply(With(message, key, "text")), Json::LogicError) << key; }), Lines{});
        EXPECT_FALSE(QualitySetter::SetSketchupExtents(640, 480)) << key << ": the size type stands as it was";
    }
    EXPECT_THROW(QualitySetter::Set("[]"), Json::LogicError);
    EXPECT_EQ(Steps([] { Apply(Quality(1000, 600)); }), Lines{}) << "size and samples stand as they were";
}

TEST_F(QualityTest, NumbersBeyondAnIntAreRefused) {
    EXPECT_THROW(QualitySetter::Set(R"({"width": 3000000000})"), Json::LogicError);
    EXPECT_EQ(FilmSize(), (Vec2<int>{1000, 600}));
}

}  // namespace
}  // namespace Velmar
