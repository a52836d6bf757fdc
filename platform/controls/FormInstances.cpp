#include "platform/controls/FormInstances.h"

#include <set>
#include <utility>

namespace quorvane {
namespace {

std::set<void (*)()>& Droppers() {
  static std::set<void (*)()> droppers;
  return droppers;
}

}  // namespace

void FormInstances::DropAll() {
  for (auto* drop : std::exchange(Droppers(), {})) drop();
}

void FormInstances::Remember(void (*drop)()) { Droppers().insert(drop); }

}  // namespace quorvane
