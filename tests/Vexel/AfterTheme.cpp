#include "Vexel/AfterTheme.h"

#include <utility>

// This program is linked so that calls of CPTTheme::applyThemeToGraph come to the first of these
// functions; the second is the one they were meant for.
#define VEXEL_APPLY_THEME "_ZNK5vexel8CPTTheme17applyThemeToGraphERNS_8CPTGraphE"

namespace vexel {

namespace {

std::function<void(CPTGraph&)> afterTheme;

}  // namespace

void applyTheme(const CPTTheme* theme, CPTGraph& graph) asm("__wrap_" VEXEL_APPLY_THEME);
void applyThemeAlone(const CPTTheme* theme, CPTGraph& graph) asm("__real_" VEXEL_APPLY_THEME);

void applyTheme(const CPTTheme* theme, CPTGraph& graph) {
  applyThemeAlone(theme, graph);
  if (afterTheme) afterTheme(graph);
}

AfterTheme::AfterTheme(std::function<void(CPTGraph&)> function) {
  afterTheme = std::move(function);
}

AfterTheme::~AfterTheme() {
  afterTheme = nullptr;
}

}  // namespace vexel
