/// \file
/// clsDataBCosti keeps the parts of a cost estimate, table T_BCosti, one row
/// per part item, keyed by the estimate's number and the item. Its twin for the
/// wages is clsDataBCosts; note that QueryByEstNo reads one part by its full
/// key here, while in clsDataBCosts it lists the wages of an estimate. None of
/// its methods replaces rs; DeleteRecord leaves it open when the part is not
/// there.
#ifndef CORVANE_COSTING_COST_PARTS_H_
#define CORVANE_COSTING_COST_PARTS_H_

#include <cstdint>

#include "corvane/entities/cost_part.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The parts of cost estimates, table T_BCosti.
/// \see corvane/costing/cost_parts.h for the whole description of the class.
class CORVANE_EXPORT clsDataBCosti : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBCosti() = default;

  /// Deletes part Entity.ItemNo of estimate Entity.EstNo. 1 deleted, 2 no
  /// such part, with rs left open: the next call that uses rs as it stands
  /// fails once. 0 failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBCosti& Entity);
  /// Overwrites the part with all columns of Entity, the key included. 1 done,
  /// 2 no such part (nothing written), 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBCosti& Entity);
  /// Stores a new part. 1 added, 2 the part exists (nothing written),
  /// 0 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBCosti& Entity);
  /// Appends one entity per part of estimate dblEstNo to colBCosti. 1 at
  /// least one, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryAll(Collection<clsEntBCosti>* colBCosti, double dblEstNo);
  /// Fills Dosage, Waste, CurrencyID, Price and CostPrice of the part
  /// Entity.ItemNo of estimate Entity.EstNo. 1 found, 0 not found (Entity as
  /// it was), 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryByEstNo(clsEntBCosti& Entity);

 private:
  // The writes of all columns, alike in the add and the update.
  void WriteAll(const clsEntBCosti& Entity);
};

}  // namespace corvane

#endif  // CORVANE_COSTING_COST_PARTS_H_
