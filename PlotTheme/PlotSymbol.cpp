#include <PlotTheme/PlotSymbol.h>

#include <string>

#include <Foundation/FatalError.h>

namespace vexel {

namespace {

// The height of an equilateral triangle over its side, as many decimals as were ever used.
constexpr double kHalfRootOfThree = 0.86602540378;

}  // namespace

std::optional<PlotSymbol> PlotSymbol::fromRawValue(std::int64_t rawValue) {
  if (static_cast<std::uint64_t>(rawValue) >= 6) return std::nullopt;
  return PlotSymbol(static_cast<Case>(rawValue));
}

CPTPlotSymbol PlotSymbol::cptSymbol() const {
  static constexpr CPTPlotSymbol (*kShapes[])() = {
      CPTPlotSymbol::ellipsePlotSymbol,  CPTPlotSymbol::diamondPlotSymbol,
      CPTPlotSymbol::crossPlotSymbol,    CPTPlotSymbol::rectanglePlotSymbol,
      CPTPlotSymbol::trianglePlotSymbol, CPTPlotSymbol::starPlotSymbol,
  };
  return kShapes[rawValue()]();
}

CPTPlotSymbol PlotSymbol::createPointingTriangleSymbol(CGSize, const CPTColor& lineColor,
                                                       const std::optional<CPTFill>& fill) {
  CPTPlotSymbol symbol;
  // Deliberate: the symbol's own default size, never the one that was asked for.
  const CGSize size = symbol.size();
  const CGFloat a = kHalfRootOfThree * size.width;

  CGMutablePath path;
  path.move({a, 0});
  path.addLine({2 * a, size.height});
  path.addLine({0, size.height});
  path.closeSubpath();

  symbol.setSymbolType(CPTPlotSymbolType::custom);
  symbol.setSize(size);
  symbol.setCustomSymbolPath(path);
  symbol.setFill(fill);

  CPTMutableLineStyle lineStyle;
  lineStyle.lineColor = lineColor;
  symbol.setLineStyle(lineStyle);
  return symbol;
}

void PlotSymbol::refuse() const {
  fatalError("PlotSymbol: unexpected raw value " + std::to_string(case_));
}

}  // namespace vexel
