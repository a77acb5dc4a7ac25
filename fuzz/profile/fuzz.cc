// Fuzzing the profile reader (my.ini). The input is a section name line, a
// key line and the file. The reader never throws; its value fits the buffer
// it is given, and a smaller buffer gives the front of the same value; a value
// that was found stays the same when more of the section follows at the end
// of the file; a section written before the file wins.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "corvane/frame/internal/profile.h"

namespace {

using corvane::internal::ReadProfileString;

[[noreturn]] void Fail(const char* what, const std::string& input) {
  std::fprintf(stderr, "profile property broken: %s for \"%s\"\n", what, input.c_str());
  std::abort();
}

// The file the reader reads: CORVANE_FUZZ_PROFILE_FILE (the fuzz script puts
// it in memory and removes it), or a file of this process in the temporary
// folder.
const std::string& FilePath() {
  static const std::string path = [] {
    const char* given = std::getenv("CORVANE_FUZZ_PROFILE_FILE");
    if (given != nullptr && *given != '\0') return std::string(given);
    return (std::filesystem::temp_directory_path() /
            ("corvane-fuzz-" + std::to_string(getpid()) + ".ini"))
        .string();
  }();
  return path;
}

std::string Read(const std::string& section, const std::string& key, const std::string& file,
                 std::size_t buffer, const std::string& input) {
  {
    std::ofstream out(FilePath(), std::ios::binary | std::ios::trunc);
    out << file;
  }
  try {
    return ReadProfileString(section, key, FilePath(), buffer);
  } catch (...) {
    Fail("threw", input);
  }
}

// What the reader takes for blanks around names and values.
bool Blank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f' || c == '\x1a';
}

// A name that a "[section]" or "key=" line can carry and give back.
bool Sane(const std::string& name, const char* forbidden) {
  if (name.empty() || name.find_first_of(forbidden) != std::string::npos) return false;
  if (name.find_first_of("\r\n\0", 0, 3) != std::string::npos) return false;
  const char f = name.front(), b = name.back();
  return !Blank(f) && !Blank(b) && f != ';' && f != '[';
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const auto first = input.find('\n');
  if (first == std::string::npos) return 0;
  const auto second = input.find('\n', first + 1);
  if (second == std::string::npos) return 0;
  const std::string section = input.substr(0, first);
  const std::string key = input.substr(first + 1, second - first - 1);
  const std::string file = input.substr(second + 1);

  const std::string value = Read(section, key, file, 4096, input);
  if (value.size() > 4095) Fail("value longer than its buffer", input);
  const std::string small = Read(section, key, file, 8, input);
  if (small != value.substr(0, 7)) Fail("a smaller buffer gives another value", input);
  if (!Read(section, key, file, 0, input).empty() && !Read(section, key, file, 1, input).empty()) {
    Fail("a value in a buffer of one", input);
  }

  // Which key wins is checked on files of plain lines: control characters
  // (NUL, a lone CR, the end-of-file mark) shape lines in ways the model here
  // does not follow.
  const bool plain_lines = file.find_first_of(std::string("\0\r\x1a\v\f", 5)) == std::string::npos;
  if (plain_lines && Sane(section, "]") && Sane(key, "=")) {
    if (!value.empty()) {
      const std::string later = file + "\n[" + section + "]\n" + key + "=later\n";
      if (Read(section, key, later, 4096, input) != value) Fail("a later key won", input);
    }
    const std::string earlier = "[" + section + "]\n" + key + "=earlier\n" + file;
    if (Read(section, key, earlier, 4096, input) != "earlier") Fail("an earlier key lost", input);
  }
  return 0;
}
