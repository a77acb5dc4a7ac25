// Reading my.ini.
#include "corvane/frame/internal/profile.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <string>

#include "corvane/frame/host.h"

namespace corvane::internal {
namespace {

std::string Trim(const std::string& s) {
  const auto first = s.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return "";
  const auto last = s.find_last_not_of(" \t\r\n");
  return s.substr(first, last - first + 1);
}

bool SameName(const std::string& a, const std::string& b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
           return std::tolower(x) == std::tolower(y);
         });
}

}  // namespace

std::string ReadProfileString(const std::string& section, const std::string& key,
                              const std::string& path, std::size_t buffer_size) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return "";
  std::string line;
  bool in_section = false;
  while (std::getline(in, line)) {
    const std::string t = Trim(line);
    if (t.empty() || t[0] == ';') continue;
    if (t.front() == '[') {
      const auto close = t.find(']');
      in_section = close != std::string::npos && SameName(Trim(t.substr(1, close - 1)), section);
      continue;
    }
    if (!in_section) continue;
    const auto eq = t.find('=');
    if (eq == std::string::npos || !SameName(Trim(t.substr(0, eq)), key)) continue;
    std::string value = Trim(t.substr(eq + 1));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front()) {
      value = value.substr(1, value.size() - 2);
    }
    if (buffer_size == 0) return "";
    if (value.size() > buffer_size - 1) value.resize(buffer_size - 1);
    return value;
  }
  return "";
}

std::string ProfilePath() { return ApplicationPath() + "/../my.ini"; }

}  // namespace corvane::internal
