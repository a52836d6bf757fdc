#include "apps/escuela/import/CsvText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "apps/escuela/CsvLine.h"
#include "apps/escuela/Refusal.h"
#include "platform/text/Utf8.h"

namespace quorvane {
namespace {

constexpr std::size_t kMostFileBytes = 64U << 20;
constexpr std::size_t kMostLines = 100000;

/// The letters from 0x80 to 0x9F; what has none there stays a control character.
constexpr std::array<char32_t, 32> kWindowsLetters = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

std::string FromWindows(const std::string& text) {
  std::string utf8;
  utf8.reserve(text.size() * 5 / 4);
  for (const auto letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    if (byte < 0x80U)
      utf8 += letter;
    else
      utf8 += Utf8Encode(byte < 0xA0U ? kWindowsLetters[byte - 0x80U] : char32_t{byte});
  }
  return utf8;
}

/// What parts the cells: what the first row has more of outside quotes.
char Separator(const std::string& text) {
  auto quoted = false;
  std::ptrdiff_t semicolons = 0;
  for (const auto letter : text) {
    if (letter == '"') quoted = !quoted;
    if (quoted) continue;
    if (letter == '\n') break;
    if (letter == ';') ++semicolons;
    if (letter == ',') --semicolons;
  }
  return semicolons > 0 ? ';' : ',';
}

void Trim(std::string& cell) {
  constexpr auto kBlanks = " \t\r\n";
  cell.erase(0, std::min(cell.find_first_not_of(kBlanks), cell.size()));
  cell.erase(cell.find_last_not_of(kBlanks) + 1);
}

/// Walks over a text and cuts it into rows.
class Reader {
 public:
  explicit Reader(const std::string& text) : text_(text), separator_(Separator(text)) {}

  std::vector<CsvRow> Rows() {
    std::vector<CsvRow> rows;
    while (at_ < text_.size()) {
      auto row = Row();
      const auto empty = [](const std::string& cell) { return cell.empty(); };
      if (std::all_of(row.cells.begin(), row.cells.end(), empty)) continue;
      if (rows.size() > kMostLines)
        Refuse("El fichero tiene más de " + std::to_string(kMostLines) +
               " filas: ¿es el que quería?");
      rows.push_back(std::move(row));
    }
    return rows;
  }

 private:
  CsvRow Row() {
    CsvRow row{line_, {}};
    for (;;) {
      row.cells.push_back(Cell());
      Trim(row.cells.back());
      if (at_ == text_.size()) return row;
      const auto end = text_[at_++];
      if (end != '\n') continue;
      ++line_;
      return row;
    }
  }

  /// Up to what parts it from the next, or to the end.
  std::string Cell() {
    while (at_ < text_.size() && text_[at_] == ' ') ++at_;
    std::string cell;
    if (at_ < text_.size() && text_[at_] == '"') cell = Quoted();
    while (at_ < text_.size() && text_[at_] != separator_ && text_[at_] != '\n')
      cell += text_[at_++];
    return cell;
  }

  std::string Quoted() {
    const auto line = line_;
    std::string cell;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '\n') ++line_;
      if (text_[at_] != '"') {
        cell += text_[at_];
      } else if (at_ + 1 < text_.size() && text_[at_ + 1] == '"') {
        cell += text_[at_++];
      } else {
        ++at_;
        return cell;
      }
    }
    Refuse("Línea " + std::to_string(line) + ": falta la comilla que cierra el texto");
  }

  const std::string& text_;
  char separator_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

}  // namespace

std::vector<CsvRow> ParseCsv(std::string text) {
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  if (text.find('\0') != std::string::npos)
    Refuse("El fichero no es un texto de valores separados por comas: guárdelo como CSV");
  if (!IsUtf8(text)) text = FromWindows(text);
  return Reader(text).Rows();
}

namespace {

[[noreturn]] void RefuseToRead(const std::string& path, const std::string& reason) {
  Refuse("No se puede leer " + path + ": " + reason);
}

/// A file that is open for reading, and of which nobody has to wait for another program.
class PlainFile {
 public:
  explicit PlainFile(const std::string& path)
      : path_(path), handle_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {
    if (handle_ < 0)
      RefuseToRead(path_, errno == ENOENT ? "el fichero no existe" : std::strerror(errno));
    try {
      RequirePlain();
    } catch (...) {
      close(handle_);
      throw;
    }
  }
  ~PlainFile() { close(handle_); }
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;
  PlainFile(PlainFile&&) = delete;
  PlainFile& operator=(PlainFile&&) = delete;

  /// Up to its end, which a file that somebody writes to may put off.
  [[nodiscard]] std::string Text() const {
    std::string text;
    std::array<char, std::size_t{1} << 16> piece{};
    for (;;) {
      const auto count = read(handle_, piece.data(), piece.size());
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) RefuseToRead(path_, "no se deja leer hasta el final");
      if (count == 0) return text;
      text.append(piece.data(), static_cast<std::size_t>(count));
      if (text.size() > kMostFileBytes) RefuseToRead(path_, kTooLarge);
    }
  }

 private:
  static constexpr auto kTooLarge = "ocupa más de 64 MB; ¿es el que quería?";

  void RequirePlain() const {
    struct stat about {};
    if (fstat(handle_, &about) != 0) RefuseToRead(path_, std::strerror(errno));
    if (S_ISDIR(about.st_mode)) RefuseToRead(path_, "es una carpeta");
    if (!S_ISREG(about.st_mode)) RefuseToRead(path_, "no es un fichero corriente");
    if (about.st_size > static_cast<off_t>(kMostFileBytes)) RefuseToRead(path_, kTooLarge);
  }

  std::string path_;
  int handle_;
};

}  // namespace

std::vector<CsvRow> ReadCsv(const std::string& path) { return ParseCsv(PlainFile(path).Text()); }

}  // namespace quorvane
