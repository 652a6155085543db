#include "SvgValues.h"

#include <gtest/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

TEST(SvgPaths, TellUprightLinesBySteps) {
  // Equal after rounding is equal; after a subpath has been closed, it starts where it began.
  CGMutablePath path = linePath({1, 1}, {1.0001, 5});
  path.addLine({9, 5});
  path.addLine({7, 7});
  path.closeSubpath();
  path.addLine({1, 3});
  std::string data;
  appendPathData(data, path);
  EXPECT_EQ(data, "M1 1V5H9L7 7ZV3");
}

}  // namespace
}  // namespace vexel
