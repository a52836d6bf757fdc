#pragma once

#include <string>
#include <vector>

#include "bench/ServerBench.h"

namespace quorvane::bench {

/// Prints the tables of a server; false when a figure is over its limit. `product` names the
/// engine.
bool ReportServer(const std::string& product, const std::vector<ServerRow>& rows,
                  const std::vector<int>& sizes);

}  // namespace quorvane::bench
