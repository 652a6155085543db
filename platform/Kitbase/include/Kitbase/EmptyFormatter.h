#pragma once

#include <Foundation/NSFormatter.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Writes nothing, whatever the value: for axes whose labels stay empty.
class VEXEL_API EmptyFormatter : public NSFormatter {
 public:
  std::string string(double) const override { return {}; }
};

}  // namespace vexel
