// Connection texts: "NAME=value;NAME=value" items, names without regard to
// case and blanks around them, braces kept as part of a value.
#ifndef CORVANE_FRAME_INTERNAL_CONNECTION_TEXT_H_
#define CORVANE_FRAME_INTERNAL_CONNECTION_TEXT_H_

#include <string>
#include <vector>

namespace corvane::internal {

// Time-outs in seconds; 0 waits without end.
inline constexpr int kDefaultReadTimeout = 120;
inline constexpr int kDefaultWriteTimeout = 120;

// One server of a list: a name or address and a port.
struct Endpoint {
  std::string host;
  unsigned port = 0;
};

struct ConnectionParams {
  std::string server = "127.0.0.1";
  bool server_given = false;  // SOCKET= alone connects through the socket
  unsigned port = 3306;
  std::string socket;
  std::string database;
  std::string user;
  std::string password;
  int connect_timeout = -1;  // -1: the connection's ConnectionTimeout
  int read_timeout = kDefaultReadTimeout;
  int write_timeout = kDefaultWriteTimeout;
  // SERVER= naming two or more servers ("host[:port],host[:port]", PORT= the
  // port of those without one): the servers of a cluster, tried in this
  // order. Empty for one server, which is server and port above.
  std::vector<Endpoint> servers;
  // LOADBALANCE=random: the first try goes to a server picked at random.
  bool random_start = false;
};

// Reads the items SERVER (one server, "host:port", or a list separated by
// commas), PORT, LOADBALANCE, SOCKET, DATABASE, UID (or USER), PWD (or
// PASSWORD), CONNECT_TIMEOUT, READ_TIMEOUT, WRITE_TIMEOUT (seconds); other
// items (DRIVER, OPTION) are accepted and ignored.
ConnectionParams ParseConnectionText(const std::string& text);

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_CONNECTION_TEXT_H_
