// Writes the tables of a school as the SQL of each engine: write_schema FOLDER

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "frame/schema/SchoolSchema.h"

namespace {

void Write(const std::string& path, std::string_view sql) {
  std::ofstream file(path, std::ios::binary);
  file << sql;
  file.close();
  if (!file) throw std::runtime_error("can't write " + path);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("write_schema FOLDER\n", stderr);
    return 2;
  }
  try {
    const std::string folder = argv[1];
    Write(folder + "/sqlite.sql", quorvane::SqliteSchema());
    Write(folder + "/sqlserver.sql", quorvane::SqlServerSchema());
    Write(folder + "/postgresql.sql", quorvane::PostgreSqlSchema());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "write_schema: %s\n", error.what());
    return 1;
  }
  return EXIT_SUCCESS;
}
