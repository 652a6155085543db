#include "ShownMarks.h"

#include <algorithm>

namespace vexel {

namespace {

using Part = ChartParts::Part;
using Place = ChartParts::Place;

class ChangedPlaces {
 public:
  void add(const std::vector<Place>& places) {
    for (const Place& place : places) add(place.rect);
  }

  void addDifference(const std::vector<Place>& before, const std::vector<Place>& now) {
    for (std::size_t i = 0; i < std::max(before.size(), now.size()); ++i) {
      const CGRect was = i < before.size() ? before[i].rect : CGRect{};
      const CGRect is = i < now.size() ? now[i].rect : CGRect{};
      const bool looksTheSame = i >= now.size() || !now[i].needsDisplay;
      if (was == is && looksTheSame) continue;
      add(was);
      add(is);
    }
  }

  std::vector<CGRect> rects;

 private:
  void add(const CGRect& rect) {
    if (!rect.isEmpty()) rects.push_back(rect);
  }
};

/// The first of the parts above a mark that are put together apart; null when there are none.
template <class List>
const void* firstApart(const List& parts) {
  const auto isMark = [](const auto& part) { return part.isMark; };
  const auto mark = std::find_if(parts.begin(), parts.end(), isMark);
  const auto above = std::find_if_not(mark, parts.end(), isMark);
  return above == parts.end() ? nullptr : above->owner;
}

}  // namespace

void ShownMarks::note(const std::vector<Part>& parts) {
  parts_.resize(parts.size());
  for (std::size_t i = 0; i < parts.size(); ++i) {
    parts_[i].owner = parts[i].owner;
    parts_[i].isMark = parts[i].isMark;
    parts_[i].places = parts[i].places;
  }
}

std::optional<std::vector<CGRect>> ShownMarks::placesChangedTo(
    const std::vector<Part>& parts) const {
  // What is put together apart has colours that are rounded in another way.
  if (firstApart(parts_) != firstApart(parts)) return std::nullopt;
  ChangedPlaces changed;
  // Parts that were there already, and have not changed, must be in their old order. Those in
  // between, in either list, may come and go where they are marks.
  std::size_t next = 0;
  const auto skipMarksUpTo = [&](std::size_t end) {
    for (; next < end; ++next) {
      if (!parts_[next].isMark) return false;
      changed.add(parts_[next].places);
    }
    return true;
  };
  for (const Part& part : parts) {
    const auto shown = std::find_if(parts_.begin(), parts_.end(),
                                    [&](const Shown& s) { return s.owner == part.owner; });
    const auto place = static_cast<std::size_t>(shown - parts_.begin());
    const bool isNew = shown == parts_.end() || place < next;
    if (!part.isMark) {
      if (isNew || part.needsDisplay || shown->isMark || !skipMarksUpTo(place)) return std::nullopt;
      ++next;
      continue;
    }
    if (isNew) {
      if (part.kind == Part::Kind::text) return std::nullopt;
      changed.add(part.places);
      continue;
    }
    if (!shown->isMark || !skipMarksUpTo(place)) return std::nullopt;
    ++next;
    if (part.needsDisplay) changed.addDifference(shown->places, part.places);
  }
  if (!skipMarksUpTo(parts_.size())) return std::nullopt;
  return std::move(changed.rects);
}

}  // namespace vexel
