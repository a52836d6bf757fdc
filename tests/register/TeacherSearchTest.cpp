// The person search with the components of a host that shortens names or is in trouble.
#include "frame/cConfiguracion.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/PersonSearch.h"
#include "register/frmAlumnoPendiente.h"
#include "register/frmPropMatProf.h"
#include "tests/register/DirectSession.h"
#include "tests/register/RegisterStatements.h"
#include "tests/support/Matchers.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

using namespace statement;

class ShorteningApi : public CentroApi {
 public:
  void acortartextolabel(Label& label) override { label.Caption(label.Caption().substr(0, 3)); }
};

class FailingSearch : public PersonSearch {
 public:
  std::int32_t Buscar(const std::string& /*clase*/) override {
    throw RuntimeError(ErrorNumber::MissingMember, "sin buscador");
  }
};

class FoundSearch : public PersonSearch {
 public:
  std::int32_t Buscar(const std::string& clase) override { return clase == "Docente" ? 2 : -1; }
};

template <class T>
void Use() {
  Application::Instance().Objects().Register(T::kProgId, [] { return std::make_unique<T>(); });
}

/// Presses the search of the first subject; then what the form holds.
void Search(DirectSession& session, const StepScreen::Step& then) {
  session.Play(
      {Press(&frmAlumnoPendiente::cmdPropMat), Press(&frmPropMatProf::cmdNProfesor), then});
}

/// Notes what it is handed, and finds nobody.
class NotingSearch : public PersonSearch {
 public:
  static inline Lines told;
  static inline std::vector<Connection*> connections;

  void pasarconexiones(Connection* centro, Connection* borrado, Connection* otroCentro,
                       Connection* otroBorrado) override {
    told.emplace_back("pasarconexiones");
    connections = {centro, borrado, otroCentro, otroBorrado};
  }
  void ObtenerDatos(bool activa, const std::string& rutaIcono) override {
    told.push_back("ObtenerDatos " + std::string(activa ? "activa " : "inactiva ") + rutaIcono);
  }
  std::int32_t Buscar(const std::string& clase) override {
    told.push_back("Buscar " + clase);
    return 0;
  }
};

TEST(TeacherSearchTest, IsHandedTheConnectionsTheSessionAndTheKindOfPerson) {
  for (const auto activa : {true, false}) {
    DirectSession session;
    Use<NotingSearch>();
    NotingSearch::told.clear();
    auto& configuracion = cConfiguracion::Instancia();
    TestConnection borrado(session.school.Path(), "borrado");
    configuracion.conLocalBorradoCentro = &borrado;
    configuracion.Activa = activa;
    Search(session, [] {});
    EXPECT_THAT(NotingSearch::connections, ElementsAre(configuracion.conLocalCentro, &borrado,
                                                       configuracion.conLocalCentro, &borrado));
    EXPECT_THAT(NotingSearch::told,
                ElementsAre("pasarconexiones",
                            std::string("ObtenerDatos ") + (activa ? "activa" : "inactiva") +
                                " C:\\iconos\\Zendria.ico",
                            "Buscar Docente"));
    configuracion.Activa = false;
  }
}

TEST(TeacherSearchTest, AShortenedNameIsWhatTheListShows) {
  DirectSession session;
  Use<ShorteningApi>();
  Use<FoundSearch>();
  Search(session, [] {
    EXPECT_EQ(The<frmPropMatProf>().lblProfesor.Caption(), "Gil");
    The<frmPropMatProf>().cmdAceptar.Press();
    EXPECT_EQ(The<frmAlumnoPendiente>().msgMaterias.TextMatrix(1, 1), "Gil");
  });
}

TEST(TeacherSearchTest, AFailureOfTheSearchSurfacesInTheOneTest) {
  DirectSession session;
  Use<FailingSearch>();
  Search(session, [] { EXPECT_EQ(The<frmPropMatProf>().IDProfesorSeleccionado, 0); });
  EXPECT_THAT(session.screen.messages,
              ElementsAre("ERROR al consultar la base de datos.\rsin buscador"));
  // The statement ran all the same, for nobody.
  EXPECT_EQ(session.statements.back(), Person(0));
}

TEST(TeacherSearchTest, AComponentThatCantBeCreatedTellsTheLastFailure) {
  DirectSession session;
  Application::Instance().Objects().Register(
      PersonSearch::kProgId,
      []() -> std::unique_ptr<HostObject> { throw RuntimeError(ErrorNumber::CantCreateObject); });
  Search(session, [] {});
  // Each member that was asked of nothing failed after it.
  EXPECT_THAT(session.screen.messages,
              ElementsAre("ERROR al consultar la base de datos.\r" +
                          RuntimeError(ErrorNumber::ObjectNotSet).Description()));
}

TEST(TeacherSearchTest, AFailureAfterTheTestIsPassedOver) {
  class FailingApi : public CentroApi {
   public:
    void acortartextolabel(Label& label) override {
      if (label.Caption() == "Gil Mora, Luis") throw RuntimeError(ErrorNumber::MissingMember);
    }
  };
  DirectSession session;
  Use<FailingApi>();
  Use<FoundSearch>();
  Search(session, [] {
    EXPECT_EQ(The<frmPropMatProf>().lblProfesor.Caption(), "Gil Mora, Luis");
    EXPECT_EQ(The<frmPropMatProf>().IDProfesorSeleccionado, 2);
  });
  EXPECT_THAT(session.screen.messages, IsEmpty());
}

}  // namespace
}  // namespace quorvane::test
