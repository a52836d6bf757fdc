#include "grades/final/GuardadoFinal.h"

#include "frame/cConfiguracion.h"
#include "grades/final/CargaFinal.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {
namespace {

/// One subject's rows of final evaluations, seen from one of them. What is stored for True is the
/// same on both engines; what is compared with it isn't.
class FilasActa {
 public:
  FilasActa(Connection& centro, const cMateria& materia, std::int32_t evaluacion)
      : centro_(centro),
        materia_(materia),
        evaluacion_(evaluacion),
        id_(materia.CodAlumno_MateriaDetalles) {}

  void EscribirSinNota() const {
    centro_.Execute(Sql(
        "UPDATE EvaluacionActaPte SET UltimaEvaluada=0, CodNota={}, CodNotaObservacion={}, RE_AC_DIV={}, Evaluado=0 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}",
        materia_.Nota, materia_.Observacion, materia_.REACDIV, evaluacion_, id_));
  }

  void EscribirSinMarca() const {
    centro_.Execute(Sql(
        "UPDATE EvaluacionActaPte SET UltimaEvaluada=0, CodNota={}, CodNotaObservacion={}, RE_AC_DIV={}, Evaluado=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}",
        materia_.Nota, materia_.Observacion, materia_.REACDIV, evaluacion_, id_));
  }

  void EscribirConMarca() const {
    centro_.Execute(Sql(
        "UPDATE EvaluacionActaPte SET UltimaEvaluada=-1, CodNota={}, CodNotaObservacion={}, RE_AC_DIV={}, Evaluado=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}",
        materia_.Nota, materia_.Observacion, materia_.REACDIV, evaluacion_, id_));
  }

  [[nodiscard]] bool MarcaPosterior() const {
    return !centro_
                .Execute(Sql(
                    "SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE UltimaEvaluada={} AND CodNumEvaluacion > {} AND CodAlumnoPte_MatDet ={}",
                    cConfiguracion::Instancia().NumeroVerdadero(), evaluacion_, id_))
                .Eof();
  }

  void MarcarAnterior() const {
    const auto anteriores = centro_.Execute(Sql(
        "SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE CodNota > 0 AND CodNumEvaluacion < {} AND CodAlumnoPte_MatDet ={}",
        evaluacion_, id_));
    if (anteriores.Eof()) return;
    centro_.Execute(
        Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=-1 WHERE IDEvaluacionActaPte={}",
            anteriores.Fields("IDEvaluacionActaPte").Long()));
  }

  void QuitarOtrasMarcas() const {
    centro_.Execute(Sql(
        "UPDATE EvaluacionActaPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion <> {} AND CodAlumnoPte_MatDet ={}",
        evaluacion_, id_));
  }

 private:
  Connection& centro_;
  const cMateria& materia_;
  std::int32_t evaluacion_;
  std::int32_t id_;
};

}  // namespace

void GuardarMateriaFinal(Connection& centro, const cMateria& materia, std::int32_t evaluacion) {
  const FilasActa filas(centro, materia, evaluacion);
  if (materia.Nota < 1) {
    filas.EscribirSinNota();
    if (!filas.MarcaPosterior()) filas.MarcarAnterior();
  } else if (filas.MarcaPosterior()) {
    filas.EscribirSinMarca();
  } else {
    filas.EscribirConMarca();
    filas.QuitarOtrasMarcas();
  }
}

}  // namespace quorvane
