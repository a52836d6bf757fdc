#include "bench/GuionMemory.h"

#include <array>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace quorvane::bench {
namespace {

std::string Script() {
  const auto chosen = [](const char* combo, int data) {
    return std::string("elegir ") + combo + " =" + std::to_string(data) + "\n";
  };
  return "nodo 123\n" + chosen("cboTEnsenanza", BenchSchool::kKind) +
         chosen("cboCurso", BenchSchool::kCourse) + chosen("cboSeccion", BenchSchool::kSection) +
         "pulsar cmdAceptar\npulsar cmdAceptar\nnodo 124\n" +
         chosen("cboTipoEnsenanza", BenchSchool::kKind) +
         chosen("cboCursos", BenchSchool::kCourse) + chosen("cboSecciones", BenchSchool::kSection) +
         chosen("cboEvaluaciones", BenchSchool::kEvaluation) +
         "pulsar cmdNotaManual1(0)\npulsar cmdAceptar\ncerrar\n";
}

std::string Content(const std::string& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The most memory that a process has had since it began to run its program, in MiB.
double PeakOf(pid_t process) {
  const auto status = Content("/proc/" + std::to_string(process) + "/status");
  const auto at = status.find("VmHWM:");
  return at == std::string::npos ? 0 : std::stod(status.substr(at + 6)) / 1024;
}

}  // namespace

double GuionMemory(const std::string& program, const BenchSchool& school) {
  const auto printed = school.Path() + ".txt";
  std::array<int, 2> script{};
  if (pipe2(script.data(), O_CLOEXEC) != 0) return 0;
  posix_spawn_file_actions_t actions{};
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, script[0], STDIN_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, printed.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0600);
  auto name = program;
  std::string option = "--bd";
  auto path = school.Path();
  std::array<char*, 4> arguments{name.data(), option.data(), path.data(), nullptr};
  pid_t process = 0;
  double peak = 0;
  if (posix_spawn(&process, program.c_str(), &actions, nullptr, arguments.data(), environ) == 0) {
    const auto text = Script();
    static_cast<void>(!write(script[1], text.data(), text.size()));
    // It waits for the next line then, and its figures can still be read.
    constexpr auto kPause = std::chrono::milliseconds(10);
    for (int i = 0; i < 1000 && Content(printed).find("vuelve 124") == std::string::npos; ++i)
      std::this_thread::sleep_for(kPause);
    peak = PeakOf(process);
    close(script[1]);
    waitpid(process, nullptr, 0);
  } else {
    close(script[1]);
  }
  close(script[0]);
  posix_spawn_file_actions_destroy(&actions);
  std::filesystem::remove(printed);
  return peak;
}

}  // namespace quorvane::bench
