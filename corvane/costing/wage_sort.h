/// \file
/// clsDataBWageSort keeps the wage items and their rates by wage sort, table
/// T_BWageSort, and lists the wage items that apply to a goods type through
/// the goods type tables of the engineering system (T_EHalfGType,
/// T_EGoodsType). A rate is changed by deleting and adding. None of its
/// methods replaces rs; DeleteRecord leaves it open when the item is not there.
#ifndef CORVANE_COSTING_WAGE_SORT_H_
#define CORVANE_COSTING_WAGE_SORT_H_

#include <cstdint>
#include <string>

#include "corvane/entities/wage_sort.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The wage items and rates by wage sort, table T_BWageSort.
/// \see corvane/costing/wage_sort.h for the whole description of the class.
class CORVANE_EXPORT clsDataBWageSort : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBWageSort() = default;

  /// Deletes wage item Entity.WageItem of sort Entity.ID. 1 deleted, 2 no
  /// such item, with rs left open: the next call that uses rs as it stands
  /// fails once. 0 failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBWageSort& Entity);
  /// Stores a new wage item with its rate. 1 added, 2 the item exists in the
  /// sort (its rate unchanged), 0 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBWageSort& Entity);
  /// Appends to colBWageSort the wage items of the sorts that goods type
  /// strGoodType has as half goods or as goods, each once; null texts read as
  /// "0". 1 at least one, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryByGoodType(Collection<clsEntBWageSort>* colBWageSort,
                               const std::string& strGoodType);
};

}  // namespace corvane

#endif  // CORVANE_COSTING_WAGE_SORT_H_
