/// \file
/// clsDataBSample keeps the samples made for customers, table t_bsample, and
/// lists the goods types of t_egoodstype. Sample numbers are chosen by the
/// caller per day and remembered in t_sitemno (numbering/family_a.h); a new
/// sample is appended without a look at its number. Each of the three full
/// reads has its own null values, column by column. None of the methods
/// replaces rs, and none leaves it open.
#ifndef CORVANE_CUSTOMERS_SAMPLE_H_
#define CORVANE_CUSTOMERS_SAMPLE_H_

#include <cstdint>
#include <string>

#include "corvane/entities/goods_type.h"
#include "corvane/entities/sample.h"
#include "corvane/entities/sitemno.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The samples made for customers, table t_bsample.
/// \see corvane/customers/sample.h for the whole description of the class.
class CORVANE_EXPORT clsDataBSample : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBSample() = default;

  /// Fills Entity from sample Entity.NumNo. 1 found, 0 no row, 2 failure
  /// (Entity filled up to the column that failed).
  /// A failure shows the plain report.
  std::int16_t GetSampleRecord(clsEntBSample& Entity);
  /// Fills maxitem from the sample with the largest number of the whole table.
  /// 1 a row, 0 an empty table or failure.
  /// A failure shows the plain report.
  std::int16_t QueryMaxItem(clsEntBSample& maxitem);
  /// Appends one entity per goods type, in order. 1 at least one, 0 none or
  /// failure, as a 16-bit integer.
  /// A failure shows the plain report.
  Variant QueryEGoodsType(Collection<clsEntEGoodsType>* CollEGoodsType);
  /// Appends the sample, whatever its number, and writes the row of t_sitemno
  /// for strTableName and currentdate: inserted with Istatus 0, pointed at the
  /// number with any other. 1 added, 0 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBSample& Entity, const std::string& strTableName,
                         std::int16_t Istatus, Date currentdate);
  /// Overwrites sample NumNo (read by its leading digits) with all of Entity,
  /// its number and date too; t_sitemno stays as it is. 1 updated, 0 failure,
  /// which is also the answer for a missing sample.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBSample& Entity, const std::string& NumNo);
  /// The largest sample number of currentdate into maxitemdelete.NumNo. 1 a
  /// row, 0 failure, among them a date without samples (the null maximum does
  /// not read).
  /// A failure shows the plain report.
  std::int16_t QueryMaxItemDelete(clsEntBSample& maxitemdelete, Date currentdate);
  /// Deletes sample Entity.NumNo. With DeleteStatus 1 the day's row of
  /// strTableName for Entity.Tabletime follows the largest number left (1) or
  /// goes when the day has no sample left (2); with any other value it stays
  /// (1). 0 failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBSample& Entity, std::int16_t DeleteStatus,
                            const std::string& strTableName);
  /// Appends one entity per customer with samples, Custno only, in order.
  /// Empty; 0 after a failure.
  /// A failure shows the plain report.
  Variant QueryAllCustmo(Collection<clsEntBSample>* CollALL);
  /// Appends every sample of customer NumNo, whole. 1 at least one, 0 none or
  /// failure.
  /// A failure shows the plain report.
  std::int16_t QueryAlldetaile(Collection<clsEntBSample>* CollALL2, const std::string& NumNo);
  /// Whether t_sitemno has a row for TableName on InvestnoDate, whose number
  /// goes into Entity.no. 1 a row, 0 none, 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryCondition(const Date& InvestnoDate, const std::string& TableName,
                              clsEntSitemNo& Entity);

 private:
  // The 27 columns of a new or changed sample, F_NumNo after F_Modoption.
  void WriteColumns(const clsEntBSample& Entity);
  // F_PlaceID as all three full reads take it: empty text when F_Useful is
  // null, else the value of F_PlaceID, which does not read when null.
  std::string ReadPlaceID();
};

}  // namespace corvane

#endif  // CORVANE_CUSTOMERS_SAMPLE_H_
