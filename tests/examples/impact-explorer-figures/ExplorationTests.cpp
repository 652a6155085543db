#include "Exploration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "../impact-explorer/TemporaryFolder.h"
#include "InputError.h"

namespace explorer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const ReadWatch kGoOn = [](std::uint64_t) { return true; };

class ExplorationOfFile : public testing::Test {
 protected:
  Exploration explored(const std::string& content) {
    return {folder.write("table.csv", content), std::nullopt, kGoOn};
  }
  std::string failure(const std::string& content) {
    try {
      explored(content);
    } catch (const InputError& error) {
      return error.what();
    }
    return "";
  }

  TemporaryFolder folder;
};

TEST_F(ExplorationOfFile, WhatIsNoTableIsRefused) {
  EXPECT_THAT(failure(""), HasSubstr("empty"));
  EXPECT_THAT(failure("\x89PNG\r\n\x1a\n"), HasSubstr("not text"));
  EXPECT_THAT(failure("JD,Text\none,two\n"), HasSubstr("no row can be read"));
  EXPECT_THAT(failure("Charge\n1\n"), HasSubstr("no time column"));
  EXPECT_THAT(failure("JD,Text\n1,two\n"), HasSubstr("no column but the time"));
}

TEST_F(ExplorationOfFile, ReadingEndsWhenItsWatchWantsIt) {
  EXPECT_THROW(Exploration(folder.write("table.csv", "JD,A\n1,2\n"), std::nullopt,
                           [](std::uint64_t) { return false; }),
               ReadingEnded);
  const std::string content = "JD,A,B\n1,2,3\n";
  const std::string file = folder.write("table.csv", content);
  // Once while it is read, and before each of three things that are made of it.
  for (int last = 0; last < 4; ++last) {
    int calls = 0;
    EXPECT_THROW(Exploration(file, std::nullopt, [&](std::uint64_t) { return calls++ < last; }),
                 ReadingEnded);
  }
  std::uint64_t read = 0;
  int calls = 0;
  Exploration(file, std::nullopt, [&](std::uint64_t bytes) {
    read = bytes;
    return calls++ < 4;
  });
  EXPECT_EQ(read, content.size());
}

TEST_F(ExplorationOfFile, OneQuantityIsEnough) {
  const Exploration one = explored("JD,Text,A\n2459000.5,x,1\n2459010.5,,2\nbad\n");
  EXPECT_THAT(one.quantities(), ElementsAre("A"));
  EXPECT_THAT(one.bandQuantities(), ElementsAre("Rows per day", "A"));
  EXPECT_EQ(one.choice(std::nullopt, std::nullopt, {}), (Choice{"A", "A", {"Rows per day"}}));
  EXPECT_NEAR(one.span().start, 2459000.5 - 10.0 / 98, 1e-6);
  EXPECT_NEAR(one.span().end, 2459010.5 + 10.0 / 98, 1e-6);
  EXPECT_EQ(one.rowCount(), 2u);
  EXPECT_THAT(one.warnings(), SizeIs(2));
}

TEST_F(ExplorationOfFile, TimesBeyondTheCalendarAreNotCounted) {
  const Exploration far = explored("JD,A,B\n-5,1,1\n1e9,2,2\n");
  EXPECT_THAT(far.bandQuantities(), ElementsAre("A", "B"));
  EXPECT_THAT(far.choice(std::nullopt, std::nullopt, {}).bands, ElementsAre("A"));
}

struct Wish {
  std::optional<std::string> value, color;
  std::vector<std::string> bands;
  Choice choice;
};

TEST_F(ExplorationOfFile, ChoicesTakeWhatThereIs) {
  const Exploration all = explored("JD,A,B,C,D\n2459000.5,1,2,3,4\n2459002.5,5,6,7,8\n");
  const Wish cases[] = {
      {std::nullopt, std::nullopt, {}, {"A", "B", {"Rows per day", "C", "D"}}},
      {"C", std::nullopt, {}, {"C", "A", {"Rows per day", "B", "D"}}},
      {std::nullopt, "A", {}, {"B", "A", {"Rows per day", "C", "D"}}},
      {"B", "B", {"A", "Nothing", "A"}, {"B", "B", {"A", "A"}}},
      {"Nothing", "Nothing", {"Nothing"}, {"A", "B", {"Rows per day", "C", "D"}}},
  };
  for (const auto& [value, color, bands, choice] : cases)
    EXPECT_EQ(all.choice(value, color, bands), choice);
}

TEST_F(ExplorationOfFile, BandsAreMadeOnce) {
  const Exploration all = explored("JD,A,B\n2459000.5,1,2.5\n2459002.5,5,6\n");
  EXPECT_EQ(all.band("A").style, BandStyle::bars);
  EXPECT_EQ(&all.band("A"), &all.band("A"));
  EXPECT_EQ(all.valueBand("A").style, BandStyle::symbols);
  EXPECT_THAT(all.band("Rows per day").values, ElementsAre(1, 0, 1));
  EXPECT_THAT(all.coding("B").values, ElementsAre(2.5, 6));
}

TEST_F(ExplorationOfFile, SeveralThreadsMayAskAtOnce) {
  const Exploration all = explored("JD,A,B\n2459000.5,1,2.5\n2459002.5,5,6\n");
  std::atomic<int> waiting = 2;
  const auto ask = [&] {
    --waiting;
    while (waiting > 0) std::this_thread::yield();
    std::vector<const void*> answers;
    for (const char* const quantity : {"A", "B"})
      answers.insert(answers.end(), {&all.valueBand(quantity), &all.band(quantity),
                                     &all.coding(quantity), all.band(quantity).values.data()});
    return answers;
  };
  std::vector<const void*> elsewhere;
  std::thread other([&] { elsewhere = ask(); });
  const auto here = ask();
  other.join();
  EXPECT_EQ(here, elsewhere);
}

TEST(Exploration, OfTheSampleShowsItsTellingQuantities) {
  const Exploration sample(std::nullopt, std::nullopt, kGoOn);
  EXPECT_EQ(sample.name(), "sample");
  EXPECT_THAT(sample.warnings(), IsEmpty());
  EXPECT_EQ(sample.choice(std::nullopt, std::nullopt, {}),
            (Choice{"Impact charge [fC]",
                    "Impact speed [km/s]",
                    {"Impacts per 5 days", "Impact speed [km/s]", "Radial distance [au]"}}));
}

}  // namespace
}  // namespace explorer
