/// \file
/// clsDataBCosts keeps the wages of a cost estimate, table T_BCosts, one row
/// per wage item, keyed by the estimate's number and the wage item. Its twin
/// for the parts is clsDataBCosti; note that QueryByEstNo lists the wages of
/// an estimate here, while in clsDataBCosti it reads one part by its full key
/// (the single wage by key is QueryByEstNoWage). None of its methods replaces
/// rs; DeleteRecord leaves it open when the wage is not there.
#ifndef CORVANE_COSTING_COST_WAGES_H_
#define CORVANE_COSTING_COST_WAGES_H_

#include <cstdint>

#include "corvane/entities/cost_wage.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The wages of cost estimates, table T_BCosts.
/// \see corvane/costing/cost_wages.h for the whole description of the class.
class CORVANE_EXPORT clsDataBCosts : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBCosts() = default;

  /// Deletes wage Entity.WageItem of estimate Entity.EstNo. 1 deleted, 2 no
  /// such wage, with rs left open: the next call that uses rs as it stands
  /// fails once. 0 failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBCosts& Entity);
  /// Overwrites the wage with all columns of Entity, the key included. 1 done,
  /// 2 no such wage (nothing written), 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBCosts& Entity);
  /// Stores a new wage. 1 added, 2 the wage item exists for the estimate
  /// (nothing written), 0 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBCosts& Entity);
  /// Fills Wage of the wage Entity.WageItem of estimate Entity.EstNo.
  /// 1 found, 0 not found (Entity as it was), 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryByEstNoWage(clsEntBCosts& Entity);
  /// Appends one entity per wage of estimate dblEstNo to colBCosts; a null
  /// wage item reads as "0". 1 at least one, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryByEstNo(Collection<clsEntBCosts>* colBCosts, double dblEstNo);

 private:
  // The writes of all columns, alike in the add and the update.
  void WriteAll(const clsEntBCosts& Entity);
};

}  // namespace corvane

#endif  // CORVANE_COSTING_COST_WAGES_H_
