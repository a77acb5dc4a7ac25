// Reading my.ini.
//
// The reader takes a file the way the platform's private profile strings do:
//   - a line is cut at "\n" (or at "\r" where no "\n" follows), and blanks at
//     both of its ends are dropped;
//   - "[name]" starts a section; text after "]" is ignored; a "[" with no "]"
//     is no section but an ordinary line of the section it stands in;
//   - any other line is a key: the name up to the first "=", the value after
//     it, blanks around both dropped; a line with no "=" is a key with no
//     value, which reads as the default;
//   - there are no comments: ";" starts nothing, so a ";" after a value is
//     part of it (a line that begins with ";" is a key no one asks for);
//   - only the first section of a name is searched, and in it the first key
//     of the name, names compared without regard to case (ASCII);
//   - a value that begins and ends with the same quote, single or double, and
//     is longer than one character loses the two quotes;
//   - what is handed back is cut to what a buffer of buffer_size characters
//     holds with its terminating zero.
#include "corvane/frame/internal/profile.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "corvane/frame/host.h"

namespace corvane::internal {
namespace {

bool IsBlank(char c) {
  // The platform's blanks: white space and the end-of-file mark ^Z.
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f' || c == '\x1a';
}

std::string_view Trim(std::string_view s) {
  while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsBlank(s.back())) s.remove_suffix(1);
  return s;
}

unsigned char Fold(char c) {
  const unsigned char u = static_cast<unsigned char>(c);
  return u >= 'A' && u <= 'Z' ? static_cast<unsigned char>(u + ('a' - 'A')) : u;
}

bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Fold(x) == Fold(y); });
}

// The next line of text from pos, as the platform cuts lines.
std::string_view NextLine(std::string_view text, std::size_t* pos) {
  const std::size_t start = *pos;
  std::size_t end = text.find('\n', start);
  if (end == std::string_view::npos) end = text.find('\r', start);
  if (end == std::string_view::npos) {
    *pos = text.size();
    return text.substr(start);
  }
  *pos = end + 1;
  return text.substr(start, end - start);
}

}  // namespace

std::string ReadProfileString(const std::string& section, const std::string& key,
                              const std::string& path, std::size_t buffer_size) {
  if (buffer_size == 0) return "";
  std::ifstream in(path, std::ios::binary);
  if (!in) return "";
  const std::string content((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::string_view text = content;
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);  // a UTF-8 mark

  enum class Where { kBefore, kInside, kAfter } where = Where::kBefore;
  std::size_t pos = 0;
  while (pos < text.size() && where != Where::kAfter) {
    const std::string_view line = Trim(NextLine(text, &pos));
    if (line.empty()) continue;
    if (line.front() == '[') {
      const std::size_t close = line.find(']');
      if (close != std::string_view::npos) {
        if (where == Where::kInside) {
          where = Where::kAfter;  // the first section of the name had no such key
        } else if (SameName(Trim(line.substr(1, close - 1)), section)) {
          where = Where::kInside;
        }
        continue;
      }
    }
    if (where != Where::kInside) continue;
    const std::size_t eq = line.find('=');
    if (!SameName(Trim(line.substr(0, eq)), key)) continue;
    if (eq == std::string_view::npos) return "";  // the key has no value
    std::string_view value = Trim(line.substr(eq + 1));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front()) {
      value = value.substr(1, value.size() - 2);
    }
    return std::string(value.substr(0, buffer_size - 1));
  }
  return "";
}

std::string ProfilePath() { return ApplicationPath() + "/../my.ini"; }

}  // namespace corvane::internal
