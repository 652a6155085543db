#include "LoadJob.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <system_error>

#include "InputError.h"

namespace explorer {

LoadJob::LoadJob(std::string file, std::optional<std::string> timeName,
                 std::function<void(const Result&)> done)
    : file_(std::move(file)) {
  std::error_code ignored;
  const auto size = std::filesystem::file_size(file_, ignored);
  size_ = ignored ? 0 : static_cast<double>(size);
  thread_ = std::thread([this, timeName = std::move(timeName), done = std::move(done)] {
    const Result result = load(timeName);
    QMetaObject::invokeMethod(&receiver_, [done, result] { done(result); });
  });
}

LoadJob::~LoadJob() {
  cancel();
  thread_.join();
}

double LoadJob::progress() const {
  return size_ > 0 ? std::min(1.0, static_cast<double>(bytes_) / size_) : 0;
}

LoadJob::Result LoadJob::load(const std::optional<std::string>& timeName) {
  try {
    const auto watch = [this](std::uint64_t bytes) {
      bytes_ = bytes;
      return !isCancelled_;
    };
    return {std::make_shared<const Exploration>(file_, timeName, watch), ""};
  } catch (const ReadingEnded&) {
    return {};
  } catch (const InputError& error) {
    return {nullptr, error.what()};
  } catch (const std::bad_alloc&) {
    return {nullptr, file_ + ": there is not enough memory for it"};
  }
}

}  // namespace explorer
