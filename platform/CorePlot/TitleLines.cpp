#include "TitleLines.h"

#include <algorithm>
#include <utility>

namespace vexel {

std::shared_ptr<CPTTextLayer> titleLines(const std::string& text, CPTTextStyle style,
                                         CGFloat width) {
  auto whole = std::make_shared<CPTTextLayer>(text, style);
  if (!(whole->frame().size.width > width)) return whole;

  style.textAlignment = CPTTextAlignment::center;
  const auto fits = [&](const std::string& line) {
    return CPTTextLayer(line, style).frame().size.width <= width;
  };
  std::string lines;
  std::string line;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find_first_of(" \n", start), text.size());
    const std::string word = text.substr(start, end - start);
    std::string longer = line;
    longer += (line.empty() ? "" : " ") + word;
    if (!line.empty() && !fits(longer)) {
      lines += line + "\n";
      longer = word;
    }
    line = std::move(longer);
    if (end < text.size() && text[end] == '\n') {
      lines += line + "\n";
      line.clear();
    }
    start = end + 1;
  }
  return std::make_shared<CPTTextLayer>(lines + line, style);
}

}  // namespace vexel
