#pragma once

#include <QIcon>
#include <string>

namespace quorvane::qt {

/// The pictures that forms and buttons name by file.
class IconStore {
 public:
  /// The picture in that file, whose folders may be parted by backslashes; when it can't be read,
  /// the project's own drawing of the same base name. Empty when there is neither.
  static QIcon Load(const std::string& file);

  /// What a button without caption and picture shows, by the name of the control; mostly nothing.
  static QIcon ForBareButton(const std::string& control);
};

}  // namespace quorvane::qt
