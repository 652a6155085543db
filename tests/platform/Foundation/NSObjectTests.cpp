#include <Foundation/NSObject.h>

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace vexel {
namespace {

class Thing : public virtual NSObject {
 public:
  explicit Thing(int n = 0) : number(n) {}
  int number;
};

class Listener : public virtual NSObject {};

class Both : public Thing, public Listener {};

TEST(NSWeak, IsAbsentWithoutAnObject) {
  const NSWeak<Thing> none, null(nullptr), pointer(static_cast<Thing*>(nullptr));
  for (const NSWeak<Thing>& weak : {none, null, pointer}) {
    EXPECT_FALSE(weak);
    EXPECT_EQ(weak.get(), nullptr);
  }
  EXPECT_EQ(none, null);
}

TEST(NSWeak, IsAbsentOnceTheObjectIsGone) {
  std::optional<Thing> thing(std::in_place, 7);
  const NSWeak<Thing> weak(&*thing);
  EXPECT_EQ(weak.get(), &*thing);
  EXPECT_EQ(weak->number, 7);
  EXPECT_EQ((*weak).number, 7);
  thing.reset();
  EXPECT_FALSE(weak);
  EXPECT_EQ(weak, NSWeak<Thing>());
}

TEST(NSWeak, FollowsSharedAndUniqueObjects) {
  auto shared = std::make_shared<Thing>();
  auto unique = std::make_unique<Thing>();
  const NSWeak<Thing> first(shared.get()), second(unique.get());
  const auto kept = shared;
  shared.reset();
  EXPECT_TRUE(first);
  EXPECT_NE(first, second);
  unique.reset();
  EXPECT_FALSE(second);
}

TEST(NSWeak, DoesNotTakeANewObjectAtTheSamePlaceForTheOldOne) {
  alignas(Thing) unsigned char place[sizeof(Thing)];
  auto* first = new (place) Thing(1);
  const NSWeak<Thing> weak(first);
  first->~Thing();
  auto* second = new (place) Thing(2);
  EXPECT_FALSE(weak);
  EXPECT_TRUE(NSWeak<Thing>(second));
  second->~Thing();
}

TEST(NSWeak, SeesNothingOfCopies) {
  std::optional<Thing> original(std::in_place, 1);
  const NSWeak<Thing> weak(&*original);
  const Thing copy = *original;
  const Thing moved = std::move(*original);
  Thing assigned;
  const NSWeak<Thing> toAssigned(&assigned);
  assigned = *original;
  EXPECT_EQ(assigned.number, 1);
  EXPECT_EQ(toAssigned.get(), &assigned);
  EXPECT_EQ(weak.get(), &*original);
  original.reset();
  EXPECT_FALSE(weak);
  EXPECT_TRUE(toAssigned);
}

TEST(NSWeak, RefersToAnyBaseOfAnObject) {
  std::optional<Both> both(std::in_place);
  const NSWeak<Thing> thing(&*both);
  const NSWeak<const Listener> listener(&*both);
  EXPECT_EQ(thing.get(), static_cast<Thing*>(&*both));
  EXPECT_EQ(listener.get(), static_cast<const Listener*>(&*both));
  both.reset();
  EXPECT_FALSE(thing);
  EXPECT_FALSE(listener);
}

}  // namespace
}  // namespace vexel
