#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include <CoreGraphics/CGContext.h>
#include <CorePlot/CPTFill.h>
#include <CorePlot/CPTLineStyle.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The shape of a symbol.
enum class CPTPlotSymbolType {
  none = 0,
  rectangle = 1,
  ellipse = 2,
  diamond = 3,
  triangle = 4,
  star = 5,
  pentagon = 6,
  hexagon = 7,
  cross = 8,
  plus = 9,
  dash = 10,
  snow = 11,
  custom = 12,
};

/// The mark drawn at a point of a scatter plot. A value.
class VEXEL_API CPTPlotSymbol {
 public:
  /// What a symbol has unless set, and the longest side that is drawn, in points.
  static constexpr CGSize kDefaultSize{5, 5};
  static constexpr CGPoint kDefaultAnchorPoint{0.5, 0.5};
  static constexpr CGFloat kLargestSide = 1e4;

  /// A symbol of type `none`, which draws nothing.
  CPTPlotSymbol() = default;

  /// The same.
  static CPTPlotSymbol plotSymbol() { return {}; }
  /// Symbols of these types, of default size, with an outline and without a fill.
  static CPTPlotSymbol rectanglePlotSymbol() { return of(CPTPlotSymbolType::rectangle); }
  static CPTPlotSymbol ellipsePlotSymbol() { return of(CPTPlotSymbolType::ellipse); }
  static CPTPlotSymbol diamondPlotSymbol() { return of(CPTPlotSymbolType::diamond); }
  static CPTPlotSymbol trianglePlotSymbol() { return of(CPTPlotSymbolType::triangle); }
  static CPTPlotSymbol starPlotSymbol() { return of(CPTPlotSymbolType::star); }
  static CPTPlotSymbol pentagonPlotSymbol() { return of(CPTPlotSymbolType::pentagon); }
  static CPTPlotSymbol hexagonPlotSymbol() { return of(CPTPlotSymbolType::hexagon); }
  static CPTPlotSymbol crossPlotSymbol() { return of(CPTPlotSymbolType::cross); }
  static CPTPlotSymbol plusPlotSymbol() { return of(CPTPlotSymbolType::plus); }
  static CPTPlotSymbol dashPlotSymbol() { return of(CPTPlotSymbolType::dash); }
  static CPTPlotSymbol snowPlotSymbol() { return of(CPTPlotSymbolType::snow); }
  /// The same with a shape of its own: see customSymbolPath().
  static CPTPlotSymbol customPlotSymbol(const CGPath& path);

  /// Its shape.
  CPTPlotSymbolType symbolType() const { return symbolType_; }
  void setSymbolType(CPTPlotSymbolType type) { symbolType_ = type; }

  /// Width and height in points. Unless both are above 0 and at most kLargestSide, nothing is
  /// drawn.
  CGSize size() const { return size_; }
  void setSize(CGSize size) { size_ = size; }

  /// The point of the symbol, as fractions of its size from the bottom left, that lies on the
  /// data point; default the centre. One that is not finite draws nothing.
  CGPoint anchorPoint() const { return anchorPoint_; }
  void setAnchorPoint(CGPoint anchor) { anchorPoint_ = anchor; }

  /// Absent: no outline.
  const std::optional<CPTLineStyle>& lineStyle() const { return lineStyle_; }
  void setLineStyle(std::optional<CPTLineStyle> style) { lineStyle_ = std::move(style); }

  /// Absent: no fill. Cross, plus, dash and snow are lines and have nothing to fill.
  const std::optional<CPTFill>& fill() const { return fill_; }
  void setFill(std::optional<CPTFill> fill) { fill_ = std::move(fill); }

  /// The shape of a custom symbol, y up. It is scaled so that its bounding box takes the
  /// symbol's size; absent, or beyond finite numbers when scaled: nothing is drawn.
  const std::optional<CGPath>& customSymbolPath() const { return customSymbolPath_; }
  void setCustomSymbolPath(std::optional<CGPath> path) { customSymbolPath_ = std::move(path); }

  /// The outline around its anchor point at (0, 0), in points.
  CGPath path() const;
  /// A box around all that is drawn when the data point is at (0, 0), the pen's width included.
  CGRect reach() const;

  /// Draws the symbol at each of the centres, in their order.
  void draw(CGContext& context, std::span<const CGPoint> centers) const;
  /// The same with a fill colour for each centre, given as its place in `colors`: as many places as
  /// there are centres, each of them inside. Symbols of lines are drawn in that colour.
  void draw(CGContext& context, std::span<const CPTColor> colors,
            std::span<const std::uint32_t> colorOfCenter, std::span<const CGPoint> centers) const;

  friend bool operator==(const CPTPlotSymbol&, const CPTPlotSymbol&) = default;

 private:
  static CPTPlotSymbol of(CPTPlotSymbolType type);

  CPTPlotSymbolType symbolType_ = CPTPlotSymbolType::none;
  CGSize size_ = kDefaultSize;
  CGPoint anchorPoint_ = kDefaultAnchorPoint;
  std::optional<CPTLineStyle> lineStyle_ = CPTLineStyle{};
  std::optional<CPTFill> fill_;
  std::optional<CGPath> customSymbolPath_;
};

}  // namespace vexel
