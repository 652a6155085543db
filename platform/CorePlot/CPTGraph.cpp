#include <CorePlot/CPTGraph.h>

#include <algorithm>
#include <functional>
#include <utility>

#include <CorePlot/CPTAxisDelegate.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <CorePlot/CPTXYAxis.h>

#include "AxisArrangement.h"

namespace vexel {

namespace {

// Between the upper edge of the graph and its title.
constexpr CGFloat kTitleInset = 2;
// Each has the size of the graph.
constexpr std::size_t kMostPictures = 2;

/// Whether there was a delegate to be told.
bool tellDelegates(const AxisArrangement& arrangement) {
  bool told = false;
  for (const auto& [axis, layout] : arrangement.axes)
    if (auto* const delegate = dynamic_cast<CPTAxisDelegate*>(axis->delegate())) {
      delegate->axisDidRelabel(*axis);
      told = true;
    }
  return told;
}

}  // namespace

/// A part of the chart that is drawn as one, from back to front.
struct CPTGraph::Slice {
  /// Tells slices apart from one display to the next.
  const void* owner;
  bool needsDisplay;
  std::function<void(CGContext&)> draw;
  /// Text above all plots.
  bool isOverlay = false;
};

/// Pictures of the first slices as they were at the last display, each of more than the one before.
struct CPTGraph::KeptPictures {
  struct Picture {
    std::unique_ptr<CGLayer> layer;
    std::vector<const void*> owners;

    bool shows(const std::vector<Slice>& slices, std::size_t clean) const {
      if (owners.size() > clean) return false;
      return std::equal(owners.begin(), owners.end(), slices.begin(),
                        [](const void* owner, const Slice& slice) { return owner == slice.owner; });
    }
  };

  std::vector<Picture> pictures;
  /// The first slice that had changed at the last display; null when none had.
  const void* changed = nullptr;
};

CPTGraph::CPTGraph(CGRect frame)
    : CPTBorderedLayer(frame), kept_(std::make_unique<KeptPictures>()) {
  setPadding(kDefaultPadding);
}

CPTGraph::~CPTGraph() = default;

void CPTGraph::setPlotAreaFrame(std::shared_ptr<CPTPlotAreaFrame> frame) {
  if (plotAreaFrame_ == frame) return;
  if (plotAreaFrame_) plotAreaFrame_->removeFromSuperlayer();
  plotAreaFrame_ = std::move(frame);
  addSublayer(plotAreaFrame_);
  layoutSublayers();
  setNeedsDisplay();
}

void CPTGraph::setAxisSet(std::shared_ptr<CPTAxisSet> axisSet) {
  if (axisSet_ == axisSet) return;
  if (axisSet_) axisSet_->removeFromSuperlayer();
  axisSet_ = std::move(axisSet);
  arrangement_.reset();
  addSublayer(axisSet_);
  setNeedsDisplay();
}

std::shared_ptr<CPTPlotSpace> CPTGraph::defaultPlotSpace() const {
  return plotSpaces_.empty() ? nullptr : plotSpaces_.front();
}

void CPTGraph::addPlotSpace(std::shared_ptr<CPTPlotSpace> space) {
  if (!space || space->graph() == this) return;
  if (auto* former = space->graph()) former->removePlotSpace(*space);
  space->graph_ = this;
  plotSpaces_.push_back(std::move(space));
}

void CPTGraph::removePlotSpace(const CPTPlotSpace& space) {
  const auto found = std::find_if(plotSpaces_.begin(), plotSpaces_.end(),
                                  [&](const auto& s) { return s.get() == &space; });
  if (found == plotSpaces_.end()) return;
  (*found)->graph_ = nullptr;
  plotSpaces_.erase(found);
}

void CPTGraph::addPlot(std::shared_ptr<CPTPlot> plot) {
  addPlot(std::move(plot), nullptr);
}

void CPTGraph::addPlot(std::shared_ptr<CPTPlot> plot, std::shared_ptr<CPTPlotSpace> space) {
  if (!plot) return;
  if (auto* former = plot->graph()) former->removePlot(*plot);
  if (space && !space->graph()) addPlotSpace(space);
  plot->setPlotSpace(space ? std::move(space) : defaultPlotSpace());
  plot->graph_ = this;
  addSublayer(plot);
  plots_.push_back(std::move(plot));
}

std::shared_ptr<CPTPlot> CPTGraph::plotWithIdentifier(const std::string& identifier) const {
  for (const auto& plot : plots_)
    if (plot->identifier() == identifier) return plot;
  return nullptr;
}

void CPTGraph::removePlot(const CPTPlot& plot) {
  const auto found =
      std::find_if(plots_.begin(), plots_.end(), [&](const auto& p) { return p.get() == &plot; });
  if (found == plots_.end()) return;
  const auto removed = *found;
  plots_.erase(found);
  removed->graph_ = nullptr;
  removed->removeFromSuperlayer();
}

void CPTGraph::removePlotWithIdentifier(const std::string& identifier) {
  if (const auto plot = plotWithIdentifier(identifier)) removePlot(*plot);
}

void CPTGraph::reloadData() {
  for (const auto& plot : plots_) plot->setDataNeedsReloading();
}

void CPTGraph::applyTheme(const std::shared_ptr<const CPTTheme>& theme) {
  if (theme) theme->applyThemeToGraph(*this);
}

void CPTGraph::setTitle(std::optional<std::string> title) {
  if (title_ == title) return;
  title_ = std::move(title);
  setNeedsDisplay();
}

void CPTGraph::setTitleTextStyle(CPTTextStyle style) {
  if (titleTextStyle_ == style) return;
  titleTextStyle_ = std::move(style);
  setNeedsDisplay();
}

void CPTGraph::layoutSublayers() {
  if (plotAreaFrame_) plotAreaFrame_->setFrame(paddedBounds());
}

void CPTGraph::contentDidChange() {
  if (hostingView_) hostingView_->setNeedsDisplay(true);
}

void CPTGraph::plotSpaceDidChange(const CPTPlotSpace& space) {
  if (axisSet_)
    for (const auto& axis : axisSet_->axes())
      if (axis->plotSpace().get() == &space) axis->setNeedsDisplay();
  for (const auto& plot : plots_)
    if (plot->plotSpace().get() == &space) plot->setNeedsDisplay();
  if (plotAreaFrame_ && plotAreaFrame_->plotArea())
    plotAreaFrame_->plotArea()->setAnnotationsNeedDisplay();
}

bool CPTGraph::axesNeedDisplay() const {
  if (!axisSet_) return false;
  const auto& axes = axisSet_->axes();
  return axisSet_->needsDisplay() || std::any_of(axes.begin(), axes.end(), [](const auto& axis) {
           return axis->needsDisplay();
         });
}

std::shared_ptr<const AxisArrangement> CPTGraph::arrangedAxes() {
  const bool isCurrent = arrangement_ && !axesNeedDisplay() &&
                         arrangement_->surroundings == AxisArrangement::Surroundings::of(*this);
  if (isCurrent) return arrangement_;
  const auto first = std::make_shared<const AxisArrangement>(*this);
  // Delegates may change the axes, or remove them.
  arrangement_ = tellDelegates(*first) ? std::make_shared<const AxisArrangement>(*this) : first;
  return arrangement_;
}

std::vector<CPTGraph::Slice> CPTGraph::slices() {
  const auto plotAreaFrame = plotAreaFrame_;
  const auto area = plotAreaFrame ? plotAreaFrame->plotArea() : nullptr;
  std::vector<Slice> result;

  result.push_back({this,
                    needsDisplay() || (plotAreaFrame && plotAreaFrame->needsDisplay()) ||
                        (area && area->needsDisplay()),
                    [this, plotAreaFrame](CGContext& context) {
                      display(context);
                      if (!plotAreaFrame) return;
                      const CGSavedState state(context);
                      const CGPoint origin = plotAreaFrame->frame().origin;
                      context.translate(origin.x, origin.y);
                      plotAreaFrame->display(context);
                    }});
  if (!area || area->isHidden() || plotAreaFrame->isHidden()) return result;

  const CGPoint frameOrigin = plotAreaFrame->frame().origin;
  const CGRect plotRect{frameOrigin + area->frame().origin, area->frame().size};
  const auto inPlotArea = [plotAreaFrame, frameOrigin, inFrame = area->frame().origin](
                              CGContext& context, const auto& draw) {
    const CGSavedState state(context);
    context.translate(frameOrigin.x, frameOrigin.y);
    plotAreaFrame->clipToBorder(context);
    context.translate(inFrame.x, inFrame.y);
    draw();
  };

  const auto arrangement = arrangedAxes();
  const auto axisSet = axisSet_;
  result.push_back({axisSet.get(), axesNeedDisplay(),
                    [axisSet, plotAreaFrame, arrangement, inPlotArea](CGContext& context) {
                      inPlotArea(context, [&] {
                        for (const auto& [axis, layout] : arrangement->axes)
                          drawMinorGrid(context, *axis, layout);
                        for (const auto& [axis, layout] : arrangement->axes)
                          drawMajorGrid(context, *axis, layout);
                      });
                      {
                        const CGSavedState state(context);
                        const CGPoint origin = plotAreaFrame->frame().origin;
                        context.translate(origin.x, origin.y);
                        plotAreaFrame->drawBorder(context);
                      }
                      inPlotArea(context, [&] {
                        if (axisSet) {
                          axisSet->display(context);
                          const auto all = axisSet->axes();
                          for (const auto& axis : all) axis->display(context);
                        }
                        for (const auto& [axis, layout] : arrangement->axes)
                          drawLineAndTicks(context, *axis, layout);
                      });
                    }});

  for (const auto& plot : plots_)
    result.push_back({plot.get(), plot->needsDisplay(),
                      [plot, size = plotRect.size, inPlotArea](CGContext& context) {
                        inPlotArea(context, [&] {
                          plot->setPlotAreaSize(size);
                          plot->display(context);
                        });
                      }});

  result.push_back({&titleTextStyle_, false,
                    [this, arrangement, inPlotArea](CGContext& context) {
                      inPlotArea(context, [&] {
                        for (const auto& placed : arrangement->axes)
                          drawLabels(context, placed.layout);
                        for (const auto& placed : arrangement->axes)
                          drawAxisTitle(context, placed.layout);
                      });
                      if (arrangement->showsGraphTitle) drawTitle(context);
                    },
                    true});
  result.push_back({area.get(), area->annotationsNeedDisplay(),
                    [area, inPlotArea](CGContext& context) {
                      inPlotArea(context, [&] { area->drawAnnotations(context); });
                    },
                    true});
  return result;
}

CGRect CPTGraph::titleFrame() const {
  if (!title_ || title_->empty() || !plotAreaFrame_ || !plotAreaFrame_->plotArea()) return {};
  const CGRect area = plotAreaFrame_->plotArea()->frame();
  const CGFloat middle = plotAreaFrame_->frame().minX() + area.midX();
  const CGSize size = CPTTextLayer(*title_, titleTextStyle_).frame().size;
  return {{middle - size.width / 2, bounds().maxY() - kTitleInset - size.height}, size};
}

void CPTGraph::drawTitle(CGContext& context) const {
  const CGPoint origin = titleFrame().origin;
  const CGSavedState state(context);
  context.translate(origin.x, origin.y);
  CPTTextLayer(*title_, titleTextStyle_).display(context);
}

void CPTGraph::displayChart(CGContext& context) {
  if (isHidden()) return;
  const CGSavedState state(context);
  context.clip(bounds());

  const std::vector<Slice> all = slices();
  const auto draw = [&](CGContext& target, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) {
      if (!(cornerRadius() > 0)) {
        all[i].draw(target);
        continue;
      }
      // Each part is cut by itself, so that kept ones look as if drawn with the others.
      const CGSavedState whole(target);
      clipToBorder(target);
      all[i].draw(target);
    }
  };
  const auto begin = all.begin();
  const auto firstDirty = std::find_if(begin, all.end(), std::mem_fn(&Slice::needsDisplay));
  const auto firstOverlay = std::find_if(begin, all.end(), std::mem_fn(&Slice::isOverlay));
  const auto clean = static_cast<std::size_t>(firstDirty - begin);
  const auto overlay = static_cast<std::size_t>(firstOverlay - begin);

  auto& pictures = kept_->pictures;
  std::erase_if(pictures, [&](const auto& picture) {
    return !picture.shows(all, clean) || !picture.layer->fits(context);
  });
  const void* const changed = firstDirty == all.end() ? nullptr : firstDirty->owner;
  const bool changedAgain = std::exchange(kept_->changed, changed) == changed;

  // What lies below the change is kept: at once when nothing is, and on top of what is kept when
  // the same part goes on changing. When everything changes the next change will most likely be
  // one above the plots, unless it goes on like that.
  const std::size_t kept = pictures.empty() ? 0 : pictures.back().owners.size();
  const std::size_t wanted = clean == 0 && !changedAgain ? overlay : std::min(clean, overlay);
  const bool worthKeeping = wanted > kept && (kept == 0 || changedAgain);
  auto layer = worthKeeping ? context.makeLayer(bounds()) : nullptr;
  if (!layer) {
    if (kept > 0) context.drawLayer(*pictures.back().layer);
    draw(context, kept, all.size());
    return;
  }
  if (kept > 0) layer->context().drawLayer(*pictures.back().layer);
  draw(layer->context(), kept, wanted);
  context.drawLayer(*layer);
  if (pictures.size() == kMostPictures) pictures.erase(pictures.begin());
  pictures.push_back({std::move(layer), {}});
  for (std::size_t i = 0; i < wanted; ++i) pictures.back().owners.push_back(all[i].owner);
  draw(context, wanted, all.size());
}

}  // namespace vexel
