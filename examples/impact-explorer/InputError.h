#pragma once

#include <stdexcept>
#include <string>

#include "Location.h"

namespace explorer {

/// Input that cannot be used at all: the file, the place where it went wrong if there is one, and
/// what is wrong. `what()` is "<file>[:<line>[:<column>]]: <text>", one line.
class InputError : public std::runtime_error {
 public:
  InputError(Location location, std::string text);

  const Location& location() const { return location_; }
  const std::string& text() const { return text_; }

 private:
  Location location_;
  std::string text_;
};

}  // namespace explorer
