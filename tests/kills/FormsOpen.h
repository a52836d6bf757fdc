#pragma once

#include <string>
#include <vector>

#include "apps/escuela/Prng.h"

namespace quorvane::test {

/// What another user sees when he opens the four flows on one pending subject.
struct Opened {
  std::vector<std::string> lines;  ///< all that the program printed
  int shown = 0;                   ///< grade forms that came on the screen
};

/// A pending subject of a school, with all that has to be picked to come to it.
struct Target {
  std::string teaching;
  std::string course;
  std::string section;
  std::string evaluation;
  std::string subject;
  std::string student;
};

/// One that is locked, if there is any. Empty texts in a school without pending subjects.
Target ChooseTarget(const std::string& school, Prng& random);

/// Opens and closes them with the real program, as the first user of the sample school.
Opened OpenForms(const std::string& school, const Target& target);

}  // namespace quorvane::test
