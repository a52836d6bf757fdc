#include "apps/escuela/import/SchoolImport.h"

#include <map>
#include <memory>
#include <optional>
#include <set>

#include "apps/escuela/PatientWork.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/Transaction.h"
#include "apps/escuela/import/ImportPlan.h"
#include "apps/escuela/import/PlayedConnection.h"
#include "apps/escuela/import/RegisterPlayer.h"

namespace quorvane {
namespace {

constexpr std::size_t kPerRegister = 1000;

using BySection = std::map<const RegisterLookup::Section*, std::vector<ImportedSubject>>;

BySection Sorted(const ImportPlan& plan) {
  BySection bySection;
  for (const auto& subject : plan.subjects) bySection[subject.section].push_back(subject);
  // A register may have nothing to be given but teachers.
  for (const auto& [section, teachers] : plan.teachers) bySection[section];
  return bySection;
}

class Importer {
 public:
  Importer(const SchoolAddress& address, Connection& school)
      : centro_(school, "centro"),
        borrado_(address.StandBy("borrado")),
        entrada_(address.StandBy("entrada")),
        otra_(address.StandBy("")),
        player_({centro_, *borrado_, *entrada_, *otra_}, ReachesSqlServer(school)) {}

  void Play(const ImportPlan& plan, const RegisterLookup& school, ImportReport& report,
            const std::function<void(std::size_t, std::size_t)>& progress) {
    const auto bySection = Sorted(plan);
    std::set<std::int32_t> students;
    const auto all = bySection.size() * kPerRegister;
    std::size_t done = 0;
    for (const auto& [section, subjects] : bySection) {
      const auto teachers = plan.teachers.find(section);
      const auto& given = teachers == plan.teachers.end() ? kNoTeachers : teachers->second;
      // Registers are of all sizes, and often there is one alone: its gestures count, too.
      const auto step = [&](std::size_t made, std::size_t gestures) {
        if (progress) progress(done * kPerRegister + made * kPerRegister / gestures, all);
      };
      if (player_.Play(*section, subjects, given, school, step) == RegisterPlayer::End::InUse) {
        report.misfits.push_back("El registro de " + section->name +
                                 " está en uso: alguien introduce notas, y no se puede guardar");
      } else {
        for (const auto& subject : subjects) students.insert(subject.student->id);
        report.subjects += subjects.size();
        report.teachers += given.size();
      }
      ++done;
    }
    if (progress) progress(all, all);
    report.students = students.size();
  }

 private:
  inline static const std::map<std::int32_t, std::int32_t> kNoTeachers;

  PlayedConnection centro_;
  std::unique_ptr<Connection> borrado_;
  std::unique_ptr<Connection> entrada_;
  std::unique_ptr<Connection> otra_;
  RegisterPlayer player_;
};

ImportReport Import(const SchoolAddress& address, const std::vector<CsvRow>& rows,
                    const ImportOptions& options,
                    const std::function<void(std::size_t, std::size_t)>& progress) {
  const auto school = OpenForPiece(address, options.simulate ? SchoolAddress::Access::ReadOnly
                                                             : SchoolAddress::Access::ReadWrite);
  RequireSchool(*school, "No se puede importar en " + address.Shown() + ": ");
  std::optional<Transaction> transaction;
  if (!options.simulate) {
    transaction.emplace(*school);
    // A file is held for writing at once, and waited for: what is looked up stays so.
    school->Execute("DELETE FROM BloqueoPte WHERE 1=0");
  }
  const RegisterLookup lookup(*school);
  // What is written comes afterwards, and takes longer: until then nothing is done.
  const auto plan = PlanImport(rows, lookup, [&](std::size_t looked) {
    if (progress) progress(options.simulate ? looked : 0, rows.size());
  });
  ImportReport report;
  report.lines = plan.lines;
  report.misfits = plan.misfits;
  report.warnings = plan.warnings;
  report.standing = plan.standing;
  if (options.simulate || (!report.misfits.empty() && !options.whatFits)) return report;
  Importer(address, *school).Play(plan, lookup, report, progress);
  if (!report.misfits.empty() && !options.whatFits) return report;
  transaction->KeepOrTell();
  report.written = true;
  return report;
}

}  // namespace

ImportReport ImportRegister(
    const SchoolAddress& address, const std::string& file, const ImportOptions& options,
    const std::function<void(std::size_t done, std::size_t all)>& progress) {
  const auto rows = ReadCsv(file);
  ImportReport report;
  TellIfHeldOrLost([&] { report = Import(address, rows, options, progress); });
  return report;
}

}  // namespace quorvane
