#include "Base64.h"

#include <algorithm>
#include <cstdint>

namespace vexel {

void appendBase64(std::string& text, std::string_view bytes) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(3, bytes.size()))) {
    const std::string_view three = bytes.substr(0, 3);
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < 3; ++i)
      bits = bits << 8 | (i < three.size() ? static_cast<unsigned char>(three[i]) : 0u);
    for (std::size_t i = 0; i < 4; ++i)
      text += i <= three.size() ? kDigits[bits >> (18 - 6 * i) & 63] : '=';
  }
}

}  // namespace vexel
