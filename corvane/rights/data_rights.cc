// The rights test.
#include "corvane/rights/data_rights.h"

namespace corvane::rights {

const std::string& Choose(Repository& repo, Module module, const std::string& UserId,
                          FreshRs fresh, const std::string& filtered,
                          const std::string& unfiltered) {
  if (fresh == FreshRs::kYes) repo.FreshRs();
  const char* letter = module == Module::kCustomers ? "C" : "S";
  repo.Open(std::string("select * from t_dataright where F_ModuleID='") + letter +
                "' and f_userid='" + UserId + "'",
            1, 2);
  const bool bof = repo.rs().Bof();
  const bool eof = repo.rs().Eof();
  // The rights query is not closed: its release ends it.
  repo.ResetRs();
  repo.FreshRs();
  return bof || eof ? unfiltered : filtered;
}

}  // namespace corvane::rights
