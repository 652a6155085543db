#pragma once

#include <csignal>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>

namespace vexel {

/// For death tests: runs `action`, and when it aborts the process, `words` is called and its text
/// written behind the message, so that the test sees what had been done by then.
inline void runWithLastWords(std::function<std::string()> words,
                             const std::function<void()>& action) {
  static std::function<std::string()> lastWords;
  lastWords = std::move(words);
  std::signal(SIGABRT, [](int) { std::fputs(lastWords().c_str(), stderr); });
  action();
}

}  // namespace vexel
