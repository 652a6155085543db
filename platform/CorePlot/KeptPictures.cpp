#include "KeptPictures.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace vexel {

namespace {

using Part = ChartParts::Part;

constexpr std::size_t kMostLowerPictures = 2;
// What is lower, in points, cannot be seen.
constexpr CGFloat kInvisible = 1e-3;

std::vector<const void*> ownersOf(std::span<const Part> parts) {
  std::vector<const void*> owners;
  for (const Part& part : parts) owners.push_back(part.owner);
  return owners;
}

/// The parts of rectangles in the rows of another one, and those above and below it.
std::pair<std::vector<CGRect>, std::vector<CGRect>> split(const std::vector<CGRect>& rects,
                                                          const CGRect& rows) {
  std::vector<CGRect> inside, outside;
  const auto add = [](std::vector<CGRect>& to, const CGRect& rect, CGFloat bottom, CGFloat top) {
    if (top - bottom > kInvisible)
      to.push_back(CGRect::make(rect.minX(), bottom, rect.size.width, top - bottom));
  };
  for (const CGRect& rect : rects) {
    const CGFloat bottom = std::clamp(rows.minY(), rect.minY(), rect.maxY());
    const CGFloat top = std::clamp(rows.maxY(), rect.minY(), rect.maxY());
    add(outside, rect, rect.minY(), bottom);
    add(inside, rect, bottom, top);
    add(outside, rect, top, rect.maxY());
  }
  return {inside, outside};
}

/// Rows of pixels that lie in two rectangles are drawn with both.
void clear(CGContext& context) {
  context.drawOnPixels([](const CGPixels& pixels) {
    for (int y = pixels.clip.top; y < pixels.clip.bottom; ++y)
      std::fill(pixels.buffer.row(y) + pixels.clip.left, pixels.buffer.row(y) + pixels.clip.right,
                0);
  });
}

}  // namespace

bool KeptPictures::Picture::shows(std::span<const Part> parts) const {
  return std::equal(owners.begin(), owners.end(), parts.begin(), parts.end(),
                    [](const void* owner, const Part& part) {
                      return owner == part.owner && !part.needsDisplay;
                    });
}

/// The parts of a chart, with those that are put together apart as one.
class KeptPictures::Drawing {
 public:
  Drawing(KeptPictures& kept, const ChartParts& parts, const CPTBorderedLayer* rounded,
          const CGRect& bounds)
      : kept_(kept), parts_(parts), all_(parts.all()), rounded_(rounded), bounds_(bounds) {
    const auto isMark = std::mem_fn(&Part::isMark);
    const auto firstMark = std::find_if(all_.begin(), all_.end(), isMark);
    const auto above = std::find_if_not(firstMark, all_.end(), isMark);
    auto end = all_.end();
    while (end != above && isMark(*std::prev(end))) --end;
    apartBegin_ = static_cast<std::size_t>(above - all_.begin());
    apartEnd_ = static_cast<std::size_t>(end - all_.begin());
  }

  std::span<const Part> all() const { return all_; }
  const CGRect& bounds() const { return bounds_; }

  /// The same, or the beginning of the parts put together apart that it is in the middle of.
  std::size_t notAmidApart(std::size_t end) const {
    return end > apartBegin_ && end < apartEnd_ ? apartBegin_ : end;
  }

  void draw(std::size_t begin, std::size_t end, CGContext& context,
            const std::optional<CGRect>& rect) const {
    for (std::size_t i = begin; i < end; ++i) {
      if (i == apartBegin_ && i < apartEnd_) {
        kept_.drawApart(all_.subspan(i, apartEnd_ - i), *this, context);
        i = apartEnd_ - 1;
      } else {
        draw(all_[i], context, rect);
      }
    }
  }

  void draw(const Part& part, CGContext& context, const std::optional<CGRect>& rect) const {
    if (!rounded_) return parts_.draw(part, context, rect);
    // Each part is cut by itself, so that kept ones look as if drawn with the others.
    const CGSavedState whole(context);
    rounded_->clipToBorder(context);
    parts_.draw(part, context, rect);
  }

 private:
  KeptPictures& kept_;
  const ChartParts& parts_;
  std::span<const Part> all_;
  const CPTBorderedLayer* rounded_;
  CGRect bounds_;
  std::size_t apartBegin_;
  std::size_t apartEnd_;
};

void KeptPictures::draw(const ChartParts& parts, const CPTBorderedLayer* rounded,
                        const CGRect& bounds, CGContext& context,
                        const std::optional<CGRect>& rect) {
  const Drawing drawing(*this, parts, rounded, bounds);
  const auto all = drawing.all();
  const auto firstDirty = std::find_if(all.begin(), all.end(), std::mem_fn(&Part::needsDisplay));
  const auto firstText = std::find_if(
      all.begin(), all.end(), [](const Part& part) { return part.kind == Part::Kind::text; });
  const auto clean = static_cast<std::size_t>(firstDirty - all.begin());
  // The plot area may be elsewhere or have another size, which changes no plot.
  if (clean == 0) apart_.reset();
  const auto text = static_cast<std::size_t>(firstText - all.begin());

  std::erase_if(lower_, [&](const Picture& picture) {
    const std::size_t count = picture.owners.size();
    return count > all.size() || drawing.notAmidApart(count) != count ||
           !picture.shows(all.first(count));
  });
  if (context.isDrawnOnce()) return drawing.draw(0, all.size(), context, rect);

  std::erase_if(lower_, [&](const Picture& picture) { return !picture.layer->fits(context); });
  const void* const changed = firstDirty == all.end() ? nullptr : firstDirty->owner;
  const bool changedAgain = std::exchange(changed_, changed) == changed;

  // What draws may display the chart again; after an exception nothing is kept.
  std::vector<Picture> pictures = std::exchange(lower_, {});
  // What lies below the change is kept: at once when nothing is, and on top of what is kept when
  // the same part goes on changing. When everything changes the next change will most likely be
  // one above the plots, unless it goes on like that.
  const std::size_t kept = pictures.empty() ? 0 : pictures.back().owners.size();
  const std::size_t wanted =
      clean == 0 && !changedAgain ? text : drawing.notAmidApart(std::min(clean, text));
  // A background alone is drawn in less time than a picture of it.
  const bool worthKeeping = wanted > 1 && wanted > kept && (kept == 0 || changedAgain);
  if (auto layer = worthKeeping ? context.makeLayer(bounds) : nullptr) {
    if (pictures.size() == kMostLowerPictures) pictures.erase(pictures.begin());
    pictures.push_back({std::move(layer), ownersOf(all.first(wanted)), {bounds}});
  }
  if (pictures.empty()) return drawing.draw(0, all.size(), context, rect);
  complete(pictures, rect.value_or(bounds), drawing);
  context.drawLayer(*pictures.back().layer);
  const std::size_t drawn = pictures.back().owners.size();
  lower_ = std::move(pictures);
  drawing.draw(drawn, all.size(), context, rect);
}

/// Draws the rows of the last picture that `rect` meets and that have not been drawn yet.
void KeptPictures::complete(std::span<Picture> pictures, const CGRect& rect,
                            const Drawing& drawing) {
  Picture& picture = pictures.back();
  const auto below = pictures.first(pictures.size() - 1);
  const auto [inside, outside] = split(picture.missing, rect);
  CGContext& context = picture.layer->context();
  for (const CGRect& rows : inside) {
    const CGSavedState state(context);
    context.clip(rows);
    clear(context);
    if (!below.empty()) {
      complete(below, rows, drawing);
      context.drawLayer(*below.back().layer);
    }
    drawing.draw(below.empty() ? 0 : below.back().owners.size(), picture.owners.size(), context,
                 std::nullopt);
  }
  picture.missing = outside;
}

void KeptPictures::drawApart(std::span<const Part> parts, const Drawing& drawing,
                             CGContext& context) {
  if (apart_ && !apart_->shows(parts)) apart_.reset();
  if (apart_ && apart_->layer->fits(context)) return context.drawLayer(*apart_->layer);
  auto layer = context.makeLayer(drawing.bounds());
  CGContext& target = layer ? layer->context() : context;
  for (const Part& part : parts) drawing.draw(part, target, std::nullopt);
  if (!layer) return;
  context.drawLayer(*layer);
  if (!context.isDrawnOnce()) apart_ = Picture{std::move(layer), ownersOf(parts)};
}

}  // namespace vexel
