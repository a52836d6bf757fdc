#include "tests/salida/Moment.h"

#include <chrono>
#include <sqlite3.h>
#include <thread>

namespace quorvane::test {
namespace {

Moment expected;
bool counting = false;
int statements = 0;
int rests = 0;
int saves = 0;

bool Comes(Moment::Kind kind, int number) {
  if (expected.kind != kind || expected.number != number) return false;
  raise(expected.signal);
  return true;
}

int Runs(unsigned /*what*/, void* /*unused*/, void* /*statement*/, void* /*text*/) {
  if (counting) Comes(Moment::Kind::Statement, ++statements);
  return 0;
}

int Watch(sqlite3* database, char** /*error*/, const sqlite3_api_routines* /*unused*/) {
  return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, Runs, nullptr);
}

}  // namespace

void Expect(const Moment& moment) {
  expected = moment;
  sqlite3_auto_extension(reinterpret_cast<void (*)()>(Watch));
}

void BeginCounting() { counting = true; }

int StatementsSoFar() { return statements; }

bool AtRest() {
  if (Comes(Moment::Kind::Rest, ++rests)) return true;
  return expected.kind == Moment::Kind::Rest && rests > expected.number;
}

void Saves() {
  using namespace std::chrono_literals;
  // So long after its last painting the program paints, and hears of the signal, with the first
  // statement of the save.
  if (expected.kind == Moment::Kind::Save) std::this_thread::sleep_for(100ms);
  Comes(Moment::Kind::Save, ++saves);
}

}  // namespace quorvane::test
