#include "SvgRewriting.h"

#include <gtest/gtest.h>

namespace vexel {
namespace {

TEST(RewrittenSvg, CountsNamesInTheOrderOfTheirAppearance) {
  EXPECT_EQ(rewrittenSvg("<g id=\"surface41\"><image id=\"image77\"/><use href=\"#image77\"/>"
                         "<use href=\"#surface40\"/><use fill=\"url(#surface41)\"/>"),
            "<g id=\"surface0\"><image id=\"image0\"/><use href=\"#image0\"/>"
            "<use href=\"#surface1\"/><use fill=\"url(#surface0)\"/>");
}

TEST(RewrittenSvg, LeavesEverythingElse) {
  for (const char* svg : {"", "surface12 image3", "id=\"clip5\" href=\"#glyph0-1\"",
                          "id=\"surface\"", "id=\"images\"", "a \" and # at the end #", "\"image"})
    EXPECT_EQ(rewrittenSvg(svg), svg);
}

}  // namespace
}  // namespace vexel
