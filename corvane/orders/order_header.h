/// \file
/// clsDataBOrderh keeps the sales order headers, table T_BOrderh: it reserves
/// the order number of the day (numbering/family_b.h), adds and changes
/// headers, stamps the checking and approving user, lists orders by month
/// under the user's data rights (rights/data_rights.h), and deletes an order
/// with care for the day's number counter in t_sitemno. The order lines are
/// clsDataBOrderi's. No method leaves rs open.
#ifndef CORVANE_ORDERS_ORDER_HEADER_H_
#define CORVANE_ORDERS_ORDER_HEADER_H_

#include <cstdint>
#include <string>

#include "corvane/entities/order_header.h"
#include "corvane/entities/sitemno.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The sales order headers, table T_BOrderh, numbered by the day.
/// \see corvane/orders/order_header.h for the whole description of the class.
class CORVANE_EXPORT clsDataBOrderh : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBOrderh() = default;

  /// Whether the customer Entity.CustNo already has an order with the
  /// customer's number Entity.CorderNo: 1 it has, 0 it has not, 2 failure.
  /// The entity is not filled. Uses rs as it stands.
  /// A failure shows the plain report.
  std::int16_t QueryForPreMoney(clsEntBOrderh& Entity);
  /// Overwrites the changeable columns of order Entity.OrderNo. 1 done, 2 no
  /// such order (nothing written), 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBOrderh& Entity);
  /// Stamps order OrderNo as approved by Approve at the server's time. 1 done,
  /// also when there is no such order; 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateApprove(const std::string& Approve, double OrderNo);
  /// Stamps order OrderNo as checked by Checker at the server's time. 1 done,
  /// also when there is no such order; 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateChecke(const std::string& Checker, double OrderNo);
  /// The server's date and time as text; the empty text on failure.
  /// A failure shows the length report.
  std::string ServerDate();
  /// Whether an order is numbered today: 1 no order numbered today, 2 at
  /// least one, 0 failure. Uses rs as it stands.
  /// A failure shows the length report.
  std::int16_t QueryTF();
  /// Fills objQitemh with today's row of t_sitemno when it holds today's
  /// largest order number, else with yyyymmdd001 of the server's date, table
  /// name "T_BOrderh" and the server's date. Always empty.
  /// A failure shows the length report.
  Variant QueryChkitemiNo(clsEntSitemNo& objQitemh);
  /// Stores a new order. 1 added, 2 the number exists (nothing written),
  /// 0 failure. Leaves t_sitemno alone.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBOrderh& Entity);
  /// Appends one entity per order (all but OrderType read). Always 0.
  /// A failure shows the alert report.
  std::int16_t QueryAllRecord(Collection<clsEntBOrderh>* objColl);
  /// Appends OrderNo and OrderDate of the orders of month StrDate ("yyyy-mm")
  /// that UserId may see. Always 0.
  /// A failure shows the length report.
  std::int16_t QueryAllRecordPre(Collection<clsEntBOrderh>* objColl, const std::string& StrDate,
                                 const std::string& UserId);
  /// Fills Entity from order Entity.OrderNo. 1 found, 0 not found (Entity as
  /// it was) or failure.
  /// A failure shows the length report.
  std::int16_t QueryOrderNoRecord(clsEntBOrderh& Entity);
  /// Appends one entity per month with orders that UserId may see, the twelve
  /// latest, newest first; only OrderDate is set, to the first of the month.
  /// Always 0.
  /// A failure shows the length report.
  std::int16_t QueryMonthDate(Collection<clsEntBOrderh>* objColl, const std::string& UserId);
  /// Advances today's row of t_sitemno, or opens it with yyyymmdd001. Always
  /// empty.
  /// A failure shows the length report.
  Variant UpdateAddSitemNo();
  /// Deletes order Entity.OrderNo (not its lines) and, when it is the number
  /// t_sitemno holds, rolls the row of its day back to the largest number
  /// left or removes it. Always 0, whether it deleted or not.
  /// A failure shows the length report.
  std::int16_t DeleteRecord(clsEntBOrderh& Entity);

 private:
  // The reads from F_PayDay to F_Delivery, alike in the two full reads.
  void ReadPayDayToDelivery(clsEntBOrderh& e);
  // The writes from F_Flags to F_Delivery, alike in the add and the update.
  void WriteFlagsToDelivery(const clsEntBOrderh& Entity);
};

}  // namespace corvane

#endif  // CORVANE_ORDERS_ORDER_HEADER_H_
