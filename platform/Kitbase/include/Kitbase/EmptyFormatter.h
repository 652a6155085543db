#pragma once

#include <Foundation/NSFormatter.h>

namespace vexel {

/// Writes nothing, whatever the value: for axes whose labels stay empty.
class EmptyFormatter : public NSFormatter {
 public:
  std::string string(double) const override { return {}; }
};

}  // namespace vexel
