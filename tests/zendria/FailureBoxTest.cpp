#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/FailureBox.h"
#include "apps/zendria/NodeRunner.h"
#include "platform/RuntimeError.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using zendria::Advice;
using FailureBoxTest = HostTest;

// Support reads there what was asked of the database when it failed.
TEST_F(FailureBoxTest, TheDetailsOfAFailedScreenCanBeCopied) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  school_.Sql("ALTER TABLE Curso RENAME TO Apartado");
  robot_.On("frmPendientes", {{"cboTEnsenanza", "ESO"}});
  robot_.OnDialog("aviso", [](QWidget& dialog) {
    auto* const copy = dialog.findChild<QPushButton*>("copiar");
    ASSERT_NE(copy, nullptr);
    QApplication::setActiveWindow(&dialog);
    QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([copy] { return copy->text() == "&Copiado"; }));
    EXPECT_TRUE(dialog.isVisible()) << "there is still something to read";
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  Play(123);
  const auto lines = QGuiApplication::clipboard()->text().split(u'\n');
  ASSERT_GT(lines.size(), 6);
  EXPECT_TRUE(lines[0].startsWith("Zendria Escuela "));
  EXPECT_TRUE(lines[1].startsWith("Fecha: "));
  EXPECT_EQ(lines[2], "Pantalla: Alumnos con materias pendientes");
  EXPECT_EQ(lines[3], "Error -2147467259: no such table: Curso");
  EXPECT_TRUE(lines[lines.size() - 2].contains("sql centro SELECT")) << "the statement that failed";
  EXPECT_TRUE(lines[lines.size() - 2].contains(" Curso"));
}

TEST(AdviceTest, EachKindOfFailureIsToldWhatToDo) {
  const auto failed = static_cast<std::int32_t>(ErrorNumber::StatementFailed);
  EXPECT_TRUE(Advice({failed, "database or disk is full"}).contains("espacio en el disco"));
  EXPECT_TRUE(Advice({failed, "attempt to write a readonly database"}).contains("escribir"));
  EXPECT_TRUE(Advice({failed, "database is locked"}).contains("repita lo que falte"));
  EXPECT_TRUE(Advice({failed, "[08S01] Communication link failure (0)"}).contains("la red"));
  EXPECT_TRUE(Advice({failed, "[40001] deadlock victim (1205)"}).contains("ocupada"));
  EXPECT_TRUE(Advice({failed, "UNIQUE constraint failed: EvaluacionPte.IDEvaluacionPte"})
                  .contains("mismo instante"));
  EXPECT_TRUE(Advice({failed, "[23000] Violation of PRIMARY KEY (2627)"}).contains("instante"));
  EXPECT_TRUE(Advice({failed, "[23000] CHECK constraint (547)"}).contains("ha rechazado"));
  EXPECT_TRUE(Advice({failed, "[23505] ERROR: duplicate key value (1)"}).contains("instante"));
  EXPECT_TRUE(Advice({failed, "[42501] ERROR: permission denied (1)"}).contains("el servidor"));
  EXPECT_TRUE(Advice({failed, "[42P01] ERROR: relation does not exist (1)"}).contains("el manual"));
  EXPECT_TRUE(Advice({failed, "no such column: CodAlumno_MateriaDetalles"}).contains("F1"));
  EXPECT_TRUE(Advice({failed, "[42S02] Invalid object name"}).contains("el manual"));
  EXPECT_TRUE(Advice({failed, "Se ha perdido la conexión con la base de datos: [HY000] x (0)"})
                  .contains("la red"));
  EXPECT_TRUE(Advice({3704, "cerrado"}).contains("vuelva a abrir la pantalla"));
  EXPECT_TRUE(Advice({3021, "sin registro"}).contains("quorvane-escuela comprobar"));
  EXPECT_TRUE(Advice({3265, "sin campo"}).contains("no se puede calificar aquí"));
  EXPECT_TRUE(Advice({457, "clave"}).contains("quita la repetida"));
  EXPECT_TRUE(Advice({438, "miembro"}).contains("«Recuperación»"));
  EXPECT_TRUE(Advice({326, "recurso"}).contains("fechas fijadas"));
  EXPECT_TRUE(Advice({5, "clave"}).contains("otra persona"));
  EXPECT_TRUE(Advice({13, "tipos"}).contains("no puede leer"));
  EXPECT_TRUE(Advice({std::nullopt, "?"}).contains("Anote"));
}

}  // namespace
}  // namespace quorvane::test
