#pragma once

#include <string>

#include "apps/escuela/history/GradeHistory.h"

namespace quorvane {

struct HistoryOptions {
  std::string order;  ///< activar, desactivar, ver or purgar
  HistoryFilter filter;
  std::string before;  ///< purgar
  bool csv = false;
  bool json = false;
};

/// What is wrong with the options, which takes dates as dd/mm/yyyy too; empty when nothing is.
std::string Complaint(HistoryOptions& options);

/// Switches the history of grades on or off, shows it or shortens it. 0; the engine's errors.
int History(const SchoolAddress& address, const HistoryOptions& options);

}  // namespace quorvane
