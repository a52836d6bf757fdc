// What the forms do to the models and the host that a script doesn't show.
#include <array>
#include <iterator>
#include <string>
#include <tuple>

#include "frame/cConstCol.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "register/CopiarAlumno.h"
#include "register/cAlumno.h"
#include "register/frmAlumnoMateria.h"
#include "register/frmAlumnoPendiente.h"
#include "register/frmAlumnos.h"
#include "register/frmMateriaEv.h"
#include "register/frmMateriaPend.h"
#include "register/frmPendientes.h"
#include "register/frmPropMatProf.h"
#include "tests/platform/FailsWith.h"
#include "tests/register/DirectSession.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using testing::_;

// What a subject of the register holds itself, in the order of its declaration.
auto Fields(const cMateria& materia) {
  return std::tuple(materia.IDMatDetalle, materia.Nombre, materia.IDPersonal, int{materia.Orden},
                    int{materia.Estado}, int{materia.EstadoAnterior}, int{materia.codCurso});
}

template <class... F>
void ExpectGone() {
  EXPECT_EQ((std::array{FormInstance<F>::Exists()...}), (std::array<bool, sizeof...(F)>{}));
}

constexpr const char* kIcon = "C:\\iconos\\Zendria.ico";

TEST(RegisterModelsTest, TheHourglassStandsFromTheStartOfTheLoadToItsEnd) {
  DirectSession session;
  session.Play({[] {}});
  EXPECT_THAT(session.screen.pointers, ElementsAre(Pointer::Hourglass, Pointer::Default));
}

TEST(RegisterModelsTest, TheHourglassStaysAfterAFailure) {
  DirectSession session;
  session.school.Sql("DROP TABLE Profesor_Pte");
  EXPECT_THROW(session.Play({}), RuntimeError);
  EXPECT_THAT(session.screen.pointers, ElementsAre(Pointer::Hourglass));
}

TEST(RegisterModelsTest, TheGraphHoldsWhatTheTablesSay) {
  DirectSession session;
  session.school.Registra(321, 1);
  const auto pendiente = session.school.Pendiente(1, 3111, 4);
  session.school.Evalua(pendiente, 4);
  session.school.Profesor(2, 3111);
  session.Play({[] {
    const auto& form = The<frmAlumnoPendiente>();
    ASSERT_EQ(form.colAlumnos.Count(), 1U);
    const auto& alumno = *form.colAlumnos["1"];
    const cConstCol estados;
    EXPECT_THAT(alumno, FieldsAre(1, _, "Díaz Cano, Marta", 0, 0, estados.NoModificado,
                                  estados.Modificado));
    const auto& materia = *alumno.colMateria["3111"];
    // The course is that of the student's section, not the subject's.
    EXPECT_EQ(Fields(materia), std::tuple(3111, std::string("Lengua"), 0, 4,
                                          int{estados.NoModificado}, int{estados.Modificado}, 32));
    EXPECT_THAT(*materia.colEvaluaciones["4"],
                FieldsAre(4, "Final", true, false, 0, estados.NoModificado, estados.Modificado));
    EXPECT_THAT(*form.colMatProf["3111"],
                FieldsAre(_, 2, estados.NoModificado, "Gil Mora, Luis", "Lengua (1º ESO - A)"));
  }});
}

TEST(RegisterModelsTest, ASubjectDetailThatNeverHadATeachersRowLoadsAsNew) {
  DirectSession session;
  session.school.Profesor(0, 3111);
  session.Play({[] {
    const cConstCol estados;
    const auto& colMatProf = The<frmAlumnoPendiente>().colMatProf;
    EXPECT_THAT(*colMatProf["3112"],
                FieldsAre(_, 0, estados.NUEVO, "", "Matemáticas (1º ESO - A)"));
    // One that has a row without a teacher doesn't.
    EXPECT_THAT(*colMatProf["3111"], FieldsAre(_, 0, estados.NoModificado, _, _));
  }});
}

TEST(RegisterModelsTest, AcceptingWithNoChangeMarksTheStudentChangedAndPutsHimLast) {
  DirectSession session;
  session.Pendientes(1, {3111});
  session.Pendientes(3, {});
  session.Play({[] {
                  auto& form = The<frmAlumnoPendiente>();
                  form.msgAlumnos.Row(1);
                  form.cmdPropiedades.Press();
                },
                Press(&frmAlumnoMateria::cmdAceptar),
                [] {
                  const cConstCol estados;
                  const auto& colAlumnos = The<frmAlumnoPendiente>().colAlumnos;
                  EXPECT_EQ(colAlumnos["1"]->Estado, estados.Modificado);
                  EXPECT_EQ(colAlumnos["1"]->EstadoAnterior, estados.Modificado);
                  EXPECT_EQ(colAlumnos["1"]->colMateria["3111"]->Estado, estados.NoModificado);
                  EXPECT_EQ(colAlumnos["3"]->Estado, estados.NoModificado);
                  EXPECT_EQ(*std::prev(colAlumnos.end()), colAlumnos["1"]);
                }});
}

TEST(RegisterModelsTest, TheHostMarksTheFieldsOfTheFormThatLoadsBeforeItsIcon) {
  static Lines marked;
  class MarkingApi : public CentroApi {
   public:
    void marcar_Obligatorios(Form& form) override {
      marked.push_back(form.Name());
      EXPECT_EQ(form.Icon(), "");
    }
  };
  marked.clear();
  DirectSession session;
  Application::Instance().Objects().Register(CentroApi::kProgId,
                                             [] { return std::make_unique<MarkingApi>(); });
  session.school.Registra(321, 1);
  session.Play({Press(&frmAlumnoPendiente::cmdPropiedades), Press(&frmAlumnoMateria::cmdAgregar),
                Press(&frmMateriaPend::cmdCancelar), Press(&frmAlumnoMateria::cmdCancelar),
                Press(&frmAlumnoPendiente::cmdPropMat)});
  EXPECT_THAT(marked, ElementsAre("frmPendientes", "frmMateriaPend", "frmPropMatProf"));
}

TEST(RegisterModelsTest, EachFormHasTheIconADefaultAndACancelButton) {
  DirectSession session;
  session.Pendientes(1, {3111});
  Lines seen;
  const auto look = [&seen](auto& form) {
    EXPECT_EQ(form.Icon(), kIcon);
    EXPECT_TRUE(form.cmdAceptar.Default && !form.cmdAceptar.Cancel);
    EXPECT_TRUE(form.cmdCancelar.Cancel && !form.cmdCancelar.Default);
    for (const auto* control : form.Controls()) {
      EXPECT_GT(control->Width(), 0) << form.Name() << ' ' << control->Name();
      EXPECT_GT(control->Height(), 0) << form.Name() << ' ' << control->Name();
      EXPECT_LE(control->Left() + control->Width(), form.ScaleWidth()) << control->Name();
      EXPECT_LE(control->Top() + control->Height(), form.ScaleHeight()) << control->Name();
    }
    seen.push_back(form.Name());
  };
  const auto lookAndLeave = [&look](auto& form) {
    look(form);
    form.cmdCancelar.Press();
  };
  session.Play(
      {[&] {
         look(The<frmPendientes>());
         look(The<frmAlumnoPendiente>());
         The<frmAlumnoPendiente>().cmdListar.Press();
       },
       [&] { lookAndLeave(The<frmAlumnos>()); }, Press(&frmAlumnoPendiente::cmdPropiedades),
       [&] {
         auto& form = The<frmAlumnoMateria>();
         look(form);
         EXPECT_EQ(form.cmdSubir.Picture(), "C:\\iconos\\FlechaArriba.ico");
         EXPECT_EQ(form.cmdBajar.Picture(), "C:\\iconos\\FlechaAbajo.ico");
         form.cmdAgregar.Press();
       },
       [&] { lookAndLeave(The<frmMateriaPend>()); }, Press(&frmAlumnoMateria::cmdPropiedades),
       [&] { lookAndLeave(The<frmMateriaEv>()); }, Press(&frmAlumnoMateria::cmdCancelar),
       Press(&frmAlumnoPendiente::cmdPropMat),
       [&] {
         auto& form = The<frmPropMatProf>();
         EXPECT_EQ(form.cmdNProfesor.Picture(), "C:\\iconos\\Buscar.ico");
         EXPECT_EQ(form.cmdElimProfesor.Picture(), "C:\\iconos\\delete.ico");
         form.lblProfesor.ToolTipText("El nombre entero");
         form.cmdElimProfesor.Press();
         EXPECT_EQ(form.lblProfesor.ToolTipText(), "");
         lookAndLeave(form);
       }});
  EXPECT_THAT(seen,
              ElementsAre("frmPendientes", "frmAlumnoPendiente", "frmAlumnos", "frmAlumnoMateria",
                          "frmMateriaPend", "frmMateriaEv", "frmPropMatProf"));
  ExpectGone<frmPendientes, frmAlumnoPendiente, frmAlumnos, frmAlumnoMateria, frmMateriaPend,
             frmMateriaEv, frmPropMatProf>();
}

TEST(RegisterModelsTest, TheMatrixIsCentredAndFollowsTheMovedRow) {
  DirectSession session;
  session.Pendientes(1, {3111, 3112, 3113});
  session.Play({Press(&frmAlumnoPendiente::cmdPropiedades), [] {
                  auto& form = The<frmAlumnoMateria>();
                  EXPECT_EQ(form.msgMaterias.ColAlignment(1), 4);
                  EXPECT_EQ(form.msgMaterias.ColAlignment(8), 4);
                  EXPECT_NE(form.msgMaterias.ColAlignment(0), 4);
                  EXPECT_EQ(form.msgMaterias.ColAlignment(9), 9);
                  EXPECT_EQ(form.WantsFocus(), nullptr);
                  form.cmdSubir.Press();  // moves nothing, and gives the focus all the same
                  EXPECT_EQ(form.WantsFocus(), &form.msgMaterias);
                  EXPECT_EQ(form.msgMaterias.TopRow(), 1);
                  form.cmdBajar.Press();
                  form.cmdBajar.Press();
                  EXPECT_EQ(form.msgMaterias.TopRow(), 3);
                  const auto& materias = form.objAlumno->colMateria;
                  EXPECT_EQ(materias["3111"]->Orden, 3);
                  EXPECT_EQ(materias["3112"]->Orden, 1);
                  EXPECT_EQ(materias["3113"]->Orden, 2);
                }});
}

TEST(RegisterModelsTest, OrderThatLeavesEightBitsIsAnOverflow) {
  DirectSession session;
  session.Pendientes(1, {3111, 3112});
  session.Play({Press(&frmAlumnoPendiente::cmdPropiedades), [] {
                  auto& form = The<frmAlumnoMateria>();
                  form.objAlumno->colMateria["3111"]->Orden = 255;
                  EXPECT_EQ(ErrorOf([&form] { form.cmdBajar.Press(); }), 6);
                }});
}

TEST(RegisterModelsTest, TheCopyLeavesTheStudentAndTheCourseBehind) {
  DirectSession session;
  session.school.Registra(321, 1);
  session.school.Evalua(session.school.Pendiente(1, 3111, 1), 1);
  session.Play({Press(&frmAlumnoPendiente::cmdPropiedades), [] {
                  const auto& alumno = *The<frmAlumnoPendiente>().colAlumnos["1"];
                  const auto& copia = *The<frmAlumnoMateria>().objAlumno;
                  EXPECT_NE(&alumno, &copia);
                  EXPECT_NE(alumno.colMateria["3111"], copia.colMateria["3111"]);
                  EXPECT_NE(alumno.colMateria["3111"]->colEvaluaciones["1"],
                            copia.colMateria["3111"]->colEvaluaciones["1"]);
                  EXPECT_EQ(alumno.colMateria["3111"]->codCurso, 32);
                  EXPECT_EQ(copia.colMateria["3111"]->codCurso, 0);
                  The<frmAlumnoMateria>().cmdEliminar.Press();
                  EXPECT_EQ(copia.colMateria["3111"]->Orden, 255);
                  EXPECT_EQ(alumno.colMateria["3111"]->Orden, 1);
                  EXPECT_EQ(alumno.colMateria["3111"]->Estado, cConstCol().NoModificado);
                }});
}

TEST(RegisterModelsTest, ACopyHasEveryFieldButTheCourse) {
  cAlumno alumno{7, {}, "Díaz Cano, Marta", 1, 2, 2, 1};
  const auto materia = std::make_shared<cMateria>();
  materia->IDMatDetalle = 3111;
  materia->IDPersonal = 255;
  materia->Nombre = "Lengua";
  materia->Orden = 9;
  materia->Estado = 3;
  materia->EstadoAnterior = 2;
  materia->codCurso = 32;
  const auto evaluacion =
      std::make_shared<cEvaluacion>(cEvaluacion{4, "Final", true, true, 5, 1, 1});
  materia->colEvaluaciones.Add(evaluacion, "4");
  alumno.colMateria.Add(materia, "3111");

  const auto copia = CopiarAlumno(alumno);
  EXPECT_THAT(*copia, FieldsAre(7, _, "Díaz Cano, Marta", 1, 2, 2, 1));
  const auto& suya = *copia->colMateria["3111"];
  EXPECT_NE(&suya, materia.get());
  EXPECT_EQ(suya.codCurso, 0);
  materia->codCurso = 0;
  EXPECT_EQ(Fields(suya), Fields(*materia));
  const auto& otra = *suya.colEvaluaciones["4"];
  EXPECT_NE(&otra, evaluacion.get());
  EXPECT_THAT(otra, FieldsAre(4, "Final", true, true, 5, 1, 1));
}

TEST(RegisterModelsTest, WhatTheDialogsCreateIsNew) {
  DirectSession session;
  session.school.Registra(321, 1);
  session.Play(
      {Press(&frmAlumnoPendiente::cmdPropiedades), Press(&frmAlumnoMateria::cmdAgregar),
       [] {
         auto& form = The<frmMateriaPend>();
         form.cboCurso.ListIndex(0);
         form.cboSeccion.ListIndex(0);
         form.cboMateria.ListIndex(0);
         form.cmdAceptar.Press();
       },
       Press(&frmAlumnoMateria::cmdPropiedades),
       [] {
         auto& form = The<frmMateriaEv>();
         form.lstDisponibles.ListIndex(0);
         form.cmdAgregarUno.Press();
         form.cmdAceptar.Press();
       },
       [] {
         const cConstCol estados;
         const auto& materia = *The<frmAlumnoMateria>().objAlumno->colMateria["3113"];
         EXPECT_EQ(Fields(materia), std::tuple(3113, std::string("Francés (Optativa)"), 255, 1,
                                               int{estados.NUEVO}, int{estados.NUEVO}, 0));
         EXPECT_THAT(*materia.colEvaluaciones["6"],
                     FieldsAre(6, "Extraordinaria", true, true, 3, estados.NUEVO, estados.NUEVO));
       }});
}

}  // namespace
}  // namespace quorvane::test
