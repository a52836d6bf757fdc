#include <iostream>

#include "apps/programs/Process.h"
#include "apps/programs/VisibleOutput.h"
#include "apps/zendria/Program.h"

int main(int argc, char** argv) {
  quorvane::BeginProcess();
  const quorvane::VisibleOutput errors(std::cerr);
  return quorvane::zendria::RunProgram(argc, argv);
}
