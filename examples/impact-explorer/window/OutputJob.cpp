#include "OutputJob.h"

#include <exception>
#include <memory>
#include <new>

namespace explorer {

namespace {

struct OutputEnded {};

/// Shows nothing, and ends the drawing of what lies above it when that is no longer wanted.
class Watch : public vexel::NSView {
 public:
  Watch(vexel::CGRect frame, const std::atomic<bool>& isCancelled)
      : NSView(frame), isCancelled_(isCancelled) {}

  void draw(vexel::CGContext&, vexel::CGRect) override {
    if (isCancelled_) throw OutputEnded();
  }

 private:
  const std::atomic<bool>& isCancelled_;
};

}  // namespace

OutputJob::OutputJob(Task task, std::function<void(const Result&)> done) {
  thread_ = std::thread([this, task = std::move(task), done = std::move(done)] {
    const Result result = perform(task);
    QMetaObject::invokeMethod(&receiver_, [done, result] { done(result); });
  });
}

OutputJob::~OutputJob() {
  cancel();
  thread_.join();
}

OutputJob::Result OutputJob::perform(const Task& task) const {
  try {
    const auto view = std::make_shared<ExplorerView>(task.shown);
    const auto watch = [&] {
      view->addSubview(std::make_shared<Watch>(view->bounds(), isCancelled_));
    };
    const auto figures = view->subviews();
    watch();
    for (const auto& figure : figures) {
      view->addSubview(figure);
      watch();
    }
    return {task.make(*view), ""};
  } catch (const OutputEnded&) {
    return {};
  } catch (const std::bad_alloc&) {
    return {nullptr, "There is not enough memory."};
  } catch (const std::exception& exception) {
    return {nullptr, exception.what()};
  }
}

}  // namespace explorer
