#include "platform/RuntimeError.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "tests/grades/GradeDirect.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// When the host's component is made, what it is asked, and what happens without it.

namespace quorvane::test {
namespace {

/// A host that lets nobody save.
class StrictCentro : public CentroApi {
 public:
  bool notasactivas(Connection& /*conexion*/, const std::string& /*texto*/,
                    std::int16_t /*idUsuario*/, std::int32_t& /*idPersonal*/,
                    std::int16_t& /*idSeccion*/, std::int16_t& /*idEvaluacion*/) override {
    return true;
  }
};

class NotaManualHostTest : public NotaManualDirect {
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

TEST_F(NotaManualHostTest, IsMadeBeforeThePublicationBeforeTheQuestionAndOnLeaving) {
  std::vector<Lines> before;
  Register([&] {
    before.push_back(session_.Statements());
    return std::make_unique<CentroApi>();
  });
  auto& form = Shown();
  auto written = Locks(kUnrestricted, 1, {3113, 3111, 3112});
  written.resize(written.size() - 2);  // without the question
  ASSERT_EQ(before.size(), 2U);
  EXPECT_EQ(before[0].back(), Sql(expected::kKindOfTutorKind, {41}));
  EXPECT_THAT(before[1], ElementsAreArray(written));
  EXPECT_THAT(session_.Statements(), ElementsAre(Sql(expected::kStaff, {1})));
  const auto held = form.shared_from_this();
  form.Unload();
  ASSERT_EQ(before.size(), 3U);
  EXPECT_THAT(before[2], IsEmpty());
}

TEST_F(NotaManualHostTest, ThatHasNoComponentGetsNoPublication) {
  HaveNone();
  EXPECT_EQ(ErrorOf([this] { Shown(); }), 429);
  EXPECT_EQ(school_.Held(), "0|0");
}

TEST_F(NotaManualHostTest, ThatHasNoComponentGetsNoObjectiveInLaterEvaluations) {
  HaveNone();
  std::int32_t student = 1;
  std::int32_t subject = 1;
  std::int32_t objective = 4;
  auto& form = Form();
  EXPECT_EQ(
      ErrorOf([&] { form.AnadirMateriaEvaluacionesPosteriores(student, subject, objective); }),
      429);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaManualHostTest, ThatForbidsSavingLeavesItsSignOnTheForm) {
  EXPECT_EQ(Opened().strNotasActivas, "");
  Form().Unload();
  Register([] { return std::make_unique<StrictCentro>(); });
  const auto& form = Opened();
  EXPECT_EQ(form.strNotasActivas, "B");
  EXPECT_FALSE(form.cmdAceptar.Enabled());
  EXPECT_TRUE(form.cmdCancelar.Enabled());
}

}  // namespace
}  // namespace quorvane::test
