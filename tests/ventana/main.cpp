#include <QApplication>
#include <array>
#include <cstdint>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/Prng.h"
#include "frame/cAsignarDatos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstance.h"
#include "platform/controls/FormInstances.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/ventana/HastyUser.h"
#include "tests/ventana/ScreenWatch.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/ventana/WindowMain.h"
#include "tests/walk/Disturbance.h"
#include "tests/walk/History.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/School.h"
#include "tests/walk/Violation.h"
#include "tests/walk/WalkOptions.h"

namespace quorvane::test {
namespace {

/// A user in a hurry on the module's real windows, on one school after the other: the sample
/// school, where nothing may fail, and random ones, where the school explains an error.
class WindowWalk {
 public:
  /// `history` outlives the walk.
  WindowWalk(const WalkOptions& options, History& history)
      : options_(options),
        random_(options.seed),
        history_(history),
        screen_(history),
        user_(random_, screen_, history),
        host_(random_) {}

  /// Returns at its end, with every form seen and everything as it should be. `Violation` when it
  /// isn't.
  void Run() {
    // Chance may leave out for a while a form, or what is to be held against the school.
    constexpr std::uint64_t kPatience = 3;
    const auto latest = options_.gestures * kPatience;
    const auto lacking = [this] { return FormNotSeen() || !Now().Each(); };
    while (user_.Gestures() < options_.gestures || (lacking() && user_.Gestures() < latest)) {
      if (user_.Gestures() >= nextSchool_) NewSchool();
      OpenScreen();
    }
    checks_ = Now();
    if (const auto form = FormNotSeen())
      throw Violation("En " + std::to_string(user_.Gestures()) + " gestos nadie ha visto " +
                      std::string(*form));
    if (!checks_.Each()) throw Violation("No se ha llegado a comprobar nada");
  }

  /// What was done, for whoever reads the test's output.
  void Report(std::ostream& out) const {
    out << user_.Gestures() << " gestos, " << screens_ << " pantallas, " << schools_
        << " escuelas, hasta " << screen_.Shown().Deepest() << " formularios uno sobre otro\n"
        << checks_.saves << " veces se han grabado las notas que se mostraban, "
        << checks_.leftTyped << " se ha dejado con el ratón una nota escrita y " << user_.Refusals()
        << " un texto que no lo es, " << checks_.reopened
        << " se ha reabierto un registro grabado\n";
    for (const auto& [form, gestures] : user_.GesturesByForm())
      out << "  " << form << ": " << screen_.Shown().Times().at(form) << " veces, " << gestures
          << " gestos\n";
    out << "Errores:\n";
    for (const auto& [error, times] : errors_) out << "  " << times << " veces " << error << '\n';
  }

 private:
  static constexpr int kRegisterNode = 123;
  static constexpr int kLastNode = 127;
  static constexpr std::uint64_t kGesturesOfSchool = 1500;
  static constexpr std::size_t kGesturesOfScreen = 400;
  static constexpr auto kForms = std::to_array<std::string_view>({
      "frmPendientes",
      "frmAlumnoPendiente",
      "frmAlumnos",
      "frmAlumnoMateria",
      "frmMateriaPend",
      "frmMateriaEv",
      "frmPropMatProf",
      "frmNotaManual1",
      "frmNotaManual",
      "frmNotaManualFinal",
      "frmNotaMateria1",
      "frmNotaMateria",
      "frmNotaMateriaFinal",
      "frmNotaSeccionAlumno1",
      "frmNotaSeccionAlumno",
      "frmNotaSeccionAlumnoFinal",
      "frmNotaSeccionMateria1",
      "frmNotaSeccionMateria",
      "frmNotaSeccionMateriaFinal",
  });

  /// How often something on the screen has been held against the school.
  struct Checks {
    std::uint64_t saves = 0;
    std::uint64_t leftTyped = 0;
    std::uint64_t reopened = 0;

    [[nodiscard]] bool Each() const { return saves > 0 && leftTyped > 0 && reopened > 0; }
  };

  /// What may happen in every school: a form asks a table or recordset for what that doesn't have,
  /// on a subject of another kind or one that is gone; a section's dates are over, for which there
  /// is no text, or the host's date is none.
  static bool MayComeAnywhere(const RuntimeError& error) {
    const auto& text = error.Description();
    return error.Is(ErrorNumber::MissingResource) || error.Is(ErrorNumber::TypeMismatch) ||
           error.Is(ErrorNumber::UnknownField) ||
           text.find("CodAlumno_MateriaDetalles") != std::string::npos ||
           text.find("AlumnoPte_MateriaDetalles") != std::string::npos;
  }

  /// Whether step one of a section's flow was left with its box for recoveries checked: a subject
  /// has no place for the grade of one.
  template <class Form>
  static bool Recovers() {
    return FormInstance<Form>::Exists() && FormInstance<Form>::Get().blnRecuperar;
  }

  void NewSchool() {
    checks_ = Now();
    watch_.reset();
    sample_ = random_.Chance(70);
    school_ =
        sample_ ? std::make_unique<School>(School::Sample{}) : std::make_unique<School>(random_);
    school_->Executing = [this](const std::string& statement) {
      lastStatement_ = statement;
      user_.Interrupt();
    };
    rowsGone_ = false;
    watch_ = std::make_unique<ScreenWatch>(*school_, screen_);
    screen_.UseOnlooker(*watch_);
    screen_.FormReady = [this](const qt::FormWindow& window) { watch_->Ready(window); };
    user_.UseWatch(*watch_);
    nextSchool_ = user_.Gestures() + kGesturesOfSchool;
    history_.Add("escuela " + std::to_string(++schools_) + (sample_ ? " de muestra" : ""));
  }

  void OpenScreen() {
    const auto disturbed = random_.Chance(15);
    if (disturbed) DisturbSchool();
    const auto user = random_.Chance(70) ? 1 : 1 + static_cast<int>(random_.Below(6));
    history_.Add(host_.SignIn(
        {school_->Centro(), school_->Borrado(), school_->Entrada(), school_->SqlServer()}, user));
    const auto node =
        kRegisterNode +
        (random_.Chance(20) ? 0 : static_cast<int>(random_.Below(kLastNode - kRegisterNode + 1)));
    history_.Add("nodo " + std::to_string(node));
    watch_->Begin(disturbed);
    ++screens_;
    user_.PlayFor(50 + random_.Below(kGesturesOfScreen));
    try {
      cAsignarDatos().ActivarFormulario(static_cast<std::uint8_t>(node));
      watch_->End();
    } catch (const RuntimeError& error) {
      Recover(node, error);
    }
    if (QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr)
      throw Violation("La pantalla se ha ido y queda una ventana");
    // What was typed ahead reaches nobody.
    QCoreApplication::processEvents();
  }

  void DisturbSchool() {
    const auto statements = school_->Disturb(random_);
    history_.Add("otros: " + statements);
    rowsGone_ = rowsGone_ || (statements.starts_with("DELETE FROM ") &&
                              !statements.starts_with("DELETE FROM BloqueoPte"));
  }

  void Recover(int node, const RuntimeError& error) {
    const auto text = screen_.Shown().LastForm() + " " + std::to_string(error.Number()) + " " +
                      error.Description();
    history_.Add("error " + text);
    if (!Explains(error))
      throw Violation("Un error que la escuela no explica: " + text + "\nTras " + lastStatement_);
    ++errors_[text];
    FormInstances::DropAll();
    screen_.MousePointer(Pointer::Default);
    const auto known = watch_->Publications();
    LockList locks(school_->Unwatched());
    for (const auto& publication : locks.Read())
      if (publication.id < kLostPublication && !known.contains(std::to_string(publication.id)))
        locks.Remove(publication.id);
    watch_->Failed(node == kRegisterNode);
  }
  [[nodiscard]] bool Explains(const RuntimeError& error) const {
    if (MayComeAnywhere(error)) return true;
    if (error.Is(ErrorNumber::MissingMember))
      return Recovers<frmNotaSeccionAlumno1>() || Recovers<frmNotaSeccionMateria1>();
    if (sample_) return error.Is(ErrorNumber::NoCurrentRecord) && AskedForWhatIsGone();
    // The tutor's grid has no column for such a kind of grade.
    if (error.Is(ErrorNumber::InvalidArrayIndex))
      return lastStatement_.starts_with("SELECT CodEspecificartipoMateria FROM TipoMateria");
    return error.Is(ErrorNumber::NoCurrentRecord) || error.Is(ErrorNumber::DuplicateKey);
  }

  /// The module reads the row that another names without a look whether it is there, and it isn't:
  /// of a school in which somebody has deleted rows.
  [[nodiscard]] bool AskedForWhatIsGone() const {
    return rowsGone_ && lastStatement_.starts_with("SELECT") &&
           school_->Unwatched().Execute(lastStatement_).Eof();
  }
  /// Those of the schools before and of this one.
  [[nodiscard]] Checks Now() const {
    if (watch_ == nullptr) return checks_;
    return {checks_.saves + watch_->Grades().Saves(),
            checks_.leftTyped + watch_->Grades().LeftTyped(),
            checks_.reopened + watch_->Registers().Reopened()};
  }
  /// A form that has been shown on none of the screens; none when all have.
  [[nodiscard]] std::optional<std::string_view> FormNotSeen() const {
    for (const auto form : kForms)
      if (!screen_.Shown().Times().contains(std::string(form))) return form;
    return std::nullopt;
  }

  WalkOptions options_;
  Prng random_;
  History& history_;
  WatchedScreen screen_;
  HastyUser user_;
  RandomHost host_;
  std::unique_ptr<School> school_;
  std::unique_ptr<ScreenWatch> watch_;
  bool sample_ = false;
  bool rowsGone_ = false;  ///< others have deleted some that the school's other rows name
  std::string lastStatement_;
  std::uint64_t nextSchool_ = 0;  ///< when that many gestures have been made
  std::uint64_t schools_ = 0;
  std::uint64_t screens_ = 0;
  Checks checks_;  ///< of the schools before
  std::map<std::string, std::uint64_t> errors_;
};

const WalkOptions kDefaults{.gestures = 20'000, .seed = 1, .odbc = {}, .owner = {}};

constexpr const char* kUsage = R"(Uso: ventana [--gestos N] [--semilla S]

Abre las pantallas del módulo en sus ventanas de verdad y actúa como un usuario
con prisa: teclas y ratón al azar, de una en una o muchas a la vez, también
mientras un formulario carga o graba. Comprueba tras cada grabación que la base
de datos tiene lo que se mostraba, y al cerrar que no quedan publicaciones ni
bloqueos.

  --gestos N    cuántos gestos (20000)
  --semilla S   con qué números al azar (1)
)";

void Run(const WalkOptions& options, History& history) {
  WindowWalk walk(options, history);
  walk.Run();
  walk.Report(std::cout);
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  return WindowMain({"ventana", kUsage, kDefaults, Run}, argc, argv);
}
