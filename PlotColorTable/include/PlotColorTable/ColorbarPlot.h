#pragma once

#include <memory>

#include <Foundation/VexelAPI.h>
#include <PlotColorTable/ColorBarDefinition.h>
#include <PlotColorTable/SymbolColorCode.h>
#include <Vexel/AdopterState.h>

namespace vexel {

/// What an application object adopts to draw a figure whose symbols are coloured by a quantity,
/// with a colour bar to its right: two graphs side by side in one view.
///
/// The bar, 100 points wide, is there unless the quantity is none or compositionType. The usual
/// order of calls is setViews, formatColorBarPlotViews, series and axes in figureGraph,
/// createColorbar with what SymbolColorCode::getColors gave; set(frameSize) whenever the host is
/// resized. A change of the quantity is seen at the next setViews and set(frameSize).
///
/// What is missing (host, view, graph) ends an operation where it is needed, without a message.
class VEXEL_API ColorbarPlot : public virtual Vexel {
 public:
  // The adopter's own part

  /// The quantity that colours the figure's symbols.
  virtual SymbolColorCode symbolColorCode() = 0;

  // State, null until the operations below assign it

  /// The view and the graph of the bar.
  virtual std::shared_ptr<CPTGraphHostingView>& colorbarView() = 0;
  virtual std::shared_ptr<CPTXYGraph>& colorbarGraph() = 0;
  /// The view and the graph of the figure.
  virtual std::shared_ptr<CPTGraphHostingView>& figureView() = 0;
  virtual std::shared_ptr<CPTXYGraph>& figureGraph() = 0;

  // Operations

  using Vexel::setViews;
  /// Removes the views of the last call, then puts the view of the figure and that of the bar, if
  /// there is to be one, into the host and hostingViews. Unlike the bands of a plot, earlier
  /// hostingViews are forgotten and stay in the host.
  virtual void setViews();

  /// Both of the following.
  virtual void formatColorBarPlotViews();
  /// Makes figureGraph: a graph in the view of the figure, as Vexel::format does.
  virtual void formatFigureView();
  /// Makes colorbarGraph in the same way; keeps the old one for the quantity none. Without a view
  /// for the bar, as for compositionType, there is no graph either.
  virtual void formatColorbarView();

  /// Lays figure and bar out for a host of that size, in points.
  virtual void set(CGSize frameSize);

  /// Draws the bar into colorbarGraph: the colours of the table over the whole plot area, between
  /// a lower and an upper axis without labels, a value axis on the left and a bare axis on the
  /// right. The two latter show the definition's range, which needs two values, on a linear or
  /// logarithmic scale. A discrete definition leaves the graph as it is. Each call adds an upper
  /// and a right axis anew. An axis that formatXAxis or formatYAxis does not give is a fatal error.
  virtual void createColorbar(const ColorBarDefinition& definition);
};

/// Keeps what ColorbarPlot asks its adopters to store.
template <>
class VEXEL_API AdopterState<ColorbarPlot> : public virtual ColorbarPlot,
                                             public virtual AdopterState<Vexel> {
 public:
  std::shared_ptr<CPTGraphHostingView>& colorbarView() override { return colorbarView_; }
  std::shared_ptr<CPTXYGraph>& colorbarGraph() override { return colorbarGraph_; }
  std::shared_ptr<CPTGraphHostingView>& figureView() override { return figureView_; }
  std::shared_ptr<CPTXYGraph>& figureGraph() override { return figureGraph_; }

 private:
  std::shared_ptr<CPTGraphHostingView> colorbarView_;
  std::shared_ptr<CPTXYGraph> colorbarGraph_;
  std::shared_ptr<CPTGraphHostingView> figureView_;
  std::shared_ptr<CPTXYGraph> figureGraph_;
};

}  // namespace vexel
