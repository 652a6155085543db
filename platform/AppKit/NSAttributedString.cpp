#include <AppKit/NSAttributedString.h>

#include <utility>

namespace vexel {

NSAttributedString::NSAttributedString(std::string text, NSTextAttributes attributes) {
  append(std::move(text), std::move(attributes));
}

void NSAttributedString::append(std::string text, NSTextAttributes attributes) {
  if (text.empty()) return;
  if (!runs_.empty() && runs_.back().attributes == attributes)
    runs_.back().text += text;
  else
    runs_.push_back({std::move(text), std::move(attributes)});
}

void NSAttributedString::append(const NSAttributedString& other) {
  const auto added = other.runs_;
  for (const auto& run : added) append(run.text, run.attributes);
}

std::string NSAttributedString::string() const {
  std::string text;
  for (const auto& run : runs_) text += run.text;
  return text;
}

CGText NSAttributedString::cgText(CGTextAlignment alignment) const {
  CGText text{.runs = {}, .alignment = alignment};
  for (const auto& [characters, look] : runs_)
    text.runs.push_back({.text = characters,
                         .font = {look.fontName, look.fontSize, look.bold, look.italic},
                         .color = look.color.cgColor(),
                         .superscript = look.superscript});
  return text;
}

}  // namespace vexel
