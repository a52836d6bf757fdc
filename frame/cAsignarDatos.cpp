#include "frame/cAsignarDatos.h"

#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "frame/cNombreNodo.h"
#include "platform/RuntimeError.h"
#include "platform/host/Application.h"
#include "platform/host/SessionObject.h"

namespace quorvane {
namespace {

Value ReadValue(const SessionObject& sesion, const char* miembro) {
  const auto contenido = sesion.Get(miembro);
  const auto* const valor = std::get_if<Value>(&contenido);
  if (valor == nullptr) throw RuntimeError(ErrorNumber::TypeMismatch);
  return *valor;
}

/// A member that is Nothing is kept as it is: only who uses it fails.
Connection* ReadConnection(const SessionObject& sesion, const char* miembro) {
  const auto contenido = sesion.Get(miembro);
  const auto* const conexion = std::get_if<Connection*>(&contenido);
  if (conexion == nullptr) throw RuntimeError(ErrorNumber::TypeMismatch);
  return *conexion;
}

}  // namespace

void cAsignarDatos::ObtenerDatos(const std::shared_ptr<const SessionObject>& objDatosSesion) {
  if (objDatosSesion == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
  const auto& sesion = *objDatosSesion;
  Application::Instance().HelpFile(ReadValue(sesion, "RutaAplicacion").Text() + "\\zendria.chm");
  auto& configuracion = cConfiguracion::Instancia();
  configuracion.RutaBD = ReadValue(sesion, "RutaBD").Text();
  configuracion.Activa = ReadValue(sesion, "Activa").Flag();
  configuracion.bytAccion = ReadValue(sesion, "Accion").Byte();
  configuracion.lngRowData = ReadValue(sesion, "lngRowData").Long();
  configuracion.conLocalBorradoCentro = ReadConnection(sesion, "conexionBORRADOlocalCENTRO");
  configuracion.conLocalCentro = ReadConnection(sesion, "conexionlocalCENTRO");
  configuracion.conLocalAppEntrada = ReadConnection(sesion, "conexionAppEntrada");
  configuracion.intIDUsuario = ReadValue(sesion, "IDUsuario").Integer();
  configuracion.intIdCentro = ReadValue(sesion, "IDCentro").Integer();
  configuracion.intIDCursoEscolar = ReadValue(sesion, "IDCursoEscolar").Integer();
  configuracion.strNombreUsuario = ReadValue(sesion, "NombreUsuario").Text();
  configuracion.strNombreCentro = ReadValue(sesion, "NombreCentro").Text();
  configuracion.blnPesetas = ReadValue(sesion, "Pesetas").Flag();
  configuracion.RutaIcono = ReadValue(sesion, "RutaIcono").Text();
  configuracion.intIDPerfil = ReadValue(sesion, "IDPerfil").Integer();
  configuracion.RutaAplicacion = ReadValue(sesion, "RutaAplicacion").Text();
  configuracion.SQLServer = ReadValue(sesion, "SQLServer").Flag();
  configuracion.datossesion = objDatosSesion;
}

void cAsignarDatos::ActivarFormulario(std::uint8_t bytNodoSeleccionado,
                                      const std::optional<std::string>& /*strTipoEnsenanza*/) {
  if (bytNodoSeleccionado == cNombreNodo().Pendientes)
    MostrarFrmPendientes();
  else if (bytNodoSeleccionado == cNombreNodo().NotaPendientesAlumno)
    MostrarFrmNotaManual1();
  else if (bytNodoSeleccionado == cNombreNodo().NotaPendientesMateria)
    MostrarFrmNotaMateria1();
  // The names of these two nodes and their screens cross: hosts count on it.
  else if (bytNodoSeleccionado == cNombreNodo().NotaPendientesSeccionMateria)
    MostrarFrmNotaSeccionAlumno1();
  else if (bytNodoSeleccionado == cNombreNodo().NotaPendientesSeccionAlumno)
    MostrarFrmNotaSeccionMateria1();
}

bool cAsignarDatos::Eliminar(std::uint8_t /*bytNodoSeleccionado*/) {
  static_cast<void>(cNombreNodo().Pendientes);
  return false;
}

}  // namespace quorvane
