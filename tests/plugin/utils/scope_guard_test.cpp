#include "plugin/utils/scope_guard.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Velmar {
namespace {

TEST(ScopeGuard, CallsBackAtTheEndOfItsScope) {
    int calls = 0;
    {
        const ScopeGuard guard([&calls] { ++calls; });
        EXPECT_EQ(calls, 0);
    }
    EXPECT_EQ(calls, 1);
}

TEST(ScopeGuard, CallsBackWhenAnExceptionLeavesTheScope) {
    int calls = 0;
    try {
        const ScopeGuard guard([&calls] { ++calls; });
        throw std::runtime_error("out");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(calls, 1);
}

TEST(ScopeGuard, DoesNothingWithoutACallback) {
    EXPECT_NO_THROW({ const ScopeGuard guard(nullptr); });
}

TEST(ScopeGuard, SwallowsAnExceptionOfItsCallback) {
    EXPECT_NO_THROW({ const ScopeGuard guard([] { throw std::runtime_error("inside"); }); });
}

TEST(ScopedValue, SetsABoolAndPutsTheOldValueBack) {
    for (const bool old : {false, true}) {
        for (const bool value : {false, true}) {
            bool flag = old;
            {
                const ScopedValue scoped(flag, value);
                EXPECT_EQ(flag, value);
            }
            EXPECT_EQ(flag, old);
        }
    }
}

TEST(ScopedValue, Nests) {
    bool flag = false;
    {
        const ScopedValue outer(flag, true);
        {
            const ScopedValue inner(flag, false);
            EXPECT_FALSE(flag);
        }
        EXPECT_TRUE(flag);
    }
    EXPECT_FALSE(flag);
}

}  // namespace
}  // namespace Velmar
