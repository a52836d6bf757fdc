#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/data/Connection.h"
#include "tests/ventana/ShownGrades.h"

namespace quorvane::test {

/// The grades of one evaluation, final or ordinary, as the school holds them, with the texts that a
/// cell would show.
struct StoredGrades {
  struct Row {
    std::string pending;   ///< as the forms by student know it, by the key of the pending subject
    std::string student;   ///< as the others do: student/subject
    bool ordinary = true;  ///< of the kind whose grades every form reads
    GradeTexts texts;
  };

  /// Reads them on a connection that nobody watches.
  StoredGrades(Connection& connection, bool finals, std::int32_t evaluation);

  std::map<std::string, Row> rows;  ///< by their key in the form's table
};

}  // namespace quorvane::test
