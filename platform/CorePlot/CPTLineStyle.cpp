#include <CorePlot/CPTLineStyle.h>

namespace vexel {

CGStrokeStyle CPTLineStyle::strokeStyle() const {
  return {
      .color = lineColor.value_or(CPTColor::blackColor()).cgColor(),
      .width = lineWidth,
      .cap = lineCap,
      .join = lineJoin,
      .miterLimit = miterLimit,
      .dashPattern = dashPattern,
      .dashPhase = patternPhase,
  };
}

}  // namespace vexel
