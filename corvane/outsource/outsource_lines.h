/// \file
/// clsDataBOutMakei keeps the lines of outsource orders, table t_boutmakei:
/// one production number of one order a line. Besides reading and writing
/// lines it answers how much of a production number may still be given out
/// (ChkInputCount) and how much of a source document (a work order, an
/// outsource order or a purchase order) is still open for a supplier, not
/// yet entered as waiting quantity in the waiting-test tables (QueryProdNo).
/// QueryByProdNo leaves rs open when it succeeds: the next method that uses
/// rs as it stands fails once, and the call after that works again.
#ifndef CORVANE_OUTSOURCE_OUTSOURCE_LINES_H_
#define CORVANE_OUTSOURCE_OUTSOURCE_LINES_H_

#include <cstdint>
#include <memory>

#include "corvane/entities/outsource_line.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The outsource order lines, table t_boutmakei, and the open quantities.
/// \see corvane/outsource/outsource_lines.h for the whole description of the class.
class CORVANE_EXPORT clsDataBOutMakei : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBOutMakei() = default;

  /// Appends the lines of production number dblProdNo: 1 at least one
  /// appended, else 0; 2 failure. Leaves rs open.
  /// A failure shows the plain report.
  std::int16_t QueryByProdNo(Collection<clsEntBOutMakei>* colBOutMakei, double dblProdNo);
  /// Appends the lines of order OrderoutNo (their OrderoutNo not read),
  /// building each in Entity, which is left empty after a row: 1 at least one
  /// line, else 0 (Entity as it was); 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryBOutMakei(std::shared_ptr<clsEntBOutMakei>& Entity, double OrderoutNo,
                              Collection<clsEntBOutMakei>* collBOutMakei);
  /// Stores a new line: 1 stored, 0 the line exists (nothing written),
  /// 2 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBOutMakei& Entity);
  /// Overwrites line (OrderoutNo, ProdNo) from Entity, keys and received
  /// quantities included: 1 done, 0 no such line, 2 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBOutMakei& Entity, double OrderoutNo, double ProdNo);
  /// Deletes line (OrderoutNo, Entity.ProdNo): 1, also when there was none;
  /// 2 failure.
  /// A failure shows the plain report.
  std::int16_t DeleteRecord(double OrderoutNo, const clsEntBOutMakei& Entity);
  /// Sets Entity.OrdoutQty to what production number Entity.ProdNo may still
  /// give out: its production quantity plus its sales back quantity, less all
  /// that its lines already give out (negative as it comes). 1; 2 failure.
  /// A failure shows the plain report.
  std::int16_t ChkInputCount(clsEntBOutMakei& Entity);
  /// Fills Entity from line (Entity.OrderoutNo, Entity.ProdNo), the keys not
  /// read: 1 found, 0 not found, 2 failure.
  /// A failure shows the plain report.
  std::int16_t ChkProdNobyOrderOutNo(clsEntBOutMakei& Entity);
  /// The open quantity of a source document of kind ProdNo for the supplier
  /// in clsEntBOutMakei.CustNo: 1 work order, 2 outsource order, 3 purchase
  /// order. 1 something is open (in OrdoutQty), 2 nothing open or no such
  /// document, 0 an unknown kind or failure.
  /// A failure shows the alert report.
  std::int16_t QueryProdNo(clsEntBOutMakei& clsEntBOutMakei, std::int16_t ProdNo);

 private:
  // The reads of F_SItemNo to F_Ename, alike in the three reads of lines.
  void ReadSItemNoToEname(clsEntBOutMakei& e);
  // The reads of F_CustNo to F_Ename, alike in QueryByProdNo and
  // ChkProdNobyOrderOutNo.
  void ReadCustNoToEname(clsEntBOutMakei& e);
  // The writes of F_CorderNo to F_Status and of F_ItemName to F_Ename, alike
  // in the add and the update.
  void WriteCorderNoToStatus(const clsEntBOutMakei& Entity);
  void WriteItemNameToEname(const clsEntBOutMakei& Entity);
};

}  // namespace corvane

#endif  // CORVANE_OUTSOURCE_OUTSOURCE_LINES_H_
