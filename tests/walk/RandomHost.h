#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "apps/escuela/Prng.h"
#include "frame/cAsignarDatos.h"
#include "platform/controls/Label.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/PersonSearch.h"
#include "platform/host/SessionValues.h"

namespace quorvane::test {

/// What a host has of a school.
struct HostConnections {
  Connection& centro;
  Connection& borrado;
  Connection& entrada;
  bool sqlServer = false;  ///< the flags are those of SQL Server
};

struct HostSession {
  int user = 1;
  int profile = 0;
  int centre = 1;
  bool active = true;
};

/// The host of the module on the walk: a session of any kind, and components that answer anything
/// that they may. Its components are in use as long as it lives.
class RandomHost {
 public:
  explicit RandomHost(Prng& random) : random_(random) {
    auto& objects = Application::Instance().Objects();
    objects.Register(CentroApi::kProgId,
                     [&random] { return std::make_unique<RandomCentroApi>(random); });
    objects.Register(PersonSearch::kProgId,
                     [&random] { return std::make_unique<RandomPersonSearch>(random); });
  }
  ~RandomHost() { Application::Instance().Objects().Reset(); }
  RandomHost(RandomHost&&) = delete;

  /// Hands in a session of that user, with a profile and a centre drawn by lot. What it tells is
  /// for the history.
  std::string SignIn(const HostConnections& school, int user) {
    return SignIn(
        school, {user, random_.Chance(50) ? 0 : 1, random_.Chance(97) ? 1 : 2, random_.Chance(90)});
  }
  /// Hands in that session, and tells it.
  static std::string SignIn(const HostConnections& school, const HostSession& asked) {
    const auto flag = [](bool value) { return Value(value ? -1 : 0); };
    auto session = std::make_shared<SessionValues>();
    session->Set("RutaAplicacion", Value("C:\\Zendria"));
    session->Set("RutaIcono", Value("C:\\Zendria\\iconos\\zendria.ico"));
    session->Set("RutaBD", Value("C:\\Zendria\\centro.mdb"));
    session->Set("Activa", flag(asked.active));
    session->Set("Accion", Value(0));
    session->Set("lngRowData", Value(0));
    session->Set("conexionBORRADOlocalCENTRO", &school.borrado);
    session->Set("conexionlocalCENTRO", &school.centro);
    session->Set("conexionAppEntrada", &school.entrada);
    session->Set("IDUsuario", Value(asked.user));
    session->Set("IDPerfil", Value(asked.profile));
    session->Set("IDCentro", Value(asked.centre));
    session->Set("IDCursoEscolar", Value(1));
    session->Set("NombreUsuario", Value("Usuario"));
    session->Set("NombreCentro", Value("Centro"));
    session->Set("Pesetas", flag(false));
    session->Set("SQLServer", flag(school.sqlServer));
    cAsignarDatos().ObtenerDatos(session);
    return "sesion usuario=" + std::to_string(asked.user) +
           " perfil=" + std::to_string(asked.profile) + " centro=" + std::to_string(asked.centre) +
           " activa=" + (asked.active ? "1" : "0") + (school.sqlServer ? " sqlserver" : "");
  }

 private:
  class RandomCentroApi : public CentroApi {
   public:
    explicit RandomCentroApi(Prng& random) : random_(random) {}

    void acortartextolabel(Label& label) override {
      constexpr std::size_t kRoom = 12;
      if (label.Caption().size() > kRoom) label.Caption(label.Caption().substr(0, kRoom) + "...");
    }

    std::string ObtenerHoraSistema(std::string& /*dataSource*/) override {
      static const std::array<const char*, 6> kDates{"",           "15/03/2026", "1/6/2026",
                                                     "15/03/2026", "30-06-2026", "01/01/1999"};
      return random_.Chance(1) ? "31/02/2026" : random_.OneOf(kDates);
    }

    bool notasactivas(Connection& /*conexion*/, const std::string& /*texto*/,
                      std::int16_t /*idUsuario*/, std::int32_t& /*idPersonal*/,
                      std::int16_t& /*idSeccion*/, std::int16_t& /*idEvaluacion*/) override {
      return random_.Chance(10);
    }

   private:
    Prng& random_;
  };

  class RandomPersonSearch : public PersonSearch {
   public:
    explicit RandomPersonSearch(Prng& random) : random_(random) {}

    /// Any of the staff, nobody, or somebody whom the school doesn't know.
    std::int32_t Buscar(const std::string& /*clase*/) override {
      constexpr std::size_t kAnswers = 9;
      return static_cast<std::int32_t>(random_.Below(kAnswers)) - 1;
    }

   private:
    Prng& random_;
  };

  Prng& random_;
};

}  // namespace quorvane::test
