#pragma once

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

#include <Foundation/VexelAPI.h>

namespace vexel {

/// Memory as from std::malloc, null when there is none. Several megabytes begin on a huge page, and
/// the system is asked for such pages: a first touch of many small ones takes longer than to write
/// them. To be freed with std::free.
VEXEL_API void* allocateLargePages(std::size_t bytes) noexcept;

/// Allocates like that for vectors, which leave new numbers as they are found when they grow
/// without a value.
template <class T>
struct LargePages {
  /// What there is to be memory for.
  using value_type = T;

  LargePages() = default;
  /// Nothing is taken over: all allocators are alike.
  template <class Other>
  LargePages(const LargePages<Other>&) {}

  /// Throws std::bad_alloc when there is no memory.
  T* allocate(std::size_t count) {
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) throw std::bad_alloc();
    void* const memory = allocateLargePages(count * sizeof(T));
    if (!memory) throw std::bad_alloc();
    return static_cast<T*>(memory);
  }
  /// Frees what `allocate` returned.
  void deallocate(T* memory, std::size_t) { std::free(memory); }

  /// Without arguments a number keeps what its memory held.
  template <class Element, class... Arguments>
  void construct(Element* place, Arguments&&... arguments) {
    if constexpr (sizeof...(Arguments) == 0)
      ::new (static_cast<void*>(place)) Element;
    else
      ::new (static_cast<void*>(place)) Element(std::forward<Arguments>(arguments)...);
  }

  /// What one allocated another may free.
  friend bool operator==(const LargePages&, const LargePages&) { return true; }
};

}  // namespace vexel
