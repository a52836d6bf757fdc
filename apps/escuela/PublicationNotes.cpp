#include "apps/escuela/PublicationNotes.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>  // IWYU pragma: keep
#include <system_error>
#include <unistd.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr auto kEnding = ".abierta";
constexpr auto kFirstLine = "zendria 1";
constexpr std::uintmax_t kGreatest = 16384;  // bytes; a note has hundreds
constexpr mode_t kMode = 0644;               // another user of the computer reads it too

std::string Text(const PublicationNotes::Note& note) {
  std::ostringstream text;
  const auto& process = note.process;
  text << kFirstLine << "\nequipo " << process.machine << "\nnombre " << note.computer
       << "\narranque " << process.boot << "\nespacio " << process.space << "\nproceso "
       << process.process << ' ' << process.start << '\n';
  for (const auto& entry : note.entries)
    text << "publicacion " << entry.publication << ' ' << entry.user << ' ' << entry.since << '\n';
  return text.str();
}

bool Take(std::istream& line, const std::string& key, PublicationNotes::Note& note) {
  auto& process = note.process;
  if (key == "equipo") return static_cast<bool>(line >> process.machine);
  if (key == "nombre") return static_cast<bool>(std::getline(line >> std::ws, note.computer));
  if (key == "arranque") return static_cast<bool>(line >> process.boot);
  if (key == "espacio") return static_cast<bool>(line >> process.space);
  if (key == "proceso") return static_cast<bool>(line >> process.process >> process.start);
  if (key != "publicacion") return false;
  PublicationNotes::Entry entry;
  if (!(line >> entry.publication >> entry.user >> entry.since)) return false;
  note.entries.push_back(entry);
  return true;
}

std::optional<PublicationNotes::Note> ReadNote(const fs::path& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error) || fs::file_size(path, error) > kGreatest || error)
    return std::nullopt;
  std::ifstream file(path);
  std::string text;
  if (!std::getline(file, text) || text != kFirstLine) return std::nullopt;
  PublicationNotes::Note note;
  while (std::getline(file, text)) {
    std::istringstream line(text);
    std::string key;
    if (!(line >> key) || !Take(line, key, note)) return std::nullopt;
  }
  return note;
}

/// Whole and on the disk under its name, or not at all.
void WriteWhole(const std::string& path, const std::string& content) {
  const auto unfinished = path + ".nueva";
  const auto handle =
      open(unfinished.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, kMode);
  if (handle < 0) return;
  const auto written = write(handle, content.data(), content.size());
  const auto whole = written == static_cast<ssize_t>(content.size()) && fsync(handle) == 0;
  close(handle);
  std::error_code ignored;
  if (whole)
    fs::rename(unfinished, path, ignored);
  else
    fs::remove(unfinished, ignored);
}

/// Only letters that every file system takes.
std::string InFileName(std::string text) {
  for (auto& letter : text)
    if (!((letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
          (letter >= '0' && letter <= '9')))
      letter = '_';
  return text;
}

}  // namespace

PublicationNotes PublicationNotes::Beside(const std::string& school) {
  // One place for all who reach the file, by whatever path or link: a living program's note that
  // isn't seen leaves its publication to a dead one's.
  std::error_code error;
  const auto file = fs::canonical(school, error);
  return PublicationNotes((error ? school : file.string()) + "-");
}

std::string PublicationNotes::PathOf(const Note& note) const {
  return prefix_ + InFileName(note.computer) + "-" + std::to_string(note.process.process) + "-" +
         std::to_string(note.process.start) + kEnding;
}

std::vector<PublicationNotes::Note> PublicationNotes::Read() const {
  const fs::path prefix(prefix_);
  const auto begin = prefix.filename().string();
  const auto folder = prefix.parent_path().empty() ? fs::path(".") : prefix.parent_path();
  std::vector<Note> notes;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    const auto name = at->path().filename().string();
    if (!name.starts_with(begin) || !name.ends_with(kEnding)) continue;
    if (auto note = ReadNote(at->path())) notes.push_back(std::move(*note));
  }
  return notes;
}

void PublicationNotes::Write(const Note& note) const {
  if (note.entries.empty())
    Remove(note);
  else
    WriteWhole(PathOf(note), Text(note));
}

void PublicationNotes::WriteOwn(const std::vector<Entry>& entries) const {
  Write({ProcessMark::Own(), ComputerName(), entries});
}

void PublicationNotes::StrikeOut(std::int32_t publication) const {
  for (auto& note : Read()) {
    const auto before = note.entries.size();
    std::erase_if(note.entries,
                  [&](const Entry& entry) { return entry.publication == publication; });
    if (note.entries.size() != before && StateOf(note.process) == ProcessState::Gone) Write(note);
  }
}

void PublicationNotes::Remove(const Note& note) const {
  std::error_code ignored;
  fs::remove(PathOf(note), ignored);
}

}  // namespace quorvane
