// How often this test program has allocated memory.
#pragma once

#include <cstddef>

namespace Velmar::TestSupport {

/// Calls of operator new since the start of the process, by all threads.
std::size_t allocationCount();

}  // namespace Velmar::TestSupport
