#include "TickLabels.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>

#include <Foundation/NSNumberFormatter.h>

namespace vexel {

namespace {

// In characters.
constexpr std::size_t kLongestDecade = 5;
// A tick this close to 0, in distances between ticks, is 0 but for rounding.
constexpr double kZeroTolerance = 1e-9;
// A label may differ from its tick by this part of the distance to the next.
constexpr double kLabelTolerance = 0.01;
constexpr int kMostDigits = std::numeric_limits<double>::max_digits10 - 1;

constexpr const char* kTimesTen = "\u00a0\u00d7\u00a010";
constexpr const char* kMinus = "\u2212";

/// The distance to the nearer neighbour; of a single tick its own size.
double distanceToNeighbour(const std::vector<double>& ticks, std::size_t i) {
  double distance = ticks.size() == 1 ? std::abs(ticks[i]) : std::numeric_limits<double>::max();
  if (i > 0) distance = std::min(distance, ticks[i] - ticks[i - 1]);
  if (i + 1 < ticks.size()) distance = std::min(distance, ticks[i + 1] - ticks[i]);
  return distance;
}

/// The ticks, with those as 0 that are 0 but for rounding.
std::vector<double> cleaned(std::vector<double> ticks) {
  for (std::size_t i = 0; i < ticks.size(); ++i)
    if (std::abs(ticks[i]) < kZeroTolerance * distanceToNeighbour(ticks, i)) ticks[i] = 0;
  return ticks;
}

bool readsAsZero(const std::string& text) {
  return text.find('0') != std::string::npos &&
         text.find_first_of("123456789") == std::string::npos;
}

bool mislead(const std::vector<std::string>& texts, const std::vector<double>& ticks) {
  const std::string* previous = nullptr;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].empty()) continue;
    if (ticks[i] != 0 && readsAsZero(texts[i])) return true;
    if (previous && *previous == texts[i]) return true;
    previous = &texts[i];
  }
  return false;
}

bool areUnreadable(const std::vector<std::string>& texts, const NSFormatter& formatter) {
  return dynamic_cast<const NSNumberFormatter*>(&formatter) &&
         std::any_of(texts.begin(), texts.end(),
                     [](const std::string& text) { return text.size() > kLongestDecade; });
}

struct Scientific {
  std::string mantissa;
  int exponent = 0;
};

/// The number with the fewest digits that are within the tolerance.
Scientific scientific(double number, double tolerance) {
  char text[40];
  const char* end = text;
  for (int digits = 0; digits <= kMostDigits; ++digits) {
    end = std::to_chars(text, std::end(text), number, std::chars_format::scientific, digits).ptr;
    double written = 0;
    std::from_chars(text, end, written);
    if (std::abs(written - number) <= tolerance) break;
  }
  const char* const e = std::find(static_cast<const char*>(text), end, 'e');
  Scientific result{.mantissa = std::string(static_cast<const char*>(text), e)};
  std::from_chars(e[1] == '+' ? e + 2 : e + 1, end, result.exponent);
  return result;
}

std::string withMinus(const std::string& number) {
  return number.starts_with('-') ? kMinus + number.substr(1) : number;
}

NSTextAttributes attributes(const CPTTextStyle& style, int superscript) {
  const CGColor color = style.color.value_or(CPTColor::blackColor()).cgColor();
  return {.fontName = style.fontName,
          .fontSize = style.fontSize,
          .color = NSColor::colorWithRed(color.red(), color.green(), color.blue(), color.alpha()),
          .superscript = superscript};
}

std::shared_ptr<CPTTextLayer> inPowersOfTen(const Scientific& number, const CPTTextStyle& style,
                                            bool logarithmic) {
  if (number.exponent == 0 && !logarithmic)
    return std::make_shared<CPTTextLayer>(withMinus(number.mantissa), style);
  const bool isDecade = logarithmic && number.mantissa == "1";
  NSAttributedString text(isDecade ? "10" : withMinus(number.mantissa) + kTimesTen,
                          attributes(style, 0));
  text.append(withMinus(std::to_string(number.exponent)), attributes(style, 1));
  return std::make_shared<CPTTextLayer>(std::move(text));
}

}  // namespace

std::vector<std::shared_ptr<CPTTextLayer>> tickLabels(const std::vector<double>& ticks,
                                                      const NSFormatter& formatter,
                                                      const CPTTextStyle& style, bool logarithmic) {
  std::vector<std::string> texts;
  for (const double tick : ticks) texts.push_back(formatter.string(tick));
  const std::vector<double> numbers = logarithmic ? ticks : cleaned(ticks);
  const bool asPowers = mislead(texts, numbers) || (logarithmic && areUnreadable(texts, formatter));

  std::vector<std::shared_ptr<CPTTextLayer>> labels(ticks.size());
  for (std::size_t i = 0; i < ticks.size(); ++i) {
    if (texts[i].empty()) continue;
    const double number = numbers[i];
    const double closest = std::min(distanceToNeighbour(numbers, i), std::abs(number));
    if (!asPowers)
      labels[i] = std::make_shared<CPTTextLayer>(texts[i], style);
    else if (number == 0)
      labels[i] = std::make_shared<CPTTextLayer>("0", style);
    else
      labels[i] = inPowersOfTen(scientific(number, kLabelTolerance * closest), style, logarithmic);
  }
  return labels;
}

}  // namespace vexel
