/// \file
/// clsDataBOrdChange keeps the order change requests, table T_BOrdChange, and
/// at approval carries the decided quantity and date into the order line
/// (T_BOrderi), the production order (T_POrder) and the order check list
/// (t_porderchk). Change numbers are numbers of the day (numbering/family_b.h).
/// Every method but QueryTF takes a new rs first; every failure shows the
/// length report and resets rs.
#ifndef CORVANE_ORDERS_ORDER_CHANGE_H_
#define CORVANE_ORDERS_ORDER_CHANGE_H_

#include <cstdint>
#include <string>

#include "corvane/entities/order_change.h"
#include "corvane/entities/sitemno.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The order change requests, table T_BOrdChange, and their carry-over at approval.
/// \see corvane/orders/order_change.h for the whole description of the class.
class CORVANE_EXPORT clsDataBOrdChange : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBOrdChange() = default;

  /// Whether some request's new quantity (above 0) equals the shipped
  /// quantity of its order line: 1 there is one, 2 there is none, 0 failure.
  /// A failure shows the length report.
  std::int16_t QueryQty();
  /// The shipped quantity (F_OutQty) of the order line ProdNo; 0 when there is
  /// no such line or on failure.
  /// A failure shows the length report.
  double QueryNewQty(double ProdNo);
  /// Approves request Entity.UpNo by Username and, for status 0, 1 or 2,
  /// carries its new quantity and date into t_porderchk, T_POrder and
  /// T_BOrderi of line ProdNo. i is not used. 1 done, 2 no t_porderchk row
  /// (nothing changed), 0 failure (what ran before stays).
  /// A failure shows the length report.
  std::int16_t UpdateBOrderiRecord(clsEntBOrdChange& Entity, double ProdNo,
                                   const std::string& Username, std::int16_t status,
                                   std::int16_t i);
  /// Overwrites request Entity.UpNo. 1 done, 2 no such number, 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBOrdChange& Entity);
  /// Appends one entity per month that has requests (at most 12, in the
  /// server's order), only UpDate set, to the first of the month. Always 0.
  /// A failure shows the length report.
  std::int16_t QueryMonthDate(Collection<clsEntBOrdChange>* objColl);
  /// Whether a request is numbered today: 1 no request numbered today, 2 at
  /// least one, 0 failure. Uses rs as it stands.
  /// A failure shows the length report.
  std::int16_t QueryTF();
  /// Fills objQitemh with today's row of t_sitemno, or with yyyymmdd001 of the
  /// server's date. Always empty.
  /// A failure shows the length report.
  Variant QueryChkitemiNo(clsEntSitemNo& objQitemh);
  /// Appends UpNo and UpDate of every request, newest number first. Always 0.
  /// A failure shows the length report.
  std::int16_t QueryUpNo(Collection<clsEntBOrdChange>* objColl);
  /// Fills Entity from request Entity.UpNo; on a missing number leaves Entity
  /// as it is and rs open. Always 0.
  /// A failure shows the length report.
  std::int16_t QueryRecord(clsEntBOrdChange& Entity);
  /// Advances today's row of t_sitemno, or opens it with yyyymmdd001. Always
  /// empty.
  /// A failure shows the length report.
  Variant UpdateAddSitemNo();
  /// Stores a new request. 1 added, 2 the number exists, 0 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBOrdChange& Entity);
  /// Deletes request Entity.UpNo and rolls the day's row of t_sitemno back.
  /// 1 the delete ran, 0 no such number or failure.
  /// A failure shows the length report.
  std::int16_t DeleteRecord(clsEntBOrdChange& Entity);

 private:
  // The writes from F_QtyUp to F_Cancel, alike in the add and the update.
  void WriteQtyUpToCancel(const clsEntBOrdChange& Entity);
};

}  // namespace corvane

#endif  // CORVANE_ORDERS_ORDER_CHANGE_H_
