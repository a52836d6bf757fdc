#pragma once

#include <string>
#include <vector>

namespace quorvane::test {

/// The statements by which docs/servidores.md has the owner of a school on PostgreSQL grant what
/// the programs need, and no more.
std::vector<std::string> ServerRights();

}  // namespace quorvane::test
