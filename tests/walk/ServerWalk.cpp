#include "tests/walk/ServerWalk.h"

#include <fstream>
#include <iostream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "apps/escuela/NewSchool.h"
#include "tests/support/ServerRights.h"
#include "tests/support/TempFolder.h"
#include "tests/walk/Violation.h"
#include "tests/walk/Walk.h"

namespace quorvane::test {
namespace {

/// Walks on schools in memory and writes the transcript down. True when all was as it should be.
bool WriteTranscript(const WalkOptions& options, History& history, const std::string& path) {
  try {
    std::ofstream file(path);
    history.Transcript = [&file](const std::string& line) { file << line << '\n'; };
    Walk walk(options, history);
    walk.OrderRows();
    walk.Run();
    return true;
  } catch (const std::exception& failure) {
    std::cerr << "walk: en un fichero: " << failure.what() << '\n';
    history.Print(std::cerr);
    return false;
  }
}

/// In a process of its own: the module keeps some things as long as its program runs.
void WriteInChild(const WalkOptions& options, History& history, const std::string& path) {
  const auto child = fork();
  if (child == 0) {
    const auto good = WriteTranscript(options, history, path);
    std::cerr.flush();
    _exit(good ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
    throw Violation("Ya en un fichero no va como debe");
}

/// A transcript to hold another one against.
class Expected {
 public:
  explicit Expected(const std::string& path) : file_(path) {}

  void Hold(const std::string& text) {
    std::size_t start = 0;
    for (auto end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
      HoldLine(text.substr(start, end - start));
      start = end + 1;
    }
    HoldLine(text.substr(start));
  }

  void HoldEnd() {
    std::string line;
    if (std::getline(file_, line)) throw Violation("En el fichero sigue con: " + line);
  }

  [[nodiscard]] std::uint64_t Lines() const noexcept { return lines_; }

 private:
  void HoldLine(const std::string& line) {
    std::string expected;
    std::getline(file_, expected);
    ++lines_;
    if (line != expected)
      throw Violation("En el servidor va de otra manera que en un fichero:\n  " + line + "\n  " +
                      expected);
  }

  std::ifstream file_;
  std::uint64_t lines_ = 0;
};

void MakeTables(const WalkOptions& options) {
  const auto owners = SchoolAddress::Odbc(options.owner.empty() ? options.odbc : options.owner);
  MakeSchool(owners, [](Connection&) {});
  if (options.owner.empty()) return;
  const auto owner = owners.Open("");
  for (const auto& right : ServerRights()) owner->Execute(right);
}

}  // namespace

void WalkOnServer(const WalkOptions& options, History& history, std::ostream& out) {
  const TempFolder folder;
  const auto path = folder / "fichero";
  WriteInChild(options, history, path);
  MakeTables(options);
  const auto teacher = SchoolAddress::Odbc(options.odbc).Open("");
  const auto owner =
      SchoolAddress::Odbc(options.owner.empty() ? options.odbc : options.owner).Open("");
  Expected expected(path);
  history.Transcript = [&expected](const std::string& line) { expected.Hold(line); };
  Walk walk(options, history);
  walk.OnServer({*teacher, *owner});
  walk.Run();
  history.Transcript = nullptr;
  expected.HoldEnd();
  walk.Report(out);
  out << expected.Lines() << " líneas como en un fichero\n";
}

}  // namespace quorvane::test
