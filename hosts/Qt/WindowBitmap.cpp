#include "WindowBitmap.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>
#include <vector>

namespace vexel {

namespace {

using Clock = std::chrono::steady_clock;

// What takes longer is shown part by part, with events in between.
constexpr std::chrono::milliseconds kFrame(16);
// Parts of less height, in points, are not worth it.
constexpr CGFloat kLeastHeight = 32;
// A part that would take longer is cut into pieces, as far as that helps: some of the work is done
// for each of them.
constexpr std::chrono::milliseconds kLongest(50);
constexpr double kMostPieces = 3;
// Of what took long, by each display that does not: pieces cost little then.
constexpr double kRemembered = 0.9;

/// The smallest rectangle around `rect` whose edges lie between pixels.
CGRect wholePixels(const CGRect& rect, CGFloat ratio, CGFloat pixelHeight) {
  // Pixels are counted from the top, and a part of one above that may be missing.
  const CGFloat top = pixelHeight / ratio;
  const CGFloat left = std::floor(rect.minX() * ratio) / ratio;
  const CGFloat right = std::ceil(rect.maxX() * ratio) / ratio;
  const CGFloat above = std::floor((top - rect.maxY()) * ratio) / ratio;
  const CGFloat below = std::ceil((top - rect.minY()) * ratio) / ratio;
  return CGRect::make(left, top - below, right - left, below - above);
}

/// Whole pixels that the window covers, in points: all of a bitmap of that size is drawn.
CGSize coveredPart(CGSize size, CGFloat ratio) {
  const auto covered = [&](CGFloat points) {
    return std::max(1.0, std::floor(points * ratio)) / ratio;
  };
  return {covered(size.width), covered(size.height)};
}

/// Where the views at the bottom of the tree begin and end, in window coordinates.
void addEdges(const NSView& view, std::vector<CGFloat>& edges) {
  for (const auto& subview : view.subviews()) addEdges(*subview, edges);
  if (!view.subviews().empty()) return;
  const CGRect bounds = view.bounds();
  for (const CGFloat y : {bounds.minY(), bounds.maxY()})
    edges.push_back(view.convertPointToView({bounds.minX(), y}, nullptr).y);
}

}  // namespace

bool WindowBitmap::update(NSWindow& window, qreal ratio, const CGColor& background) {
  const CGSize size = window.contentSize();
  std::unique_ptr<CGBitmapContext> former;
  if (!context_ || size_ != size || context_->backingScale() != ratio) {
    former = std::move(context_);
    try {
      context_ = CGBitmapContext::create(coveredPart(size, ratio), ratio);
    } catch (const CGContextError&) {
      return false;
    }
    size_ = size;
    context_->fillAligned({{}, size}, background);
    window.contentView()->setNeedsDisplay(true);
  }

  failure_.reset();
  std::vector<Strip> all{{{}, size}};
  const bool isLaidOut = attempt([&] { all = strips(window); });
  const auto start = Clock::now();
  // A failure marks what has been drawn again: no part would be the last one.
  const auto goesOn = [&] { return failure_ || Clock::now() - start < kFrame; };
  std::size_t drawn = 0;
  for (; isLaidOut && drawn < all.size() && (drawn == 0 || goesOn()); ++drawn) {
    const auto before = Clock::now();
    attempt([&] { draw(all[drawn], window, background); });
    if (isWide(all[drawn]))
      slowest_ = std::max(slowest_, Seconds(Clock::now() - before) / all[drawn].size.height);
  }
  isComplete_ = !isLaidOut || drawn == all.size();
  if (isComplete_ && slowest_ > Seconds(0))
    timePerPoint_ = std::max(kRemembered * timePerPoint_, std::exchange(slowest_, Seconds(0)));
  goOnBelow_ = isComplete_ ? std::numeric_limits<CGFloat>::infinity() : all[drawn - 1].minY();
  if (former) stretch(*former, std::span(all).subspan(drawn));
  return true;
}

/// False, and the failure is noted, when a view throws something.
bool WindowBitmap::attempt(const std::function<void()>& act) {
  try {
    act();
    return true;
  } catch (const std::exception& exception) {
    failure_ = exception.what();
    return false;
  }
}

std::vector<WindowBitmap::Strip> WindowBitmap::strips(NSWindow& window) const {
  const std::vector<CGRect> dirty = window.dirtyRects();
  std::vector<CGFloat> edges;
  addEdges(*window.contentView(), edges);
  std::ranges::sort(edges, std::greater<>());
  const std::vector<CGFloat> cuts = cutInPieces(edges);

  // Between pixels, so that one part does not draw a row of the next one.
  const CGFloat ratio = context_->backingScale();
  const CGFloat top = context_->pixelHeight() / ratio;
  std::vector<Strip> strips;
  for (const CGRect& rect : dirty) {
    CGFloat above = rect.maxY();
    const auto cutAt = [&](CGFloat y) {
      strips.push_back(CGRect::make(rect.minX(), y, rect.size.width, above - y));
      above = y;
    };
    for (const CGFloat edge : isWide(rect) ? cuts : edges) {
      const CGFloat y = top - std::round((top - edge) * ratio) / ratio;
      if (y <= above - kLeastHeight && y >= rect.minY() + kLeastHeight) cutAt(y);
    }
    cutAt(rect.minY());
  }
  std::ranges::stable_sort(strips, std::greater<>(), &CGRect::maxY);
  const auto next =
      std::ranges::find_if(strips, [&](const Strip& strip) { return strip.maxY() <= goOnBelow_; });
  std::ranges::rotate(strips, next);
  return strips;
}

/// Whether drawing a strip tells how long all of the width takes, unlike the columns of a marker.
bool WindowBitmap::isWide(const Strip& strip) const {
  return strip.size.width > size_.width / 2;
}

/// With cuts in the parts between edges that would take long, at the same places for as long as it
/// takes to draw all of them.
std::vector<CGFloat> WindowBitmap::cutInPieces(const std::vector<CGFloat>& edges) const {
  std::vector<CGFloat> cuts = edges;
  for (std::size_t i = 1; i < edges.size(); ++i) {
    const CGFloat height = edges[i - 1] - edges[i];
    const double wanted = std::ceil(height * timePerPoint_ / kLongest);
    const double pieces = std::min({wanted, kMostPieces, std::floor(height / kLeastHeight)});
    for (double piece = 1; piece < pieces; ++piece)
      cuts.push_back(edges[i - 1] - piece * height / pieces);
  }
  std::ranges::sort(cuts, std::greater<>());
  return cuts;
}

void WindowBitmap::draw(const Strip& strip, NSWindow& window, const CGColor& background) {
  const CGRect part = wholePixels(strip, context_->backingScale(), context_->pixelHeight());
  const CGSavedState state(*context_);
  context_->clip(part);
  context_->fillAligned(part, background);
  window.displayRect(part, *context_);
}

/// Fills parts with what they showed at another size or ratio.
void WindowBitmap::stretch(CGBitmapContext& former, std::span<const Strip> strips) {
  const auto from = former.pixels();
  const auto nearest = [](int place, int count, int formerCount) {
    return static_cast<int>((place + 0.5) * formerCount / count);
  };
  for (const Strip& strip : strips) {
    const CGSavedState state(*context_);
    context_->clip(wholePixels(strip, context_->backingScale(), context_->pixelHeight()));
    context_->drawOnPixels([&](const CGPixels& to) {
      for (int y = to.clip.top; y < to.clip.bottom; ++y) {
        const int row = nearest(y, to.buffer.height, former.pixelHeight());
        for (int x = to.clip.left; x < to.clip.right; ++x)
          to.buffer.row(y)[x] =
              from[row * former.pixelWidth() + nearest(x, to.buffer.width, former.pixelWidth())];
      }
    });
  }
}

QImage WindowBitmap::image() const {
  const auto pixels = context_->pixels();
  const int width = context_->pixelWidth();
  QImage image(reinterpret_cast<const uchar*>(pixels.data()), width, context_->pixelHeight(),
               qsizetype{4} * width, QImage::Format_RGB32);
  image.setDevicePixelRatio(context_->backingScale());
  return image;
}

}  // namespace vexel
