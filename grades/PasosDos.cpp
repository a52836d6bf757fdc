// Which form step one opens as its step two.
#include "grades/final/frmNotaManualFinal.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/final/frmNotaSeccionMateriaFinal.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/student/frmNotaManual.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/controls/FormInstance.h"
#include "selection/PasoDos.h"

namespace quorvane {
namespace {

template <class Formulario, class Paso = PasoDos>
class PasoDosDe : public Paso {
 public:
  void mstrCaption(const std::string& caption) final { Instancia().mstrCaption = caption; }
  void Mostrar() final { Instancia().ShowModal(); }

 protected:
  static Formulario& Instancia() { return FormInstance<Formulario>::Get(); }
};

template <class Formulario>
class PasoDosFinalDe final : public PasoDosDe<Formulario, PasoDosFinal> {
 public:
  void mlngIdEvaluacionJunio(std::int32_t id) final {
    this->Instancia().elegida.mlngIdEvaluacionJunio = id;
  }
  void mblnFinalSeptiembre(bool segunda) final {
    this->Instancia().elegida.mblnFinalSeptiembre = segunda;
  }
};

template <class Paso>
Paso& Unico() {
  static Paso paso;
  return paso;
}

}  // namespace

PasoDos& PasoDosFrmNotaManual() { return Unico<PasoDosDe<frmNotaManual>>(); }
PasoDos& PasoDosFrmNotaMateria() { return Unico<PasoDosDe<frmNotaMateria>>(); }
PasoDos& PasoDosFrmNotaSeccionAlumno() { return Unico<PasoDosDe<frmNotaSeccionAlumno>>(); }
PasoDos& PasoDosFrmNotaSeccionMateria() { return Unico<PasoDosDe<frmNotaSeccionMateria>>(); }
PasoDosFinal& PasoDosFrmNotaManualFinal() { return Unico<PasoDosFinalDe<frmNotaManualFinal>>(); }
PasoDosFinal& PasoDosFrmNotaMateriaFinal() { return Unico<PasoDosFinalDe<frmNotaMateriaFinal>>(); }
PasoDosFinal& PasoDosFrmNotaSeccionAlumnoFinal() {
  return Unico<PasoDosFinalDe<frmNotaSeccionAlumnoFinal>>();
}
PasoDosFinal& PasoDosFrmNotaSeccionMateriaFinal() {
  return Unico<PasoDosFinalDe<frmNotaSeccionMateriaFinal>>();
}

}  // namespace quorvane
