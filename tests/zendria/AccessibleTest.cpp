// What each window owes to who has no mouse, and to who doesn't see it: a name and a role for all
// that can be acted on, the cells of grids included, an order of the tabulator that the eye
// follows, and for the host's own a key for each thing.

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QHeaderView>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QWheelEvent>
#include <algorithm>
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

/// Gives the number of cells.
int ExpectRead(QWidget& window) {
  ExpectTabFollowsTheEye(window);
  return ExpectReadable(window);
}

/// What a user acts on in the window, without what only lends it its looks.
bool IsForUse(const QWidget& widget) {
  if (qobject_cast<const QHeaderView*>(&widget) != nullptr) return false;
  // A part of a field, as the one of a date.
  if (widget.focusProxy() != nullptr) return false;
  const auto acts = qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
                    qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
                    qobject_cast<const QLineEdit*>(&widget) != nullptr ||
                    qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
                    qobject_cast<const QComboBox*>(&widget) != nullptr;
  // A field's own button to clear it has the keyboard's Delete in its place.
  return acts && qobject_cast<const QLineEdit*>(widget.parentWidget()) == nullptr;
}

/// Rolled by, a closed list keeps its entry.
void ExpectWheelChoosesNothing(QWidget& window) {
  for (auto* const box : window.findChildren<QComboBox*>()) {
    const auto before = box->currentIndex();
    for (const auto notch : {-120, 120}) {
      QWheelEvent wheel(box->rect().center(), box->mapToGlobal(box->rect().center()), {},
                        {0, notch}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
      QApplication::sendEvent(box, &wheel);
      EXPECT_FALSE(wheel.isAccepted()) << box->objectName().toStdString();
      EXPECT_EQ(box->currentIndex(), before) << box->objectName().toStdString();
    }
  }
}

/// Tab stops at the one of a group of radio buttons that is on; the arrows go on from there.
bool ArrowsReach(const QWidget& widget, const std::set<const QWidget*>& reached) {
  const auto* const radio = qobject_cast<const QRadioButton*>(&widget);
  if (radio == nullptr || !radio->autoExclusive()) return false;
  const auto group = radio->parentWidget()->findChildren<QRadioButton*>();
  return std::any_of(group.begin(), group.end(),
                     [&](const auto* one) { return one->isChecked() && reached.contains(one); });
}

void ExpectTabReachesAll(QWidget& window) {
  QApplication::setActiveWindow(&window);
  ExpectWheelChoosesNothing(window);
  std::set<const QWidget*> reached;
  for (int i = 0; i < 60 && window.focusWidget() != nullptr; ++i) {
    auto* const widget = window.focusWidget();
    const auto with = widget->grab().toImage();
    const auto isNew = reached.insert(widget).second;
    QTest::keyClick(widget, Qt::Key_Tab);
    const auto* const button = qobject_cast<QPushButton*>(widget);
    // The default button bears the same mark wherever nothing else takes Enter.
    const auto marked = button != nullptr && button->isDefault();
    if (!isNew || marked || widget->hasFocus()) continue;
    EXPECT_NE(with, widget->grab().toImage())
        << window.objectName().toStdString() << ": " << widget->objectName().toStdString()
        << " looks the same without the keyboard";
  }
  auto count = 0;
  for (const auto* const widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || !widget->isEnabled() || widget->window() != &window) continue;
    if (!IsForUse(*widget)) continue;
    ++count;
    EXPECT_TRUE(reached.contains(widget) || ArrowsReach(*widget, reached))
        << window.objectName().toStdString() << ": " << widget->metaObject()->className() << " "
        << widget->objectName().toStdString();
  }
  EXPECT_GT(count, 0);
}

void AddMnemonic(const QString& text, QStringList& all) {
  for (qsizetype at = 0; at + 1 < text.size(); ++at) {
    if (text[at] != u'&') continue;
    if (text[at + 1] != u'&') all.append(QString(text[at + 1]).toUpper());
    ++at;
  }
}

void ExpectEachOnce(const QStringList& letters, const std::string& where) {
  EXPECT_EQ(std::set<QString>(letters.begin(), letters.end()).size(),
            static_cast<std::size_t>(letters.size()))
      << where << ": " << letters.join(u' ').toStdString();
}

/// No letter stands for two things, and each button but those of pictures has one.
void ExpectMnemonics(const QWidget& window, QStringList letters = {}) {
  for (const auto* const widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    if (const auto* const label = qobject_cast<const QLabel*>(widget);
        label != nullptr && label->buddy() != nullptr)
      AddMnemonic(label->text(), letters);
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        button != nullptr && !button->text().isEmpty()) {
      const auto before = letters.size();
      AddMnemonic(button->text(), letters);
      EXPECT_EQ(letters.size(), before + 1) << button->text().toStdString();
    }
  }
  ExpectEachOnce(letters, window.objectName().toStdString());
}

QStringList MenuLetters(const QMenuBar& bar) {
  QStringList letters;
  for (const auto* const action : bar.actions()) AddMnemonic(action->text(), letters);
  return letters;
}

/// Gives the number of cells.
int ExpectAccessible(QWidget& window, const QStringList& letters = {}) {
  const auto cells = ExpectRead(window);
  ExpectTabReachesAll(window);
  ExpectMnemonics(window, letters);
  return cells;
}

/// All in it by Tab, and out of it by Esc.
void ExpectNeedsNoMouse(QWidget& dialog) {
  // Where the keyboard is need not be seen before it is used.
  QApplication::setActiveWindow(&dialog);
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
  ExpectAccessible(dialog);
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible()) << dialog.objectName().toStdString();
  dynamic_cast<QDialog&>(dialog).reject();
}

class AccessibleTest : public RescueTest {
 protected:
  /// The forms' next window of that name is read, and then does that.
  void Read(const std::string& form, const Step& act) {
    robot_.On(form, [this, act](Window& window) {
      cells_ += ExpectRead(window);
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
    cells_ += ExpectRead(window);
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
}

TEST_F(AccessibleTest, TheFormsOfTheGrades) {
  for (const auto& ordinary : {kByStudent, kBySubject, kOfStudent, kOfSubject})
    for (const auto& flow : {ordinary, ordinary.Final()}) {
      cells_ = 0;
      Read(flow.StepOne(), WayTo(flow));
      Read(flow.form, [](Window& window) {
        ASSERT_NE(Robot::OpenList(window, 0, 1), nullptr);
        // The open list too.
        ExpectReadable(window);
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        Robot::Click(window, "cmdCancelar");
      });
      LeaveStepOne(flow);
      Play(flow.node);
      EXPECT_GT(cells_, 0) << flow.form;
    }
}

TEST_F(AccessibleTest, TheMainWindowsPages) {
  UseScreens(zendria::PendingScreens());
  const auto letters = MenuLetters(*window_->menuBar());
  ExpectAccessible(*window_, letters);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  EXPECT_TRUE(window_->Page().Tree().hasFocus());
  ExpectAccessible(*window_, letters);
}

TEST_F(AccessibleTest, TheMenus) {
  for (const auto* const title : window_->menuBar()->actions()) {
    QStringList letters;
    ASSERT_NE(title->menu(), nullptr);
    for (const auto* const action : title->menu()->actions()) {
      if (action->isSeparator()) continue;
      const auto before = letters.size();
      AddMnemonic(action->text(), letters);
      EXPECT_EQ(letters.size(), before + 1) << action->text().toStdString();
    }
    ExpectEachOnce(letters, title->text().toStdString());
  }
}

TEST_F(AccessibleTest, SigningIn) {
  InDialog<zendria::SignInDialog>("cambiarUsuario", "entrada", [](auto& dialog) {
    ExpectAccessible(dialog);
    QTest::keyClick(&dialog, Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(dialog.CentreBox().hasFocus());
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  school_.Sql(
      "CREATE TABLE ClaveUsuario (IDUsuario INTEGER PRIMARY KEY, Clave TEXT NOT NULL);"
      "INSERT INTO ClaveUsuario VALUES (1,'x')");
  InDialog("cambiarUsuario", "contraseña", ExpectNeedsNoMouse);
}

TEST_F(AccessibleTest, LocksStatementsAndPeople) {
  school_.Bloquea(1, 1, 3111, 2, 1);
  robot_.OnDialog("bloqueos", ExpectNeedsNoMouse);
  window_->ShowLocks();
  ExpectAccessible(window_->ShowStatements());
  zendria::PersonSearchDialog people({{1, "Ruiz Soto, Ana", {}}}, "Docente");
  people.show();
  EXPECT_GT(ExpectAccessible(people), 0);
}

TEST_F(AccessibleTest, WhatTheHeadOfStudiesAsksFor) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=105");
  for (const auto& [action, dialog] :
       {std::pair{"estadoEvaluacion", "estado"}, std::pair{"historialNotas", "historial"},
        std::pair{"informePendientes", "informe"}, std::pair{"importarRegistro", "importar"},
        std::pair{"conectarServidor", "conectar"}})
    InDialog(action, dialog, ExpectNeedsNoMouse);
}

TEST_F(AccessibleTest, WhatTellsOfTrouble) {
  for (const auto* const name : {"aviso", "borrador", "notasCambiadas", "borradorRoto", "restos"})
    robot_.OnDialog(name, ExpectNeedsNoMouse);
  Leftovers::Left left;
  left.holder = Leftovers::Holder::Gone;
  zendria::ShowProblem(window_.get(), {6, "Desbordamiento"});
  EXPECT_EQ(zendria::AskForDraft(window_.get(), {QDateTime::currentDateTime(), 3, 1, 0, {}}),
            zendria::DraftAnswer::NotNow);
  zendria::ShowLeftCells(window_.get(), {zendria::LeftCell()});
  zendria::TellBrokenDraft(window_.get(), "notas", std::nullopt);
  EXPECT_FALSE(zendria::OffersToRemove(window_.get(), {left}));
}

}  // namespace
}  // namespace quorvane::test
