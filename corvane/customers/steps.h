// Two small steps the customer classes take outside the frame's fill: the
// runtime's Trim of a text, and the add of one entity to a caller's
// collection.
#ifndef CORVANE_CUSTOMERS_STEPS_H_
#define CORVANE_CUSTOMERS_STEPS_H_

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "corvane/frame/collection.h"
#include "corvane/frame/error.h"

namespace corvane::customers {

// Leading and trailing blanks removed; tabs and other spaces stay.
inline std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::string();
  const auto last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}

// Appends entity at the end of collection; a null collection fails with
// object required.
template <class T>
void AddTo(Collection<T>* collection, std::shared_ptr<T> entity) {
  if (collection == nullptr) throw Error(errc::kObjectRequired, "Object required");
  collection->Add(std::move(entity));
}

}  // namespace corvane::customers

#endif  // CORVANE_CUSTOMERS_STEPS_H_
