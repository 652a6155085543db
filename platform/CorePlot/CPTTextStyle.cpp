#include <CorePlot/CPTTextStyle.h>

namespace vexel {

CGText CPTTextStyle::cgText(const std::string& text) const {
  CGTextRun run{.text = text,
                .font = {.family = fontName, .size = fontSize},
                .color = color.value_or(CPTColor::blackColor()).cgColor()};
  return {.runs = {std::move(run)}, .alignment = textAlignment};
}

}  // namespace vexel
