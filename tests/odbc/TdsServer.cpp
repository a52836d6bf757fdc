#include "tests/odbc/TdsServer.h"

#include <csignal>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvane::test {

TdsServer::TdsServer(const std::string& diesAt, const std::string& product) {
  const auto log = folder_ / "lotes.json";
  const auto file = File();
  for (const auto& path : {log, file}) std::ofstream(path, std::ios::app).flush();
  std::vector<const char*> arguments{
      QUORVANE_PYTHON, QUORVANE_TDS_SERVER, "--db",       file.c_str(),
      "--log",         log.c_str(),         "--password", "secreto",
      "--schema",      QUORVANE_SCHEMA,     "--product",  product.c_str()};
  if (!diesAt.empty()) arguments.insert(arguments.end(), {"--dies-at", diesAt.c_str()});
  arguments.push_back(nullptr);
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("pipe");
  process_ = fork();
  if (process_ == 0) {
    dup2(ends[1], STDOUT_FILENO);
    close(ends[0]);
    close(ends[1]);
    execv(QUORVANE_PYTHON, const_cast<char* const*>(arguments.data()));
    _exit(127);
  }
  close(ends[1]);
  for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';) port_ += digit;
  close(ends[0]);
  if (port_.empty()) throw std::runtime_error("the server of the tests doesn't start");
}

TdsServer::~TdsServer() { Kill(); }

void TdsServer::Kill() {
  if (process_ == 0) return;
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
  process_ = 0;
}

std::string TdsServer::String(const std::string& password) const {
  return "Driver=FreeTDS;Server=127.0.0.1;Port=" + port_ +
         ";TDS_Version=7.4;Database=Centro;UID=zendria;PWD=" + password;
}

std::vector<std::string> TdsServer::Batches() const {
  std::vector<std::string> batches;
  std::ifstream log(folder_ / "lotes.json");
  for (std::string line; std::getline(log, line);)
    batches.push_back(nlohmann::json::parse(line).get<std::string>());
  return batches;
}

}  // namespace quorvane::test
