#include "apps/programs/Process.h"
#include "apps/zendria/Program.h"

int main(int argc, char** argv) {
  quorvane::BeginProcess();
  return quorvane::zendria::RunProgram(argc, argv);
}
