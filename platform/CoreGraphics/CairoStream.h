#pragma once

#include <cairo.h>

#include <new>
#include <string>

namespace vexel {

/// Takes what Cairo writes into the std::string that `bytes` points to.
inline cairo_status_t appendToString(void* bytes, const unsigned char* data, unsigned int length) {
  try {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::bad_alloc&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

}  // namespace vexel
