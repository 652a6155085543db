#pragma once

#include <memory>
#include <string>
#include <vector>

#include <Foundation/VexelAPI.h>
#include <Vexel/Vexel.h>

namespace vexel {

/// Keeps what `Protocol` asks its adopters to store. The header of each protocol has its own,
/// which brings that of the protocol it refines.
template <class Protocol>
class AdopterState;

/// Keeps what Vexel asks its adopters to store.
template <>
class VEXEL_API AdopterState<Vexel> : public virtual Vexel {
 public:
  std::shared_ptr<NSView>& plotView() override { return plotView_; }
  std::vector<std::shared_ptr<CPTGraphHostingView>>& hostingViews() override {
    return hostingViews_;
  }
  std::vector<std::shared_ptr<CPTXYGraph>>& graphs() override { return graphs_; }
  ViewConstraints& viewConstraints() override { return viewConstraints_; }
  PlotTheme& theme() override { return theme_; }
  std::string& auxiliaryText() override { return auxiliaryText_; }
  std::vector<double>& auxiliaryValues() override { return auxiliaryValues_; }
  double& xUnitScale() override { return xUnitScale_; }
  double& yUnitScale() override { return yUnitScale_; }

 private:
  std::shared_ptr<NSView> plotView_;
  std::vector<std::shared_ptr<CPTGraphHostingView>> hostingViews_;
  std::vector<std::shared_ptr<CPTXYGraph>> graphs_;
  ViewConstraints viewConstraints_;
  PlotTheme theme_ = PlotTheme::white;
  std::string auxiliaryText_;
  std::vector<double> auxiliaryValues_;
  double xUnitScale_ = 1;
  double yUnitScale_ = 1;
};

}  // namespace vexel
