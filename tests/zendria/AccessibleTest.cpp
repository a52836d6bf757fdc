// What a screen reader is told of each window: a name and a role for all that can be acted on, the
// cells of grids included, and an order of the tabulator that the eye follows.

#include <QAccessible>
#include <QAction>
#include <QHeaderView>
#include <QPushButton>
#include <QTabBar>
#include <set>

#include "apps/zendria/DraftDialogs.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/LeftoversBox.h"
#include "apps/zendria/NodeRunner.h"
#include "apps/zendria/PersonSearchDialog.h"
#include "apps/zendria/StatementWindow.h"
#include "tests/zendria/RescueTest.h"

namespace quorvane::test {
namespace {

std::string Where(const QWidget& window, const QAccessibleInterface& one) {
  const auto* const object = one.object();
  return window.objectName().toStdString() + ": " +
         (object == nullptr ? "" : object->metaObject()->className()) + " " +
         (object == nullptr ? "" : object->objectName().toStdString()) + ", role " +
         std::to_string(one.role());
}

/// Walks all that the reader may come to.
class Reader {
 public:
  explicit Reader(const QWidget& window) : window_(window) {}

  void Walk(QAccessibleInterface* one) {
    if (one == nullptr || !one->isValid() || one->state().invisible) return;
    Look(*one);
    if (auto* const table = one->tableInterface()) return WalkCells(*table);
    for (int child = 0; child < one->childCount(); ++child) Walk(one->child(child));
  }
  [[nodiscard]] int Controls() const { return controls_; }
  [[nodiscard]] int Cells() const { return cells_; }

 private:
  void Look(const QAccessibleInterface& one) {
    if (!one.state().focusable) return;
    const auto* const object = one.object();
    // The keyboard never comes to who hands it on.
    if (const auto* const widget = qobject_cast<const QWidget*>(object);
        widget != nullptr && widget->focusProxy() != nullptr)
      return;
    // What scrolls is named by what is in it.
    if (object != nullptr && object->inherits("QAbstractScrollArea") &&
        !object->inherits("QAbstractItemView") && !object->inherits("QPlainTextEdit"))
      return;
    ++controls_;
    EXPECT_NE(one.text(QAccessible::Name).trimmed(), "") << Where(window_, one);
    EXPECT_NE(one.role(), QAccessible::NoRole) << Where(window_, one);
    EXPECT_NE(one.role(), QAccessible::Client) << Where(window_, one);
  }
  void WalkCells(QAccessibleTableInterface& table) {
    for (int row = 0; row < table.rowCount(); ++row)
      for (int column = 0; column < table.columnCount(); ++column) {
        const auto* const cell = table.cellAt(row, column);
        ASSERT_NE(cell, nullptr);
        ++cells_;
        EXPECT_TRUE(cell->role() == QAccessible::Cell || cell->role() == QAccessible::ListItem ||
                    cell->role() == QAccessible::TreeItem)
            << Where(window_, *cell);
        EXPECT_NE(cell->text(QAccessible::Name).trimmed(), "")
            << window_.objectName().toStdString() << " row " << row << ", column " << column;
      }
  }

  const QWidget& window_;
  int controls_ = 0;
  int cells_ = 0;
};

/// Gives the number of cells.
int ExpectReadable(QWidget& window) {
  Reader reader(window);
  reader.Walk(QAccessible::queryAccessibleInterface(&window));
  EXPECT_GT(reader.Controls(), 0) << window.objectName().toStdString();
  return reader.Cells();
}

/// The keyboard never goes back over what lies wholly before it: above, or in the same line and on
/// the left.
void ExpectTabFollowsTheEye(QWidget& window) {
  std::vector<QWidget*> order;
  for (auto* at = window.nextInFocusChain(); at != &window; at = at->nextInFocusChain())
    if (at->isVisible() && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) != 0 &&
        at->window() == &window && at->focusProxy() == nullptr)
      order.push_back(at);
  for (std::size_t at = 1; at < order.size(); ++at) {
    const auto box = [&window](const QWidget& one) {
      return QRect(one.mapTo(&window, QPoint()), one.size());
    };
    const auto before = box(*order[at - 1]);
    const auto now = box(*order[at]);
    const auto sameLine = now.top() < before.bottom() && before.top() < now.bottom();
    const auto goesBack = sameLine ? now.right() <= before.left()
                                   : now.bottom() <= before.top() && now.left() <= before.left();
    EXPECT_FALSE(goesBack) << window.objectName().toStdString() << ": "
                           << order[at - 1]->objectName().toStdString() << " before "
                           << order[at]->objectName().toStdString();
  }
}

class AccessibleTest : public RescueTest {
 protected:
  /// The forms' next window of that name is read, and then does that.
  void Read(const std::string& form, const Step& act) {
    robot_.On(form, [this, act](Window& window) {
      cells_ += ExpectReadable(window);
      ExpectTabFollowsTheEye(window);
      act(window);
    });
  }
  void Read(const std::string& form, const std::vector<Robot::Deed>& deeds) {
    Read(form, Doing(deeds));
  }

  int cells_ = 0;
};

TEST_F(AccessibleTest, TheFormsOfTheRegister) {
  Read("frmPendientes", {{"cboTEnsenanza", "ESO"},
                         {"cboCurso", "2"},
                         {"cboSeccion", "A"},
                         {"cboSeccion", Qt::Key_Return}});
  Read("frmAlumnoPendiente", [this](Window& window) {
    Doing({"cmdListar", {"msgAlumnos", 0}, "cmdPropiedades"})(window);
    window.findChild<QTabBar*>()->setCurrentIndex(1);
    Robot::ClickRow(window, "msgMaterias", 0);
    cells_ += ExpectReadable(window);
    ExpectTabFollowsTheEye(window);
    Robot::Click(window, "cmdPropMat");
    window.close();
  });
  Read("frmAlumnos", {"cmdCancelar"});
  Read("frmAlumnoMateria", {"cmdAgregar", {"msgMaterias", 0}, "cmdPropiedades", "cmdCancelar"});
  Read("frmMateriaPend", {"cmdCancelar"});
  Read("frmMateriaEv", {"cmdCancelar"});
  Read("frmPropMatProf", {"cmdCancelar"});
  Play(123);
  EXPECT_GT(cells_, 0);
  EXPECT_TRUE(robot_.unexpected.empty());
}

TEST_F(AccessibleTest, TheFormsOfTheGrades) {
  struct Flow {
    std::uint8_t node;
    std::string form;
    const char* list;
    const char* entry;
  };
  for (const auto& flow :
       {Flow{124, "frmNotaManual", nullptr, nullptr}, Flow{125, "frmNotaMateria", nullptr, nullptr},
        Flow{126, "frmNotaSeccionMateria", "cboAlumno", "D"},
        Flow{127, "frmNotaSeccionAlumno", "cboMateria", "Lengua"}})
    for (const auto* const evaluation : {"1", "Final"}) {
      cells_ = 0;
      const auto stepOne = flow.form + "1";
      std::vector<Robot::Deed> deeds{{"cboTipoEnsenanza", "ESO"},
                                     {"cboCursos", "2"},
                                     {"cboSecciones", "A"},
                                     {"cboEvaluaciones", evaluation}};
      if (flow.list != nullptr) deeds.emplace_back(flow.list, flow.entry);
      deeds.emplace_back("cmdNotaManual1(0)");
      Read(stepOne, deeds);
      Read(flow.form + (std::string(evaluation) == "Final" ? "Final" : ""), [](Window& window) {
        ASSERT_NE(Robot::OpenList(window, 0, 1), nullptr);
        // The open list too.
        ExpectReadable(window);
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        Robot::Click(window, "cmdCancelar");
      });
      LeaveStepOne(stepOne);
      Play(flow.node);
      EXPECT_GT(cells_, 0) << flow.form;
    }
  EXPECT_TRUE(robot_.unexpected.empty());
}

TEST_F(AccessibleTest, TheHostsOwnWindows) {
  ExpectReadable(*window_);
  ExpectTabFollowsTheEye(*window_);
  school_.Bloquea(1, 1, 3111, 2, 1);
  for (const auto* const name : {"bloqueos", "entrada", "conectar", "contraseña"})
    robot_.OnDialog(name, [](QWidget& dialog) {
      ExpectReadable(dialog);
      ExpectTabFollowsTheEye(dialog);
      dynamic_cast<QDialog&>(dialog).reject();
    });
  window_->ShowLocks();
  window_->findChild<QAction*>("cambiarUsuario")->trigger();
  window_->findChild<QAction*>("conectarServidor")->trigger();
  school_.Sql(
      "CREATE TABLE ClaveUsuario (IDUsuario INTEGER PRIMARY KEY, Clave TEXT NOT NULL);"
      "INSERT INTO ClaveUsuario VALUES (1,'x')");
  window_->findChild<QAction*>("cambiarUsuario")->trigger();
  EXPECT_TRUE(robot_.Done());
  auto& statements = window_->ShowStatements();
  ExpectReadable(statements);
  ExpectTabFollowsTheEye(statements);
  statements.close();
  UseScreens(zendria::PendingScreens());
  ExpectReadable(*window_);
  ExpectTabFollowsTheEye(*window_);
}

TEST_F(AccessibleTest, WhatTheHeadOfStudiesAsksFor) {
  const auto read = [](QWidget& dialog) {
    ExpectReadable(dialog);
    ExpectTabFollowsTheEye(dialog);
    dynamic_cast<QDialog&>(dialog).reject();
  };
  school_.Sql("UPDATE EvaluacionPte SET CodNota=105");
  for (const auto& [action, dialog] :
       {std::pair{"estadoEvaluacion", "estado"}, std::pair{"historialNotas", "historial"},
        std::pair{"informePendientes", "informe"}, std::pair{"importarRegistro", "importar"}}) {
    robot_.OnDialog(dialog, read);
    window_->findChild<QAction*>(action)->trigger();
    EXPECT_TRUE(robot_.Done()) << dialog;
  }
  zendria::PersonSearchDialog people({{1, "Ruiz Soto, Ana", {}}}, "Docente");
  people.show();
  EXPECT_GT(ExpectReadable(people), 0);
  ExpectTabFollowsTheEye(people);
  EXPECT_TRUE(robot_.unexpected.empty());
}

TEST_F(AccessibleTest, WhatTellsOfTrouble) {
  auto read = 0;
  const auto reads = [&read](QWidget& dialog) {
    ExpectReadable(dialog);
    ExpectTabFollowsTheEye(dialog);
    ++read;
    dynamic_cast<QDialog&>(dialog).reject();
  };
  for (const auto* const name : {"aviso", "borrador", "notasCambiadas", "borradorRoto", "restos"})
    robot_.OnDialog(name, reads);
  Leftovers::Left left;
  left.holder = Leftovers::Holder::Gone;
  zendria::ShowProblem(window_.get(), {6, "Desbordamiento"});
  const auto now = QDateTime::currentDateTime();
  zendria::AskForDraft(window_.get(), {now, 3, 1, 0, {}});
  zendria::ShowLeftCells(window_.get(), {zendria::LeftCell()});
  zendria::TellBrokenDraft(window_.get(), "notas", std::nullopt);
  zendria::OffersToRemove(window_.get(), {left});
  EXPECT_EQ(read, 5);
  EXPECT_TRUE(robot_.Done());
}

}  // namespace
}  // namespace quorvane::test
