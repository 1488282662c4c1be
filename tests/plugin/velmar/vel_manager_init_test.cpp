#include "plugin/velmar/render_control_test.h"
#include "support/embedded_ruby.h"

namespace Velmar {
namespace {

using Lines = std::vector<std::string>;

/// Gathers what is logged as information while it lives.
class InfoLog : public google::LogSink {
public:
    InfoLog() { google::AddLogSink(this); }
    ~InfoLog() override { google::RemoveLogSink(this); }
    Lines lines;

private:
    void send(google::LogSeverity severity, const char*, const char*, int, const std::tm*, const char* message,
              std::size_t size) override {
        if (severity == google::GLOG_INFO) lines.emplace_back(message, size);
    }
};

/// The interpreter, for a fixture that has another base.
struct Interpreter : TestSupport::RubyTest {
    using RubyTest::evalText;
    using RubyTest::SetUpTestSuite;
};

class VelmarManagerInitTest : public RenderControlTest {
protected:
    static void SetUpTestSuite() { Interpreter::SetUpTestSuite(); }
};

TEST_F(VelmarManagerInitTest, InitBuildsTheRenderTargetAndAppliesTheSettingsASecondTime) {
    const Lines build = Steps([] { VelmarManager::CreateRenderTarget(); });
    const Lines camera = Steps([] { CameraSetter::Init(); });
    const Lines init = Steps([] { EXPECT_TRUE(VelmarManager::Init()); });

    ASSERT_GT(init.size(), build.size() + camera.size());
    EXPECT_EQ(Lines(init.begin(), init.begin() + static_cast<long>(build.size())), build);
    const auto rest = init.begin() + static_cast<long>(build.size());
    EXPECT_EQ(Lines(rest, rest + static_cast<long>(camera.size())), camera);
    EXPECT_EQ(Count(init, "createInternal 311"), 2u);
    EXPECT_EQ(init.back(), "setPinValue 53");
}

TEST_F(VelmarManagerInitTest, InitAndCleanupSaySoInTheLog) {
    const InfoLog log;
    VelmarManager::Init();
    VelmarManager::Cleanup();
    EXPECT_EQ(log.lines, (Lines{"Creating VelmarManager...", "VelmarManager Created", "VelmarManager Destroyed"}));
}

TEST_F(VelmarManagerInitTest, InitDefinesTheRubyClasses) {
    VelmarManager::Init();
    for (const char* name : {"VelmarExt", "ExtDefinition", "ExtEntity", "ExtInstance", "ExtMaterial"}) {
        EXPECT_EQ(Interpreter::evalText(std::string(name) + ".class"), "Class");
    }
}

}  // namespace
}  // namespace Velmar
