// Connection texts: "NAME=value;NAME=value" items, names without regard to
// case and blanks around them, braces kept as part of a value.
#ifndef CORVANE_FRAME_INTERNAL_CONNECTION_TEXT_H_
#define CORVANE_FRAME_INTERNAL_CONNECTION_TEXT_H_

#include <string>

namespace corvane::internal {

struct ConnectionParams {
  std::string server = "127.0.0.1";
  unsigned port = 3306;
  std::string socket;
  std::string database;
  std::string user;
  std::string password;
};

// Reads the items SERVER, PORT, SOCKET, DATABASE, UID (or USER), PWD (or
// PASSWORD); other items (DRIVER, OPTION) are accepted and ignored.
ConnectionParams ParseConnectionText(const std::string& text);

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_CONNECTION_TEXT_H_
