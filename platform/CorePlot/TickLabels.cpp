#include "TickLabels.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>
#include <typeinfo>

#include <Foundation/NSNumberFormatter.h>

namespace vexel {

namespace {

// In characters.
constexpr std::size_t kLongestDecade = 5;
// A tick this close to 0, in distances between ticks, is 0 but for rounding.
constexpr double kZeroTolerance = 1e-9;
// A label may differ from its tick by this part of the distance to the next: steps that are even
// are read as even.
constexpr double kLabelTolerance = 0.002;
// Smaller type than this part of the size that was asked for cannot be read.
constexpr double kSmallestType = 0.7;
// Smaller type has few sizes: pictures of glyphs are kept for each of them.
constexpr double kTypeSteps = 64;
constexpr int kMostDigits = std::numeric_limits<double>::max_digits10 - 1;

constexpr const char* kTimesTen = "\u00d710";
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

bool areLong(const std::vector<std::string>& texts) {
  return std::any_of(texts.begin(), texts.end(),
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

double toleranceOf(const std::vector<double>& ticks, std::size_t i) {
  return kLabelTolerance * std::min(distanceToNeighbour(ticks, i), std::abs(ticks[i]));
}

/// Whether each text is its tick, as far as a reader can tell.
bool areTrue(const std::vector<std::string>& texts, const std::vector<double>& ticks) {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    double shown = 0;
    std::from_chars(texts[i].data(), texts[i].data() + texts[i].size(), shown);
    if (!(std::abs(shown - ticks[i]) <= toleranceOf(ticks, i))) return false;
  }
  return true;
}

std::string mantissaOf(double number, int exponent, int digits) {
  // The power of a denormal number is no normal double.
  const auto mantissa = static_cast<double>(number / std::pow(10.0L, exponent));
  char text[40];
  const char* const end =
      std::to_chars(text, std::end(text), mantissa, std::chars_format::fixed, digits).ptr;
  return {static_cast<const char*>(text), end};
}

/// All with the exponent of the greatest and equally many digits, the fewest that are true; empty
/// when no number of them is.
std::vector<Scientific> withOneExponent(const std::vector<double>& ticks) {
  std::size_t greatest = 0;
  for (std::size_t i = 1; i < ticks.size(); ++i)
    if (std::abs(ticks[i]) > std::abs(ticks[greatest])) greatest = i;
  const int exponent = scientific(ticks[greatest], toleranceOf(ticks, greatest)).exponent;
  for (int digits = 0; digits <= kMostDigits; ++digits) {
    std::vector<Scientific> numbers;
    std::vector<std::string> texts;
    for (const double tick : ticks) {
      numbers.push_back({.mantissa = mantissaOf(tick, exponent, digits), .exponent = exponent});
      texts.push_back(numbers.back().mantissa + "e" + std::to_string(exponent));
    }
    if (areTrue(texts, ticks)) return numbers;
  }
  return {};
}

std::vector<std::string> textsOf(const std::vector<double>& ticks, const NSFormatter& formatter) {
  std::vector<std::string> texts;
  for (const double tick : ticks) texts.push_back(formatter.string(tick));
  return texts;
}

/// What the formatter writes with as many fraction digits more as make it true; empty when no
/// number of them does.
std::vector<std::string> moreDigits(const std::vector<double>& ticks, NSNumberFormatter formatter) {
  for (int digits = formatter.maximumFractionDigits() + 1; digits <= kMostDigits; ++digits) {
    formatter.setMinimumFractionDigits(digits);
    auto texts = textsOf(ticks, formatter);
    if (areTrue(texts, ticks)) return texts;
  }
  return {};
}

using Labels = std::vector<std::shared_ptr<CPTTextLayer>>;

Labels plainLabels(const std::vector<std::string>& texts, const CPTTextStyle& style) {
  Labels labels;
  for (const std::string& text : texts)
    labels.push_back(text.empty() ? nullptr : std::make_shared<CPTTextLayer>(text, style));
  return labels;
}

/// Of the ticks that have a text. On a linear scale they have one exponent, so that steps are read
/// as even.
Labels powersOfTen(const std::vector<double>& ticks, const std::vector<std::string>& texts,
                   const CPTTextStyle& style, bool logarithmic) {
  Labels labels(ticks.size());
  if (ticks.empty()) return labels;
  const auto even = logarithmic ? std::vector<Scientific>() : withOneExponent(ticks);
  for (std::size_t i = 0; i < ticks.size(); ++i) {
    if (texts[i].empty()) continue;
    if (ticks[i] == 0) {
      labels[i] = std::make_shared<CPTTextLayer>("0", style);
      continue;
    }
    const Scientific number = even.empty() ? scientific(ticks[i], toleranceOf(ticks, i)) : even[i];
    labels[i] = inPowersOfTen(number, style, logarithmic);
  }
  return labels;
}

CGFloat widest(const Labels& labels) {
  CGFloat width = 0;
  for (const auto& label : labels)
    if (label) width = std::max(width, label->frame().size.width);
  return width;
}

}  // namespace

Labels tickLabels(const std::vector<double>& ticks, const NSFormatter& formatter,
                  const CPTTextStyle& style, bool logarithmic, CGFloat room) {
  std::vector<std::string> texts = textsOf(ticks, formatter);
  const std::vector<double> numbers = logarithmic ? ticks : cleaned(ticks);
  // Formatters derived from it write what they like.
  const bool areNumbers = typeid(formatter) == typeid(NSNumberFormatter);
  bool asPowers = mislead(texts, numbers);
  if (areNumbers && !asPowers && !areTrue(texts, numbers)) {
    auto longer = moreDigits(numbers, static_cast<const NSNumberFormatter&>(formatter));
    asPowers = longer.empty();
    if (!asPowers) texts = std::move(longer);
  }
  asPowers = asPowers || (logarithmic && areNumbers && areLong(texts));
  const auto labelsIn = [&](const CPTTextStyle& type) {
    return asPowers ? powersOfTen(numbers, texts, type, logarithmic) : plainLabels(texts, type);
  };

  Labels labels = labelsIn(style);
  if (areNumbers && !asPowers && kSmallestType * widest(labels) > room) {
    asPowers = true;
    if (Labels powers = labelsIn(style); kSmallestType * widest(powers) <= room)
      labels = std::move(powers);
    else
      asPowers = false;
  }
  const CGFloat width = widest(labels);
  if (width <= room || kSmallestType * width > room) return labels;
  constexpr CGFloat kPaddings = 2 * CPTTextLayer::kDefaultPadding;
  CPTTextStyle smaller = style;
  const CGFloat part = (room - kPaddings) / (width - kPaddings);
  smaller.fontSize *= std::floor(part * kTypeSteps) / kTypeSteps;
  return labelsIn(smaller);
}

}  // namespace vexel
