// Random operations on figures of every kind: memory has to stay flat, and each figure has to look
// like one that is built anew in the same state.
//
//     soak [operations [seed]]

#include <CocoaLumberjack/DDLog.h>
#include <malloc.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "RandomOperations.h"

namespace vexel::soak {
namespace {

constexpr std::size_t kFigures = 4;
constexpr unsigned kCompareOneIn = 400;
constexpr unsigned kReplaceOneIn = 1500;
// Samples of the memory, with no figure alive. The first fifth of the work fills the caches.
constexpr std::uint64_t kSamples = 20;
constexpr std::uint64_t kFirstSample = 4;
constexpr double kMostGrowth = 4;

#ifdef __SANITIZE_ADDRESS__
constexpr bool kMeasuresMemory = false;
#else
constexpr bool kMeasuresMemory = true;
#endif

constexpr double kMebibyte = 1024 * 1024;

double residentMebibytes() {
  std::ifstream file("/proc/self/statm");
  double size = 0, resident = 0;
  file >> size >> resident;
  return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / kMebibyte;
}

double heapMebibytes() {
  return static_cast<double>(::mallinfo2().uordblks) / kMebibyte;
}

void keep(const Picture& picture, const std::string& name) {
  std::ofstream(name, std::ios::binary) << picture.png();
  std::printf("see %s\n", std::filesystem::absolute(name).c_str());
}

class Soak {
 public:
  Soak(std::uint64_t operations, std::uint32_t seed) : operations_(operations), random_(seed) {}

  bool run() {
    for (std::uint64_t i = 1; i <= operations_; ++i) {
      if (figures_.size() < kFigures)
        figures_.push_back(std::make_unique<SoakFigure>(random_.newFigure()));
      auto& figure = figures_[i % figures_.size()];
      random_.step(*figure);
      if (random_.oneIn(kCompareOneIn) && !looksLikeNew(*figure, i)) return false;
      if (random_.oneIn(kReplaceOneIn)) figure = std::make_unique<SoakFigure>(random_.newFigure());
      if (i * kSamples / operations_ != (i - 1) * kSamples / operations_ && !sample(i))
        return false;
    }
    std::printf("%llu operations, %llu figures like new ones\n", ull(operations_), ull(compared_));
    return memoryIsFlat();
  }

 private:
  static unsigned long long ull(std::uint64_t number) { return number; }

  bool looksLikeNew(SoakFigure& figure, std::uint64_t operation) {
    const Picture got = figure.picture();
    const Picture wanted = SoakFigure(figure.state()).picture();
    ++compared_;
    if (got == wanted) return true;
    std::printf("after %llu operations a figure of kind %d looks unlike a new one\n",
                ull(operation), static_cast<int>(figure.state().adoption));
    keep(got, "soak-got.png");
    keep(wanted, "soak-wanted.png");
    keep(difference(got, wanted), "soak-difference.png");
    return false;
  }

  /// Compares all figures, removes them and takes a sample of the memory.
  bool sample(std::uint64_t operation) {
    for (auto& figure : figures_)
      if (!looksLikeNew(*figure, operation)) return false;
    figures_.clear();
    ::malloc_trim(0);
    resident_.push_back(residentMebibytes());
    heap_.push_back(heapMebibytes());
    std::printf("%9llu operations: %.2f MiB resident, %.3f MiB of heap\n", ull(operation),
                resident_.back(), heap_.back());
    std::fflush(stdout);
    return true;
  }

  bool memoryIsFlat() const {
    if (!kMeasuresMemory) return true;
    const double resident = resident_.back() - resident_[kFirstSample - 1];
    const double heap = heap_.back() - heap_[kFirstSample - 1];
    std::printf("growth: %.2f MiB resident, %.3f MiB of heap\n", resident, heap);
    if (resident <= kMostGrowth && heap <= kMostGrowth) return true;
    std::printf("that is more than %.0f MiB\n", kMostGrowth);
    return false;
  }

  std::uint64_t operations_;
  RandomOperations random_;
  std::vector<std::unique_ptr<SoakFigure>> figures_;
  std::vector<double> resident_, heap_;
  std::uint64_t compared_ = 0;
};

std::optional<std::uint32_t> number(const char* text) {
  std::uint32_t value = 0;
  const char* const end = text + std::strlen(text);
  const auto [last, error] = std::from_chars(text, end, value);
  if (error != std::errc() || last != end || value == 0) return std::nullopt;
  return value;
}

}  // namespace
}  // namespace vexel::soak

int main(int argc, char** argv) {
  const auto operations = argc > 1 ? vexel::soak::number(argv[1]) : 20'000u;
  const auto seed = argc > 2 ? vexel::soak::number(argv[2]) : 1u;
  if (argc > 3 || !operations || !seed || *operations < 20) {
    std::fprintf(stderr, "usage: soak [operations, at least 20 [seed]]\n");
    return 2;
  }
  // Markers that are not there are reported.
  vexel::DDLog::setDynamicLevel(vexel::DDLogLevel::off);
  return vexel::soak::Soak(*operations, *seed).run() ? 0 : 1;
}
