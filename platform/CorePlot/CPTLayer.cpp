#include <CorePlot/CPTLayer.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include <Foundation/FatalError.h>

namespace vexel {

namespace {

CGFloat finite(CGFloat value) {
  return std::isfinite(value) ? value : 0;
}

CGRect usable(const CGRect& frame) {
  return CGRect::make(finite(frame.origin.x), finite(frame.origin.y),
                      std::max(finite(frame.size.width), 0.0),
                      std::max(finite(frame.size.height), 0.0));
}

}  // namespace

CPTLayer::CPTLayer(CGRect frame) : frame_(usable(frame)) {}

CPTLayer::~CPTLayer() {
  // Sublayers that outlive this layer, or act in their own destruction, find no superlayer.
  for (const auto& layer : sublayers_) layer->superlayer_ = nullptr;
}

void CPTLayer::setFrame(CGRect frame) {
  frame = usable(frame);
  if (frame_ == frame) return;
  const bool resized = frame_.size != frame.size;
  frame_ = frame;
  setNeedsDisplay();
  if (resized) layoutSublayers();
}

void CPTLayer::changePadding(CGFloat& padding, CGFloat points) {
  points = finite(points);
  if (padding == points) return;
  padding = points;
  setNeedsDisplay();
  layoutSublayers();
}

void CPTLayer::setPadding(CGFloat points) {
  paddingLeft_ = paddingRight_ = paddingTop_ = paddingBottom_ = finite(points);
  setNeedsDisplay();
  layoutSublayers();
}

CGRect CPTLayer::paddedBounds() const {
  return CGRect::make(paddingLeft_, paddingBottom_,
                      std::max(frame_.size.width - paddingLeft_ - paddingRight_, 0.0),
                      std::max(frame_.size.height - paddingTop_ - paddingBottom_, 0.0));
}

void CPTLayer::setHidden(bool hidden) {
  if (hidden_ == hidden) return;
  hidden_ = hidden;
  setNeedsDisplay();
}

void CPTLayer::addSublayer(std::shared_ptr<CPTLayer> layer) {
  if (!layer) return;
  if (isInside(*layer)) fatalError("a layer cannot be added to itself or to one inside it");
  layer->removeFromSuperlayer();
  layer->superlayer_ = this;
  sublayers_.push_back(std::move(layer));
  sublayers_.back()->setNeedsDisplay();
}

bool CPTLayer::isInside(const CPTLayer& layer) const {
  return this == &layer || (superlayer_ && superlayer_->isInside(layer));
}

void CPTLayer::removeFromSuperlayer() {
  CPTLayer* const parent = superlayer();
  if (!parent) return;
  superlayer_ = nullptr;
  auto& siblings = parent->sublayers_;
  // From the end, where many that leave together are found at once.
  const auto self = std::find_if(siblings.rbegin(), siblings.rend(),
                                 [this](const auto& layer) { return layer.get() == this; });
  // Kept until the end: the superlayer may hold the last reference.
  const auto keptAlive = *self;
  siblings.erase(std::next(self).base());
  parent->contentDidChange();
}

void CPTLayer::setNeedsDisplay() {
  needsDisplay_ = true;
  contentDidChange();
}

void CPTLayer::contentDidChange() {
  if (superlayer_) superlayer_->contentDidChange();
}

void CPTLayer::display(CGContext& context) {
  needsDisplay_ = false;
  if (hidden_) return;
  try {
    if (delegate_) delegate_->layerWillDraw(*this);
    ++displayCount_;
    draw(context);
  } catch (...) {
    setNeedsDisplay();
    throw;
  }
}

CGPoint CPTLayer::convertPointToRoot(CGPoint point) const {
  point = point + frame_.origin;
  return superlayer_ ? superlayer_->convertPointToRoot(point) : point;
}

}  // namespace vexel
