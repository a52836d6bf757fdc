// The register's import from the desktop: that it shows how far it is, and that whoever stops it
// leaves nothing behind.

#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

#include "apps/zendria/ImportDialog.h"
#include "tests/zendria/DemoHost.h"

namespace quorvane::test {
namespace {

class ImportDialogTest : public DemoHost {
 protected:
  [[nodiscard]] QString Register() const {
    return MakeFile("registro.csv",
                    "alumno;sección;materia;curso;evaluaciones\n"
                    "32;3º ESO A;Matemáticas;2º ESO B;todas\n"
                    "32;3º ESO A;Música;2º ESO B;todas\n"
                    "36;3º ESO B;Matemáticas;2º ESO B;todas\n"
                    "39;3º ESO B;Música;2º ESO B;todas\n");
  }
  /// All that an import may touch.
  [[nodiscard]] std::vector<int> Counts() const {
    std::vector<int> counts;
    for (const std::string table : {"Seccion_AlumnoPte", "AlumnoPte_MatDet", "EvaluacionPte",
                                    "EvaluacionActaPte", "Profesor_Pte", "BloqueoPte"})
      counts.push_back(demo_.Number("SELECT COUNT(*) FROM " + table));
    return counts;
  }
  static QProgressDialog* Bar() {
    for (auto* const widget : QApplication::topLevelWidgets())
      if (auto* const bar = qobject_cast<QProgressDialog*>(widget);
          bar != nullptr && bar->isVisible())
        return bar;
    return nullptr;
  }
  /// Notes how far the bar is each time that it lets the program look, and presses its button
  /// there.
  struct Watch {
    explicit Watch(int stopAt) {
      QObject::connect(&look, &QTimer::timeout, &look, [this, stopAt] {
        auto* const bar = Bar();
        if (bar == nullptr) return;
        seen.push_back(bar->value());
        if (bar->value() >= stopAt) bar->findChild<QPushButton*>()->click();
      });
      look.start(0);
    }
    QTimer look;
    std::vector<int> seen{};
  };
  static constexpr auto kNever = 1000000;
};

TEST_F(ImportDialogTest, InAFileAndOnAServerWhatIsStoppedHalfWayIsAsItWas) {
  OpenDemo();
  const auto before = Counts();
  InDialog<zendria::ImportDialog>("importarRegistro", "importar", [&](auto& dialog) {
    dialog.Choose(Register());
    EXPECT_TRUE(dialog.ImportButton().isEnabled()) << dialog.Notice().text().toStdString();
    dialog.patience = std::chrono::milliseconds(0);
    {
      Watch watch(600);
      dialog.ImportButton().click();
      ASSERT_FALSE(watch.seen.empty());
      EXPECT_GE(watch.seen.back(), 600) << "one register of two is done, and not yet kept";
      EXPECT_LT(watch.seen.back(), 1000);
    }
    EXPECT_EQ(dialog.Notice().text(), "Cancelado: no se ha escrito nada");
    EXPECT_EQ(Counts(), before);
    EXPECT_TRUE(dialog.ImportButton().isEnabled()) << "may be tried again";
    Watch watch(kNever);
    dialog.ImportButton().click();
    EXPECT_TRUE(dialog.Notice().text().startsWith("Importadas 4 materias de 3 alumnos"))
        << dialog.Notice().text().toStdString();
    EXPECT_TRUE(std::is_sorted(watch.seen.begin(), watch.seen.end()));
    EXPECT_EQ(Bar(), nullptr);
    dialog.reject();
  });
  EXPECT_EQ(Counts()[1], before[1] + 4);
  // The screens are this program's own again.
  CloseNext("frmPendientes");
  Play(123);
}

TEST_F(ImportDialogTest, ALongFileMayBeStoppedWhileItIsLookedUp) {
  OpenDemo();
  QByteArray lines = "alumno;sección;materia;curso;evaluaciones\n";
  for (auto i = 0; i < 3000; ++i) lines += "9999;3º ESO A;Matemáticas;2º ESO B;todas\n";
  const auto file = MakeFile("largo.csv", lines);
  InDialog<zendria::ImportDialog>("importarRegistro", "importar", [&](auto& dialog) {
    dialog.patience = std::chrono::milliseconds(0);
    Watch watch(300);
    dialog.Choose(file);
    EXPECT_FALSE(watch.seen.empty());
    EXPECT_EQ(dialog.List().count(), 0);
    EXPECT_FALSE(dialog.ImportButton().isEnabled());
    EXPECT_TRUE(dialog.Notice().text().startsWith("Cancelado"));
    dialog.reject();
  });
}

}  // namespace
}  // namespace quorvane::test
