/// \file
/// clsDataBPricei keeps the quotation lines, table t_bpricei: one row per
/// quotation and item, which is how every statement finds a line. The order
/// columns of the table (F_ProdNo, F_InQty, F_OutQty, F_Flags) are written as
/// 0 on every add and every update. The class computes nothing: the totals
/// the entity brings are stored, and the header's totals are the caller's to
/// rewrite through clsDataBPriceh.
///
/// QueryBPricei hands its entities out through the caller's entity variable
/// as well as through the collection: each line read replaces what the
/// variable refers to by a new entity, and after the call the variable refers
/// to the last line, the same entity as the collection's last. The variable is
/// therefore a std::shared_ptr taken by reference, the shared pointer being
/// what the collection holds; the entity it referred to before the call is not
/// changed. With no line the variable is left alone.
///
/// No method leaves rs open.
#ifndef CORVANE_QUOTATIONS_QUOTATION_LINES_H_
#define CORVANE_QUOTATIONS_QUOTATION_LINES_H_

#include <cstdint>
#include <memory>
#include <string>

#include "corvane/entities/quotation_line.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The quotation lines, table t_bpricei.
/// \see corvane/quotations/quotation_lines.h for the whole description of the class.
class CORVANE_EXPORT clsDataBPricei : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBPricei() = default;

  /// Appends one entity per distinct price ever quoted for item PItemNo, for
  /// any customer and approved or not; only Price is set. 1 at least one,
  /// 0 none or failure. Starts on a new rs.
  /// A failure shows the plain report.
  std::int16_t QueryPrice(Collection<clsEntBPricei>* objColl, const std::string& PItemNo);
  /// Appends the lines of quotation QuotNo to collBPricei (QuotNo and the
  /// order columns not read), each line replacing the entity Entity refers to
  /// by a new one (see above). 1 at least one, 0 none or failure.
  /// A failure shows the plain report.
  std::int16_t QueryBPricei(std::shared_ptr<clsEntBPricei>& Entity, double QuotNo,
                            Collection<clsEntBPricei>* collBPricei);
  /// Stores a new line. 1 added, 0 the quotation has the item already
  /// (nothing written, no report), 2 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBPricei& Entity);
  /// Overwrites the line of quotation QuotNo and item varItemNo with Entity,
  /// its quotation and item included. 1 done; 0 failure, also when there is no
  /// such line.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBPricei& Entity, double QuotNo, const std::string& varItemNo);
  /// Deletes the line of quotation QuotNo and item Entity.ItemNo. 1 done,
  /// also when there is no such line; 0 failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(clsEntBPricei& Entity, double QuotNo);

 private:
  // Every column of the line, in the order of the table, the order columns
  // as 0: alike in the add and the update.
  void WriteLine(const clsEntBPricei& Entity);
};

}  // namespace corvane

#endif  // CORVANE_QUOTATIONS_QUOTATION_LINES_H_
