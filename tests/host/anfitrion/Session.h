#pragma once

#include <memory>

#include "platform/data/Connection.h"
#include "platform/host/SessionValues.h"

/// The class tutor's session, at the demo school. The module closes `users` when it has read it.
inline std::shared_ptr<quorvane::SessionValues> TutorSession(quorvane::Connection& school,
                                                             quorvane::Connection& users) {
  using quorvane::Value;
  auto session = std::make_shared<quorvane::SessionValues>();
  for (const auto* text :
       {"RutaAplicacion", "RutaIcono", "RutaBD", "NombreUsuario", "NombreCentro"})
    session->Set(text, Value(""));
  session->Set("conexionlocalCENTRO", &school);
  session->Set("conexionBORRADOlocalCENTRO", &school);
  session->Set("conexionAppEntrada", &users);
  for (const auto* number : {"Accion", "lngRowData", "Pesetas", "SQLServer"})
    session->Set(number, Value(0));
  session->Set("Activa", Value(-1));
  session->Set("IDUsuario", Value(3));
  session->Set("IDPerfil", Value(1));
  session->Set("IDCentro", Value(1));
  session->Set("IDCursoEscolar", Value(1));
  return session;
}
