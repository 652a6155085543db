#include <PlotColorTable/ColorBarDefinition.h>

#include <utility>

namespace vexel {

ColorBarDefinition::ColorBarDefinition(CPTColorList ofPoints, PlotCT table, AxisType axisType,
                                       std::vector<double> ends,
                                       std::shared_ptr<NSFormatter> labelFormatter,
                                       std::string axisTitle)
    : colors(std::move(ofPoints)),
      colorTable(table),
      type(axisType),
      range(std::move(ends)),
      formatter(std::move(labelFormatter)),
      title(std::move(axisTitle)) {}

}  // namespace vexel
