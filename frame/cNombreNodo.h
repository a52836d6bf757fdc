#pragma once

#include <cstdint>

namespace quorvane {

/// The nodes of the host's tree, by number. A caller makes a fresh instance for each comparison.
class cNombreNodo {
 public:
  const std::uint8_t NotaPendientesSeccionMateria = 127;
  const std::uint8_t NotaPendientesSeccionAlumno = 126;
  const std::uint8_t NotaPendientesMateria = 125;
  const std::uint8_t NotaPendientesAlumno = 124;
  const std::uint8_t Pendientes = 123;
  const std::uint8_t Evaluaciones = 11;
  const std::uint8_t Zendria = 1;
  const std::uint8_t CentrosExistentes = 2;
  const std::uint8_t NombreColegio = 3;
  const std::uint8_t Administracion = 4;
  const std::uint8_t Prematriculacion = 5;
  const std::uint8_t Alumnos = 6;
  const std::uint8_t Personal = 7;
  const std::uint8_t Centro = 8;
  const std::uint8_t Actividades = 9;
  const std::uint8_t APA = 10;
  const std::uint8_t ZN_Bancos = 0;  ///< the only node without a number of its own
  const std::uint8_t Recibos = 12;
  const std::uint8_t ReciboCobro = 13;
  const std::uint8_t ReciboPago = 14;
  const std::uint8_t ReciboHistorico = 15;
  const std::uint8_t Remesa = 16;
  const std::uint8_t Claustro = 17;
  const std::uint8_t Mantenimiento = 18;
  const std::uint8_t Cursos = 19;
  const std::uint8_t MaterialDidactico = 20;
  const std::uint8_t Modelos = 21;
  const std::uint8_t SistemasCalificacion = 22;
  const std::uint8_t Materias = 23;
  const std::uint8_t NotasAlumnos = 24;
  const std::uint8_t Secciones = 25;
  const std::uint8_t Seguridad = 26;
  const std::uint8_t Perfiles = 27;
  const std::uint8_t Usuarios = 28;
  const std::uint8_t OpcionesConfiguracion = 29;
  const std::uint8_t OC_Bancos = 30;
  const std::uint8_t Emisor = 31;
  const std::uint8_t Observaciones = 32;
  const std::uint8_t OpcionesMateria = 33;
  const std::uint8_t Paises = 34;
  const std::uint8_t Ponderaciones = 35;
  const std::uint8_t Presentador = 36;
  const std::uint8_t Profesiones = 37;
  const std::uint8_t TiposActitud = 38;
  const std::uint8_t TiposAlumno = 39;
  const std::uint8_t TipoCentro = 40;
  const std::uint8_t TiposIncidencia = 41;
  const std::uint8_t TiposIva = 42;
  const std::uint8_t TiposContrato = 43;
  const std::uint8_t TiposJustificacion = 44;
  const std::uint8_t TiposMaterialDidactico = 45;
  const std::uint8_t TiposMiembroCentro = 46;
  const std::uint8_t TiposMotivoBaja = 47;
  const std::uint8_t TiposNivelEstudios = 48;
  const std::uint8_t TiposNota = 49;
  const std::uint8_t TiposOcurrencia = 50;
  const std::uint8_t TiposParentesco = 51;
  const std::uint8_t TiposTarea = 52;
  const std::uint8_t Turnos = 53;
  const std::uint8_t Tareas = 54;
  const std::uint8_t Papelera = 55;
  const std::uint8_t PapeleraSeguridad = 56;
  const std::uint8_t Enfermedades = 57;
  const std::uint8_t RemesasRecibidas = 58;
  const std::uint8_t RemesasAEnviar = 59;
  const std::uint8_t RemesasEnviadas = 60;
  const std::uint8_t IncidenciaPersonal = 100;
  const std::uint8_t IncidenciaAlumno = 101;
};

}  // namespace quorvane
