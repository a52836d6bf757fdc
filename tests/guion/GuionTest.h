#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "adapters/guion/host/HostOptions.h"
#include "adapters/guion/host/ModuleEntry.h"
#include "tests/guion/FakeConnection.h"

namespace quorvane::test {

/// Plays scripts against forms of the tests' own: node 1 opens `frmPrueba`, node 2 `frmUno`, all
/// others nothing.
class GuionTest : public testing::Test {
 protected:
  GuionTest();

  /// All lines but the echoes; `status` and `session` are of the last play.
  std::vector<std::string> Play(const std::string& script);
  /// Of a script in `frmPrueba`: what follows its opening. The script leaves it open.
  std::vector<std::string> PlayIn(const std::string& script);

  int status = -1;
  std::shared_ptr<const SessionObject> session;
  guion::HostOptions options;
  guion::ModuleEntry module;
  FakeConnection centro{"centro"};
  FakeConnection borrado{"borrado"};
  FakeConnection entrada{"entrada"};
  FakeConnection otra{""};
  bool echo = false;
};

using Lines = std::vector<std::string>;

}  // namespace quorvane::test
