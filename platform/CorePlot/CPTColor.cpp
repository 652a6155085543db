#include <CorePlot/CPTColor.h>

namespace vexel {

CGColor CPTCreateCGColorFromNSColor(const NSColor& color) {
  return CGColor::genericRGB(color.redComponent(), color.greenComponent(), color.blueComponent(),
                             color.alphaComponent());
}

}  // namespace vexel
