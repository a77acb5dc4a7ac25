/// \file
/// corvane::Collection<T> is the caller's collection: an ordered list of
/// shared entities that only grows. Repositories append to it and never clear
/// it; the caller owns it and the entities in it.
#ifndef CORVANE_FRAME_COLLECTION_H_
#define CORVANE_FRAME_COLLECTION_H_

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "corvane/frame/error.h"

namespace corvane {

/// The caller's collection of entities of type T: appended to at the end,
/// read by position from 1, never cleared by the library.
template <class T>
class Collection {
 public:
  using value_type = std::shared_ptr<T>;  ///< What the collection holds: shared entities.
  /// Iterates over the entities in the order they were added.
  using const_iterator = typename std::vector<std::shared_ptr<T>>::const_iterator;

  /// Appends at the end, with no key.
  void Add(std::shared_ptr<T> item) { items_.push_back(std::move(item)); }
  /// The number of entities in the collection.
  std::size_t Count() const { return items_.size(); }
  /// The entity at index, counted from 1; an index outside 1..Count() throws
  /// Error 9 (subscript out of range).
  T& Item(std::size_t index) const {
    if (index < 1 || index > items_.size()) {
      throw Error(errc::kSubscriptOutOfRange, "Subscript out of range");
    }
    return *items_[index - 1];
  }

  /// The first entity, for range-for.
  const_iterator begin() const { return items_.begin(); }
  /// Past the last entity.
  const_iterator end() const { return items_.end(); }

 private:
  std::vector<std::shared_ptr<T>> items_;
};

}  // namespace corvane

#endif  // CORVANE_FRAME_COLLECTION_H_
