#include "Vexel/LargestBlock.h"

#include <algorithm>
#include <cstdlib>
#include <new>

std::size_t& vexel::largestBlock() {
  thread_local std::size_t size = 0;
  return size;
}

std::optional<std::size_t>& vexel::requestsBeforeFailure() {
  thread_local std::optional<std::size_t> requests;
  return requests;
}

void* operator new(std::size_t size) {
  if (auto& left = vexel::requestsBeforeFailure(); left && (*left)-- == 0) {
    left.reset();
    throw std::bad_alloc();
  }
  vexel::largestBlock() = std::max(vexel::largestBlock(), size);
  if (void* block = std::malloc(size)) return block;
  throw std::bad_alloc();
}

// Replaced, too: the address sanitizer's own would not go with the operators below.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
