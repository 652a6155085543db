#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

#include <CorePlot/CPTColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Colours of records in their order, absent ones among them. It holds each different colour once
/// and four bytes per record. A value; two are equal when their elements are.
class VEXEL_API CPTColorList {
 public:
  /// The place of an absent colour.
  static constexpr std::uint32_t kNoColor = ~std::uint32_t{0};

  CPTColorList() = default;
  /// The same elements in their order.
  CPTColorList(std::initializer_list<std::optional<CPTColor>> colors);
  explicit CPTColorList(std::span<const std::optional<CPTColor>> colors);
  /// For each element the place of its colour in the palette, or kNoColor. Any other number that
  /// is no place in it is a fatal error.
  CPTColorList(std::vector<CPTColor> palette, std::vector<std::uint32_t> places);

  /// Elements, absent ones included.
  std::size_t size() const { return places_.size(); }
  /// Whether there are none.
  bool empty() const { return places_.empty(); }

  /// The element at `index`, which must be below size().
  std::optional<CPTColor> operator[](std::size_t index) const;
  /// Replaces the element at `index`, which must be below size().
  void set(std::size_t index, const std::optional<CPTColor>& color);
  /// A copy of all.
  std::vector<std::optional<CPTColor>> elements() const;
  /// Adds the elements of another list behind the present ones.
  void append(CPTColorList more);

  /// Colours that elements have, maybe more.
  std::span<const CPTColor> palette() const { return palette_; }
  /// For each element the place of its colour in the palette, or kNoColor.
  std::span<const std::uint32_t> places() const { return places_; }

  /// The same elements, whatever the palettes.
  friend bool operator==(const CPTColorList& a, const CPTColorList& b);

 private:
  std::vector<CPTColor> palette_;
  std::vector<std::uint32_t> places_;
};

}  // namespace vexel
