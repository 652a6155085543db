#include "StrokeBoundary.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vexel {

namespace {

// Where there are fewer points it is quicker to look for them.
constexpr int kSlotsOfSparsePoint = 6;
constexpr float kNowhere = -std::numeric_limits<float>::infinity();

}  // namespace

StrokeBoundary::StrokeBoundary(int slotCount, int slotsPerPixel, double radius)
    : slotCount_(slotCount),
      slotsPerPixel_(slotsPerPixel),
      slotWidth_(1.0 / slotsPerPixel),
      radius_(radius),
      reach_(static_cast<int>(std::ceil(radius * slotsPerPixel + 0.5))),
      pointY_(static_cast<std::size_t>(slotCount), kNowhere),
      pointX_(static_cast<std::size_t>(slotCount)),
      boundary_(static_cast<std::size_t>(slotCount), kNowhere) {}

void StrokeBoundary::setPoint(int slot, CGPoint point) {
  const auto i = static_cast<std::size_t>(slot);
  ++pointCount_;
  pointY_[i] = static_cast<float>(point.y);
  pointX_[i] = static_cast<float>(point.x - (slot + 0.5) * slotWidth_);
}

void StrokeBoundary::addLine(CGPoint from, CGPoint to, int begin, int end) {
  const double slope = (to.y - from.y) / (to.x - from.x);
  const auto y = static_cast<float>(from.y + slope * ((begin + 0.5) * slotWidth_ - from.x));
  const auto step = static_cast<float>(slope * slotWidth_);
  float* const boundary = boundary_.data();
  for (int i = begin; i < end; ++i)
    boundary[i] = std::max(boundary[i], y + step * static_cast<float>(i - begin));
}

void StrokeBoundary::addPens(int firstSlot, int lastSlot) {
  const bool isSparse = pointCount_ < (lastSlot - firstSlot) / kSlotsOfSparsePoint;
  pointCount_ = 0;
  if (!isSparse) {
    for (int offset = -reach_; offset <= reach_; ++offset) addPensAt(offset, firstSlot, lastSlot);
    return;
  }
  for (int slot = firstSlot; slot <= lastSlot; ++slot)
    if (pointY_[static_cast<std::size_t>(slot)] != kNowhere)
      for (int offset = -reach_; offset <= reach_; ++offset) addPensAt(offset, slot, slot);
}

void StrokeBoundary::addPensAt(int offset, int firstSlot, int lastSlot) {
  const auto squaredRadius = static_cast<float>(radius_ * radius_);
  const auto shift = static_cast<float>(offset * slotWidth_);
  const float* const pointX = pointX_.data();
  const float* const pointY = pointY_.data();
  float* const boundary = boundary_.data();
  const int begin = std::max(firstSlot, offset);
  const int end = std::min(lastSlot, slotCount_ - 1 + offset);
  for (int i = begin; i <= end; ++i) {
    const float distance = pointX[i] + shift;
    const float rest = squaredRadius - distance * distance;
    const float reached = pointY[i] + std::sqrt(std::max(rest, 0.0F));
    boundary[i - offset] = std::max(boundary[i - offset], rest >= 0 ? reached : kNowhere);
  }
}

void StrokeBoundary::clear(int firstSlot, int lastSlot) {
  std::fill(pointY_.begin() + firstSlot, pointY_.begin() + lastSlot + 1, kNowhere);
  std::fill(boundary_.begin() + firstSlot, boundary_.begin() + lastSlot + 1, kNowhere);
}

}  // namespace vexel
