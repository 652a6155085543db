#include <AppKit/NSEvent.h>
#include <AppKit/NSFunctionKeys.h>

#include <gtest/gtest.h>

namespace vexel {
namespace {

TEST(NSEvent, IsAMoveToTheOriginUnlessSet) {
  const NSEvent event;
  EXPECT_EQ(event.type, NSEventType::mouseMoved);
  EXPECT_EQ(event.locationInWindow, CGPoint{});
  EXPECT_EQ(event.modifierFlags, NSEventModifierFlags::none);
  EXPECT_EQ(event.clickCount, 0);
  EXPECT_TRUE(event.characters.empty());
}

TEST(NSEvent, ModifierFlagsCombine) {
  const auto flags = NSEventModifierFlags::shift | NSEventModifierFlags::command;
  EXPECT_TRUE(contains(flags, NSEventModifierFlags::shift));
  EXPECT_TRUE(contains(flags, NSEventModifierFlags::command));
  EXPECT_FALSE(contains(flags, NSEventModifierFlags::control));
  EXPECT_FALSE(contains(flags, NSEventModifierFlags::shift | NSEventModifierFlags::option));
  EXPECT_EQ(flags & NSEventModifierFlags::shift, NSEventModifierFlags::shift);
}

TEST(NSEvent, FunctionKeysAreCharactersOfTheirOwn) {
  EXPECT_EQ(charactersOfFunctionKey(NSUpArrowFunctionKey), "\xEF\x9C\x80");
  EXPECT_EQ(charactersOfFunctionKey(NSPageDownFunctionKey), "\xEF\x9C\xAD");
}

}  // namespace
}  // namespace vexel
