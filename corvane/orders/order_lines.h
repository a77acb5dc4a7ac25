/// \file
/// clsDataBOrderi keeps the lines of sales orders, table T_BOrderi: a line
/// belongs to its order by F_OrderNo, is numbered within it by F_No and tied to
/// production by F_ProdNo. Beside the line methods it answers what approved
/// orders still need bought, what has gone out against a customer's orders,
/// and recomputes an order's money totals from its lines (order_totals.cc).
///
/// Some paths leave rs open on purpose (a missing line in DeleteAllRecorder,
/// DeleteBOrderi and UpdateRecord); the next method that does not start on a
/// fresh recordset then fails once, reports it, and the call after works.
#ifndef CORVANE_ORDERS_ORDER_LINES_H_
#define CORVANE_ORDERS_ORDER_LINES_H_

#include <cstdint>
#include <string>

#include "corvane/entities/order_line.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The sales order lines, table T_BOrderi, with the demand and totals queries.
/// \see corvane/orders/order_lines.h for the whole description of the class.
class CORVANE_EXPORT clsDataBOrderi : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBOrderi() = default;

  /// Reads BkQty of the line of Entity.ProdNo. 1 found, 0 no line, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryBkQty(clsEntBOrderi& Entity);
  /// Renumbers the lines of Entity.OrderNo 1, 2, 3... in the numeric order of
  /// their F_No. Always empty.
  /// A failure shows the length report.
  Variant UpdateNo(clsEntBOrderi& Entity);
  /// Fills Entity with the line of Entity.OrderNo and Entity.ItemNo.
  /// 1 found, 0 no line, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryByID(clsEntBOrderi& Entity);
  /// Deletes the first line of the order (one line per call). 1 deleted,
  /// 2 no line (rs stays open), 0 failure.
  /// A failure shows the alert report.
  std::int16_t DeleteAllRecorder(double OrderNo);
  /// Deletes the line of Entityi.OrderNo and Entityi.ItemNo. 1 deleted, 2 no
  /// line (rs stays open with a new row pending, nothing stored), 0 failure.
  /// A failure shows the alert report.
  std::int16_t DeleteBOrderi(clsEntBOrderi& Entityi);
  /// Appends the lines of OrderNo to objColl, by item. Always 0.
  /// A failure shows the length report.
  std::int16_t QueryAllRecord(Collection<clsEntBOrderi>* objColl, double OrderNo);
  /// Stores a new line; production number and the in, out and flag columns
  /// start at 0. 1 added, 2 the line number exists in the order, empty on
  /// failure.
  /// A failure shows the length report.
  Variant AddBOrderi(clsEntBOrderi& Entityi);
  /// Changes the line of Entity.OrderNo and Entity.No. 1 done, 2 no line (rs
  /// stays open), 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBOrderi& Entity);
  /// Reads OrderNo and OutQty of production order Entity.ProdNo.
  /// 1 found, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryOutQtyProdNo(clsEntBOrderi& Entity);
  /// Fills Entity with the line of Entity.ProdNo, or with the line of
  /// Entity.OrderNo and Entity.ItemNo when ProdNo is 0. 1 found, 0 no line,
  /// 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryByProdNo(clsEntBOrderi& Entity);
  /// Changes the line of Entity.ProdNo (with ProdNo 0 the statement is
  /// rejected by the server). 1 done, 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecordByProdNo(clsEntBOrderi& Entity);
  /// Appends, per order and item of approved orders, what is ordered beyond
  /// what purchase requests already cover (OutQty: the requested quantity).
  /// 1 at least one row, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryBuyForMreqBuy(Collection<clsEntBOrderi>* collAllNeedPurItem);
  /// Appends the open lines of CardCode's approved orders (all of them when
  /// OrderNo is 0) with what went out (OutQty) and came back (InQty).
  /// 1 at least one row, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryOutForOrder(Collection<clsEntBOrderi>* collAllNeedOutItem,
                                const std::string& CardCode, double OrderNo);
  /// Recomputes the line totals and the header's totals of OrderNo.
  /// 1 done, 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateFCorLC(double OrderNo);

 private:
  // The reads from F_Flags to F_BaseLine, alike in the three line reads.
  void ReadFlagsToBaseLine(clsEntBOrderi& e);
  // The writes from F_Flags to F_BaseLine, alike in the two line updates.
  void WriteFlagsToBaseLine(const clsEntBOrderi& e);
};

}  // namespace corvane

#endif  // CORVANE_ORDERS_ORDER_LINES_H_
