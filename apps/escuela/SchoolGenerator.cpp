#include "apps/escuela/SchoolGenerator.h"

#include <algorithm>
#include <string>

#include "apps/escuela/CentreBuilder.h"
#include "apps/escuela/PendingBuilder.h"

namespace quorvane {
namespace {

constexpr std::size_t kStudentsPerSection = 30;
constexpr std::size_t kPercentPending = 25;
// The register keeps the course of a student in 8 bits: with more centres the keys of their six
// courses each would outgrow it. Larger schools get more sections a course instead.
constexpr std::size_t kMostCentres = 40;
constexpr std::size_t kStudentsPerCentre = 16 * kStudentsPerSection;

CentreOptions Shape(int centre, std::size_t students) {
  CentreOptions options;
  options.centre = centre;
  const auto crowd = static_cast<int>((students - 1) / (kMostCentres * kStudentsPerCentre)) + 1;
  options.sections = {{3, 3, 3, 3}, {2, 2}};
  for (auto& courses : options.sections)
    for (auto& sections : courses) sections *= crowd;
  options.studentsPerSection = kStudentsPerSection;
  return options;
}

std::size_t StudentsOf(const CentreOptions& options) {
  std::size_t sections = 0;
  for (const auto& courses : options.sections)
    for (const auto count : courses) sections += static_cast<std::size_t>(count);
  return sections * options.studentsPerSection;
}

// A head of studies without restriction for each centre, and an account for every second teacher.
void AddUsers(RowWriter& rows, int& nextUser, CentreOptions& options) {
  const auto number = std::to_string(options.centre);
  rows.Insert("Usuario", {nextUser++, 0, options.centre == 1, "jefatura" + number, 0});
  options.staffUsers.assign(CentreBuilder::StaffCount(options), 0);
  for (std::size_t i = 0; i < options.staffUsers.size(); i += 2) {
    options.staffUsers[i] = nextUser;
    rows.Insert("Usuario", {nextUser, 0, false, "docente" + std::to_string(nextUser), 1});
    ++nextUser;
  }
}

void AddWindows(RowWriter& rows, const CentreRecord& centre) {
  for (const auto& section : centre.sections) {
    rows.Insert("FechaNotas", {"2024/11/25", "2024/12/20", section.id, evaluation::kFirst});
    rows.Insert("FechaNotas", {"2025/01/08", "2099/12/31", section.id, evaluation::kSecond});
  }
}

}  // namespace

void SchoolGenerator::Build(std::size_t students, std::uint64_t seed, const Progress& progress) {
  RowWriter rows(connection_);
  SchoolKeys keys;
  Prng random(seed);
  CentreBuilder builder(rows, keys, random);
  PendingBuilder pending(rows, keys, random);
  builder.BuildShared();
  auto nextUser = 1;
  std::size_t written = 0;
  for (auto number = 1; written < students; ++number) {
    auto options = Shape(number, students);
    options.students = std::min(students - written, StudentsOf(options));
    AddUsers(rows, nextUser, options);
    const auto centre = builder.Build(options);
    pending.BuildRegister(centre, kPercentPending);
    AddWindows(rows, centre);
    written += options.students;
    progress(written);
  }
}

}  // namespace quorvane
