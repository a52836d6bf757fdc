#include "apps/zendria/GradeDrafts.h"

#include <QDateTime>
#include <QFile>
#include <QStringList>
#include <QTimer>
#include <algorithm>
#include <iterator>
#include <utility>

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/zendria/AbsentCells.h"
#include "apps/zendria/DraftDialogs.h"
#include "apps/zendria/DraftReplay.h"
#include "apps/zendria/GradeDraft.h"
#include "apps/zendria/GradeEdits.h"
#include "apps/zendria/GradeForm.h"
#include "apps/zendria/OwnFile.h"
#include "apps/zendria/School.h"
#include "apps/zendria/SchoolPlace.h"
#include "platform/controls/Form.h"

namespace quorvane::zendria {
namespace {

constexpr auto kSetAside = "apartado";

bool Holds(const std::vector<GradeCell>& cells, const GradeCell& looked) {
  return std::any_of(cells.begin(), cells.end(),
                     [&looked](const GradeCell& cell) { return SameCell(cell, looked); });
}

/// A statement of the module that reads says nothing of saving.
bool Writes(const std::string& statement) { return !statement.starts_with("SELECT"); }

}  // namespace

/// The draft of the form that is open. Such forms are modal, so that there is one at a time.
class GradeDrafts::Keeper {
 public:
  Keeper(qt::QtFrontEnd& screen, QString folder) : screen_(screen), folder_(std::move(folder)) {
    turn_.setSingleShot(true);
    turn_.callOnTimeout([this] { Write(); });
    SweepUnfinishedFiles(folder_);
  }

  void Begin(School& school, const User& user) {
    owner_ = {IdentityOf(school.Address()), user.id};
    school_ = &school.Own();
    user_ = &user;
    Forget();
  }
  void End() { school_ = nullptr; }

  void Edited(const Form& form, const Retivo& grid, int entry) {
    if (asked_ != &form) KeepUnasked(form);
    if (resting_) return;
    auto edit = ReadGradeEdit(form, grid, entry);
    // What no save writes is no grade to be kept.
    if (!edit || edit->cell.field.empty()) return;
    sheet_ = edit->sheet;
    edits_.Add(*std::move(edit));
    WriteSoon();
  }

  void Unloading(const Form& form) {
    // One that was never asked about leaves its draft as it is.
    if (asked_ != &form) return;
    // Nobody has said that he doesn't want it.
    if (resting_ || screen_.Leaving()) {
      Write();
    } else {
      const auto edited = edits_.Edited();
      later_.erase(std::remove_if(later_.begin(), later_.end(),
                                  [&edited](const auto& cell) { return Holds(edited, cell); }),
                   later_.end());
      told_.clear();
      edits_.Clear();
      dirty_ = true;
      Write();
    }
    Forget();
  }

  void Told(const std::string& statement) {
    if (dirty_ && Writes(statement)) Write();
  }

  void Ready(qt::FormWindow& window) {
    const auto form = AsGradeForm(window.Model());
    if (form == nullptr || !window.Model().Visible() || school_ == nullptr) return;
    auto draft = Take(window.Model(), *form);
    TellBroken(window);
    if (!draft || screen_.Leaving()) return;
    // What was edited before counts: the user has just done it.
    const auto edited = edits_.Edited();
    std::erase_if(draft->cells, [&edited](const auto& cell) { return Holds(edited, cell); });
    const AbsentCells absent(*school_, *user_, *form);
    const auto replay = DraftReplay(window, draft->cells, absent);
    // Until the user has decided, whatever else happens, all of it stays in the file.
    later_ = replay.Cells();
    if (replay.Nothing()) {
      // All of it is saved already: the program ended between the save and this file's end.
      dirty_ = true;
      Write();
      return;
    }
    const auto& waiting = replay.Waiting();
    const auto answer = AskForDraft(&window, {draft->when, replay.Fit(), replay.Changed(),
                                              waiting.size(), absent.Holders(waiting)});
    if (screen_.Leaving()) return;
    if (answer == DraftAnswer::Drop) {
      // What was only told to wait wasn't asked about, unless there was nothing else.
      later_ = replay.Fit() + replay.Changed() > 0 ? waiting : std::vector<GradeCell>();
      dirty_ = true;
      Write();
    } else if (answer == DraftAnswer::Put) {
      Put(window, replay);
    }
  }

  [[nodiscard]] QString Problem() const { return problem_; }

 private:
  void Put(qt::FormWindow& window, const DraftReplay& replay) {
    std::vector<LeftCell> left;
    auto whole = false;
    screen_.Gesture(window, [&] {
      left = replay.Play(window);
      whole = true;
    });
    // After a failure what wasn't put yet waits for the next opening.
    if (!whole) return;
    for (const auto& one : left) told_.push_back(one.cell);
    later_ = replay.Waiting();
    WriteSoon();
    if (!left.empty() && !screen_.Leaving()) ShowLeftCells(&window, left);
  }

  [[nodiscard]] QString FileName() const { return DraftFileName(owner_, sheet_, self_); }
  [[nodiscard]] QString Path() const { return folder_ + '/' + FileName(); }

  /// Whatever comes before the user is asked about a form's draft adds to that.
  void KeepUnasked(const Form& form) {
    const auto grades = AsGradeForm(form);
    if (grades == nullptr) return;
    if (auto draft = Take(form, *grades)) later_ = std::move(draft->cells);
  }

  /// The draft of a form that has opened, which is the one from now on. None where there is none,
  /// and where nothing can be saved.
  std::optional<GradeDraft> Take(const Form& form, const GradeForm& grades) {
    // Else it was taken before, and what was edited since counts.
    if (asked_ != &form) Forget();
    asked_ = &form;
    // Put in here, a draft would end with the only way out.
    resting_ = !grades.Saves();
    if (resting_) return std::nullopt;
    sheet_ = grades.Sheet();
    return Read();
  }

  void TellBroken(qt::FormWindow& window) {
    for (const auto& [file, aside] : std::exchange(broken_, {}))
      TellBrokenDraft(&window, file, aside);
  }

  /// What this program and those that are gone have left, as one draft; whose programs run keep
  /// theirs. Of two of a cell the later counts.
  std::optional<GradeDraft> Read() {
    std::vector<GradeDraft> drafts;
    for (const auto& name : DraftFileNames(folder_, owner_, sheet_)) {
      auto draft = ReadOne(name);
      if (!draft) continue;
      if (draft->writer != self_ && StateOf(draft->writer) == ProcessState::Running) continue;
      if (name != FileName()) found_.append(folder_ + '/' + name);
      drafts.push_back(*std::move(draft));
    }
    if (drafts.empty()) return std::nullopt;
    std::stable_sort(drafts.begin(), drafts.end(),
                     [](const auto& one, const auto& other) { return one.when > other.when; });
    auto whole = std::move(drafts.front());
    for (std::size_t i = 1; i < drafts.size(); ++i)
      std::copy_if(drafts[i].cells.begin(), drafts[i].cells.end(), std::back_inserter(whole.cells),
                   [&whole](const GradeCell& cell) { return !Holds(whole.cells, cell); });
    return whole;
  }

  std::optional<GradeDraft> ReadOne(const QString& name) {
    QByteArray content;
    const auto state = ReadOwnFile(folder_ + '/' + name, content);
    // Another program has just saved it.
    if (state == OwnFileState::Missing) return std::nullopt;
    auto draft = state == OwnFileState::Read ? ReadDraft(content, owner_, sheet_) : std::nullopt;
    if (draft) return draft;
    broken_.emplace_back(folder_ + '/' + name, SetOwnFileAside(folder_, name, kSetAside));
    return std::nullopt;
  }

  /// What was read of others is in this program's own draft, or not wanted any more.
  void RemoveFound() {
    for (const auto& path : found_) QFile::remove(path);
    found_.clear();
  }

  void WriteSoon() {
    dirty_ = true;
    if (!turn_.isActive()) {
      turn_.start(0);
      Write();
    }
  }

  void Write() {
    if (!dirty_) return;
    dirty_ = false;
    auto cells = edits_.Changed();
    const auto edited = edits_.Edited();
    for (const auto* const kept : {&later_, &told_})
      std::copy_if(kept->begin(), kept->end(), std::back_inserter(cells),
                   [&edited](const GradeCell& cell) { return !Holds(edited, cell); });
    if (cells.empty()) {
      QFile::remove(Path());
      RemoveFound();
      return;
    }
    const GradeDraft draft{owner_, sheet_, QDateTime::currentDateTime(), std::move(cells), self_};
    const auto written = ReplaceOwnFile(folder_, FileName(), DraftContent(draft));
    if (written) RemoveFound();
    problem_ = written ? QString()
                       : QStringLiteral(
                             "No se puede guardar el borrador de estas notas en «%1»: "
                             "compruebe que queda sitio en el disco y que la carpeta es "
                             "suya. Hasta entonces, guarde con «Aceptar» a menudo.")
                             .arg(folder_);
  }

  void Forget() {
    edits_.Clear();
    later_.clear();
    told_.clear();
    sheet_ = {};
    dirty_ = false;
    problem_.clear();
    resting_ = false;
    asked_ = nullptr;
    found_.clear();
  }

  qt::QtFrontEnd& screen_;
  QString folder_;
  const ProcessMark self_ = ProcessMark::Own();
  DraftOwner owner_;
  Connection* school_ = nullptr;  // null while no screen of the module is open
  const User* user_ = nullptr;
  GradeSheet sheet_;
  GradeEdits edits_;
  std::vector<GradeCell> later_;  // from a former time, not put in
  QStringList found_;             // the files of other programs that it was in
  std::vector<GradeCell> told_;   // those that can't be, which the user has been shown
  /// Those that were none, and where they are now.
  std::vector<std::pair<QString, std::optional<QString>>> broken_;
  bool dirty_ = false;
  const Form* asked_ = nullptr;  // the one whose draft this is
  bool resting_ = false;         // the form saves nothing
  QTimer turn_;                  // runs until the event loop's turn ends
  QString problem_;
};

GradeDrafts::GradeDrafts(qt::QtFrontEnd& screen, QString folder)
    : keeper_(std::make_shared<Keeper>(screen, std::move(folder))) {
  screen.EditEnding = [keeper = keeper_, before = std::move(screen.EditEnding)](
                          const Form& form, const Retivo& grid, int entry) {
    if (before) before(form, grid, entry);
    keeper->Edited(form, grid, entry);
  };
  screen.FormUnloading = [keeper = keeper_,
                          before = std::move(screen.FormUnloading)](const Form& form) {
    if (before) before(form);
    keeper->Unloading(form);
  };
  screen.FormReady = [keeper = keeper_](qt::FormWindow& window) { keeper->Ready(window); };
}

GradeDrafts::~GradeDrafts() = default;

void GradeDrafts::Begin(School& school, const User& user) { keeper_->Begin(school, user); }

void GradeDrafts::End() { keeper_->End(); }

void GradeDrafts::Told(const std::string& statement) { keeper_->Told(statement); }

std::function<QString()> GradeDrafts::Problem() const {
  return [keeper = keeper_] { return keeper->Problem(); };
}

}  // namespace quorvane::zendria
