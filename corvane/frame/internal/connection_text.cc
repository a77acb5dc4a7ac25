// Parsing connection texts.
#include "corvane/frame/internal/connection_text.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string>

namespace corvane::internal {
namespace {

std::string Trim(const std::string& s) {
  const auto first = s.find_first_not_of(" \t");
  if (first == std::string::npos) return "";
  const auto last = s.find_last_not_of(" \t");
  return s.substr(first, last - first + 1);
}

std::string Upper(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::toupper(c); });
  return s;
}

// A number of seconds; what is not one counts as 0.
int Seconds(const std::string& value) {
  const long n = std::strtol(value.c_str(), nullptr, 10);
  return n < 0 ? 0 : n > 86400 ? 86400 : static_cast<int>(n);
}

// "host:port" split at its one colon when what follows is a number; anything
// else (a plain name, an IPv6 address) is all host, with port 0.
Endpoint SplitHostPort(const std::string& text) {
  const auto colon = text.find(':');
  if (colon != std::string::npos && colon > 0 && text.find(':', colon + 1) == std::string::npos &&
      colon + 1 < text.size() &&
      text.find_first_not_of("0123456789", colon + 1) == std::string::npos) {
    return Endpoint{text.substr(0, colon),
                    static_cast<unsigned>(std::strtoul(text.c_str() + colon + 1, nullptr, 10))};
  }
  return Endpoint{text, 0};
}

// The value of SERVER: one server, or a list when it holds a comma.
void ReadServers(const std::string& value, ConnectionParams* params) {
  params->servers.clear();
  if (value.find(',') == std::string::npos) {
    const Endpoint one = SplitHostPort(value);
    params->server = one.host;
    if (one.port != 0) params->servers.push_back(one);  // the port settled below
    return;
  }
  std::size_t pos = 0;
  while (pos <= value.size()) {
    const auto comma = std::min(value.find(',', pos), value.size());
    const std::string item = Trim(value.substr(pos, comma - pos));
    if (!item.empty()) params->servers.push_back(SplitHostPort(item));
    pos = comma + 1;
  }
  params->server = params->servers.empty() ? value : params->servers.front().host;
}

}  // namespace

ConnectionParams ParseConnectionText(const std::string& text) {
  ConnectionParams params;
  std::size_t pos = 0;
  while (pos <= text.size()) {
    // A value in braces may hold semicolons.
    std::size_t end = pos;
    bool in_braces = false;
    while (end < text.size() && (in_braces || text[end] != ';')) {
      if (text[end] == '{') in_braces = true;
      if (text[end] == '}') in_braces = false;
      ++end;
    }
    const std::string item = text.substr(pos, end - pos);
    const auto eq = item.find('=');
    if (eq != std::string::npos) {
      const std::string name = Upper(Trim(item.substr(0, eq)));
      const std::string value = Trim(item.substr(eq + 1));
      if (name == "SERVER") {
        ReadServers(value, &params);
        params.server_given = true;
      } else if (name == "PORT") {
        params.port = static_cast<unsigned>(std::strtoul(value.c_str(), nullptr, 10));
      } else if (name == "SOCKET") {
        params.socket = value;
      } else if (name == "DATABASE") {
        params.database = value;
      } else if (name == "UID" || name == "USER") {
        params.user = value;
      } else if (name == "PWD" || name == "PASSWORD") {
        params.password = value;
      } else if (name == "CONNECT_TIMEOUT") {
        params.connect_timeout = Seconds(value);
      } else if (name == "READ_TIMEOUT") {
        params.read_timeout = Seconds(value);
      } else if (name == "WRITE_TIMEOUT") {
        params.write_timeout = Seconds(value);
      } else if (name == "LOADBALANCE") {
        params.random_start = Upper(value) == "RANDOM";
      }
    }
    if (end >= text.size()) break;
    pos = end + 1;
  }
  // A server without a port of its own takes PORT=, wherever that stands.
  for (Endpoint& e : params.servers) {
    if (e.port == 0) e.port = params.port;
  }
  // One server named with its port is one server, as without the port.
  if (params.servers.size() == 1) {
    params.port = params.servers.front().port;
    params.servers.clear();
  }
  return params;
}

}  // namespace corvane::internal
