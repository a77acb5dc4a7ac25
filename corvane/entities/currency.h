/// \file
/// clsEntSCurrency: a currency of the finance system, a row of t_scurrency.
#ifndef CORVANE_ENTITIES_CURRENCY_H_
#define CORVANE_ENTITIES_CURRENCY_H_

#include <string>

namespace corvane {

/// A currency of the finance system, a row of t_scurrency.
struct clsEntSCurrency {
  std::string CurrencyID;    ///< F_CurrencyID, the key quotations refer to
  std::string CurrencyName;  ///< F_CurrencyName
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_CURRENCY_H_
