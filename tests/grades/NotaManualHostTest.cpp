#include <gmock/gmock.h>

#include "platform/RuntimeError.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "tests/grades/NotaManualDirect.h"

// When the host's component is made, what it is asked, and what happens without it.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

/// A host that lets nobody save.
class StrictCentro : public CentroApi {
 public:
  bool notasactivas(Connection& /*conexion*/, const std::string& /*texto*/,
                    std::int16_t /*idUsuario*/, std::int32_t& /*idPersonal*/,
                    std::int16_t& /*idSeccion*/, std::int16_t& /*idEvaluacion*/) override {
    return true;
  }
};

class NotaManualHost : public NotaManualDirect {
 protected:
  void TearDown() override { Application::Instance().Objects().Reset(); }

  static void Register(const ObjectFactory::Maker& maker) {
    Application::Instance().Objects().Register(CentroApi::kProgId, maker);
  }
  static void HaveNone() {
    Register(
        []() -> std::unique_ptr<HostObject> { throw RuntimeError(ErrorNumber::CantCreateObject); });
  }
};

TEST_F(NotaManualHost, IsMadeBeforeThePublicationBeforeTheQuestionAndOnLeaving) {
  std::vector<Lines> before;
  Register([&] {
    before.push_back(session_.Statements());
    return std::make_unique<CentroApi>();
  });
  auto& form = session_.Open();
  const Role user{1, 0, 0, true, true, false};
  auto written = Locks(user, 1, {3113, 3111, 3112});
  written.resize(written.size() - 2);  // without the question
  ASSERT_EQ(before.size(), 2U);
  EXPECT_EQ(before[0].back(),
            Sql("SELECT CodEspecificartipoMateria FROM TipoMateria WHERE IDTipoMateria IN "
                "(SELECT CodTipoMateria FROM TipoNota WHERE IDTipoNota=41)"));
  EXPECT_THAT(before[1], ElementsAreArray(written));
  EXPECT_THAT(session_.Statements(),
              ElementsAre(Sql("SELECT IDPersonal FROM Personal WHERE CodUsuario=1")));
  const auto held = form.shared_from_this();
  form.Unload();
  ASSERT_EQ(before.size(), 3U);
  EXPECT_THAT(before[2], IsEmpty());
}

TEST_F(NotaManualHost, ThatHasNoComponentGetsNoPublication) {
  HaveNone();
  EXPECT_EQ(DirectSession::ErrorOf([this] { session_.Open(); }), 429);
  EXPECT_THAT(school_.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
  EXPECT_THAT(school_.Rows("SELECT * FROM BloqueoPte"), IsEmpty());
}

TEST_F(NotaManualHost, ThatHasNoComponentGetsNoObjectiveInLaterEvaluations) {
  HaveNone();
  std::int32_t student = 1;
  std::int32_t subject = 1;
  std::int32_t objective = 4;
  auto& form = FormInstance<frmNotaManual>::Get();
  EXPECT_EQ(DirectSession::ErrorOf(
                [&] { form.AnadirMateriaEvaluacionesPosteriores(student, subject, objective); }),
            429);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaManualHost, ThatForbidsSavingLeavesItsSignOnTheForm) {
  EXPECT_EQ(Opened().strNotasActivas, "");
  FormInstance<frmNotaManual>::Get().Unload();
  Register([] { return std::make_unique<StrictCentro>(); });
  const auto& form = Opened();
  EXPECT_EQ(form.strNotasActivas, "B");
  EXPECT_FALSE(form.cmdAceptar.Enabled());
  EXPECT_TRUE(form.cmdCancelar.Enabled());
}

}  // namespace
}  // namespace quorvane::test
