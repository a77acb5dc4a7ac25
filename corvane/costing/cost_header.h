/// \file
/// clsDataBCosth keeps the cost estimate headers, table T_BCosth: one row per
/// estimate of an item for a customer, with the sums and quotation steps the
/// caller computed. The lists of estimate numbers by item and of the items
/// themselves honour the user's customer rights (rights/data_rights.h) and
/// come back as arrays that grow from one blank element. The parts and wages
/// of an estimate are clsDataBCosti's and clsDataBCosts'. None of its methods
/// replaces rs; DeleteRecord leaves it open when the estimate is not there.
#ifndef CORVANE_COSTING_COST_HEADER_H_
#define CORVANE_COSTING_COST_HEADER_H_

#include <cstdint>
#include <string>
#include <vector>

#include "corvane/entities/cost_header.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The cost estimate headers, table T_BCosth.
/// \see corvane/costing/cost_header.h for the whole description of the class.
class CORVANE_EXPORT clsDataBCosth : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBCosth() = default;

  /// Fills Entity from the first row of the caller's statement strSql, which
  /// must give all 28 columns by name. 1 a row, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t GetBCostBySql(clsEntBCosth& Entity, const std::string& strSql);
  /// Deletes estimate Entity.EstNo (not its parts and wages). 1 deleted,
  /// 2 no such estimate, with rs left open: the next call that uses rs as it
  /// stands fails once. 0 failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBCosth& Entity);
  /// Overwrites estimate Entity.EstNo with all 28 columns of Entity. 1 done,
  /// 2 no such estimate (nothing written), 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBCosth& Entity);
  /// Stores a new estimate. 1 added, 2 the number exists (nothing written),
  /// 0 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBCosth& Entity);
  /// Sets maxEstNo to the largest number of the estimates of day mydate:
  /// 1 set, 0 the day has none (maxEstNo as it was), 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryMaxEstNo(const Date& mydate, double& maxEstNo);
  /// Whether day mydate has estimates: 1 it has, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryDate(const Date& mydate);
  /// Fills Entity, all but EstNo, from estimate Entity.EstNo. 1 found,
  /// 0 not found (Entity as it was), 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryByEstNo(clsEntBCosth& Entity);
  /// Makes dblBCosthEstNo the numbers of the estimates of item strItemNo that
  /// UserId may see, largest first, from index 1 on; index 0 holds 0 and no
  /// estimate. 1 at least one, 0 none, 2 failure (the array as far as it was
  /// filled).
  /// A failure shows the plain report.
  std::int16_t QueryEstNoByItemNo(std::vector<double>& dblBCosthEstNo,
                                  const std::string& strItemNo, const std::string& UserId);
  /// Makes strBCosthItemNo the items with estimates that UserId may see, from
  /// index 1 on; index 0 holds the empty text. 1 at least one, 0 none,
  /// 2 failure (the array as far as it was filled).
  /// A failure shows the plain report.
  std::int16_t QueryItemNo(std::vector<std::string>& strBCosthItemNo, const std::string& UserId);
  /// Appends one entity per estimate to colBCosth. 1 at least one, 0 none,
  /// 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryAll(Collection<clsEntBCosth>* colBCosth);

 private:
  // The reads from F_EstDate to F_SalePrice_5, alike in the three reads.
  void ReadEstDateToSalePrice(clsEntBCosth& e);
  // The 28 writes, alike in the add and the update.
  void WriteAll(const clsEntBCosth& Entity);
};

}  // namespace corvane

#endif  // CORVANE_COSTING_COST_HEADER_H_
