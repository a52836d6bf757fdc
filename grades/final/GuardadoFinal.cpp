#include "grades/final/GuardadoFinal.h"

#include <string>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/data/Connection.h"

namespace quorvane {
namespace {

Recordset Execute(const std::string& statement) { return Centro().Execute(statement); }

/// One subject's rows of final evaluations, seen from one of them. What is stored for True is the
/// same on both engines; what is compared with it isn't.
class FilasActa {
 public:
  FilasActa(const cMateria& materia, std::int32_t evaluacion)
      : materia_(materia),
        evaluacion_(std::to_string(evaluacion)),
        deMateria_(" AND CodAlumnoPte_MatDet =" +
                   std::to_string(materia.CodAlumno_MateriaDetalles)) {}

  void Escribir(bool ultima, bool evaluado) const {
    Execute("UPDATE EvaluacionActaPte SET UltimaEvaluada=" + Almacenado(ultima) +
            ", CodNota=" + std::to_string(materia_.Nota) +
            ", CodNotaObservacion=" + std::to_string(materia_.Observacion) + ", RE_AC_DIV=" +
            std::to_string(materia_.REACDIV) + ", Evaluado=" + Almacenado(evaluado) +
            " WHERE CodNumEvaluacion=" + evaluacion_ + deMateria_);
  }

  [[nodiscard]] bool MarcaPosterior() const {
    return !Execute("SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE UltimaEvaluada=" +
                    cConfiguracion::Instancia().Verdadero() + " AND CodNumEvaluacion > " +
                    evaluacion_ + deMateria_)
                .Eof();
  }

  void MarcarAnterior() const {
    const auto anteriores = Execute(
        "SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE CodNota > 0 AND "
        "CodNumEvaluacion < " +
        evaluacion_ + deMateria_);
    if (anteriores.Eof()) return;
    Execute("UPDATE EvaluacionActaPte SET UltimaEvaluada=-1 WHERE IDEvaluacionActaPte=" +
            std::to_string(anteriores.Fields("IDEvaluacionActaPte").Long()));
  }

  void QuitarOtrasMarcas() const {
    Execute("UPDATE EvaluacionActaPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion <> " +
            evaluacion_ + deMateria_);
  }

 private:
  static std::string Almacenado(bool valor) { return valor ? "-1" : "0"; }

  const cMateria& materia_;
  std::string evaluacion_;
  std::string deMateria_;
};

}  // namespace

void GuardarMateriaFinal(const cMateria& materia, std::int32_t evaluacion) {
  const FilasActa filas(materia, evaluacion);
  if (materia.Nota < 1) {
    filas.Escribir(false, false);
    if (!filas.MarcaPosterior()) filas.MarcarAnterior();
  } else if (filas.MarcaPosterior()) {
    filas.Escribir(false, true);
  } else {
    filas.Escribir(true, true);
    filas.QuitarOtrasMarcas();
  }
}

}  // namespace quorvane
