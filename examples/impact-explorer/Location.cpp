#include "Location.h"

#include "Excerpt.h"

namespace explorer {

std::string Location::description() const {
  std::string text = printable(file);
  if (line) text += ":" + std::to_string(*line);
  if (line && column) text += ":" + std::to_string(*column);
  return text;
}

}  // namespace explorer
