#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include "adapters/odbc/OdbcConnection.h"
#include "apps/escuela/Prng.h"
#include "tests/support/TcpProxy.h"
#include "tests/walk/History.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/RandomUser.h"

namespace quorvane::test {

/// What goes wrong between a session and its server.
enum class ServerFault {
  Stop,       ///< the server stops at once, and is started again
  Terminate,  ///< it ends its process for this connection
  Reset,      ///< the network cuts the connection
  Silence,    ///< the network carries nothing any more
};

struct FaultOptions {
  ServerFault fault = ServerFault::Terminate;
  int times = 50;
  int atOnce = 1;  ///< processes that share them, each with a school of its own
  std::uint64_t seed = 1;
};

/// What a session's connections have done until the fault.
struct FaultDiary {
  std::function<void(const std::string& statement)> before;  ///< told of each before it begins
  std::vector<std::string> written;                          ///< what wrote and came back well
  std::optional<std::string> inFlight;  ///< the one that writes and didn't come back
  std::int64_t returned = 0;
  std::string error;                           ///< the text that told of the loss; empty until then
  std::chrono::steady_clock::duration took{};  ///< from that statement to its error
};

/// A session's connection, which notes in the diary what comes of its statements.
class FaultConnection : public Connection {
 public:
  /// The diary outlives it.
  FaultConnection(const std::string& text, std::string name, FaultDiary& diary);

  void Open() override;
  void Close() override { engine_.Close(); }
  [[nodiscard]] bool IsOpen() const override { return engine_.IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return engine_.DataSource(); }

  /// The server's process for it, as of the last opening; 0 before.
  [[nodiscard]] int Process() const noexcept { return process_; }

 protected:
  Recordset Run(const std::string& statement) override;

 private:
  odbc::OdbcConnection engine_;
  FaultDiary& diary_;
  int process_ = 0;
};

/// What has come of the faults, in plain numbers: it goes through pipes.
struct FaultFigures {
  std::int64_t faults = 0;
  std::int64_t unseen = 0;          ///< more that met a connection at rest, which was made anew
  std::int64_t returned = 0;        ///< statements
  std::int64_t written = 0;         ///< of them those that write
  std::int64_t inFlight = 0;        ///< writes that the fault met
  std::int64_t inside = 0;          ///< of them those that are in the school afterwards
  std::int64_t outside = 0;         ///< and those that aren't
  std::int64_t publications = 0;    ///< named and removed
  std::int64_t locks = 0;           ///< under them
  std::int64_t reopened = 0;        ///< screens opened again
  std::int64_t longestError = 0;    ///< milliseconds from a statement to its error
  std::int64_t shortestError = 0;   ///< the same
  std::int64_t longestOpening = 0;  ///< milliseconds to open a screen again

  void Add(const FaultFigures& other) {
    longestError = std::max(longestError, other.longestError);
    longestOpening = std::max(longestOpening, other.longestOpening);
    shortestError =
        faults == 0 ? other.shortestError : std::min(shortestError, other.shortestError);
    using F = FaultFigures;
    for (const auto sum : {&F::faults, &F::unseen, &F::returned, &F::written, &F::inFlight,
                           &F::inside, &F::outside, &F::publications, &F::locks, &F::reopened})
      this->*sum += other.*sum;
  }

  void Print(std::ostream& out, const char* what) const {
    out << faults << " faltas: " << what << "\n  de la sentencia al error: de " << shortestError
        << " a " << longestError << " ms"
        << "\n  sentencias que habían vuelto: " << returned << ", de ellas escrituras: " << written
        << ", perdidas: 0"
        << "\n  escrituras en vuelo: " << inFlight << "; han quedado dentro: " << inside
        << ", fuera: " << outside << ", sin efecto: " << inFlight - inside - outside
        << "\n  publicaciones que nombra «bloqueos»: " << publications
        << ", con bloqueos: " << locks << "\n  pantallas abiertas de nuevo: " << reopened
        << ", la que más ha tardado: " << longestOpening
        << " ms\n  faltas en reposo que nadie ha visto: " << unseen << '\n';
  }
};

/// Lets the server or the network fail at random statements of random sessions, one after the
/// other on one school, and looks each time at what the user was told and what is left: every
/// statement that had come back is there and nothing else but the one in flight, the locks that are
/// left have a name, and the same connections open the next screen.
class Faults {
 public:
  /// `seed` is this process's own.
  Faults(const FaultOptions& options, std::uint64_t seed);
  ~Faults();
  Faults(Faults&&) = delete;

  /// That many. Throws a runtime error of the language when something is wrong.
  FaultFigures Run(int times);

 private:
  void One();
  void Draw();
  void PlayUntilLost();
  void Told(const std::string& statement);
  void Strike();
  void StrikeAgain();
  void CheckError();
  void BringBack();
  void CompareRows();
  void RemoveLocks();
  void OpenAgain();
  void Later(const std::function<void()>& work);

  FaultOptions options_;
  Prng random_;
  TcpProxy proxy_;
  std::string school_;
  std::string alike_;  ///< holds what is known to be in the school
  FaultDiary diary_;
  FaultConnection centro_;
  FaultConnection borrado_;
  FaultConnection entrada_;
  History history_;
  RandomUser user_;
  RandomHost host_;
  FaultFigures figures_;
  std::thread later_;
  int untilFault_ = 0;
  bool whileWriting_ = false;
  bool whilePublishing_ = false;
  bool publishes_ = false;
  bool struck_ = false;
  int process_ = 0;  ///< the server's for the connection, when the fault struck
};

}  // namespace quorvane::test
