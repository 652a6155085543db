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

CPTLineStyle axisLineStyle(Vexel& plot) {
  return lineStyle(1, plot.theme().plotCPTColor());
}

CPTLineStyle gridLineStyle(Vexel& plot) {
  const PlotTheme theme = plot.theme();
  return lineStyle(theme.gridLineWidth(), theme.markerCPTColor());
}

void applyTicks(CPTAxis& axis, Vexel& plot) {
  axis.setMajorTickLength(kMajorTickLength);
  axis.setMajorTickLineStyle(axisLineStyle(plot));
  axis.setMinorTickLength(kMinorTickLength);
  axis.setMinorTickLineStyle(axisLineStyle(plot));
}

void applySides(CPTAxis& axis, CPTSign ticks, CPTSign labels) {
  axis.setTickDirection(ticks);
  axis.setTickLabelDirection(labels);
  axis.setTitleDirection(labels);
}

}  // namespace vexel
