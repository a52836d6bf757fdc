#include "apps/escuela/PersonName.h"

namespace quorvane {

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string()
                                    : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string FullName(const std::string& first, const std::string& second, const std::string& name) {
  const auto surnames = Trimmed(Trimmed(first) + " " + Trimmed(second));
  const auto given = Trimmed(name);
  return surnames.empty() || given.empty() ? surnames + given : surnames + ", " + given;
}

std::string FullName(const Recordset& rows, std::size_t at) {
  return FullName(rows.Fields(at).Text(), rows.Fields(at + 1).Text(), rows.Fields(at + 2).Text());
}

}  // namespace quorvane
