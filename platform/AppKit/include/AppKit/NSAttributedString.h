#pragma once

#include <string>
#include <vector>

#include <AppKit/NSTextAttributes.h>
#include <CoreGraphics/CGText.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Text whose pieces may look different. A value; two are equal when every character is the same
/// and looks the same, in however many pieces it was put together. UTF-8; "\n" ends a line.
class VEXEL_API NSAttributedString {
 public:
  /// A piece of text that looks the same throughout; not empty.
  struct Run {
    /// The characters, UTF-8, and how they look.
    std::string text;
    NSTextAttributes attributes;

    friend bool operator==(const Run&, const Run&) = default;
  };

  /// No text.
  NSAttributedString() = default;
  explicit NSAttributedString(std::string text, NSTextAttributes attributes = {});

  /// Adds text behind the present one; empty text changes nothing.
  void append(std::string text, NSTextAttributes attributes = {});
  void append(const NSAttributedString& other);

  /// The text alone.
  std::string string() const;
  /// Whether there is no text.
  bool isEmpty() const { return runs_.empty(); }
  /// The pieces in order; neighbours look different.
  const std::vector<Run>& runs() const { return runs_; }

  /// What a drawing context draws and measures.
  CGText cgText(CGTextAlignment alignment = CGTextAlignment::left) const;

  friend bool operator==(const NSAttributedString&, const NSAttributedString&) = default;

 private:
  std::vector<Run> runs_;
};

}  // namespace vexel
