#pragma once

#include <string>

#include "platform/RuntimeError.h"

namespace quorvane {

/// Nobody knows whether what was written is kept: the connection went with the answer.
class OutcomeUnknown : public RuntimeError {
 public:
  explicit OutcomeUnknown(const std::string& text)
      : RuntimeError(ErrorNumber::StatementFailed, text) {}
};

}  // namespace quorvane
