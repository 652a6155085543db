#pragma once

#include <string>

namespace vexel {

/// What NSEvent::characters holds for keys that have no text: characters of the range that is kept
/// free for private use.
inline constexpr char32_t NSUpArrowFunctionKey = 0xF700;
inline constexpr char32_t NSDownArrowFunctionKey = 0xF701;
inline constexpr char32_t NSLeftArrowFunctionKey = 0xF702;
inline constexpr char32_t NSRightArrowFunctionKey = 0xF703;
/// The first of 35; the others follow in their order.
inline constexpr char32_t NSF1FunctionKey = 0xF704;
/// Further keys.
inline constexpr char32_t NSInsertFunctionKey = 0xF727;
/// The key that deletes what is behind the cursor.
inline constexpr char32_t NSDeleteFunctionKey = 0xF728;
/// Keys that move.
inline constexpr char32_t NSHomeFunctionKey = 0xF729;
inline constexpr char32_t NSEndFunctionKey = 0xF72B;
inline constexpr char32_t NSPageUpFunctionKey = 0xF72C;
inline constexpr char32_t NSPageDownFunctionKey = 0xF72D;

/// The key as the text that an event has for it.
inline std::string charactersOfFunctionKey(char32_t key) {
  return {static_cast<char>(0xE0 | (key >> 12)), static_cast<char>(0x80 | ((key >> 6) & 0x3F)),
          static_cast<char>(0x80 | (key & 0x3F))};
}

}  // namespace vexel
