/// \file
/// Data rights: a user limited to certain customers ("C") or suppliers ("S")
/// has rows in t_dataright for that module; a user with none sees everything.
/// Each listing that honours rights keeps its two statement texts, one joined
/// to t_dataright and one plain; the test below chooses between them.
#ifndef CORVANE_RIGHTS_DATA_RIGHTS_H_
#define CORVANE_RIGHTS_DATA_RIGHTS_H_

#include <string>

#include "corvane/export.h"
#include "corvane/frame/repository.h"

/// Data rights: the choice between a listing's filtered and plain statement.
namespace corvane::rights {

/// The module whose rights rows count: F_ModuleID of t_dataright.
enum class Module {
  kCustomers,  ///< "C": rows of customers
  kSuppliers   ///< "S": rows of suppliers
};
/// Whether the rights question starts on a new rs.
enum class FreshRs {
  kNo,  ///< rs as it stands
  kYes  ///< a new rs first
};

/// Asks t_dataright whether UserId has rows for module (a new rs first when
/// fresh says so), leaves rs a new recordset, and returns filtered when the
/// user has rows, unfiltered when BOF or EOF says there are none.
CORVANE_EXPORT const std::string& Choose(Repository& repo, Module module, const std::string& UserId,
                                         FreshRs fresh, const std::string& filtered,
                                         const std::string& unfiltered);

}  // namespace corvane::rights

#endif  // CORVANE_RIGHTS_DATA_RIGHTS_H_
