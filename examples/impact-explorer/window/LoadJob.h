#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "Exploration.h"

namespace explorer {

/// Reads a file in a thread of its own.
class LoadJob {
 public:
  struct Result {
    /// Null when the file could not be used, or reading was ended.
    std::shared_ptr<const Exploration> exploration;
    /// Why it could not be used; empty otherwise.
    std::string complaint;
  };

  /// `done` is called once, by the event loop of the present thread; not when the job is destroyed
  /// before. It may destroy the job.
  LoadJob(std::string file, std::optional<std::string> timeName,
          std::function<void(const Result&)> done);
  /// Ends the reading.
  ~LoadJob();

  const std::string& file() const { return file_; }
  /// From 0 to 1.
  double progress() const;
  /// Ends the reading soon.
  void cancel() { isCancelled_ = true; }

 private:
  Result load(const std::optional<std::string>& timeName);

  std::string file_;
  double size_;
  std::atomic<std::uint64_t> bytes_ = 0;
  std::atomic<bool> isCancelled_ = false;
  /// Of what the thread says at its end.
  QObject receiver_;
  std::thread thread_;
};

}  // namespace explorer
