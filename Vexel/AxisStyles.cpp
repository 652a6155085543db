#include "AxisStyles.h"

namespace vexel {

namespace {

constexpr CGFloat kMajorTickLength = 10;
constexpr CGFloat kMinorTickLength = 5;

CPTLineStyle lineStyle(CGFloat width, const CPTColor& color) {
  CPTMutableLineStyle style;
  style.lineWidth = width;
  style.lineColor = color;
  return style;
}

}  // namespace

CPTLineStyle axisLineStyle(PlotTheme theme) {
  return lineStyle(1, theme.plotCPTColor());
}

CPTLineStyle gridLineStyle(PlotTheme theme) {
  return lineStyle(theme.gridLineWidth(), theme.markerCPTColor());
}

void applyTicks(CPTAxis& axis, PlotTheme theme, CPTSign tickSide, CPTSign labelSide) {
  axis.setMajorTickLength(kMajorTickLength);
  axis.setMinorTickLength(kMinorTickLength);
  axis.setMajorTickLineStyle(axisLineStyle(theme));
  axis.setMinorTickLineStyle(axisLineStyle(theme));
  axis.setTickDirection(tickSide);
  axis.setTickLabelDirection(labelSide);
  axis.setTitleDirection(labelSide);
}

}  // namespace vexel
