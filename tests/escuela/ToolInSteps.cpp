#include "tests/escuela/ToolInSteps.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvane::test {
namespace {

constexpr int kCallStop = SIGTRAP | 0x80;

[[noreturn]] void BecomeTool(const std::vector<char*>& arguments) {
  for (const auto number : kEndingSignals) std::signal(number, SIG_DFL);
  const auto nowhere = open("/dev/null", O_RDWR);
  dup2(nowhere, STDOUT_FILENO);
  dup2(nowhere, STDERR_FILENO);
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(126);
  std::raise(SIGSTOP);
  execv(arguments.front(), arguments.data());
  _exit(127);
}

}  // namespace

ToolInSteps::ToolInSteps(std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  for (auto& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  process_ = fork();
  if (process_ == 0) BecomeTool(pointers);
  waitpid(process_, &status_, 0);
  ended_ = !WIFSTOPPED(status_);
  if (ended_) return;
  ptrace(PTRACE_SETOPTIONS, process_, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
}

bool ToolInSteps::IsAllowed() {
  ToolInSteps tool({"/bin/true"});
  __ptrace_syscall_info call{};
  return tool.Step(0) && ptrace(PTRACE_GET_SYSCALL_INFO, tool.process_, sizeof(call), &call) > 0;
}

ToolInSteps::~ToolInSteps() {
  if (ended_) return;
  kill(process_, SIGKILL);
  waitpid(process_, &status_, 0);
}

bool ToolInSteps::Step(int signal) {
  ptrace(PTRACE_SYSCALL, process_, nullptr, signal);
  waitpid(process_, &status_, 0);
  ended_ = !WIFSTOPPED(status_);
  return !ended_;
}

bool ToolInSteps::RunTo(const std::vector<long>& calls, const std::string& path) {
  while (!ended_ && Step(pending_)) {
    const auto stop = WSTOPSIG(status_);
    // The program's own beginning looks like a signal.
    pending_ = stop == kCallStop || stop == SIGTRAP ? 0 : stop;
    if (stop != kCallStop) continue;
    __ptrace_syscall_info call{};
    ptrace(PTRACE_GET_SYSCALL_INFO, process_, sizeof(call), &call);
    if (call.op != PTRACE_SYSCALL_INFO_ENTRY) continue;
    const auto number = static_cast<long>(call.entry.nr);
    if (std::find(calls.begin(), calls.end(), number) == calls.end()) continue;
    if (path.empty() || TextAt(call.entry.args[0]).find(path) != std::string::npos ||
        TextAt(call.entry.args[1]).find(path) != std::string::npos)
      return true;
  }
  return false;
}

void ToolInSteps::Interrupt(int number) {
  kill(process_, number);
  RunTo({__NR_rt_sigreturn});
}

int ToolInSteps::Finish() {
  if (!ended_) {
    ptrace(PTRACE_DETACH, process_, nullptr, pending_);
    waitpid(process_, &status_, 0);
    ended_ = true;
  }
  return status_;
}

std::string ToolInSteps::TextAt(unsigned long address) const {
  std::string text;
  std::array<char, 1> letter{};
  const iovec here{letter.data(), letter.size()};
  // A byte at a time: what follows the text may not be there.
  for (constexpr std::size_t kMost = 4096; text.size() < kMost; ++address) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): it is the other process's.
    const iovec there{reinterpret_cast<void*>(address), letter.size()};
    if (process_vm_readv(process_, &here, 1, &there, 1, 0) != 1 || letter[0] == '\0') break;
    text += letter[0];
  }
  return text;
}

}  // namespace quorvane::test
