#include "selection/ListasPasoUno.h"

#include <utility>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/data/Connection.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

Recordset Leer(const std::string& statement) { return Centro().Execute(statement); }

bool SinLimites() { return cConfiguracion::Instancia().intIDPerfil == 0; }

/// The sections that a member of staff may see: his own, and those whose pending register has a
/// student with a subject that he teaches.
std::string SeccionesVisibles(std::int16_t idPersonal) {
  const auto id = std::to_string(idPersonal);
  return "CodTutor= " + id +
         " OR IDSeccion IN (SELECT CodSeccion FROM AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte"
         " ON AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN"
         " (SELECT codmatdet FROM profesor_pte WHERE CodProfesor=" +
         id + "))";
}

/// The evaluations of a section's register that have rows in one of the two grade tables.
std::string EvaluacionesEn(const std::string& tabla, std::int32_t seccion) {
  return "SELECT IDNumEvaluacion, Descripcion, Final, Extraordinaria, NumEvaluacion.Orden FROM"
         " NumEvaluacion INNER JOIN (" +
         tabla +
         " INNER JOIN (AlumnoPte_MatDet INNER JOIN Seccion_AlumnoPte ON"
         " Seccion_AlumnoPte.codalumno=AlumnoPte_MatDet.codAlumno) ON"
         " AlumnoPte_MatDet.idAlumnoPte_MatDet=" +
         tabla + ".codAlumnoPte_MatDet) ON " + tabla +
         ".codNumEvaluacion=NumEvaluacion.IDNumEvaluacion WHERE Seccion_AlumnoPte.codSeccion=" +
         std::to_string(seccion);
}

const std::string kOrdenEvaluaciones =
    " ORDER BY NumEvaluacion.Final DESC, NumEvaluacion.Extraordinaria DESC, NumEvaluacion.Orden";

}  // namespace

std::string TextoComun(const std::string& clave, const Recordset& fila) {
  if (clave == "idtipoensenanza") return fila.Fields("Nombre").Text();
  if (clave == "idcurso" || clave == "idseccion" || clave == "idnumevaluacion")
    return fila.Fields("Descripcion").Text();
  return {};
}

void LlenarCombo(const std::string& clave, ComboBox& lista, Recordset filas,
                 const TextoEntrada& texto) {
  lista.Clear();
  if (filas.Eof()) {
    lista.Enabled(false);
    return;
  }
  lista.Enabled(true);
  const auto nombre = AsciiLower(clave);
  for (filas.MoveFirst(); !filas.Eof(); filas.MoveNext())
    lista.AddItem(texto(nombre, filas), filas.Fields(clave).Long());
}

std::int16_t LeerPersonal() {
  const auto filas = Leer("SELECT IDPersonal FROM Personal WHERE CodUsuario=" +
                          std::to_string(cConfiguracion::Instancia().intIDUsuario));
  return filas.Eof() ? std::int16_t{0} : filas.Fields("IDPersonal").Integer();
}

void LlenarTipos(ComboBox& lista, std::int16_t idPersonal) {
  const std::string delCentro =
      "SELECT * FROM TipoEnsenanza WHERE IDTipoEnsenanza IN"
      " (SELECT codTipoEnsenanza FROM Centro_TipoEnsenanza) AND IDTipoEnsenanza ";
  const std::string visibles =
      SinLimites() ? "NOT IN (1,2)"
                   : "IN (SELECT CodTipoEnsenanza FROM SistemaCalificacion WHERE"
                     " IDSistemaCalificacion IN (SELECT CodSistemaCalificacion FROM Modelo WHERE"
                     " IDModelo IN (SELECT CodModelo FROM Seccion WHERE " +
                         SeccionesVisibles(idPersonal) + ")))";
  LlenarCombo("IDTipoEnsenanza", lista, Leer(delCentro + visibles + " ORDER BY Orden"));
}

void LlenarEvaluacionesOrdinarias(ComboBox& lista) {
  LlenarCombo("IDNumEvaluacion", lista,
              Leer("SELECT Descripcion, IDNumEvaluacion FROM NumEvaluacion WHERE Final=0" +
                   kOrdenEvaluaciones));
}

bool AbrirLista(const ComboBox& elegida, ComboBox& siguiente, CommandButton& cmdSeguir) {
  if (elegida.ListIndex() == -1) {
    siguiente.Clear();
    siguiente.Enabled(false);
    return false;
  }
  cmdSeguir.Enabled(false);
  siguiente.Enabled(true);
  return true;
}

bool TieneRecuperaciones(std::int32_t tipo) {
  return Leer("SELECT Recuperaciones FROM SistemaCalificacion WHERE CodTipoEnsenanza=" +
              std::to_string(tipo))
      .Fields("recuperaciones")
      .Flag();
}

void LlenarCursos(ComboBox& lista, std::int32_t tipo, std::int16_t idPersonal) {
  auto statement =
      "SELECT Descripcion, IDCurso FROM Curso WHERE codTipoEnsenanza=" + std::to_string(tipo);
  if (!SinLimites()) {
    if (idPersonal <= 0) return;
    statement += " AND IDCurso IN (SELECT CodCurso FROM Seccion WHERE " +
                 SeccionesVisibles(idPersonal) + ")";
  }
  LlenarCombo("IDCurso", lista, Leer(statement + " ORDER BY Orden"));
}

void LlenarSecciones(ComboBox& lista, std::int32_t curso, std::int16_t idPersonal) {
  auto statement =
      "SELECT Descripcion, IDSeccion FROM Seccion WHERE codCurso=" + std::to_string(curso);
  if (SinLimites() || idPersonal > 0) {
    if (!SinLimites()) statement += " AND (" + SeccionesVisibles(idPersonal) + ")";
    LlenarCombo("IDSeccion", lista, Leer(statement + " ORDER BY Descripcion"));
  }
  lista.Enabled(lista.ListCount() > 0);
}

void LlenarEvaluaciones(ComboBox& lista, std::int32_t seccion) {
  LlenarCombo("IDNumEvaluacion", lista,
              Leer(EvaluacionesEn("EvaluacionPte", seccion) + " UNION " +
                   EvaluacionesEn("EvaluacionActaPte", seccion) + kOrdenEvaluaciones));
}

}  // namespace quorvane
