// The order-type listing written by hand, the reference of the library's
// QueryAll in the benchmarks: the same select over Connector/C, streamed,
// each row into a new entity at the end of the same collection.
#ifndef CORVANE_BENCH_LISTING_BY_HAND_H_
#define CORVANE_BENCH_LISTING_BY_HAND_H_

#include <mysql.h>

#include <memory>
#include <stdexcept>
#include <string_view>

#include "corvane/corvane.h"

namespace corvane::bench {

inline void ListOrderTypesByHand(MYSQL* m, Collection<clsEntBOrderType>* all) {
  static constexpr std::string_view kSql = "Select * From T_BOrderType ";
  if (mysql_real_query(m, kSql.data(), kSql.size()) != 0) throw std::runtime_error(mysql_error(m));
  MYSQL_RES* res = mysql_use_result(m);
  if (res == nullptr) throw std::runtime_error(mysql_error(m));
  while (MYSQL_ROW row = mysql_fetch_row(res)) {
    auto e = std::make_shared<clsEntBOrderType>();
    e->OrderType = row[0] != nullptr ? row[0] : "";
    all->Add(std::move(e));
  }
  mysql_free_result(res);
}

}  // namespace corvane::bench

#endif  // CORVANE_BENCH_LISTING_BY_HAND_H_
