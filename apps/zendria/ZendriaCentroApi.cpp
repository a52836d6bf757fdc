#include "apps/zendria/ZendriaCentroApi.h"

#include <QDate>

#include "apps/zendria/LabelShortener.h"
#include "apps/zendria/MandatoryMarks.h"
#include "platform/host/Application.h"

namespace quorvane::zendria {

void ZendriaCentroApi::marcar_Obligatorios(Form& form) { MarkMandatoryFields(form); }

void ZendriaCentroApi::acortartextolabel(Label& label) {
  ShortenToWidth(label, Application::Instance().Screen());
}

std::string ZendriaCentroApi::ObtenerHoraSistema(std::string& /*dataSource*/) {
  return QDate::currentDate().toString("dd/MM/yyyy").toStdString();
}

}  // namespace quorvane::zendria
