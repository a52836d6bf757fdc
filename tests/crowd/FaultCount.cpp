#include "tests/crowd/FaultCount.h"

#include <cerrno>
#include <new>
#include <sys/mman.h>
#include <system_error>

namespace quorvane::test {

static_assert(std::atomic<int>::is_always_lock_free);

FaultCount::FaultCount() {
  auto* const memory =
      mmap(nullptr, sizeof *count_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
  count_ = new (memory) std::atomic<int>(0);
}

FaultCount::~FaultCount() { munmap(count_, sizeof *count_); }

}  // namespace quorvane::test
