/// \file
/// clsDataBCStudy keeps the studies of customers, table t_bcstudy. Study
/// numbers are chosen by the caller per day and remembered in t_sitemno
/// (numbering/family_a.h). The class lists the customers that have studies,
/// the study numbers of one customer and one study whole. None of its methods
/// replaces rs, and none leaves it open.
#ifndef CORVANE_CUSTOMERS_CUSTOMER_STUDY_H_
#define CORVANE_CUSTOMERS_CUSTOMER_STUDY_H_

#include <cstdint>
#include <string>

#include "corvane/entities/customer_study.h"
#include "corvane/entities/sitemno.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The customer studies, table t_bcstudy.
/// \see corvane/customers/customer_study.h for the whole description of the class.
class CORVANE_EXPORT clsDataBCStudy : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBCStudy() = default;

  /// Fills maxitem from the study with the largest number of the whole table.
  /// 1 a row, 0 an empty table, 2 failure (maxitem filled up to the column
  /// that failed: a null date or mark does not read).
  /// A failure shows the plain report.
  std::int16_t QueryMaxItem(clsEntBCStudy& maxitem);
  /// The largest study number of currentdate into maxitemdelete.InvestNo.
  /// 1 a row, 2 failure, among them a date without studies (the null maximum
  /// does not read).
  /// A failure shows the plain report.
  std::int16_t QueryMaxItemDelete(clsEntBCStudy& maxitemdelete, Date currentdate);
  /// Stores a new study and, when the number is free, the day's row of
  /// t_sitemno for strTableName: inserted with Istatus 0, pointed at the
  /// number with any other. 1 added, 0 the number exists (nothing written),
  /// 2 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBCStudy& Entity, const std::string& strTableName,
                         std::int16_t Istatus);
  /// Overwrites study InvestNo (read by its leading digits) with all of
  /// Entity, its number and date too; t_sitemno stays as it is. 1 updated,
  /// 2 failure, which is also the answer for a missing study.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBCStudy& Entity, const std::string& InvestNo);
  /// Deletes study Entity.InvestNo. With DeleteStatus 1 the day's row of
  /// strTableName for Entity.InvestDate follows the largest number left (1)
  /// or goes when the day has no study left (2); with any other value it
  /// stays (1). 2 also after a failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBCStudy& Entity, std::int16_t DeleteStatus,
                            const std::string& strTableName);
  /// Appends one entity per customer with studies, CustNo only, in order.
  /// 1 at least one, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryAll(Collection<clsEntBCStudy>* CollALL);
  /// Appends one entity per study of customer CustName, InvestNo only.
  /// 1 at least one, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryAlldetaile(Collection<clsEntBCStudy>* CollALL2, const std::string& CustName);
  /// Fills Entity from study Chooseitem, all but InvestNo. 1 found, 0 no row
  /// (Entity as it was), 2 failure (Entity filled up to the column that
  /// failed).
  /// A failure shows the plain report.
  std::int16_t BackEntity(clsEntBCStudy& Entity, const std::string& Chooseitem);
  /// Whether t_sitemno has a row for TableName on InvestnoDate, whose number
  /// goes into Entity.no. 1 a row, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryCondition(const Date& InvestnoDate, const std::string& TableName,
                              clsEntSitemNo& Entity);
  /// The server's date; the zero date after a failure.
  /// A failure shows the plain report.
  Date QueryDate();

 private:
  // The twelve columns of a new or changed study, in table order.
  void WriteColumns(const clsEntBCStudy& Entity);
};

}  // namespace corvane

#endif  // CORVANE_CUSTOMERS_CUSTOMER_STUDY_H_
