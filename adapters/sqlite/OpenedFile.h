#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

struct sqlite3;

namespace quorvane::sqlite {

/// The file that an open database works on: what is written to one that has lost its name is lost
/// to everybody else. It is in its place while it is found, by device and inode, by the path that
/// it was opened by and where it lay then without any links: the engine keeps its journal there.
/// One that can't be looked for isn't in its place, one that comes back is there again, and a
/// database without a file, as in memory, always is.
class OpenedFile {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// Of a database that has just been opened by `path`.
  OpenedFile(sqlite3* database, std::string path);

  /// Looks now. Error 0x80004005, with what has happened and what to do, when it isn't in its
  /// place.
  void Require();

  /// The same before a write, but looks at most once a second and goes by the last look until then:
  /// what is written in the second after the file has gone can go with it.
  void RequireForWrite(Time now);
  /// Whether `RequireForWrite` would pass, for who can't throw.
  [[nodiscard]] bool MayWrite(Time now);

 private:
  enum class Place { Kept, Lost, OfAnother, OfFolder, OutOfReach };
  struct Identity {
    std::uint64_t device;
    std::uint64_t inode;
    bool operator==(const Identity&) const = default;
  };

  enum class Links { Followed, NotFollowed };

  void Look();
  [[nodiscard]] Place PlaceAt(const std::string& path, Links links);
  /// What has happened and what to do; empty for one in its place.
  [[nodiscard]] std::string What() const;
  [[noreturn]] void Refuse() const;

  std::string path_;   ///< as it was given, for the user
  std::string whole_;  ///< the same from the root on; empty for a database without a file
  std::string real_;   ///< without links
  std::optional<Identity> identity_;  ///< none when it had gone as soon as it was open
  Place place_ = Place::Kept;         ///< by the last look
  int reason_ = 0;                    ///< the system's, when out of reach
  Time nextLook_ = Time::min();
};

}  // namespace quorvane::sqlite
