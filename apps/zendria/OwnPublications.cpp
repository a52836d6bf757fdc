#include "apps/zendria/OwnPublications.h"

#include <QRegularExpression>
#include <QString>
#include <ctime>

namespace quorvane::zendria {
namespace {

QRegularExpression CaseBlind(const char* form) {
  return QRegularExpression(form, QRegularExpression::CaseInsensitiveOption);
}

/// The number in a statement of that form; none for another statement.
std::optional<std::int32_t> NumberIn(const QRegularExpression& form, const std::string& statement) {
  const auto match = form.match(QString::fromStdString(statement));
  if (!match.hasMatch()) return std::nullopt;
  return match.captured(1).toInt();
}

/// Of all statements few are looked at more closely.
bool MayConcern(const std::string& statement) {
  return statement.starts_with("INSERT") || statement.starts_with("DELETE");
}

}  // namespace

void OwnPublications::Told(const std::string& statement) {
  if (deleting_) {
    deleting_ = false;
    current_.reset();
    Note();
  }
  if (!MayConcern(statement)) return;
  static const auto made = CaseBlind(R"(^INSERT INTO PublicacionPte\s+VALUES \((\d+),)");
  static const auto ended =
      CaseBlind(R"(^DELETE FROM PublicacionPte WHERE IDPublicacionPte=(\d+)$)");
  if (const auto number = NumberIn(made, statement)) {
    current_ = PublicationNotes::Entry{*number, user_, std::time(nullptr)};
    Note();
  }
  const auto gone = NumberIn(ended, statement);
  deleting_ = gone && current_ && current_->publication == *gone;
}

void OwnPublications::Ended(bool failed) {
  deleting_ = false;
  if (!current_) return;
  if (failed) left_.push_back(*current_);
  current_.reset();
  if (!failed) Note();
}

void OwnPublications::Removed(std::int32_t publication) {
  if (std::erase_if(
          left_, [publication](const auto& entry) { return entry.publication == publication; }) > 0)
    Note();
}

void OwnPublications::Note() const {
  auto entries = left_;
  if (current_) entries.push_back(*current_);
  notes_.WriteOwn(entries);
}

}  // namespace quorvane::zendria
