#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>
#include <algorithm>
#include <gmock/gmock.h>

#include "apps/zendria/DraftDialogs.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/LeftoversBox.h"
#include "apps/zendria/LocksDialog.h"
#include "apps/zendria/NodeRunner.h"
#include "apps/zendria/PersonSearchDialog.h"
#include "apps/zendria/SignInDialog.h"
#include "apps/zendria/StatementWindow.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using HostKeyboardTest = HostTest;

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

TEST_F(HostKeyboardTest, TheMainWindowsPages) {
  EXPECT_TRUE(preferences_.RecentSchools().isEmpty());
  preferences_.AddRecentSchool(SchoolFile());
  UseScreens(zendria::PendingScreens());
  ExpectTabReachesAll(*window_);
  ExpectMnemonics(*window_, MenuLetters(*window_->menuBar()));
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  EXPECT_TRUE(window_->Page().Tree().hasFocus());
  ExpectTabReachesAll(*window_);
  ExpectMnemonics(*window_, MenuLetters(*window_->menuBar()));
}

TEST_F(HostKeyboardTest, TheMenus) {
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

TEST_F(HostKeyboardTest, SigningIn) {
  robot_.OnDialog("entrada", [](QWidget& dialog) {
    ExpectTabReachesAll(dialog);
    ExpectMnemonics(dialog);
    auto& box = dynamic_cast<zendria::SignInDialog&>(dialog).CentreBox();
    QTest::keyClick(&dialog, Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(box.hasFocus());
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_FALSE(window_->OpenSchool(SchoolFile()));
  EXPECT_TRUE(robot_.Done());
}

TEST_F(HostKeyboardTest, Locks) {
  school_.Bloquea(1, 1, 3111, 2, 1);
  robot_.OnDialog("bloqueos", [](QWidget& dialog) {
    ExpectTabReachesAll(dialog);
    ExpectMnemonics(dialog);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  window_->ShowLocks();
  EXPECT_TRUE(robot_.Done());
}

TEST_F(HostKeyboardTest, StatementsAndPeople) {
  auto& statements = window_->ShowStatements();
  ExpectTabReachesAll(statements);
  ExpectMnemonics(statements);
  zendria::PersonSearchDialog people({{1, "Ruiz Soto, Ana", {}}}, "Docente");
  people.show();
  ExpectTabReachesAll(people);
  ExpectMnemonics(people);
}

/// All in it by Tab, and out of it by Esc.
void ExpectNeedsNoMouse(QWidget& dialog) {
  // Where the keyboard is need not be seen before it is used.
  QApplication::setActiveWindow(&dialog);
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
  ExpectTabReachesAll(dialog);
  ExpectMnemonics(dialog);
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible()) << dialog.objectName().toStdString();
  dynamic_cast<QDialog&>(dialog).reject();
}

TEST_F(HostKeyboardTest, WhatTheHeadOfStudiesAsksFor) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  for (const auto& [action, dialog] :
       {std::pair{"estadoEvaluacion", "estado"}, std::pair{"historialNotas", "historial"},
        std::pair{"informePendientes", "informe"}, std::pair{"importarRegistro", "importar"},
        std::pair{"conectarServidor", "conectar"}}) {
    robot_.OnDialog(dialog, ExpectNeedsNoMouse);
    window_->findChild<QAction*>(action)->trigger();
    EXPECT_TRUE(robot_.Done()) << dialog;
  }
  EXPECT_TRUE(robot_.unexpected.empty());
}

TEST_F(HostKeyboardTest, WhatTellsOfTrouble) {
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
  EXPECT_TRUE(robot_.Done());
}

}  // namespace
}  // namespace quorvane::test
