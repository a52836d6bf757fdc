#include <gtest/gtest.h>
#include <utility>

#include "frame/cNombreNodo.h"

namespace quorvane::test {
namespace {

using Node = cNombreNodo;

// In the order of the members.
const std::pair<const std::uint8_t Node::*, int> kNodes[] = {
    {&Node::NotaPendientesSeccionMateria, 127},
    {&Node::NotaPendientesSeccionAlumno, 126},
    {&Node::NotaPendientesMateria, 125},
    {&Node::NotaPendientesAlumno, 124},
    {&Node::Pendientes, 123},
    {&Node::Evaluaciones, 11},
    {&Node::Zendria, 1},
    {&Node::CentrosExistentes, 2},
    {&Node::NombreColegio, 3},
    {&Node::Administracion, 4},
    {&Node::Prematriculacion, 5},
    {&Node::Alumnos, 6},
    {&Node::Personal, 7},
    {&Node::Centro, 8},
    {&Node::Actividades, 9},
    {&Node::APA, 10},
    {&Node::ZN_Bancos, 0},
    {&Node::Recibos, 12},
    {&Node::ReciboCobro, 13},
    {&Node::ReciboPago, 14},
    {&Node::ReciboHistorico, 15},
    {&Node::Remesa, 16},
    {&Node::Claustro, 17},
    {&Node::Mantenimiento, 18},
    {&Node::Cursos, 19},
    {&Node::MaterialDidactico, 20},
    {&Node::Modelos, 21},
    {&Node::SistemasCalificacion, 22},
    {&Node::Materias, 23},
    {&Node::NotasAlumnos, 24},
    {&Node::Secciones, 25},
    {&Node::Seguridad, 26},
    {&Node::Perfiles, 27},
    {&Node::Usuarios, 28},
    {&Node::OpcionesConfiguracion, 29},
    {&Node::OC_Bancos, 30},
    {&Node::Emisor, 31},
    {&Node::Observaciones, 32},
    {&Node::OpcionesMateria, 33},
    {&Node::Paises, 34},
    {&Node::Ponderaciones, 35},
    {&Node::Presentador, 36},
    {&Node::Profesiones, 37},
    {&Node::TiposActitud, 38},
    {&Node::TiposAlumno, 39},
    {&Node::TipoCentro, 40},
    {&Node::TiposIncidencia, 41},
    {&Node::TiposIva, 42},
    {&Node::TiposContrato, 43},
    {&Node::TiposJustificacion, 44},
    {&Node::TiposMaterialDidactico, 45},
    {&Node::TiposMiembroCentro, 46},
    {&Node::TiposMotivoBaja, 47},
    {&Node::TiposNivelEstudios, 48},
    {&Node::TiposNota, 49},
    {&Node::TiposOcurrencia, 50},
    {&Node::TiposParentesco, 51},
    {&Node::TiposTarea, 52},
    {&Node::Turnos, 53},
    {&Node::Tareas, 54},
    {&Node::Papelera, 55},
    {&Node::PapeleraSeguridad, 56},
    {&Node::Enfermedades, 57},
    {&Node::RemesasRecibidas, 58},
    {&Node::RemesasAEnviar, 59},
    {&Node::RemesasEnviadas, 60},
    {&Node::IncidenciaPersonal, 100},
    {&Node::IncidenciaAlumno, 101}};

TEST(cNombreNodoTest, AreSixtyEightBytes) {
  EXPECT_EQ(std::size(kNodes), 68U);
  EXPECT_EQ(sizeof(cNombreNodo), 68U);
}

TEST(cNombreNodoTest, HaveTheirNumbersInTheirOrder) {
  const cNombreNodo nodes;
  const auto* next = &nodes.NotaPendientesSeccionMateria;
  for (const auto& [member, value] : kNodes) {
    EXPECT_EQ(nodes.*member, value);
    EXPECT_EQ(&(nodes.*member), next++) << value;
  }
}

}  // namespace
}  // namespace quorvane::test
