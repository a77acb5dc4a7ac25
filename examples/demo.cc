// The demo client: walks the road of a typical request against a Corvane
// database and prints each call, the statements it sent, its result and any
// report. scripts/demo.sh runs it on the sandbox server.
//
// Usage: corvane_demo   (the connection text comes from CORVANE_CONNECTION;
//                        without it the session reads my.ini)
#include <cstdlib>
#include <iostream>
#include <string>

#include "examples/demo.h"

int main() {
  using namespace corvane;
  if (const char* text = std::getenv("CORVANE_CONNECTION")) SetSessionConnectionString(text);
  SetStatementObserver([](StatementKind kind, const std::string& sql) {
    const char* tag = kind == StatementKind::kCommand     ? "sql"
                      : kind == StatementKind::kRowChange ? "row"
                                                          : "catalog";
    std::cout << "  " << tag << " [" << sql << "]\n";
  });
  SetReportHandler([](const Report& r) {
    std::cout << "  report (" << r.style << ", " << r.title << "): " << r.text << "\n";
  });

  try {
    demo::Orders();
    demo::Quotations();
    demo::Costing();
    demo::Customers();
    demo::Studies();
    demo::Outsource();
    demo::Attachments();
  } catch (const Error& e) {
    std::cerr << "cannot open a session: " << e.Description() << "\n";
    return 1;
  }
  return 0;
}
