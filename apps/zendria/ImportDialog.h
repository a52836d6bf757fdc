#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <chrono>

#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/import/SchoolImport.h"
#include "apps/zendria/StoppableWork.h"

namespace quorvane::zendria {

/// Puts the students and pending subjects of a file on the register: shows beforehand what would be
/// done, and which lines don't fit.
class ImportDialog : public QDialog {
 public:
  explicit ImportDialog(SchoolAddress school, QWidget* parent = nullptr);

  /// Looks a file up and shows what it asks for.
  void Choose(const QString& file);

  [[nodiscard]] QListWidget& List() { return list_; }
  [[nodiscard]] QLabel& Notice() { return notice_; }
  [[nodiscard]] QPushButton& ImportButton() { return import_; }
  [[nodiscard]] QCheckBox& WhatFits() { return whatFits_; }
  /// After how long it shows how far it is, and may be stopped.
  std::chrono::milliseconds patience = StoppableWork::kPatience;

 private:
  void Build();
  void AskForFile();
  void Import();
  /// Imports, or looks up, with a bar; what it says that it is doing.
  WorkEnd Run(const QString& file, const QString& doing, const ImportOptions& options,
              ImportReport& report);
  void ShowLines(const ImportReport& report);
  void ShowWhatMayBeDone();

  SchoolAddress school_;
  QString file_;
  bool fits_ = false;
  int fitting_ = 0;
  QLabel name_;
  QListWidget list_;
  QCheckBox whatFits_;
  QLabel notice_;
  QPushButton import_;
};

}  // namespace quorvane::zendria
