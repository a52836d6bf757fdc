#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "tests/qt/ScreenTest.h"
#include "tests/support/TestSchool.h"

namespace quorvane::test {

/// The module's own screens on the sample school.
class SchoolScreenTest : public ScreenTest {
 public:
  SchoolScreenTest();
  ~SchoolScreenTest() override;
  SchoolScreenTest(const SchoolScreenTest&) = delete;
  SchoolScreenTest& operator=(const SchoolScreenTest&) = delete;
  SchoolScreenTest(SchoolScreenTest&&) = delete;
  SchoolScreenTest& operator=(SchoolScreenTest&&) = delete;

 protected:
  /// The user opens a node of the tree; comes back when its screens have gone.
  void OpenNode(std::uint8_t node);

  /// Run at each statement that saves grades.
  void Saving(std::function<void()> look) { saving_ = std::move(look); }

  TestSchool school;
  std::int32_t teacher = 0;  ///< whom the person search finds

 private:
  sqlite::SqliteConnection centro_;
  sqlite::SqliteConnection borrado_;
  sqlite::SqliteConnection entrada_;
  std::function<void()> saving_;
};

}  // namespace quorvane::test
