#include "FileReplacement.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <string>
#include <system_error>

namespace vexel {

namespace {

namespace fs = std::filesystem;

// As many as the system itself follows.
constexpr int kMostLinks = 40;

[[noreturn]] void fail(const fs::path& file, int error) {
  throw fs::filesystem_error("", file, std::error_code(error, std::generic_category()));
}

void writeAll(int descriptor, const fs::path& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) fail(file, errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// Opens what is no plain file; a pipe that nobody reads is an error rather than waited for.
int openSpecial(const fs::path& target) {
  const int descriptor = ::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor >= 0) ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
  return descriptor;
}

/// Lets writing to a pipe that is no longer read fail instead of ending the process.
class WithoutBrokenPipeSignal {
 public:
  WithoutBrokenPipeSignal() {
    ::sigemptyset(&signal_);
    ::sigaddset(&signal_, SIGPIPE);
    sigset_t pending;
    ::sigpending(&pending);
    wasPending_ = ::sigismember(&pending, SIGPIPE) == 1;
    ::pthread_sigmask(SIG_BLOCK, &signal_, &before_);
  }
  ~WithoutBrokenPipeSignal() {
    constexpr timespec kNow{};
    if (!wasPending_) ::sigtimedwait(&signal_, nullptr, &kNow);
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  WithoutBrokenPipeSignal(const WithoutBrokenPipeSignal&) = delete;
  WithoutBrokenPipeSignal& operator=(const WithoutBrokenPipeSignal&) = delete;

 private:
  sigset_t signal_;
  sigset_t before_;
  bool wasPending_;
};

/// Writes and closes, also after a failure.
void writeAndClose(int descriptor, const fs::path& file, std::string_view bytes) {
  try {
    writeAll(descriptor, file, bytes);
  } catch (...) {
    ::close(descriptor);
    throw;
  }
  if (::close(descriptor) != 0) fail(file, errno);
}

/// Where a name leads through links, whether or not something is there.
fs::path withoutLinks(fs::path file) {
  for (int links = 0; fs::is_symlink(fs::symlink_status(file)); ++links) {
    if (links == kMostLinks) fail(file, ELOOP);
    file = file.parent_path() / fs::read_symlink(file);
  }
  return file;
}

/// Creates a file in the folder under a name that nothing had, and tells the name.
int createNew(const fs::path& folder, fs::path& created) {
  for (int number = 0;; ++number) {
    created = folder / (".vexel-" + std::to_string(::getpid()) + "-" + std::to_string(number));
    const int descriptor = ::open(created.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor >= 0 || errno != EEXIST) return descriptor;
  }
}

}  // namespace

void replaceFile(const fs::path& file, std::string_view bytes) {
  const fs::path target = withoutLinks(file);
  const fs::file_status status = fs::status(target);
  if (fs::is_directory(status)) fail(file, EISDIR);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    const int descriptor = openSpecial(target);
    if (descriptor < 0) fail(file, errno);
    const WithoutBrokenPipeSignal withoutSignal;
    writeAndClose(descriptor, file, bytes);
    return;
  }
  // Renaming asks for no permission of what it replaces.
  if (fs::exists(status) && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
    fail(file, errno);

  fs::path temporary;
  const int descriptor = createNew(target.parent_path(), temporary);
  if (descriptor < 0) fail(file, errno);
  try {
    writeAndClose(descriptor, file, bytes);
    if (fs::exists(status)) fs::permissions(temporary, status.permissions());
    fs::rename(temporary, target);
  } catch (...) {
    ::unlink(temporary.c_str());
    throw;
  }
}

}  // namespace vexel
