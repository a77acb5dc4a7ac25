/// \file
/// clsDataBOutMakeh keeps the headers of outsource orders, table t_boutmakeh:
/// orders placed with a supplier to make goods outside. The caller picks each
/// order's number and day, and the day's row of t_sitemno remembers the last
/// one (numbering/family_a.h). An order is signed in three single-column
/// steps (checked, approved, flagged); months and the orders of a month are
/// listed under the supplier rights of module "S" (rights/data_rights.h). The
/// lines are clsDataBOutMakei's. Every method uses rs as it stands, so an rs
/// left open by another path makes the call fail once.
#ifndef CORVANE_OUTSOURCE_OUTSOURCE_HEADER_H_
#define CORVANE_OUTSOURCE_OUTSOURCE_HEADER_H_

#include <cstdint>
#include <string>

#include "corvane/entities/outsource_header.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The outsource order headers, table t_boutmakeh.
/// \see corvane/outsource/outsource_header.h for the whole description of the class.
class CORVANE_EXPORT clsDataBOutMakeh : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBOutMakeh() = default;

  /// Whether order OrderoutNo belongs to a supplier named ProviderName (any
  /// of the suppliers of that name): 1 it does, 0 it does not, 2 failure.
  /// A failure shows the plain report.
  std::int16_t ChkNoByProviderName(double OrderoutNo, const std::string& ProviderName);
  /// Fills Entity from order Entity.OrderoutNo: 1 found, 0 not found (Entity
  /// as it was) or failure.
  /// A failure shows the plain report.
  std::int16_t QueryChkItem(clsEntBOutMakeh& Entity);
  /// Fills maxitem from the order with the largest number of all: 1 found,
  /// 0 an empty table or failure.
  /// A failure shows the plain report.
  std::int16_t QueryMaxItem(clsEntBOutMakeh& maxitem);
  /// Sets Entity.OrderoutNo to the largest number of day OrderoutDate, 0 for
  /// a day without orders: 1 when it is not 0, else 0; 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryOrderoutNo(clsEntBOutMakeh& Entity, const Date& OrderoutDate);
  /// The server's date and time; the zero date on failure.
  /// A failure shows the plain report.
  Date QueryDateTime();
  /// Whether order Entity.OrderoutNo is flagged:
  /// 1 when order Entity.OrderoutNo carries F_Flags 1; 2 for any other flag,
  /// a null one or no such order; 0 failure.
  /// A failure shows the plain report.
  std::int16_t QueryStatus(clsEntBOutMakeh& Entity);
  /// Stores a new order stamped with the client's present time, then writes
  /// the day's row of t_sitemno named strTableName: inserted when Istatus is
  /// 0, pointed at the number otherwise. 1 stored, 0 the number exists
  /// (nothing written), 2 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBOutMakeh& Entity, const std::string& strTableName,
                         std::int16_t Istatus);
  /// Changes order OrderoutNo as UpdateCondition says: 1 the entered columns
  /// (the number too), 2 the checker, 3 the approver (both at the server's
  /// time), 4 the flags, any other value nothing. 1 done (also when branches
  /// 2 to 4 meet no order), 0 branch 1 finds no order, or failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBOutMakeh& Entity, const std::string& OrderoutNo,
                            std::int16_t UpdateCondition);
  /// Sets maxitemdelete.OrderoutNo to the largest number of day currentdate:
  /// 1 done; 0 failure, which is what a day without orders gives (its
  /// maximum is null and is read without a null test).
  /// A failure shows the plain report.
  std::int16_t QueryMaxItemDelete(clsEntBOutMakeh& maxitemdelete, const Date& currentdate);
  /// Deletes order Entity.OrderoutNo (not its lines). With DeleteStatus 1 the
  /// row of strTableName for Entity.OrderoutDate follows the largest number
  /// left (1), or goes when the day has no order left (2); otherwise 1 and
  /// t_sitemno stays. 0 failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBOutMakeh& Entity, std::int16_t DeleteStatus,
                            const std::string& strTableName);
  /// Appends one entity per month with orders that UserId may see, the twelve
  /// latest, newest first; only OrderoutNo is set, to the yyyymm of the month.
  /// The variant 1, rows or none; the variant 0 on failure.
  /// A failure shows the plain report.
  Variant QueryLasted12month(Collection<clsEntBOutMakeh>* objcollMonth, const std::string& UserId);
  /// Appends the orders whose number begins with OutMonth that UserId may
  /// see: 1 at least one appended, else 0 (also on failure).
  /// A failure shows the plain report.
  std::int16_t QueryMonthItem(Collection<clsEntBOutMakeh>* objcollMonthItem,
                              const std::string& OutMonth, const std::string& UserId);

 private:
  // The full read of a row, the same in QueryChkItem, QueryMaxItem and
  // QueryMonthItem.
  void ReadOrder(clsEntBOutMakeh& e);
  // The writes from F_OrderoutNo to F_DeliverAddr, and from f_ProviderName
  // to F_jrnlMemo, alike in the add and the update of the entered columns.
  void WriteNumberToDeliverAddr(const clsEntBOutMakeh& Entity);
  void WriteProviderNameToJrnlMemo(const clsEntBOutMakeh& Entity);
};

}  // namespace corvane

#endif  // CORVANE_OUTSOURCE_OUTSOURCE_HEADER_H_
