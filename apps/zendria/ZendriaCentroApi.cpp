#include "apps/zendria/ZendriaCentroApi.h"

#include <QDate>

#include "apps/escuela/SchoolAddress.h"
#include "apps/zendria/LabelShortener.h"
#include "apps/zendria/MandatoryMarks.h"
#include "frame/cConfiguracion.h"
#include "platform/host/Application.h"

namespace quorvane::zendria {

void ZendriaCentroApi::marcar_Obligatorios(Form& form) { MarkMandatoryFields(form); }

void ZendriaCentroApi::acortartextolabel(Label& label) {
  ShortenToWidth(label, Application::Instance().Screen());
}

std::string ZendriaCentroApi::ObtenerHoraSistema(std::string& /*dataSource*/) {
  auto* const centro = cConfiguracion::Instancia().conLocalCentro;
  const auto date = centro == nullptr ? std::string() : ServerDate(*centro);
  return date.empty() ? QDate::currentDate().toString("dd/MM/yyyy").toStdString() : date;
}

}  // namespace quorvane::zendria
