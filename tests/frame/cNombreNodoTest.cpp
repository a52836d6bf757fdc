#include <algorithm>
#include <gtest/gtest.h>

#include "frame/cNombreNodo.h"

namespace quorvane::test {
namespace {

struct Node {
  const std::uint8_t cNombreNodo::*member;
  int value;
};

// In the order of the members.
const Node kNodes[] = {
    {&cNombreNodo::NotaPendientesSeccionMateria, 127},
    {&cNombreNodo::NotaPendientesSeccionAlumno, 126},
    {&cNombreNodo::NotaPendientesMateria, 125},
    {&cNombreNodo::NotaPendientesAlumno, 124},
    {&cNombreNodo::Pendientes, 123},
    {&cNombreNodo::Evaluaciones, 11},
    {&cNombreNodo::Zendria, 1},
    {&cNombreNodo::CentrosExistentes, 2},
    {&cNombreNodo::NombreColegio, 3},
    {&cNombreNodo::Administracion, 4},
    {&cNombreNodo::Prematriculacion, 5},
    {&cNombreNodo::Alumnos, 6},
    {&cNombreNodo::Personal, 7},
    {&cNombreNodo::Centro, 8},
    {&cNombreNodo::Actividades, 9},
    {&cNombreNodo::APA, 10},
    {&cNombreNodo::ZN_Bancos, 0},
    {&cNombreNodo::Recibos, 12},
    {&cNombreNodo::ReciboCobro, 13},
    {&cNombreNodo::ReciboPago, 14},
    {&cNombreNodo::ReciboHistorico, 15},
    {&cNombreNodo::Remesa, 16},
    {&cNombreNodo::Claustro, 17},
    {&cNombreNodo::Mantenimiento, 18},
    {&cNombreNodo::Cursos, 19},
    {&cNombreNodo::MaterialDidactico, 20},
    {&cNombreNodo::Modelos, 21},
    {&cNombreNodo::SistemasCalificacion, 22},
    {&cNombreNodo::Materias, 23},
    {&cNombreNodo::NotasAlumnos, 24},
    {&cNombreNodo::Secciones, 25},
    {&cNombreNodo::Seguridad, 26},
    {&cNombreNodo::Perfiles, 27},
    {&cNombreNodo::Usuarios, 28},
    {&cNombreNodo::OpcionesConfiguracion, 29},
    {&cNombreNodo::OC_Bancos, 30},
    {&cNombreNodo::Emisor, 31},
    {&cNombreNodo::Observaciones, 32},
    {&cNombreNodo::OpcionesMateria, 33},
    {&cNombreNodo::Paises, 34},
    {&cNombreNodo::Ponderaciones, 35},
    {&cNombreNodo::Presentador, 36},
    {&cNombreNodo::Profesiones, 37},
    {&cNombreNodo::TiposActitud, 38},
    {&cNombreNodo::TiposAlumno, 39},
    {&cNombreNodo::TipoCentro, 40},
    {&cNombreNodo::TiposIncidencia, 41},
    {&cNombreNodo::TiposIva, 42},
    {&cNombreNodo::TiposContrato, 43},
    {&cNombreNodo::TiposJustificacion, 44},
    {&cNombreNodo::TiposMaterialDidactico, 45},
    {&cNombreNodo::TiposMiembroCentro, 46},
    {&cNombreNodo::TiposMotivoBaja, 47},
    {&cNombreNodo::TiposNivelEstudios, 48},
    {&cNombreNodo::TiposNota, 49},
    {&cNombreNodo::TiposOcurrencia, 50},
    {&cNombreNodo::TiposParentesco, 51},
    {&cNombreNodo::TiposTarea, 52},
    {&cNombreNodo::Turnos, 53},
    {&cNombreNodo::Tareas, 54},
    {&cNombreNodo::Papelera, 55},
    {&cNombreNodo::PapeleraSeguridad, 56},
    {&cNombreNodo::Enfermedades, 57},
    {&cNombreNodo::RemesasRecibidas, 58},
    {&cNombreNodo::RemesasAEnviar, 59},
    {&cNombreNodo::RemesasEnviadas, 60},
    {&cNombreNodo::IncidenciaPersonal, 100},
    {&cNombreNodo::IncidenciaAlumno, 101},
};

TEST(cNombreNodoTest, AreSixtyEightBytes) {
  EXPECT_EQ(std::size(kNodes), 68U);
  EXPECT_EQ(sizeof(cNombreNodo), 68U);
}

TEST(cNombreNodoTest, HaveTheirNumbersInTheirOrder) {
  const cNombreNodo nodes;
  const auto* const first = &nodes.NotaPendientesSeccionMateria;
  for (std::size_t i = 0; i < std::size(kNodes); ++i) {
    EXPECT_EQ(nodes.*kNodes[i].member, kNodes[i].value) << i;
    EXPECT_EQ(&(nodes.*kNodes[i].member), first + i) << i;
  }
}

TEST(cNombreNodoTest, OnlyZnBancosIsZero) {
  EXPECT_EQ(cNombreNodo().ZN_Bancos, 0);
  const cNombreNodo nodes;
  EXPECT_EQ(std::count_if(std::begin(kNodes), std::end(kNodes),
                          [&nodes](const Node& node) { return nodes.*node.member == 0; }),
            1);
}

}  // namespace
}  // namespace quorvane::test
