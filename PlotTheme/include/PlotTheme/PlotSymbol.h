#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include <CorePlot/CPTPlotSymbol.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The shape of the points of a scatter series. A value of one byte.
///
/// A symbol that holds a raw value outside its cases is a broken invariant: asking it for
/// its raw value or plot symbol is a fatal error.
class VEXEL_API PlotSymbol {
 public:
  /// The shapes; a raw value keeps its meaning.
  enum Case : std::uint8_t {
    circle = 0,
    diamond = 1,
    cross = 2,
    rectangle = 3,
    triangle = 4,
    star = 5,
  };

  /// That shape.
  constexpr PlotSymbol(Case symbol) : case_(symbol) {}

  /// The symbol of that raw value; absent for every number outside 0 to 5.
  static std::optional<PlotSymbol> fromRawValue(std::int64_t rawValue);
  /// The number that fromRawValue() takes.
  constexpr std::int64_t rawValue() const {
    if (case_ > star) refuse();
    return case_;
  }

  /// A new plot symbol of the shape with the chart engine's default size, fill and line style. A
  /// circle is the engine's ellipse.
  CPTPlotSymbol cptSymbol() const;

  /// A triangle that points down, as a custom symbol. It always has the chart engine's default
  /// size: `size` is not used, and stays for its callers.
  static CPTPlotSymbol createPointingTriangleSymbol(CGSize size, const CPTColor& lineColor,
                                                    const std::optional<CPTFill>& fill);

  friend constexpr bool operator==(const PlotSymbol&, const PlotSymbol&) = default;

 private:
  [[noreturn]] void refuse() const;

  Case case_;
};

}  // namespace vexel

template <>
struct std::hash<vexel::PlotSymbol> {
  std::size_t operator()(const vexel::PlotSymbol& symbol) const noexcept {
    return std::hash<std::int64_t>{}(symbol.rawValue());
  }
};
