#include "apps/zendria/Program.h"

int main(int argc, char** argv) { return quorvane::zendria::RunProgram(argc, argv); }
