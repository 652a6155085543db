#include <gtest/gtest.h>

#include "Vexel/LargestBlock.h"
#include "Vexel/SeriesExamples.h"
#include "Vexel/TestPlot.h"
#include "platform/CocoaLumberjack/LogFixture.h"

namespace vexel {
namespace {

class SeriesLog : public LogFixture {
 protected:
  /// Whether adding a series makes any text that is longer than its identifier.
  bool buildsMessage(DDLogLevel level) {
    DDLog::setDynamicLevel(level);
    const std::string identifier(100'000, 'x');
    auto arguments = cptLine(std::make_shared<CPTXYGraph>());
    arguments.identifiedBy = identifier;
    TestPlot plot;
    largestBlock() = 0;
    plot.addPlot(arguments);
    return largestBlock() > identifier.size() + 1;
  }
};

TEST_F(SeriesLog, IsBuiltOnlyWhenItIsWanted) {
  const auto recorder = addRecorder();
  EXPECT_FALSE(buildsMessage(DDLogLevel::off));
  EXPECT_FALSE(buildsMessage(DDLogLevel::debug));
  EXPECT_TRUE(buildsMessage(DDLogLevel::verbose));
  EXPECT_EQ(recorder->messages().size(), 1u);
}

}  // namespace
}  // namespace vexel
