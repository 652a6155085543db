#include <PlotColorTable/SymbolValues.h>

namespace vexel {

namespace {

template <class... Numbers>
std::optional<double> numberIn(const std::any& object) {
  std::optional<double> number;
  const auto take = [&](const auto* held) {
    if (held) number = static_cast<double>(*held);
    return held != nullptr;
  };
  (take(std::any_cast<Numbers>(&object)) || ...);
  return number;
}

}  // namespace

std::optional<double> SymbolValues::number(std::size_t index) const {
  if (!numbers_.empty()) return numbers_[index];
  return numberIn<double, float, int, long, long long, short, signed char, unsigned, unsigned long,
                  unsigned long long, unsigned short, unsigned char, char, bool, long double>(
      objects_[index]);
}

}  // namespace vexel
