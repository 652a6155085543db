#include "InputError.h"

#include <utility>

namespace explorer {

InputError::InputError(Location location, std::string text)
    : std::runtime_error(location.description() + ": " + text),
      location_(std::move(location)),
      text_(std::move(text)) {}

}  // namespace explorer
