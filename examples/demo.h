// What the parts of the demo client share: sections, calls with their
// results, and the road of each subsystem.
#ifndef CORVANE_EXAMPLES_DEMO_H_
#define CORVANE_EXAMPLES_DEMO_H_

#include <iostream>
#include <string>

#include "corvane/corvane.h"

namespace demo {

inline void Section(const std::string& title) { std::cout << "\n== " << title << " ==\n"; }

template <class Result>
std::string Show(const Result& r) {
  return std::to_string(r);
}
template <>
inline std::string Show(const corvane::Variant& v) {
  return v.IsEmpty() ? std::string("(empty)") : v.IsNull() ? std::string("(null)") : v.CStr();
}
template <>
inline std::string Show(const corvane::Date& d) {
  return corvane::Text(d);
}
template <>
inline std::string Show(const std::string& s) {
  return "'" + s + "'";
}

// Prints the call, runs it (its statements print as they are sent), and
// prints its result.
template <class Fn>
auto Call(const std::string& what, Fn&& fn) {
  std::cout << what << "\n";
  auto result = fn();
  std::cout << "  -> " << Show(result) << "\n";
  return result;
}

// The roads, one per subsystem. Each throws corvane::Error when a session
// cannot be opened.
void Orders();
void Quotations();
void Costing();
void Customers();
void Studies();
void Outsource();
void Attachments();

}  // namespace demo

#endif  // CORVANE_EXAMPLES_DEMO_H_
