#include "PangoText.h"

#include <CocoaLumberjack/DDLog.h>
#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <list>
#include <string>
#include <unordered_map>
#include <utility>

#include "Utf8.h"

namespace vexel {

namespace {

// Of the largest run of a text while it is laid out. Unhinted text looks the same at any size, and
// every size of a font that Pango has not met takes it half a millisecond to look for.
constexpr CGFloat kLayoutSize = 32;
// Pango counts in integers: that much of the size for each byte of a text does not overflow them.
constexpr CGFloat kMostOfAllBytes = 1 << 19;
constexpr CGFloat kMinimumFontSize = 1e-3;
constexpr CGFloat kMaximumFontSize = 4096;
constexpr CGFloat kScriptSize = 0.7;
constexpr CGFloat kSuperscriptRise = 0.4;
constexpr CGFloat kSubscriptRise = -0.2;

struct AttributesRelease {
  void operator()(PangoAttrList* list) const { pango_attr_list_unref(list); }
};
struct OptionsRelease {
  void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};
struct DescriptionRelease {
  void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
};
struct IteratorRelease {
  void operator()(PangoLayoutIter* iterator) const { pango_layout_iter_free(iterator); }
};
struct ContextRelease {
  void operator()(PangoContext* context) const { g_object_unref(context); }
};
using PangoContextHandle = std::unique_ptr<PangoContext, ContextRelease>;

PangoContextHandle makeContext() {
  PangoContextHandle context(pango_font_map_create_context(pango_cairo_font_map_get_default()));
  const std::unique_ptr<cairo_font_options_t, OptionsRelease> options(cairo_font_options_create());
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  pango_cairo_context_set_font_options(context.get(), options.get());
  pango_cairo_context_set_resolution(context.get(), 72);
  pango_context_set_round_glyph_positions(context.get(), FALSE);
  return context;
}

PangoContext* sharedContext() {
  thread_local const PangoContextHandle context = makeContext();
  return context.get();
}

CGFloat usableSize(CGFloat size) {
  return size >= kMinimumFontSize && std::isfinite(size) ? std::min(size, kMaximumFontSize) : 0;
}

CGFloat layoutSize(const CGText& text) {
  std::size_t bytes = 0;
  for (const CGTextRun& run : text.runs) bytes += run.text.size();
  CGFloat size = kLayoutSize;
  while (size * static_cast<CGFloat>(bytes) > kMostOfAllBytes) size /= 2;
  return size;
}

guint16 component(double value) {
  return static_cast<guint16>(std::lround((value > 0 ? std::min(value, 1.0) : 0) * 65535));
}

PangoAlignment alignment(CGTextAlignment alignment) {
  switch (alignment) {
    case CGTextAlignment::center:
      return PANGO_ALIGN_CENTER;
    case CGTextAlignment::right:
      return PANGO_ALIGN_RIGHT;
    case CGTextAlignment::left:
      break;
  }
  return PANGO_ALIGN_LEFT;
}

// The characters of a layout and how each run of them looks.
class StyledText {
 public:
  explicit StyledText(const CGText& text)
      : attributes_(pango_attr_list_new()), lastFont_(pango_font_description_new()) {
    CGFloat largest = 0;
    for (const CGTextRun& run : text.runs) largest = std::max(largest, usableSize(run.font.size));
    scale_ = largest / layoutSize(text);
    for (const CGTextRun& run : text.runs) {
      starts_.push_back(characters_.size());
      colors_.push_back(run.color);
      if (usableSize(run.font.size) > 0) add(run);
    }
    starts_.push_back(characters_.size());
  }

  const std::string& characters() const { return characters_; }
  PangoAttrList* attributes() const { return attributes_.get(); }
  /// Points in a unit of the layout.
  CGFloat scale() const { return scale_; }

  /// The font of an empty last line, which has no characters to carry attributes.
  const PangoFontDescription* lastFont() const { return lastFont_.get(); }

  /// The first byte of each run, and the end of the last one.
  const std::vector<std::size_t>& runStarts() const { return starts_; }
  const CGColor& colorAt(std::size_t byte) const {
    return colors_[static_cast<std::size_t>(std::ranges::upper_bound(starts_, byte) -
                                            starts_.begin() - 1)];
  }

 private:
  void add(const CGTextRun& run) {
    const std::size_t start = characters_.size();
    characters_ += validUtf8(run.text);
    const auto apply = [&](PangoAttribute* attribute) {
      attribute->start_index = static_cast<guint>(start);
      attribute->end_index = static_cast<guint>(characters_.size());
      pango_attr_list_insert(attributes_.get(), attribute);
    };
    const auto units = [&](CGFloat points) {
      return static_cast<int>(std::lround(points / scale_ * PANGO_SCALE));
    };
    const std::string family = validUtf8(run.font.family);
    pango_font_description_set_family(lastFont_.get(), family.c_str());
    pango_font_description_set_absolute_size(lastFont_.get(), units(usableSize(run.font.size)));
    apply(pango_attr_family_new(family.c_str()));
    apply(pango_attr_size_new_absolute(units(drawnFontSize(run))));
    if (run.superscript != 0) apply(pango_attr_rise_new(units(baselineRise(run))));
    apply(pango_attr_weight_new(run.font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL));
    apply(pango_attr_style_new(run.font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL));
    apply(pango_attr_foreground_new(component(run.color.red()), component(run.color.green()),
                                    component(run.color.blue())));
    // Pango takes an alpha of 0 for none given.
    apply(pango_attr_foreground_alpha_new(std::max<guint16>(1, component(run.color.alpha()))));
  }

  std::string characters_;
  std::vector<std::size_t> starts_;
  std::vector<CGColor> colors_;
  CGFloat scale_;
  std::unique_ptr<PangoAttrList, AttributesRelease> attributes_;
  std::unique_ptr<PangoFontDescription, DescriptionRelease> lastFont_;
};

bool isEmpty(const FcFontSet* fonts) {
  return !fonts || fonts->nfont == 0;
}

/// Says once, in each thread that draws text, that there are no fonts at all.
void reportMissingFonts() {
  thread_local bool wasAsked = false;
  if (std::exchange(wasAsked, true)) return;
  if (!isEmpty(FcConfigGetFonts(nullptr, FcSetSystem)) ||
      !isEmpty(FcConfigGetFonts(nullptr, FcSetApplication)))
    return;
  ddLog(DDLogFlag::error,
        [] { return "PangoText.layout: fontconfig knows no fonts, so text is drawn as boxes"; });
}

/// Pango leaves these offsets of runs that have no font as they were in memory.
void clearOffsetsWithoutFont(PangoLayout* layout) {
  bool hasCleared = false;
  for (const GSList* line = pango_layout_get_lines_readonly(layout); line; line = line->next)
    for (const GSList* r = static_cast<PangoLayoutLine*>(line->data)->runs; r; r = r->next) {
      auto* const run = static_cast<PangoLayoutRun*>(r->data);
      if (run->item->analysis.font) continue;
      run->y_offset = run->start_x_offset = run->end_x_offset = 0;
      hasCleared = true;
    }
  // Pango forgets what it has measured when it lends lines to be changed.
  if (hasCleared) pango_layout_get_lines(layout);
}

CGFloat points(int units, CGFloat scale) {
  return units * scale / PANGO_SCALE;
}

std::vector<PlacedGlyph> placedGlyphs(PangoLayout* layout, const StyledText& text) {
  std::vector<PlacedGlyph> result;
  const std::unique_ptr<PangoLayoutIter, IteratorRelease> iterator(pango_layout_get_iter(layout));
  do {
    const PangoGlyphItem* run = pango_layout_iter_get_run_readonly(iterator.get());
    // The end of each line is a run without glyphs.
    if (!run) continue;
    PangoRectangle logical;
    pango_layout_iter_get_run_extents(iterator.get(), nullptr, &logical);
    const int baseline = pango_layout_iter_get_run_baseline(iterator.get());
    const CGColor color = text.colorAt(static_cast<std::size_t>(run->item->offset));
    int pen = logical.x;
    for (int i = 0; i < run->glyphs->num_glyphs; ++i) {
      const PangoGlyphInfo& glyph = run->glyphs->glyphs[i];
      const auto& geometry = glyph.geometry;
      if (glyph.glyph != PANGO_GLYPH_EMPTY)
        result.push_back({run->item->analysis.font,
                          glyph.glyph,
                          {points(pen + geometry.x_offset, text.scale()),
                           points(baseline + geometry.y_offset, text.scale())},
                          color});
      pen += geometry.width;
    }
  } while (pango_layout_iter_next_run(iterator.get()));
  return result;
}

// Equal texts, and only those, have equal keys.
std::string key(const CGText& text) {
  std::string result;
  const auto add = [&](const auto& value) {
    result.append(reinterpret_cast<const char*>(&value), sizeof(value));
  };
  const auto addString = [&](const std::string& string) {
    add(string.size());
    result += string;
  };
  add(text.alignment);
  for (const CGTextRun& run : text.runs) {
    addString(run.text);
    addString(run.font.family);
    add(run.font.size);
    add(run.font.bold);
    add(run.font.italic);
    add(run.superscript);
    for (const double c : {run.color.red(), run.color.green(), run.color.blue(), run.color.alpha()})
      add(c);
  }
  return result;
}

// The layouts used last, most recent first.
class LayoutCache {
 public:
  std::shared_ptr<const PangoText> find(const CGText& text) {
    std::string k = key(text);
    if (k.size() > kMaximumKey) return std::make_shared<PangoText>(text);
    if (const auto known = places_.find(k); known != places_.end()) {
      entries_.splice(entries_.begin(), entries_, known->second);
      return entries_.front().layout;
    }
    entries_.push_front({k, std::make_shared<PangoText>(text)});
    places_.emplace(std::move(k), entries_.begin());
    if (entries_.size() > kMaximumEntries) {
      places_.erase(entries_.back().key);
      entries_.pop_back();
    }
    return entries_.front().layout;
  }

 private:
  static constexpr std::size_t kMaximumEntries = 512;
  static constexpr std::size_t kMaximumKey = 4096;

  struct Entry {
    std::string key;
    std::shared_ptr<const PangoText> layout;
  };

  std::list<Entry> entries_;
  std::unordered_map<std::string, std::list<Entry>::iterator> places_;
};

class SharedTextMeasure : public CGTextMeasure {
 public:
  CGSize measure(const CGText& text) override { return PangoText::layout(text)->size(); }
};

}  // namespace

CGFloat drawnFontSize(const CGTextRun& run) {
  const CGFloat size = usableSize(run.font.size);
  return run.superscript == 0 ? size : size * kScriptSize;
}

CGFloat baselineRise(const CGTextRun& run) {
  if (run.superscript == 0) return 0;
  return usableSize(run.font.size) * (run.superscript > 0 ? kSuperscriptRise : kSubscriptRise);
}

PangoText::PangoText(const CGText& text) {
  const StyledText styled(text);
  runStarts_ = styled.runStarts();
  scale_ = styled.scale();
  if (styled.characters().empty()) return;
  layout_.reset(pango_layout_new(sharedContext()));
  pango_layout_set_text(layout_.get(), styled.characters().data(),
                        static_cast<int>(styled.characters().size()));
  pango_layout_set_font_description(layout_.get(), styled.lastFont());
  pango_layout_set_attributes(layout_.get(), styled.attributes());
  pango_layout_set_alignment(layout_.get(), alignment(text.alignment));
  clearOffsetsWithoutFont(layout_.get());
  PangoRectangle logical;
  pango_layout_get_extents(layout_.get(), nullptr, &logical);
  size_ = {points(logical.width, scale_), points(logical.height, scale_)};
  glyphs_ = placedGlyphs(layout_.get(), styled);
  hasOutlines_ = std::ranges::none_of(
      glyphs_, [](const PlacedGlyph& g) { return (g.index & PANGO_GLYPH_UNKNOWN_FLAG) != 0; });
  if (!hasOutlines_) reportMissingFonts();
}

void PangoText::show(cairo_t* context) const {
  if (!layout_) return;
  cairo_scale(context, scale_, scale_);
  cairo_move_to(context, 0, 0);
  pango_cairo_show_layout(context, layout_.get());
}

std::vector<TextLine> PangoText::lines() const {
  std::vector<TextLine> result;
  if (!layout_) return result;
  const std::string_view characters = pango_layout_get_text(layout_.get());
  const std::unique_ptr<PangoLayoutIter, IteratorRelease> iterator(
      pango_layout_get_iter(layout_.get()));
  do {
    const PangoLayoutLine* line = pango_layout_iter_get_line_readonly(iterator.get());
    PangoRectangle logical;
    pango_layout_iter_get_line_extents(iterator.get(), nullptr, &logical);
    TextLine& added =
        result.emplace_back(TextLine{points(logical.x, scale_) + points(logical.width, scale_) / 2,
                                     points(pango_layout_iter_get_baseline(iterator.get()), scale_),
                                     line->resolved_dir == PANGO_DIRECTION_RTL,
                                     {}});
    const auto begin = static_cast<std::size_t>(line->start_index);
    const std::size_t end = begin + static_cast<std::size_t>(line->length);
    for (std::size_t run = 0; run + 1 < runStarts_.size(); ++run) {
      const std::size_t from = std::max(begin, runStarts_[run]);
      const std::size_t to = std::min(end, runStarts_[run + 1]);
      if (from < to) added.pieces.push_back({characters.substr(from, to - from), run});
    }
  } while (pango_layout_iter_next_line(iterator.get()));
  return result;
}

std::shared_ptr<const PangoText> PangoText::layout(const CGText& text) {
  thread_local LayoutCache cache;
  return cache.find(text);
}

CGTextMeasure& sharedTextMeasure() {
  thread_local SharedTextMeasure measure;
  return measure;
}

}  // namespace vexel
