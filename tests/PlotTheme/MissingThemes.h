#pragma once

namespace vexel {

/// While one lives the chart engine has no theme of any name.
class MissingThemes {
 public:
  MissingThemes();
  ~MissingThemes();
  MissingThemes(const MissingThemes&) = delete;
  MissingThemes& operator=(const MissingThemes&) = delete;
};

}  // namespace vexel
