#include "apps/zendria/ZendriaPersonSearch.h"

#include <QApplication>
#include <vector>

#include "apps/zendria/BusyCursor.h"
#include "apps/zendria/PersonSearchDialog.h"
#include "apps/zendria/Staff.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstance.h"
#include "register/frmPropMatProf.h"

namespace quorvane::zendria {
namespace {

std::vector<FilteredList::Entry> Staff(Connection& school) {
  const BusyCursor busy;
  return ReadStaff(school);
}

/// Whom the screen that asks has already; 0 for nobody.
std::int32_t WhoStands() {
  if (!FormInstance<frmPropMatProf>::Exists()) return 0;
  return FormInstance<frmPropMatProf>::Get().IDProfesorSeleccionado;
}

}  // namespace

void ZendriaPersonSearch::pasarconexiones(Connection* centro, Connection* /*borrado*/,
                                          Connection* /*otroCentro*/, Connection* /*otroBorrado*/) {
  centro_ = centro;
}

std::int32_t ZendriaPersonSearch::Buscar(const std::string& clase) {
  if (centro_ == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
  PersonSearchDialog dialog(Staff(*centro_), QString::fromStdString(clase),
                            // Which has the keyboard or not: over the screen that asks.
                            QApplication::activeModalWidget());
  dialog.Begin(WhoStands());
  dialog.exec();
  return dialog.Person();
}

}  // namespace quorvane::zendria
