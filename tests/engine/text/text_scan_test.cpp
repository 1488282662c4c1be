#include "engine/text/text_scan.h"

#include "engine/text/refusal.h"
#include "engine/text/scene_format.h"

#include <gtest/gtest.h>

#include <string>

namespace Velmar::Engine {
namespace {

TEST(TextScan, CountsElementsThatStandInEachOther) {
    EXPECT_EQ(scanDepth(""), 0U);
    EXPECT_EQ(scanDepth("no markup > at all"), 0U);
    EXPECT_EQ(scanDepth("<a/>"), 1U);
    EXPECT_EQ(scanDepth("<?xml version=\"1.0\"?><a><b/><c><d/></c></a>"), 3U);
    EXPECT_EQ(scanDepth("<a></a><b></b>"), 1U);
    EXPECT_EQ(scanDepth("<a/><b><c/></b>"), 2U);
}

TEST(TextScan, LooksPastQuotesCommentsAndCharacterData) {
    EXPECT_EQ(scanDepth("<a b=\"><x>\" c='/>\"'><d/></a>"), 2U);
    EXPECT_EQ(scanDepth("<a><!-- <b><c> --><![CDATA[<d><e>]]></a>"), 1U);
    EXPECT_EQ(scanDepth("<a b=\"/\"><c/></a>"), 2U);
}

TEST(TextScan, EndsWhereTheTextBreaksOff) {
    for (const char* text :
         {"<", "<a", "<a b", "<a b=", "<a b=\"", "<a b=\">", "<!--", "<![CDATA[", "<?", "</", "<a><", "</a></a>"}) {
        EXPECT_LE(scanDepth(text), 2U) << text;
    }
}

TEST(TextScan, RefusesDocumentTypesZeroBytesAndDepth) {
    EXPECT_THROW(scanDepth("<!DOCTYPE a>"), Refusal);
    EXPECT_THROW(scanDepth("<!doctype a>"), Refusal);
    EXPECT_THROW(scanDepth("<a><!ENTITY b \"c\"></a>"), Refusal);
    EXPECT_THROW(scanDepth(std::string_view("<a/>\0", 5)), Refusal);
    std::string deep;
    for (unsigned i = 0; i < SceneFormat::kDeepest; ++i) deep += "<a>";
    EXPECT_EQ(scanDepth(deep), SceneFormat::kDeepest);
    EXPECT_THROW(scanDepth(deep + "<a>"), Refusal);
    EXPECT_THROW(scanDepth(deep + "<a/>"), Refusal);
}

}  // namespace
}  // namespace Velmar::Engine
