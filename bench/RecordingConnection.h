#pragma once

#include <string>

#include "bench/Recorder.h"
#include "platform/data/Recordset.h"

namespace quorvane::bench {

/// An adapter's connection whose statements a recorder, which outlives it, is told of.
template <class Adapter>
class RecordingConnection : public Adapter {
 public:
  RecordingConnection(Recorder& recorder, const std::string& school, const std::string& name)
      : Adapter(school, name), recorder_(recorder) {}

 protected:
  Recordset Run(const std::string& statement) override {
    if (!recorder_.Attends()) return Adapter::Run(statement);
    const Watch watch;
    auto rows = Adapter::Run(statement);
    recorder_.Executed(statement, rows.IsOpen() ? rows.RecordCount() : 0, watch);
    return rows;
  }

 private:
  Recorder& recorder_;
};

}  // namespace quorvane::bench
