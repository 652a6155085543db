#include "SvgRewriting.h"

#include <algorithm>
#include <map>

namespace vexel {

namespace {

constexpr std::string_view kDigits = "0123456789";

// Numbers for the names that begin with one word.
class Renumbering {
 public:
  explicit Renumbering(std::string_view word) : word_(word) {}

  // Puts the new name at the end of `result` and gives the length of the old one; 0 when `text`
  // does not begin with such a name.
  std::size_t apply(std::string_view text, std::string& result) {
    if (!text.starts_with(word_)) return 0;
    const std::size_t end = std::min(text.find_first_not_of(kDigits, word_.size()), text.size());
    if (end == word_.size()) return 0;
    const auto number = text.substr(word_.size(), end - word_.size());
    const auto known = numbers_.emplace(number, numbers_.size()).first;
    result.append(word_).append(std::to_string(known->second));
    return end;
  }

 private:
  std::string_view word_;
  std::map<std::string_view, std::size_t> numbers_;
};

}  // namespace

std::string rewrittenSvg(std::string_view svg) {
  Renumbering surfaces("surface"), images("image");
  std::string result;
  result.reserve(svg.size());
  std::size_t done = 0;
  // Names follow a quote (where they are given) or a "#" (where they are meant).
  while (true) {
    const std::size_t mark = svg.find_first_of("\"#", done);
    if (mark == std::string_view::npos) break;
    result.append(svg, done, mark + 1 - done);
    done = mark + 1;
    const std::string_view rest = svg.substr(done);
    std::size_t length = surfaces.apply(rest, result);
    if (length == 0) length = images.apply(rest, result);
    done += length;
  }
  result.append(svg, done);
  return result;
}

}  // namespace vexel
