#include "apps/escuela/PartialFile.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "apps/escuela/PublishFile.h"
#include "apps/escuela/Refusal.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr const char* kEndings[] = {"", "-journal", "-wal", "-shm"};
constexpr mode_t kOwnerAlone = 0600;

/// The paths of the file that is being written, for a handler that may call little more than the
/// system. Empty for none.
char partialPaths[std::size(kEndings)][PATH_MAX];

void Forget() {
  for (auto& partial : partialPaths) std::fill(std::begin(partial), std::end(partial), '\0');
}

}  // namespace

// Its name is no longer than others, whatever that of the file it is going to be.
PartialFile::PartialFile(const std::string& path)
    : goal_(path),
      path_((fs::path(path).parent_path() / (".parcial-" + std::to_string(std::random_device()())))
                .string()) {
  // What is cut off here is longer than the system takes.
  for (std::size_t i = 0; i < std::size(kEndings); ++i)
    (path_ + kEndings[i]).copy(partialPaths[i], PATH_MAX - 1);
  // Made by us, the file is its owner's alone from its first moment on, and the engine gives its
  // log the same rights.
  const auto handle = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerAlone);
  if (handle < 0) {
    const auto reason = std::generic_category().message(errno);
    Forget();
    RefuseToCreate(path, reason);
  }
  // The user's mask may have taken even his own rights away.
  fchmod(handle, kOwnerAlone);
  close(handle);
}

PartialFile::~PartialFile() {
  RemoveAny();
  Forget();
}

void PartialFile::Publish() const {
  if (const auto reason = PublishFile(path_, goal_); !reason.empty()) RefuseToCreate(goal_, reason);
}

void PartialFile::RemoveAny() noexcept {
  for (const auto& partial : partialPaths)
    if (*partial != '\0') unlink(partial);
}

}  // namespace quorvane
