// Fuzzing the connection-text parser: it never throws; time-outs stay within
// 0 to 86400 seconds (-1 for a connect time-out not given); an item added at
// the end wins over the text before it; and the items written back from what
// it read read back to the same connection.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "corvane/frame/internal/connection_text.h"

namespace {

using corvane::internal::ConnectionParams;
using corvane::internal::ParseConnectionText;

[[noreturn]] void Fail(const char* what, const std::string& input) {
  std::fprintf(stderr, "connection text property broken: %s for \"%s\"\n", what, input.c_str());
  std::abort();
}

bool Same(const ConnectionParams& a, const ConnectionParams& b) {
  return a.server == b.server && a.server_given == b.server_given && a.port == b.port &&
         a.socket == b.socket && a.database == b.database && a.user == b.user &&
         a.password == b.password && a.connect_timeout == b.connect_timeout &&
         a.read_timeout == b.read_timeout && a.write_timeout == b.write_timeout;
}

// A value that an item can carry as it stands: no separator, no brace, no
// blank at either end (those are dropped).
bool Plain(const std::string& v) {
  if (v.find_first_of(";{}") != std::string::npos) return false;
  return v.empty() || (v.front() != ' ' && v.front() != '\t' && v.back() != ' ' && v.back() != '\t');
}

ConnectionParams Parse(const std::string& text) {
  try {
    return ParseConnectionText(text);
  } catch (...) {
    Fail("threw", text);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const ConnectionParams p = Parse(input);
  for (const int t : {p.read_timeout, p.write_timeout}) {
    if (t < 0 || t > 86400) Fail("time-out out of range", input);
  }
  if (p.connect_timeout < -1 || p.connect_timeout > 86400) Fail("connect time-out", input);
  if (!p.server_given && p.server != "127.0.0.1") Fail("server without SERVER", input);

  // An item added after the text (outside any brace) wins.
  if (input.find('{') == std::string::npos) {
    ConnectionParams q = Parse(input + ";uid = fuzzer ;Read_Timeout=7");
    if (q.user != "fuzzer" || q.read_timeout != 7) Fail("a later item did not win", input);
    q.user = p.user;
    q.read_timeout = p.read_timeout;
    if (!Same(p, q)) Fail("a later item changed another", input);
  }

  // Written back as items, the connection reads back the same.
  if (Plain(p.server) && Plain(p.socket) && Plain(p.database) && Plain(p.user) &&
      Plain(p.password)) {
    std::string text;
    if (p.server_given) text += "SERVER=" + p.server + ";";
    text += "PORT=" + std::to_string(p.port) + ";SOCKET=" + p.socket + ";DATABASE=" + p.database +
            ";UID=" + p.user + ";PWD=" + p.password + ";";
    if (p.connect_timeout >= 0) text += "CONNECT_TIMEOUT=" + std::to_string(p.connect_timeout) + ";";
    text += "READ_TIMEOUT=" + std::to_string(p.read_timeout) +
            ";WRITE_TIMEOUT=" + std::to_string(p.write_timeout);
    if (!Same(p, Parse(text))) Fail("does not read back from its items", input);
  }
  return 0;
}
