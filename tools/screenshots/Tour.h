#pragma once

#include <QString>
#include <string>

#include "apps/zendria/MainWindow.h"
#include "apps/zendria/Preferences.h"
#include "tools/screenshots/Camera.h"
#include "tools/screenshots/Guide.h"

class QTableView;

namespace quorvane::screenshots {

/// The way through all screens of the host and the module, on the sample school.
class Tour {
 public:
  /// `folder` takes what the tour needs, as the school.
  Tour(qt::QtFrontEnd& screen, Camera& camera, const QString& folder);

  void Run();

 private:
  void Host();
  void Register();
  void Grades();
  void Messages();
  /// Changes the school, and so comes last.
  void Oversight();
  void TakePage(const char* name, const QString& title, const std::string& html);
  /// Those of the head of studies.
  void TerminalOrders();
  void OwnPublication();
  void RegisterInUse();
  void TooManyFinals();
  void MissingData();
  void EverythingLocked();
  void OutsideTheDates();
  void ClosedYear();
  void NoTable();
  void Draft();
  void RecentSchools();
  void Password();
  void AfterACrash();
  void Menu(const QString& title, const QString& picture);
  void SeveralCentres();
  void StepOne(const std::string& form, const QString& picture, const QString& evaluation);
  void StepTwo(const std::string& form, const QString& picture);
  void TakeList(qt::FormWindow& window, QTableView& grid, int column, const QString& picture);

  qt::QtFrontEnd& screen_;
  Camera& camera_;
  Guide guide_;
  QString school_;
  zendria::Preferences preferences_;
  zendria::MainWindow window_;
};

}  // namespace quorvane::screenshots
