#include "apps/escuela/Leftovers.h"

#include <algorithm>

namespace quorvane {
namespace {

using Holder = Leftovers::Holder;

Holder HolderOf(const ProcessMark& process) {
  switch (StateOf(process)) {
    case ProcessState::Running:
      return Holder::Running;
    case ProcessState::Gone:
      return Holder::Gone;
    default:
      return Holder::Elsewhere;
  }
}

/// Who lives, or may, is to be believed before who has died.
int Weight(Holder holder) {
  switch (holder) {
    case Holder::Running:
      return 3;
    case Holder::Elsewhere:
      return 2;
    case Holder::Gone:
      return 1;
    default:
      return 0;
  }
}

}  // namespace

std::vector<Leftovers::Left> Leftovers::Of(std::int32_t user) const {
  // Most who sign in have none, and the whole list takes a statement a lock.
  const auto any = school_.Execute(
      "SELECT IDPublicacionPte FROM PublicacionPte WHERE codPropietario=" + std::to_string(user));
  std::vector<LockList::Publication> publications;
  if (!any.Eof()) publications = LockList(school_).Read();
  const auto notes = notes_.Read();
  std::vector<Left> left;
  for (const auto& publication : publications) {
    if (publication.owner != user || !publication.exists) continue;
    Left found{publication, Holder::NoteLess, {}, 0, 0};
    for (const auto& note : notes)
      for (const auto& entry : note.entries) {
        if (entry.publication != publication.id || entry.user != user) continue;
        const auto holder = HolderOf(note.process);
        if (Weight(holder) <= Weight(found.holder)) continue;
        found = {publication, holder, note.computer, note.process.process, entry.since};
      }
    left.push_back(found);
  }
  return left;
}

std::size_t Leftovers::RemoveGone(std::int32_t user, const std::vector<Left>& seen) {
  std::size_t removed = 0;
  for (const auto& now : Of(user)) {
    if (now.holder != Holder::Gone || std::find(seen.begin(), seen.end(), now) == seen.end())
      continue;
    if (!LockList(school_).RemoveUnchanged(now.publication)) continue;
    notes_.StrikeOut(now.publication.id);
    ++removed;
  }
  return removed;
}

void Leftovers::Tidy() {
  // The notes first: who was gone by then has inserted nothing since.
  auto notes = notes_.Read();
  std::erase_if(notes, [](const PublicationNotes::Note& note) {
    return StateOf(note.process) != ProcessState::Gone;
  });
  if (notes.empty()) return;
  std::vector<std::int32_t> there;
  auto rows = school_.Execute("SELECT IDPublicacionPte FROM PublicacionPte");
  for (; !rows.Eof(); rows.MoveNext()) there.push_back(rows.Fields(0).Long());
  for (const auto& note : notes)
    if (std::none_of(note.entries.begin(), note.entries.end(), [&there](const auto& entry) {
          return std::find(there.begin(), there.end(), entry.publication) != there.end();
        }))
      notes_.Remove(note);
}

}  // namespace quorvane
