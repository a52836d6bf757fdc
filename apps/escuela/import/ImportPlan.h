#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "apps/escuela/import/CsvText.h"
#include "apps/escuela/import/RegisterLookup.h"

namespace quorvane {

/// A pending subject that the register is to take up.
struct ImportedSubject {
  std::size_t line = 0;
  const RegisterLookup::Student* student = nullptr;
  const RegisterLookup::Section* section = nullptr;  ///< of the register
  const RegisterLookup::Subject* subject = nullptr;
  std::vector<std::int32_t> evaluations;
  bool pending = false;  ///< it is, and the student alone is missing on the register
};

/// What a file asks of the register, each line looked up.
struct ImportPlan {
  std::vector<ImportedSubject> subjects;
  /// Of the register of a section: the teacher of a subject.
  std::map<const RegisterLookup::Section*, std::map<std::int32_t, std::int32_t>> teachers;
  std::vector<std::string> lines;     ///< what is done for each line, and what stands already
  std::vector<std::string> misfits;   ///< lines that fit nothing, or several things, with reasons
  std::vector<std::string> warnings;  ///< lines that put a student on a second register
  std::size_t standing = 0;           ///< lines whose subject stands already
};

/// Looks every line up. Its first row names the columns: «alumno» (number, or "Surnames, Name") or
/// «apellidos» and «nombre»; «sección»; «materia» and «curso»; «evaluaciones», all where it is
/// empty; «profesor», which may be missing. Error 0x80004005 in Spanish for a missing column or a
/// file without rows, or with no more than that one. `looked` is told now and then how many rows
/// have been looked up; what it throws comes out.
ImportPlan PlanImport(const std::vector<CsvRow>& rows, const RegisterLookup& school,
                      const std::function<void(std::size_t rows)>& looked = {});

}  // namespace quorvane
