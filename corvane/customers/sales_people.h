/// \file
/// clsDataBSaler keeps the list of sales people, table T_BSaler, whose
/// identifiers customer rows hold in F_SalerID. Beside rs it holds one work
/// entity, through which QueryAll and QuerySalerName build each entity they
/// hand out: it is created on first use and let go once added to the caller's
/// collection, so a failure between the two leaves it, half filled, for the
/// next of them to go on with. DeleteRecord leaves rs open when no row
/// matched, and the next method that takes rs as it stands fails once.
#ifndef CORVANE_CUSTOMERS_SALES_PEOPLE_H_
#define CORVANE_CUSTOMERS_SALES_PEOPLE_H_

#include <cstdint>
#include <memory>
#include <string>

#include "corvane/entities/sales_person.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The sales people, table T_BSaler.
/// \see corvane/customers/sales_people.h for the whole description of the class.
class CORVANE_EXPORT clsDataBSaler : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBSaler() = default;

  /// Fills Entity from sales person Entity.SalerId. 1 found, 0 not found,
  /// 2 failure.
  /// A failure shows the plain report.
  std::int16_t QueryByID(clsEntBSaler& Entity);
  /// Appends SalerId and Saler_1st of every sales person. Always empty.
  /// A failure shows the length report.
  Variant QueryAll(Collection<clsEntBSaler>* colSaler);
  /// Stores SalerId and Saler_1st as they stand. 1 added, 2 the identifier
  /// exists (nothing written), 0 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBSaler& Entity);
  /// Renames sales person TempId to Entity.SalerId with the name
  /// Entity.Saler_1st, all three trimmed. 1 the statement ran (whether or not
  /// it found a row), 0 failure.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBSaler& Entity, const std::string& TempId);
  /// Deletes sales person Entity.SalerId. Always 0.
  /// A failure shows the length report.
  std::int16_t DeleteRecord(clsEntBSaler& Entity);
  /// Appends exactly one entity: SalerId and, in Saler_1st, "id-name" of
  /// sales person SalerID, or, with no such row, Saler_1st empty. Always
  /// empty.
  /// A failure shows the length report.
  Variant QuerySalerName(Collection<clsEntBSaler>* colSaler, const std::string& SalerID);

 private:
  // The work entity, created on first use.
  const std::shared_ptr<clsEntBSaler>& Work();

  std::shared_ptr<clsEntBSaler> work_;
};

}  // namespace corvane

#endif  // CORVANE_CUSTOMERS_SALES_PEOPLE_H_
