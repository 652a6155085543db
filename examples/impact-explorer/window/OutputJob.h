#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "ExplorerView.h"

namespace explorer {

/// Makes something of what a view shows, such as a file, in a thread of its own, with a view of its
/// own.
class OutputJob {
 public:
  /// What remains to be done in the thread of the windows.
  using Rest = std::function<void()>;

  struct Task {
    ExplorerView::Shown shown;
    /// Called in the other thread. What it throws that is a std::exception is a complaint.
    std::function<Rest(vexel::NSView&)> make;
  };

  struct Result {
    /// Empty when the task could not be done, or was ended.
    Rest rest;
    /// Why it could not be done; empty otherwise.
    std::string complaint;
  };

  /// `done` is called once, by the event loop of the present thread; not when the job is destroyed
  /// before. It may destroy the job.
  OutputJob(Task task, std::function<void(const Result&)> done);
  /// Ends the task and waits for that.
  ~OutputJob();

  /// Ends the task before the next part of the figure is drawn. What has been drawn by then is made
  /// to its end.
  void cancel() { isCancelled_ = true; }

 private:
  Result perform(const Task& task) const;

  std::atomic<bool> isCancelled_ = false;
  /// Of what the thread says at its end.
  QObject receiver_;
  std::thread thread_;
};

}  // namespace explorer
