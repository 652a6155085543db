#pragma once

#include <AppKit/NSAttributedString.h>
#include <CorePlot/CPTConstraints.h>
#include <CorePlot/CPTFill.h>
#include <CorePlot/CPTLineStyle.h>
#include <CorePlot/CPTPlotSymbol.h>
#include <CorePlot/CPTTextStyle.h>
#include <CorePlot/CPTXYPlotSpace.h>

#include "FuzzInput.h"

namespace vexel {

// Looks of any kind

inline CPTColor anyColor(FuzzInput& input) {
  const double red = input.number();
  return CPTColor::colorWithComponents(red, input.byte() / 255.0, 0.5, input.byte() / 200.0);
}

inline NSColor anyNSColor(FuzzInput& input) {
  const double red = input.number();
  return NSColor::colorWithRed(red, input.byte() / 255.0, 0.5, input.byte() / 200.0);
}

inline CPTLineStyle anyLineStyle(FuzzInput& input) {
  CPTLineStyle style;
  style.lineWidth = input.flag() ? input.byte() / 16.0 : input.number();
  if (input.flag()) return style;
  style.lineCap = input.oneOf({CGLineCap::butt, CGLineCap::round, CGLineCap::square});
  style.lineJoin = input.oneOf({CGLineJoin::miter, CGLineJoin::round, CGLineJoin::bevel});
  style.miterLimit = input.number();
  for (std::size_t left = input.choice(4); left > 0; --left)
    style.dashPattern.push_back(input.flag() ? input.byte() / 8.0 : input.number());
  style.patternPhase = input.number();
  if (input.flag()) style.lineColor = anyColor(input);
  return style;
}

inline std::optional<CPTLineStyle> maybeLineStyle(FuzzInput& input) {
  if (input.choice(4) == 0) return std::nullopt;
  return anyLineStyle(input);
}

inline CPTTextStyle anyTextStyle(FuzzInput& input) {
  CPTTextStyle style;
  style.fontSize = input.flag() ? input.byte() / 8.0 : input.number();
  style.textAlignment =
      input.oneOf({CPTTextAlignment::left, CPTTextAlignment::center, CPTTextAlignment::right});
  if (input.flag()) style.color = anyColor(input);
  if (input.choice(8) == 0) style.fontName = input.text();
  return style;
}

inline CPTPlotSymbol anySymbol(FuzzInput& input) {
  CPTPlotSymbol symbol;
  symbol.setSymbolType(static_cast<CPTPlotSymbolType>(input.choice(13)));
  if (input.flag()) {
    const double width = input.flag() ? input.byte() / 8.0 : input.number();
    symbol.setSize({width, input.flag() ? width : input.number()});
  }
  if (input.flag()) symbol.setLineStyle(maybeLineStyle(input));
  if (input.flag()) symbol.setFill(CPTFill(anyColor(input)));
  if (input.choice(8) == 0) symbol.setAnchorPoint({input.number(), input.number()});
  if (symbol.symbolType() == CPTPlotSymbolType::custom) {
    CGMutablePath path;
    path.move({input.number(), input.number()});
    path.addLine({input.number(), input.number()});
    path.addCurve({input.number(), input.number()}, {input.number(), input.number()},
                  {input.number(), input.number()});
    if (input.flag()) path.closeSubpath();
    symbol.setCustomSymbolPath(path);
  }
  return symbol;
}

inline NSAttributedString anyAttributedString(FuzzInput& input) {
  NSAttributedString result;
  for (std::size_t left = input.choice(4); left > 0; --left) {
    NSTextAttributes attributes;
    attributes.fontSize = input.flag() ? input.byte() / 8.0 : input.number();
    attributes.bold = input.flag();
    attributes.italic = input.flag();
    attributes.superscript = input.raw<std::int8_t>();
    if (input.choice(8) == 0) attributes.fontName = input.text();
    if (input.flag()) attributes.color = anyNSColor(input);
    result.append(input.text(), attributes);
  }
  return result;
}

// Ranges

inline CPTPlotRange anyRange(FuzzInput& input) {
  const double location = input.number();
  return {location, input.number()};
}

inline void setAnyRanges(CPTXYPlotSpace& space, FuzzInput& input) {
  const auto logOrLinear = [&] { return input.flag() ? CPTScaleType::log : CPTScaleType::linear; };
  space.setXRange(anyRange(input));
  space.setYRange(anyRange(input));
  space.setXScaleType(logOrLinear());
  space.setYScaleType(logOrLinear());
}

inline CPTConstraints anyConstraints(FuzzInput& input) {
  switch (input.choice(3)) {
    case 0:
      return CPTConstraints::constraintWithLowerOffset(input.number());
    case 1:
      return CPTConstraints::constraintWithUpperOffset(input.number());
    default:
      return CPTConstraints::constraintWithRelativeOffset(input.number());
  }
}

}  // namespace vexel
