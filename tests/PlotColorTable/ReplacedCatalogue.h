#pragma once

#include <map>
#include <string>
#include <vector>

#include <PlotColorTable/ColorTableCatalogue.h>

namespace vexel {

/// While one lives, the families named by their keys have other tables than the catalogue's, and
/// calls for families are noted. One at a time.
class ReplacedCatalogue {
 public:
  explicit ReplacedCatalogue(std::map<std::string, ColorTableFamily> families = {});
  ~ReplacedCatalogue();
  ReplacedCatalogue(const ReplacedCatalogue&) = delete;
  ReplacedCatalogue& operator=(const ReplacedCatalogue&) = delete;

  /// The keys of the families that were asked for, in order.
  const std::vector<std::string>& askedFor() const { return askedFor_; }

  const ColorTableFamily& family(const std::string& key, const ColorTableFamily& (*present)());

 private:
  std::map<std::string, ColorTableFamily> families_;
  std::vector<std::string> askedFor_;
};

}  // namespace vexel
