// Uses the public interface of an installed Corvane: values, text, and a
// repository whose construction fails without a server.
#include <cstdio>
#include <string>

#include "corvane/corvane.h"

int main() {
  if (corvane::Text(20261122001.0) != "20261122001") return 1;
  if (corvane::Text(corvane::Date::FromParts(2026, 11, 22)) != "2026-11-22") return 2;
  corvane::SetSessionConnectionString("SERVER=127.0.0.1;PORT=1;DATABASE=none;UID=x;PWD=y");
  try {
    corvane::clsDataBOrderType types;
    return 3;
  } catch (const corvane::Error& e) {
    std::printf("construction failed as expected: %s\n", e.Description().c_str());
  }
  return 0;
}
