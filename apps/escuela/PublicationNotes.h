#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "apps/escuela/ProcessMark.h"

namespace quorvane {

/// Which running program has which publications: notes of the host's own, a file a program, since
/// the school's tables tell neither the time nor the computer. They lie beside a school in a file,
/// where all who work on it find them; of one on a server, in a folder of the user's own.
///
/// A note only ever says who may have a publication. It is written before the publication is, so
/// whoever reads the publications first and the notes then misses none.
class PublicationNotes {
 public:
  struct Entry {
    std::int32_t publication = 0;
    std::int32_t user = 0;
    std::int64_t since = 0;  ///< seconds of the system's clock

    bool operator==(const Entry&) const = default;
  };
  struct Note {
    ProcessMark process;
    std::string computer;  ///< as people know it
    std::vector<Entry> entries;
  };

  /// The notes whose files begin so, with their folder.
  explicit PublicationNotes(std::string prefix) : prefix_(std::move(prefix)) {}
  /// Those beside a school in that file: beside what a link leads to.
  static PublicationNotes Beside(const std::string& school);

  /// All that can be made sense of; without entries none.
  [[nodiscard]] std::vector<Note> Read() const;
  /// Puts this program's note in the place of its former one; without entries it goes. What can't
  /// be written isn't there: then nobody takes the publication for a dead program's.
  void WriteOwn(const std::vector<Entry>& entries) const;
  /// Strikes a publication out of the notes of programs that are gone: its number is free, and the
  /// next that bears it is another.
  void StrikeOut(std::int32_t publication) const;
  /// Removes a note, whosever it is.
  void Remove(const Note& note) const;

 private:
  [[nodiscard]] std::string PathOf(const Note& note) const;
  void Write(const Note& note) const;

  std::string prefix_;
};

}  // namespace quorvane
