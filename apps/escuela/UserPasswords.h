#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace quorvane {

/// The passwords that users sign in with to a school in a file: a table of the host's own, made
/// with the first of them and gone with the last, that the module knows nothing of. A school
/// without any lets everybody in as anybody; in one that has some, who has none doesn't come in. On
/// a server the login decides instead, and nothing is kept.
class UserPasswords {
 public:
  static constexpr auto kTable = "ClaveUsuario";
  static constexpr std::size_t kFewestLetters = 8;
  /// Of those who share a name and have passwords, the first so many by their numbers come in: each
  /// costs a comparison, which takes long on purpose.
  static constexpr std::size_t kMostOfOneName = 8;

  struct Account {
    std::int32_t id = 0;
    std::string name;
    bool hasPassword = false;
  };

  /// `school` is open, without a name for the trace, and outlives this.
  explicit UserPasswords(Connection& school) : school_(school) {}

  /// Whether the school is of the kind that keeps passwords.
  [[nodiscard]] bool Kept() const;
  /// Error 0x80004005 where it isn't.
  void RequireKept() const;
  [[nodiscard]] bool Any() const;
  /// What is kept of each user's password, by the user's number; none on a server.
  [[nodiscard]] std::map<std::int32_t, std::string> Hashes() const;
  /// Keeps what another school kept of them, in a school without any. Error 0x80004005 on a server.
  void TakeOver(const std::map<std::int32_t, std::string>& hashes);
  /// All users by their number; a school from elsewhere may not have their names.
  [[nodiscard]] std::vector<Account> List() const;
  /// What is wrong with those that are kept, in Spanish, one each.
  [[nodiscard]] std::vector<std::string> Findings() const;
  /// By number, or by name without regard to the case of its letters; none when nobody is called
  /// so, or more than one.
  [[nodiscard]] std::optional<Account> Find(const std::string& numberOrName) const;

  /// What is wrong with a password, in Spanish; empty for one that will do.
  [[nodiscard]] static std::string Fault(const std::string& password);
  /// Error 0x80004005 on a server, and where the password won't do.
  void Set(std::int32_t user, const std::string& password);
  /// False when the user has none.
  bool Remove(std::int32_t user);

  /// Which of these users of one name has that password; none for nobody. It takes the time of as
  /// many comparisons as `candidates` or `atLeast`, the greater of them, but never of more than
  /// `kMostOfOneName`, whoever they are and whatever they have.
  [[nodiscard]] std::optional<std::int32_t> Owner(const std::vector<std::int32_t>& candidates,
                                                  std::size_t atLeast,
                                                  const std::string& password) const;

 private:
  void Keep(std::int32_t user, const std::string& hash);

  Connection& school_;
};

}  // namespace quorvane
