#pragma once

#include <QDialog>
#include <cstdint>
#include <vector>

#include "apps/zendria/FilteredList.h"

namespace quorvane::zendria {

/// Lets the user choose a person: typing narrows the list, Enter or a double click chooses, Esc
/// chooses nobody.
class PersonSearchDialog : public QDialog {
 public:
  /// `kind` names those who are listed, as "Docente".
  PersonSearchDialog(std::vector<FilteredList::Entry> people, const QString& kind,
                     QWidget* parent = nullptr);

  /// Begins with that person, if he is among them.
  void Begin(std::int32_t person) { people_.Choose(person); }

  /// The person's id; 0 unless the dialog was accepted.
  [[nodiscard]] std::int32_t Person() const;

  [[nodiscard]] FilteredList& People() { return people_; }

 private:
  FilteredList people_;
};

}  // namespace quorvane::zendria
