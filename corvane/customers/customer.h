/// \file
/// clsDataBCustom keeps the customer master, table t_bcustom: it looks
/// customers up singly, by group, by a caller's SQL tail and under the user's
/// data rights (rights/data_rights.h, module "C"), tells whether a number
/// exists, gives a customer's country, province and city as display texts
/// from t_scountry, t_sprovince and t_scity, and adds, changes and deletes
/// rows. Empty results of QueryAllByGroupCode, QueryAll, QueryArea and
/// DeleteRecord leave rs open; QueryAllCustNo, QueryArea and UpdateRecord,
/// which take rs as it stands, then fail once.
#ifndef CORVANE_CUSTOMERS_CUSTOMER_H_
#define CORVANE_CUSTOMERS_CUSTOMER_H_

#include <cstdint>
#include <string>

#include "corvane/entities/customer.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The customer master, table t_bcustom.
/// \see corvane/customers/customer.h for the whole description of the class.
class CORVANE_EXPORT clsDataBCustom : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBCustom() = default;

  /// Appends custno, Linkman_1st, CustName and CustFullName of the customers
  /// UserId may see; for a user without rights rows, of "select * from
  /// t_bcustom" followed by strSql (which brings its own leading blank), and
  /// for a user with rights rows strSql is not used. Empty when no row was
  /// read, 1 when one was, 0 after a failure.
  /// A failure shows the plain report.
  Variant QueryByStrSql(std::string strSql, Collection<clsEntBCustom>* objCollSql,
                        const std::string& UserId);
  /// Fills Entity from customer Entity.custno. 1 found, 0 not found, 2 failure
  /// (a null F_CreateDate, F_EditDate or F_Status is one).
  /// A failure shows the plain report.
  std::int16_t queryBCustom(clsEntBCustom& Entity);
  /// Meant to append every customer number; its statement selects no
  /// F_Linkman_1st, so with any row in the table it fails: 2, nothing
  /// appended. 0 for an empty table.
  /// A failure shows the plain report.
  Variant QueryAllCustNo(Collection<clsEntBCustom>* CollALL);
  /// Appends every customer of group GroupCode. Always empty.
  /// A failure shows the alert report.
  Variant QueryAllByGroupCode(Collection<clsEntBCustom>* colBCustom, const std::string& GroupCode);
  /// Appends every customer UserId may see. Always empty.
  /// A failure shows the alert report.
  Variant QueryAll(Collection<clsEntBCustom>* colBCustom, const std::string& UserId);
  /// Stores a new customer (all but F_Linkman_m and F_Linkman_last). 1 added,
  /// 2 the number exists (nothing written), 0 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBCustom& Entity);
  /// Whether customer Entity.custno exists; false also on failure.
  /// A failure shows the plain report.
  bool QueryBCustNo(clsEntBCustom& Entity);
  /// Appends the customer CustNo (trimmed) with country and province as
  /// "code-name" and the city, one entity per match in the area tables, or one
  /// blank entity when nothing matches. Always empty.
  /// A failure shows the alert report.
  Variant QueryArea(Collection<clsEntBCustom>* ColArea, const std::string& CustNo);
  /// Deletes customer Entity.custno. Always 0.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBCustom& Entity);
  /// Overwrites customer CustNo with Entity, its number included. 0 updated or
  /// no such customer, 2 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBCustom& Entity, const std::string& CustNo);

 private:
  // The 53 reads, alike in queryBCustom, QueryAllByGroupCode and QueryAll.
  void ReadAll(clsEntBCustom& e);
  // The 51 writes, alike in AddRecord and UpdateRecord.
  void WriteAll(const clsEntBCustom& Entity);
};

}  // namespace corvane

#endif  // CORVANE_CUSTOMERS_CUSTOMER_H_
