#include "grades/final/PorMateriaFinal.h"

#include <string>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "grades/final/RejillaFinal.h"
#include "grades/grid/CeldaNotas.h"
#include "grades/loading/Alumnos.h"
#include "platform/CheckBox.h"
#include "platform/ComboBox.h"
#include "platform/Connection.h"
#include "platform/Retivo.h"

namespace quorvane {
namespace {

cMateria& MateriaDeAlumno(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                          const MateriaDeCombo& entrada) {
  return *AlumnoDeFila(rejilla, colAlumnos).colMateria[Key(entrada.IDMatDet)];
}

}  // namespace

void LeerCurso(std::int32_t curso, CheckBox& chkPromocion, std::uint8_t& bytPromocion,
               bool& blnMedidas) {
  const auto fila =
      Centro().Execute("SELECT Promocion, RE_AC FROM Curso WHERE IDCurso=" + std::to_string(curso));
  const auto promocion = fila.Fields("Promocion").Long();
  if (promocion == 0) chkPromocion.Visible(false);
  if (promocion == 1 || promocion == 2) {
    chkPromocion.Caption(promocion == 1 ? "Promoción" : "Promoción al título");
    bytPromocion = 1;
  }
  if (fila.Fields("RE_AC").Flag()) blnMedidas = true;
}

void LlenarComboMaterias(ComboBox& cboMaterias, const std::vector<MateriaDeCombo>& materias) {
  if (materias.empty()) return;
  cboMaterias.Clear();
  std::int32_t numero = 0;
  for (const auto& materia : materias)
    cboMaterias.AddItem((materia.CodAsociada != 0 ? "     " : "") + materia.Nombre, ++numero);
  cboMaterias.ListIndex(0);
}

void LlenarFilasFinales(Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                        const MateriaDeCombo& entrada) {
  if (entrada.CodAsociada != 0) return;
  for (const auto& alumno : colAlumnos) {
    if (!alumno->colMateria.Contains(Key(entrada.IDMatDet))) continue;
    rejilla.AddItem(AlumnoConOrden(alumno->IDAlumno));
    const auto fila = rejilla.Rows() - 1;
    rejilla.TextMatrix(fila, rejilla.Cols() - 1, std::to_string(alumno->IDAlumno));
    EscribirNotasFinales(rejilla, fila, *alumno->colMateria[Key(entrada.IDMatDet)]);
  }
}

void LlenarCeldaDeMateria(Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                          const MateriaDeCombo& entrada, const DatosPasoUno& seleccion,
                          const Form& form) {
  const auto columna = rejilla.Col();
  rejilla.ListaLimpiar(columna);
  if (columna == kColumnaMedidas) {
    LlenarMedidas(rejilla, MateriaDeAlumno(rejilla, colAlumnos, entrada));
    return;
  }
  if (entrada.CodAsociada != 0) return;
  rejilla.ListaAnadir(columna, " ", 0);
  LlenarLista(rejilla, columna,
              SentenciaCeldaFinal(seleccion, columna, MateriaDeAlumno(rejilla, colAlumnos, entrada),
                                  std::to_string(entrada.IDMatDet), false),
              form);
}

void TomarCeldaDeMateria(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                         const MateriaDeCombo& entrada) {
  if (entrada.CodAsociada != 0) return;
  AsignarNotaFinal(MateriaDeAlumno(rejilla, colAlumnos, entrada), rejilla.Col(),
                   DatoElegido(rejilla));
}

}  // namespace quorvane
