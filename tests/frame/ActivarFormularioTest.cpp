#include <map>

#include "frame/cAsignarDatos.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/FormInstance.h"
#include "register/frmPendientes.h"
#include "tests/frame/TableConnection.h"
#include "tests/platform/FailsWith.h"
#include "tests/platform/ScriptedFrontEnd.h"

namespace quorvane::test {
namespace {

class ActivarFormularioTest : public testing::Test {
 protected:
  ActivarFormularioTest() { cConfiguracion::Instancia().conLocalCentro = &empty; }
  void TearDown() override {
    FormInstances::DropAll();
    cConfiguracion::Instancia() = cConfiguracion();
  }

  TableConnection empty;
};

/// Stops each form before it loads.
class StoppingFrontEnd : public ScriptedFrontEnd {
 public:
  void Loading(Form& form) override {
    opened = form.Name();
    throw RuntimeError(ErrorNumber::InvalidCall);
  }

  std::string opened;
};

std::string FirstScreen(int nodo) {
  StoppingFrontEnd screen;
  const auto error =
      ErrorOf([nodo] { cAsignarDatos().ActivarFormulario(static_cast<std::uint8_t>(nodo)); });
  FormInstances::DropAll();
  EXPECT_EQ(error != 0, !screen.opened.empty()) << "a failure comes out";
  return screen.opened;
}

TEST_F(ActivarFormularioTest, OpenTheirFirstScreensThoseOfTheSectionCrossedAndNoOtherDoes) {
  const std::map<int, std::string> screens = {{123, "frmPendientes"},
                                              {124, "frmNotaManual1"},
                                              {125, "frmNotaMateria1"},
                                              {126, "frmNotaSeccionMateria1"},
                                              {127, "frmNotaSeccionAlumno1"}};
  for (int nodo = 0; nodo < 256; ++nodo)
    EXPECT_EQ(FirstScreen(nodo), screens.contains(nodo) ? screens.at(nodo) : "") << nodo;
}

TEST_F(ActivarFormularioTest, DontReadTheKindOfTeaching) {
  const ScriptedFrontEnd screen;
  cAsignarDatos().ActivarFormulario(11, "ESO");
  EXPECT_TRUE(screen.told.empty());
}

TEST_F(ActivarFormularioTest, ReturnWhenTheFormHasGoneAndDropItAlsoWhenItWasOnlyHidden) {
  ScriptedFrontEnd screen;
  screen.user = [](Form& form) { form.Hide(); };
  cAsignarDatos().ActivarFormulario(123);
  EXPECT_EQ(screen.told.back(), "acaba frmPendientes");
  EXPECT_FALSE(FormInstance<frmPendientes>::Exists());
}

TEST_F(ActivarFormularioTest, StartFromAFreshFormEachTime) {
  ScriptedFrontEnd screen;
  cAsignarDatos().ActivarFormulario(123);
  cAsignarDatos().ActivarFormulario(123);
  EXPECT_EQ(std::count(screen.told.begin(), screen.told.end(), "carga frmPendientes"), 2);
}

TEST_F(ActivarFormularioTest, WithAScreenFailBeforeThereIsASession) {
  const ScriptedFrontEnd screen;
  cConfiguracion::Instancia() = cConfiguracion();
  for (std::uint8_t nodo = 123; nodo <= 127; ++nodo) {
    EXPECT_EQ(ErrorOf([nodo] { cAsignarDatos().ActivarFormulario(nodo); }), 91) << int{nodo};
    FormInstances::DropAll();
  }
}

TEST_F(ActivarFormularioTest, DeleteNothing) {
  for (int nodo = 0; nodo < 256; ++nodo)
    EXPECT_FALSE(cAsignarDatos().Eliminar(static_cast<std::uint8_t>(nodo)));
  EXPECT_TRUE(empty.statements.empty());
}

}  // namespace
}  // namespace quorvane::test
