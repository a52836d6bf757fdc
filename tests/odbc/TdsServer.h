#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

#include "tests/support/TempFolder.h"

namespace quorvane::test {

/// A server of SQL Server's protocol on this machine, on an empty database of its own, for
/// FreeTDS's driver to connect to. It ends with the object.
class TdsServer {
 public:
  /// The server ends at once, without an answer, at the batch that holds `diesAt`; empty for none.
  /// `product` is what it calls itself.
  explicit TdsServer(const std::string& diesAt = {},
                     const std::string& product = "Microsoft SQL Server");
  ~TdsServer();
  TdsServer(TdsServer&&) = delete;

  [[nodiscard]] std::string String(const std::string& password = "secreto") const;
  /// The batches that have reached it, each as it came.
  [[nodiscard]] std::vector<std::string> Batches() const;
  /// The file behind it.
  [[nodiscard]] std::string File() const { return folder_ / "centro.sqlite"; }
  /// Ends it, as a machine does that loses its power.
  void Kill();

 private:
  TempFolder folder_;
  pid_t process_ = 0;
  std::string port_;
};

}  // namespace quorvane::test
