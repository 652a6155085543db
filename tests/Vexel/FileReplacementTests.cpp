#include "FileReplacement.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <thread>

#include "Vexel/OutputFolder.h"

namespace vexel {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// Takes the rights of an ordinary user from a test that runs as root.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const fs::path& folder) {
    if (::geteuid() != 0) return;
    constexpr uid_t kNobody = 65534;
    isRoot_ = ::chown(folder.c_str(), kNobody, static_cast<gid_t>(-1)) == 0;
    if (isRoot_ && ::seteuid(kNobody) != 0) throw std::runtime_error("no change of user");
  }
  ~OrdinaryUser() {
    if (isRoot_ && ::seteuid(0) != 0) std::abort();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  bool isRoot_ = false;
};

/// Lets files grow to so many bytes and no further, as on a full disk.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~SmallDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  rlimit before_;
  void (*handler_)(int);
};

class FileReplacement : public testing::Test {
 protected:
  /// Tries to replace the file `name`; the error, or none.
  std::error_code replace(const std::string& name, std::string_view bytes) {
    try {
      replaceFile(folder / name, bytes);
      return {};
    } catch (const fs::filesystem_error& error) {
      return error.code();
    }
  }

  OutputFolder folder;
};

TEST_F(FileReplacement, MakesAFileOfExactlyTheBytes) {
  using namespace std::string_literals;
  for (const std::string& bytes : {""s, "\0a\r\n\xff"s, std::string(1 << 20, 'x')}) {
    replaceFile(folder / "file", bytes);
    EXPECT_EQ(folder.read("file"), bytes);
  }
  EXPECT_THAT(folder.names(), ElementsAre("file"));
}

TEST_F(FileReplacement, PutsAnotherFileInPlaceOfTheFormer) {
  folder.write("file", "a longer old content");
  fs::create_hard_link(folder / "file", folder / "kept");
  replaceFile(folder / "file", "new");
  EXPECT_EQ(folder.read("file"), "new");
  EXPECT_EQ(folder.read("kept"), "a longer old content");
  EXPECT_THAT(folder.names(), ElementsAre("file", "kept"));
}

TEST_F(FileReplacement, KeepsThePermissionsOfTheFormerFile) {
  folder.write("file", "old");
  fs::permissions(folder / "file", fs::perms(0640));
  replaceFile(folder / "file", "new");
  EXPECT_EQ(fs::status(folder / "file").permissions(), fs::perms(0640));
}

TEST_F(FileReplacement, GivesANewFileThePermissionsOfAnyNewFile) {
  const mode_t before = ::umask(027);
  replaceFile(folder / "file", "new");
  ::umask(before);
  EXPECT_EQ(fs::status(folder / "file").permissions(), fs::perms(0640));
}

TEST_F(FileReplacement, LeavesOtherFilesAloneWhateverTheirNames) {
  replaceFile(folder / "file", "old");
  const std::string taken = ".vexel-" + std::to_string(::getpid()) + "-";
  folder.write(taken + "0", "somebody's");
  fs::create_directory(folder / (taken + "1"));
  fs::create_symlink("somewhere", folder / (taken + "2"));
  replaceFile(folder / "file", "new");
  EXPECT_EQ(folder.read("file"), "new");
  EXPECT_EQ(folder.read(taken + "0"), "somebody's");
  EXPECT_THAT(folder.names(), ElementsAre(taken + "0", taken + "1", taken + "2", "file"));
}

TEST_F(FileReplacement, TakesTheLongestNames) {
  const std::string name(255, 'n');
  EXPECT_EQ(replace(name, "new"), std::error_code());
  EXPECT_EQ(folder.read(name), "new");
  EXPECT_TRUE(replace(std::string(256, 'n'), "new"));
  EXPECT_THAT(folder.names(), ElementsAre(name));
}

TEST_F(FileReplacement, FindsAFileOfTheWorkingFolder) {
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  replaceFile("file", "new");
  fs::current_path(before);
  EXPECT_EQ(folder.read("file"), "new");
}

TEST_F(FileReplacement, FollowsLinks) {
  fs::create_directory(folder / "sub");
  folder.write("sub/file", "old");
  fs::create_symlink("sub/file", folder / "relative");
  fs::create_symlink(folder / "relative", folder / "absolute");
  replaceFile(folder / "absolute", "new");
  EXPECT_EQ(folder.read("sub/file"), "new");
  EXPECT_TRUE(fs::is_symlink(folder / "absolute"));
  EXPECT_TRUE(fs::is_symlink(folder / "relative"));
  EXPECT_THAT(folder.names(), ElementsAre("absolute", "relative", "sub"));
}

TEST_F(FileReplacement, MakesTheFileThatALinkLeadsTo) {
  fs::create_symlink("missing", folder / "link");
  replaceFile(folder / "link", "new");
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(folder.read("missing"), "new");
}

TEST_F(FileReplacement, RefusesLinksThatLeadNowhere) {
  fs::create_symlink("b", folder / "a");
  fs::create_symlink("a", folder / "b");
  fs::create_symlink("no folder/file", folder / "c");
  EXPECT_EQ(replace("a", "new"), std::errc::too_many_symbolic_link_levels);
  EXPECT_EQ(replace("c", "new"), std::errc::no_such_file_or_directory);
  EXPECT_THAT(folder.names(), ElementsAre("a", "b", "c"));
}

TEST_F(FileReplacement, RefusesAFolder) {
  fs::create_directory(folder / "sub");
  fs::create_symlink("sub", folder / "link");
  EXPECT_EQ(replace("sub", "new"), std::errc::is_a_directory);
  EXPECT_EQ(replace("link", "new"), std::errc::is_a_directory);
  EXPECT_THAT(folder.names(), ElementsAre("link", "sub"));
  EXPECT_TRUE(fs::is_empty(folder / "sub"));
}

TEST_F(FileReplacement, RefusesAMissingFolder) {
  folder.write("plain", "old");
  EXPECT_EQ(replace("missing/file", "new"), std::errc::no_such_file_or_directory);
  EXPECT_EQ(replace("plain/file", "new"), std::errc::not_a_directory);
  EXPECT_EQ(folder.read("plain"), "old");
  EXPECT_THAT(folder.names(), ElementsAre("plain"));
}

TEST_F(FileReplacement, RefusesAFolderThatMayNotBeWrittenTo) {
  folder.write("file", "old");
  fs::permissions(folder / "file", fs::perms(0666));
  const OrdinaryUser user(folder.path());
  fs::permissions(folder.path(), fs::perms(0555));
  EXPECT_EQ(replace("file", "new"), std::errc::permission_denied);
  EXPECT_EQ(replace("other", "new"), std::errc::permission_denied);
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(folder.read("file"), "old");
  EXPECT_THAT(folder.names(), ElementsAre("file"));
}

TEST_F(FileReplacement, RefusesAFileThatMayNotBeWrittenTo) {
  const OrdinaryUser user(folder.path());
  folder.write("file", "old");
  fs::permissions(folder / "file", fs::perms(0444));
  EXPECT_EQ(replace("file", "new"), std::errc::permission_denied);
  EXPECT_EQ(folder.read("file"), "old");
  EXPECT_THAT(folder.names(), ElementsAre("file"));
}

TEST_F(FileReplacement, LeavesTheFormerFileWholeWhenTheDiskIsFull) {
  folder.write("file", "old");
  {
    const SmallDisk disk(1000);
    EXPECT_EQ(replace("file", std::string(100000, 'x')), std::errc::file_too_large);
    EXPECT_EQ(replace("other", std::string(100000, 'x')), std::errc::file_too_large);
  }
  EXPECT_EQ(folder.read("file"), "old");
  EXPECT_THAT(folder.names(), ElementsAre("file"));
}

TEST_F(FileReplacement, ReportsADeviceThatIsFull) {
  fs::create_symlink("/dev/full", folder / "link");
  EXPECT_EQ(replace("link", "new"), std::errc::no_space_on_device);
  EXPECT_THAT(folder.names(), ElementsAre("link"));
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(FileReplacement, WritesToAPipe) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  const int reader = ::open((folder / "pipe").c_str(), O_RDWR | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  replaceFile(folder / "pipe", "through the pipe");
  char bytes[100];
  const ssize_t count = ::read(reader, bytes, sizeof bytes);
  ::close(reader);
  ASSERT_GE(count, 0);
  EXPECT_EQ(std::string(bytes, static_cast<std::size_t>(count)), "through the pipe");
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
  EXPECT_THAT(folder.names(), ElementsAre("pipe"));
}

TEST_F(FileReplacement, RefusesAPipeThatNobodyReads) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(replace("pipe", "new"), std::errc::no_such_device_or_address);
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
  EXPECT_THAT(folder.names(), ElementsAre("pipe"));
}

/// A pipe, and what somebody does with its open end for reading when something has arrived there.
class ReadPipe {
 public:
  ReadPipe(const fs::path& pipe, std::function<void(int)> read) {
    if (::mkfifo(pipe.c_str(), 0600) != 0) throw std::runtime_error("no pipe");
    const int end = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    if (end < 0) throw std::runtime_error("no end of the pipe");
    reader_ = std::thread([end, read = std::move(read)] {
      pollfd arrived{end, POLLIN, 0};
      ::poll(&arrived, 1, -1);
      ::fcntl(end, F_SETFL, 0);
      read(end);
      ::close(end);
    });
  }
  ~ReadPipe() { wait(); }
  void wait() {
    if (reader_.joinable()) reader_.join();
  }

 private:
  std::thread reader_;
};

TEST_F(FileReplacement, WaitsForTheReaderOfAPipe) {
  std::string got;
  ReadPipe pipe(folder / "pipe", [&](int end) {
    char bytes[1000];
    while (const ssize_t count = ::read(end, bytes, sizeof bytes)) {
      ASSERT_GT(count, 0);
      got.append(bytes, static_cast<std::size_t>(count));
    }
  });
  const std::string sent(1 << 20, 'x');
  EXPECT_EQ(replace("pipe", sent), std::error_code());
  pipe.wait();
  EXPECT_TRUE(got == sent);
}

TEST_F(FileReplacement, ReportsAPipeWhoseReaderLeaves) {
  const ReadPipe pipe(folder / "pipe", [](int end) {
    char byte;
    EXPECT_EQ(::read(end, &byte, 1), 1);
  });
  EXPECT_EQ(replace("pipe", std::string(1 << 20, 'x')), std::errc::broken_pipe);
  sigset_t pending;
  ::sigpending(&pending);
  EXPECT_EQ(::sigismember(&pending, SIGPIPE), 0);
  EXPECT_THAT(folder.names(), ElementsAre("pipe"));
}

}  // namespace
}  // namespace vexel
