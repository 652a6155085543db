#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <Vexel/Vexel.h>

namespace vexel {

/// Keeps the state that the protocols ask of an adopter.
template <class... Protocols>
class Adopter : public Protocols... {
 public:
  std::shared_ptr<NSView>& plotView() override { return plotView_; }
  std::vector<std::shared_ptr<CPTGraphHostingView>>& hostingViews() override {
    return hostingViews_;
  }
  std::vector<std::shared_ptr<CPTXYGraph>>& graphs() override { return graphs_; }
  Vexel::ViewConstraints& viewConstraints() override { return viewConstraints_; }
  PlotTheme& theme() override { return theme_; }
  std::string& auxiliaryText() override { return auxiliaryText_; }
  std::vector<double>& auxiliaryValues() override { return auxiliaryValues_; }
  double& xUnitScale() override { return xUnitScale_; }
  double& yUnitScale() override { return yUnitScale_; }

 private:
  std::shared_ptr<NSView> plotView_;
  std::vector<std::shared_ptr<CPTGraphHostingView>> hostingViews_;
  std::vector<std::shared_ptr<CPTXYGraph>> graphs_;
  Vexel::ViewConstraints viewConstraints_;
  PlotTheme theme_ = PlotTheme::white;
  std::string auxiliaryText_;
  std::vector<double> auxiliaryValues_;
  double xUnitScale_ = 1;
  double yUnitScale_ = 1;
};

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
