#include "selection/FechaNotas.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

constexpr const char* kHost = "host ZendriaApi.cCentroApi.ObtenerHoraSistema";

/// Who may enter grades on which day, the same in the four dialogs but for the refusal.
class DateWindowTest : public EachDialogTest {
 protected:
  DateWindowTest() { Is("CodPadre=0, AdminSistema=0"); }

  void Window(const std::string& first, const std::string& last) const {
    school.Sql(
        "DELETE FROM FechaNotas; INSERT INTO FechaNotas (FechaInicio, FechaFin, CodSeccion, "
        "CodNumEvaluacion) VALUES (" +
        first + "," + last + ",321,1)");
  }

  [[nodiscard]] ScriptResult GoOn(const std::string& today, const std::string& more = "") const {
    // A script that ends in step two leaves its locks, as a killed program would.
    school.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
    auto options = Unrestricted();
    options.hoy = today;
    return PlayIn(1, kNext + "\n" + more, options);
  }

  void ExpectEntry(const ScriptResult& result) const {
    EXPECT_THAT(result.lines, Contains("oculta " + Name())) << result.Text();
    EXPECT_THAT(result.Of("mensaje"), Not(Contains(HasSubstr("superado"))));
  }

  /// The plain dialogs say so; those of a section look up a text that isn't there.
  void ExpectRefusal(const ScriptResult& result) const {
    EXPECT_THAT(result.Of("oculta"), IsEmpty()) << result.Text();
    EXPECT_THAT(result.Of("pitido"), IsEmpty());
    const Lines message{
        R"(exclamacion "Zendria Escuela" "La fecha de la evaluación se ha superado")"};
    EXPECT_EQ(result.Of("mensaje"), dialog_.BySection() ? Lines{} : message);
    if (dialog_.BySection()) return ExpectError(result, 326);
    EXPECT_THAT(result.Of("error"), IsEmpty());
  }

  /// The dates aren't asked for.
  void ExpectUnasked(const ScriptResult& result) const {
    ExpectEntry(result);
    EXPECT_THAT(First(AskedBy(result, kNext), 2),
                ElementsAre(SqlOfUsers(kUser, {1}), Sql(kFinalAndOrder, {1})));
  }
  /// What the user's row holds of his parent and of an administrator.
  void Is(const std::string& user) const {
    school.Sql("UPDATE Usuario SET " + user + " WHERE IDUsuario=1");
  }

  static constexpr const char* kTenth = "'2026/01/10'";
  static constexpr const char* kTwentieth = "'2026/01/20'";
};

INSTANTIATE_TEST_SUITE_P(StepOne, DateWindowTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(DateWindowTest, WithoutARowTheHostIsNotAsked) {
  const auto result = GoOn("15/01/2026");
  ExpectEntry(result);
  EXPECT_THAT(First(AskedBy(result, kNext), 3),
              ElementsAre(SqlOfUsers(kUser, {1}), Sql(kDates, {321, 1}), Sql(kFinalAndOrder, {1})));
  EXPECT_THAT(First(result.After(kNext), 4), Not(Contains(kHost)));
}

TEST_P(DateWindowTest, TheFirstDayIsIncluded) {
  Window(kTenth, kTwentieth);
  const auto result = GoOn("10/01/2026");
  ExpectEntry(result);
  EXPECT_THAT(First(result.After(kNext), 5),
              ElementsAre(SqlOfUsers(kUser, {1}), Sql(kDates, {321, 1}), kHost,
                          Sql(kFinalAndOrder, {1}), "oculta " + Name()));
}

TEST_P(DateWindowTest, TheDayAfterIsRefused) {
  Window(kTenth, kTwentieth);
  const auto result = GoOn("21/01/2026");
  ExpectRefusal(result);
  EXPECT_THAT(AskedBy(result, kNext), ElementsAre(SqlOfUsers(kUser, {1}), Sql(kDates, {321, 1})));
}

TEST_P(DateWindowTest, NullBoundsLetNoDateIn) {
  Window("NULL", kTwentieth);
  ExpectRefusal(GoOn("15/01/2026"));
  Window(kTenth, "NULL");
  ExpectRefusal(GoOn("15/01/2026"));
}

TEST_P(DateWindowTest, AnEmptyHostDateIsTodayHere) {
  const auto today = "'" + FormatoFecha(FechaLocal()) + "'";
  Window(today, today);
  ExpectEntry(GoOn(""));
  Window("'1990/01/01'", "'1990/12/31'");
  ExpectRefusal(GoOn(""));
}

// A time, a short year or a date that is turned round are the same day; a text that is no date is
// compared as it stands.
TEST_P(DateWindowTest, TheHostsDateCountsHoweverItIsWritten) {
  Window(kTenth, kTwentieth);
  for (const auto* text : {"20/01/2026", "20/01/2026 23:59:59", "20/01/26", "2026-01-20",
                           "2026/01/20 08:00", "2026/01/15 de enero"}) {
    SCOPED_TRACE(text);
    ExpectEntry(GoOn(text));
  }
  for (const auto* text : {"09/01/2026", "21/01/2026 00:00", "21/01/26", "2026-01-21T00:00:00",
                           "ayer", "31/02/2026", "15/13/2026"}) {
    SCOPED_TRACE(text);
    ExpectRefusal(GoOn(text));
  }
  Window("'2025/12/10'", kTwentieth);
  ExpectEntry(GoOn("1/1/2026"));
}

TEST_P(DateWindowTest, AWindowOfAnotherSectionOrEvaluationDoesNotCount) {
  school.Sql(
      "INSERT INTO FechaNotas (FechaInicio, FechaFin, CodSeccion, CodNumEvaluacion) VALUES "
      "('1990/01/01','1990/01/02',321,2), ('1990/01/01','1990/01/02',311,1)");
  ExpectEntry(GoOn("15/01/2026"));
}

TEST_P(DateWindowTest, AnAdministratorOrAUserWithAParentEntersOnAnyDayAndNullsAreNeither) {
  Window("'1990/01/01'", "'1990/01/02'");
  for (const auto* user : {"AdminSistema=-1", "AdminSistema=1", "CodPadre=7, AdminSistema=NULL"}) {
    SCOPED_TRACE(user);
    Is(user);
    ExpectUnasked(GoOn("15/01/2026"));
  }
  Is("CodPadre=NULL, AdminSistema=NULL");
  ExpectRefusal(GoOn("15/01/2026"));
}

TEST_P(DateWindowTest, AUserWithoutARowIsAnError) {
  school.Sql("DELETE FROM Usuario WHERE IDUsuario=1");
  const auto result = GoOn("15/01/2026");
  ExpectError(result, 3021);
  EXPECT_THAT(AskedBy(result, kNext), ElementsAre(SqlOfUsers(kUser, {1})));
}

/// Where the refusal leaves the dialog open: those of a section end with it.
class PlainDateWindow : public DateWindowTest {};

INSTANTIATE_TEST_SUITE_P(StepOne, PlainDateWindow, ::testing::Values(kByStudent, kBySubject),
                         kNameOfDialog);

// After the message the connection stays open, and the next press opens it again.
TEST_P(PlainDateWindow, ASecondPressAfterTheRefusalReadsTheUserAgain) {
  Window(kTenth, kTwentieth);
  const auto result = GoOn("21/01/2026", "hoy 20/01/2026\n" + kNext);
  EXPECT_THAT(result.Sql("entrada"), SizeIs(2));
  EXPECT_THAT(result.Of("mensaje"), SizeIs(1));
  EXPECT_THAT(result.lines, Contains("oculta " + Name()));
}

// A year of two digits is of this century up to 29.
TEST(FormatoFechaTest, TurnsTheDateRoundUnlessItBeginsWithTheYear) {
  for (const auto& [date, turned] : {std::pair("31/12/2025", "2025/12/31"),
                                     {"1/2/2026", "2026/02/01"},
                                     {"29-02-2024", "2024/02/29"},
                                     {"2026-02-01", "2026/02/01"},
                                     {"2026/2/1", "2026/02/01"},
                                     {"1/2/26", "2026/02/01"},
                                     {"31/12/29", "2029/12/31"},
                                     {"01-01-30", "1930/01/01"}})
    EXPECT_EQ(FormatoFecha(date), turned) << date;
}

TEST(FormatoFechaTest, LeavesATimeOut) {
  for (const auto* text :
       {"1/2/2026 10:00", "01/02/26 9:5", "1/2/2026 23:59:59", "2026-02-01T10:00:00.5",
        "1/2/2026 10:00:00 p. m.", "01/02/2026 10:00 AM", " 01/02/2026 "})
    EXPECT_EQ(FormatoFecha(text), "2026/02/01") << text;
}

TEST(FormatoFechaTest, LeavesAloneWhatIsNoDate) {
  for (const auto* text : {"", "ayer", "29/02/2026", "00/01/2026", "x1/02/2026", "1/2/026", "1/2",
                           "1/2/2026 24:00", "1/2/2026 10:60", "1/2/2026 10", "2026-02-30"})
    EXPECT_EQ(FormatoFecha(text), text);
}

}  // namespace
}  // namespace quorvane::test
