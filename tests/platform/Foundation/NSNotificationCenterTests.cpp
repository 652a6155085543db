#include <Foundation/NSNotificationCenter.h>

#include <gmock/gmock.h>

#include <optional>
#include <stdexcept>
#include <thread>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Observer : public NSObject {};

// A centre and what its observers heard, in order.
class NSNotificationCenterTest : public testing::Test {
 protected:
  NSNotificationCenter::Handler note(std::string who) {
    return [this, who](const NSNotification& n) { heard.push_back(who + " " + n.name); };
  }

  NSNotificationCenter center;
  std::vector<std::string> heard;
};

TEST_F(NSNotificationCenterTest, DeliversAtOnceInTheOrderOfRegistration) {
  Observer a, b;
  center.addObserver(a, "moved", note("a"));
  center.addObserver(b, "moved", note("b"));
  center.addObserver(a, "moved", note("a again"));
  center.post({"moved"});
  EXPECT_THAT(heard, ElementsAre("a moved", "b moved", "a again moved"));
}

TEST_F(NSNotificationCenterTest, DeliversOnlyWhatHasTheName) {
  Observer a;
  center.addObserver(a, "moved", note("a"));
  center.post({"Moved"});
  center.post({""});
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(NSNotificationCenterTest, HandsOverObjectAndInformation) {
  Observer a, sender;
  const NSObject* object = nullptr;
  int number = 0;
  center.addObserver(a, "moved", [&](const NSNotification& n) {
    object = n.object;
    number = std::any_cast<int>(n.userInfo);
  });
  center.post({"moved", &sender, 42});
  EXPECT_EQ(object, &sender);
  EXPECT_EQ(number, 42);
}

TEST_F(NSNotificationCenterTest, SkipsObserversThatAreGone) {
  std::optional<Observer> a(std::in_place);
  Observer b;
  center.addObserver(*a, "moved", note("a"));
  center.addObserver(b, "moved", note("b"));
  a.reset();
  center.post({"moved"});
  EXPECT_THAT(heard, ElementsAre("b moved"));
}

TEST_F(NSNotificationCenterTest, RemovesAllRegistrationsOfAnObserver) {
  Observer a, b;
  center.addObserver(a, "moved", note("a"));
  center.addObserver(a, "sized", note("a"));
  center.addObserver(b, "moved", note("b"));
  center.removeObserver(a);
  center.removeObserver(a);
  center.post({"moved"});
  center.post({"sized"});
  EXPECT_THAT(heard, ElementsAre("b moved"));
}

TEST_F(NSNotificationCenterTest, ThoseRegisteredDuringADeliveryHearOnlyLaterOnes) {
  Observer a, b;
  center.addObserver(a, "moved", [&](const NSNotification&) {
    heard.push_back("a");
    center.addObserver(b, "moved", note("b"));
  });
  center.post({"moved"});
  EXPECT_THAT(heard, ElementsAre("a"));
  center.removeObserver(a);
  center.post({"moved"});
  EXPECT_THAT(heard, ElementsAre("a", "b moved"));
}

TEST_F(NSNotificationCenterTest, ThoseRemovedDuringADeliveryHearNoMore) {
  Observer a, b;
  center.addObserver(a, "moved", [&](const NSNotification&) {
    heard.push_back("a");
    center.removeObserver(a);
    center.removeObserver(b);
  });
  center.addObserver(b, "moved", note("b"));
  center.post({"moved"});
  center.post({"moved"});
  EXPECT_THAT(heard, ElementsAre("a"));
}

TEST_F(NSNotificationCenterTest, ThoseThatDieDuringADeliveryHearNoMore) {
  Observer a;
  auto b = std::make_unique<Observer>();
  center.addObserver(a, "moved", [&](const NSNotification&) { b.reset(); });
  center.addObserver(*b, "moved", note("b"));
  center.post({"moved"});
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(NSNotificationCenterTest, PassesOnWhatAnObserverThrowsAndKeepsAllRegistered) {
  Observer a, b;
  bool fails = true;
  center.addObserver(a, "moved", [&](const NSNotification&) {
    if (fails) throw std::runtime_error("no");
    heard.push_back("a");
  });
  center.addObserver(b, "moved", note("b"));
  EXPECT_THROW(center.post({"moved"}), std::runtime_error);
  EXPECT_THAT(heard, IsEmpty());
  fails = false;
  center.post({"moved"});
  EXPECT_THAT(heard, ElementsAre("a", "b moved"));
}

TEST_F(NSNotificationCenterTest, MayBePostedToDuringADelivery) {
  Observer a;
  center.addObserver(a, "moved", [&](const NSNotification&) {
    heard.push_back("before");
    center.post({"sized"});
    heard.push_back("after");
  });
  center.addObserver(a, "sized", note("a"));
  center.post({"moved"});
  EXPECT_THAT(heard, ElementsAre("before", "a sized", "after"));
}

TEST(NSNotificationCenter, DefaultIsOneForEachThread) {
  const auto* own = &NSNotificationCenter::defaultCenter();
  EXPECT_EQ(own, &NSNotificationCenter::defaultCenter());
  const NSNotificationCenter* others = nullptr;
  std::thread([&] { others = &NSNotificationCenter::defaultCenter(); }).join();
  EXPECT_NE(own, others);
}

}  // namespace
}  // namespace vexel
