#include "window/LoadJob.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

#include "../impact-explorer/TemporaryFolder.h"

namespace explorer {
namespace {

using testing::HasSubstr;

/// A table that takes a while.
std::string manyRows() {
  std::string content = "JD,A\n";
  for (int i = 0; i < 300'000; ++i) content += std::to_string(i) + ",1.25\n";
  return content;
}

class LoadJobTest : public testing::Test {
 protected:
  std::unique_ptr<LoadJob> start(const std::string& file) {
    return std::make_unique<LoadJob>(
        file, std::nullopt, [this](const LoadJob::Result& result) { results.push_back(result); });
  }

  TemporaryFolder folder;
  std::vector<LoadJob::Result> results;
};

TEST_F(LoadJobTest, GivesTheTableWhenTheEventLoopGoesOn) {
  const auto job = start(folder.write("table.csv", "JD,A\n1,2\n"));
  EXPECT_TRUE(results.empty());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !results.empty(); }));
  ASSERT_NE(results[0].exploration, nullptr);
  EXPECT_EQ(results[0].exploration->rowCount(), 1u);
  EXPECT_EQ(results[0].complaint, "");
  EXPECT_EQ(job->progress(), 1);
}

TEST_F(LoadJobTest, SaysWhatIsWrongWithAFile) {
  for (const auto& [file, complaint] :
       {std::pair{folder.path() + "/missing.csv", "no such file"},
        std::pair{folder.path(), "is a folder"},
        std::pair{folder.write("picture.png", "\x89PNG\r\n\x1a\n"), "not text"}}) {
    results.clear();
    const auto job = start(file);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !results.empty(); }));
    EXPECT_EQ(results[0].exploration, nullptr);
    EXPECT_THAT(results[0].complaint, HasSubstr(complaint));
  }
}

TEST_F(LoadJobTest, EndsSoonWhenItIsCancelled) {
  const auto job = start(folder.write("table.csv", manyRows()));
  job->cancel();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !results.empty(); }));
  EXPECT_EQ(results[0].exploration, nullptr);
  EXPECT_EQ(results[0].complaint, "");
}

TEST_F(LoadJobTest, IsSilentOnceItIsDestroyed) {
  start(folder.write("table.csv", manyRows()));
  QTest::qWait(20);
  EXPECT_TRUE(results.empty());
}

TEST_F(LoadJobTest, MayBeDestroyedByItsOwnResult) {
  bool isDone = false;
  std::unique_ptr<LoadJob> job;
  job = std::make_unique<LoadJob>(folder.write("table.csv", "JD,A\n1,2\n"), std::nullopt,
                                  [&](const LoadJob::Result& result) {
                                    job.reset();
                                    isDone = result.exploration != nullptr;
                                  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return isDone; }));
}

}  // namespace
}  // namespace explorer
