#pragma once

#include <concepts>
#include <memory>
#include <utility>

#include <Vexel/AdopterState.h>

namespace vexel {

/// Adopts the protocols and keeps the state that they ask of an adopter: Adopter<Vexel>, or the
/// refinements that one object adopts, each once and without Vexel itself.
template <class... Protocols>
class Adopter : public AdopterState<Protocols>... {};

/// Constructs an adopter from the arguments that follow view and theme, and initialises it. The
/// result may be kept as it is or moved into a shared pointer.
template <std::derived_from<Vexel> Plot, class... Arguments>
std::unique_ptr<Plot> makePlot(std::shared_ptr<NSView> plotView, PlotTheme theme,
                               Arguments&&... arguments) {
  auto plot = std::make_unique<Plot>(std::forward<Arguments>(arguments)...);
  plot->initPlot(std::move(plotView), theme);
  return plot;
}

}  // namespace vexel
