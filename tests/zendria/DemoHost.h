#pragma once

#include <QTreeWidget>

#include "apps/zendria/SchoolPlace.h"
#include "apps/zendria/StateDialog.h"
#include "tests/escuela/AnySchool.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {

/// The item whose first column reads so, below another; null for none.
inline QTreeWidgetItem* Child(const QTreeWidgetItem* of, const QString& text) {
  for (int i = 0; of != nullptr && i < of->childCount(); ++i)
    if (of->child(i)->text(0) == text) return of->child(i);
  return nullptr;
}

/// The host before the sample school: in a file or, beside a server, there, where whoever signs in
/// has the rights that docs/servidores.md grants and no more, and is its administrator.
class DemoHost : public HostTest {
 protected:
  DemoHost() {
    if (OnServer()) demo_.Sql("UPDATE Usuario SET Nombre='Zendria' WHERE IDUsuario=1");
  }

  /// The sample school, by the user with that number.
  void OpenDemo(std::int32_t user = 1) {
    ASSERT_TRUE(window_->OpenSchool(
        OnServer() ? zendria::OdbcPlace(QString::fromStdString(ServerString(demo_.Path())))
                   : QString::fromStdString(demo_.Path()),
        user));
  }

  AnySchool demo_;
};

}  // namespace quorvane::test
