#pragma once

#include <functional>
#include <string>

#include "platform/data/Connection.h"

namespace quorvane {

/// Makes a school in a file of its own. Its tables are made and `fill` writes the rows, in a file
/// beside it that takes its name once all is written: at no time is there half a school by that
/// name. A file or folder of that name is never touched: that and any failure of the file system is
/// error 0x80004005 with a text in Spanish. After a failure nothing is left. The
/// file is its owner's alone (0600). The path is one of the file system's, whatever it looks like.
/// `goOn` as of `MakeSchool`.
void MakeSchoolFile(const std::string& path, const std::function<void(Connection& school)>& fill,
                    const std::function<void()>& goOn = {});

}  // namespace quorvane
