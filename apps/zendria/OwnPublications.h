#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/escuela/PublicationNotes.h"

namespace quorvane::zendria {

/// Notes which publications this program has open, as its statements go by. A screen has one at a
/// time; one whose screen ended badly stays noted until the program ends, for it stays in the
/// school too.
class OwnPublications {
 public:
  /// `notes` are the school's.
  explicit OwnPublications(PublicationNotes notes) : notes_(std::move(notes)) {}

  /// Who works from now on.
  void User(std::int32_t user) noexcept { user_ = user; }

  /// A statement that is about to reach the school.
  void Told(const std::string& statement);
  /// The screen that was open has gone, in order or not.
  void Ended(bool failed);
  /// The screen that is open has that publication.
  [[nodiscard]] bool IsOpen(std::int32_t publication) const noexcept {
    return current_ && current_->publication == publication;
  }
  /// The user has removed that publication from the school.
  void Removed(std::int32_t publication);

 private:
  void Note() const;

  PublicationNotes notes_;
  std::int32_t user_ = 0;
  std::vector<PublicationNotes::Entry> left_;
  std::optional<PublicationNotes::Entry> current_;
  bool deleting_ = false;  // the statement that deletes it hasn't returned yet
};

}  // namespace quorvane::zendria
