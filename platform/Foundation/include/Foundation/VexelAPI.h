#pragma once

/// Marks what the libraries export; everything else is hidden in them. Classes that are derived
/// from, cast to or caught must be marked as a whole, so that both sides share their type
/// information, and so must what is stored in a marked class.
#define VEXEL_API __attribute__((visibility("default")))
