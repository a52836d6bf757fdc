#pragma once

#include <cstdint>
#include <string>

namespace quorvane::test {

/// One form of one process, from before its load until the next one. Numbers are the diary's.
struct Session {
  int process = 0;
  std::string form;
  std::int64_t loadedAfter = 0;  ///< it has read nothing older than this
  bool outside = false;          ///< no form, but somebody who removes what one has left
  std::int64_t publishedAt = 0;  ///< by then it had read all; 0 without a publication
  std::string publication;
  std::string evaluation;

  [[nodiscard]] std::string Name() const {
    return form + " del proceso " + std::to_string(process);
  }
};

}  // namespace quorvane::test
