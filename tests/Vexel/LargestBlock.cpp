#include "Vexel/LargestBlock.h"

#include <algorithm>
#include <cstdlib>
#include <new>

std::size_t& vexel::largestBlock() {
  thread_local std::size_t size = 0;
  return size;
}

void* operator new(std::size_t size) {
  vexel::largestBlock() = std::max(vexel::largestBlock(), size);
  if (void* block = std::malloc(size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
