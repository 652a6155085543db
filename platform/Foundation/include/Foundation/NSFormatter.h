#pragma once

#include <string>

#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Turns a number into the text that stands for it, for the labels of an axis.
class VEXEL_API NSFormatter : public virtual NSObject {
 public:
  /// The text for `value`, which may be any double, NaN and the infinities included. UTF-8.
  virtual std::string string(double value) const = 0;
};

}  // namespace vexel
