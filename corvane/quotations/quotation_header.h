/// \file
/// clsDataBPriceh keeps the quotation headers, table t_bpriceh: who is quoted,
/// in what currency, on what terms, with the totals and the two signatures. It
/// adds and changes headers, stamps the checker and the approver, flags a
/// quotation, looks currencies up in t_scurrency, lists customers under the
/// user's data rights (rights/data_rights.h), and finds the approved prices of
/// an item for a customer across headers and lines.
///
/// Quotation numbers are the caller's (numbering/family_a.h): the caller picks
/// number and date, with QueryMaxItem and QueryMaxItemDelete to help. Unlike
/// the other documents numbered that way, a quotation's add never writes
/// t_sitemno, while its delete does roll the day's row back.
///
/// No method leaves rs open. Results are those of each method's comment; they
/// do not follow one convention.
#ifndef CORVANE_QUOTATIONS_QUOTATION_HEADER_H_
#define CORVANE_QUOTATIONS_QUOTATION_HEADER_H_

#include <cstdint>
#include <string>

#include "corvane/entities/currency.h"
#include "corvane/entities/quotation_header.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The quotation headers, table t_bpriceh.
/// \see corvane/quotations/quotation_header.h for the whole description of the class.
class CORVANE_EXPORT clsDataBPriceh : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBPriceh() = default;

  /// Appends one entity per line of an approved quotation of customer CustNo
  /// for the item QuotNo (the argument carries the item number): QuotNo,
  /// Custno and CurrencyID as named, the item number in Approve and the price,
  /// as text, in Checker. 1 at least one, 0 none or failure. Starts on a new
  /// rs.
  /// A failure shows the plain report.
  std::int16_t QueryPrice(Collection<clsEntBPriceh>* objColl, const std::string& CustNo,
                          const std::string& QuotNo);
  /// Fills maxitem with the header of the largest number of the whole table.
  /// 1 found, 0 empty table or failure.
  /// A failure shows the plain report.
  std::int16_t QueryMaxItem(clsEntBPriceh& maxitem);
  /// Entity.CurrencyName of currency CurrencyID. 1 found, 0 not found or
  /// failure.
  /// A failure shows the plain report.
  std::int16_t QueryCurrencyName(clsEntSCurrency& Entity, const std::string& CurrencyID);
  /// Entity.CurrencyID of the first currency named CurrencyName. 1 found,
  /// 0 not found or failure.
  /// A failure shows the plain report.
  std::int16_t QueryCurrencyID(clsEntSCurrency& Entity, const std::string& CurrencyName);
  /// Stores a new header, without signatures or flag. 1 added, 0 the number
  /// exists (nothing written, no report), 2 failure, reported with a mark of
  /// how far it came in front of the words. strTableName is not used and
  /// t_sitemno is not written; Istatus only chooses the marks.
  /// A failure shows the plain report.
  std::int16_t AddRecord(clsEntBPriceh& Entity, const std::string& strTableName,
                         std::int16_t Istatus);
  /// Sets the flag of quotation OrderNo to 1. 1 done, also when there is no
  /// such quotation; 0 failure. Starts on a new rs.
  /// A failure shows the length report.
  std::int16_t UpdateFlags(double OrderNo);
  /// Stamps quotation OrderNo as approved by Approve at the server's time.
  /// 1 done, also when there is no such quotation; 0 failure. Starts on a new
  /// rs.
  /// A failure shows the length report.
  std::int16_t UpdateApprove(const std::string& Approve, double OrderNo);
  /// Stamps quotation OrderNo as checked by Checker at the server's time.
  /// 1 done, also when there is no such quotation; 0 failure. Starts on a new
  /// rs.
  /// A failure shows the length report.
  std::int16_t UpdateChecke(const std::string& Checker, double OrderNo);
  /// Overwrites quotation QuotNo with Entity, number included; who entered it,
  /// the signatures and the flag stay. 1 done; 0 failure, also when there is
  /// no such quotation.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBPriceh& Entity, const std::string& QuotNo);
  /// maxitemdelete.QuotNo: the largest number of date currentdate, 0 when the
  /// date has none. 1 (a maximum is always a row), 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryMaxItemDelete(clsEntBPriceh& maxitemdelete, const Date& currentdate);
  /// Deletes quotation Entity.QuotNo (not its lines). With DeleteStatus 1 the
  /// row of strTableName for Entity.QuotDate in t_sitemno then follows the
  /// largest number left on that date (1), or goes when none is left (2).
  /// With another DeleteStatus t_sitemno stays (1). 0 failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBPriceh& Entity, std::int16_t DeleteStatus,
                            const std::string& strTableName);
  /// Appends one entity per customer with quotations that UserId may see, by
  /// customer number; only Custno is set. Empty after success, the integer 0
  /// after a failure.
  /// A failure shows the plain report.
  Variant QueryAllCustNo(Collection<clsEntBPriceh>* CollALL, const std::string& UserId);
  /// Appends the headers of customer CustNo, whatever the user's rights.
  /// 1 at least one, 0 none or failure.
  /// A failure shows the plain report.
  std::int16_t QueryAlldetaile(Collection<clsEntBPriceh>* CollALL2, const std::string& CustNo);
  /// Fills Entity with the header of Entity.QuotNo. 1 found, 0 not found
  /// (Entity as it was), 2 failure.
  /// A failure shows the plain report.
  std::int16_t GetItemByID(clsEntBPriceh& Entity);

 private:
  // The whole header from the current row, in the order of the table.
  void ReadHeader(clsEntBPriceh& e);
  // The writes from F_QuotNo to F_QuotDate, alike in the add and the update.
  void WriteQuotNoToQuotDate(const clsEntBPriceh& Entity);
  // The writes from F_SalerId to F_Comments, alike in the add and the update.
  void WriteSalerIdToComments(const clsEntBPriceh& Entity);
};

}  // namespace corvane

#endif  // CORVANE_QUOTATIONS_QUOTATION_HEADER_H_
