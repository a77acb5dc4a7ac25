// The order road the whole-program benchmarks drive: one sales order as the
// client takes it, from the day's number to its approval: QueryTF and
// QueryChkitemiNo, AddRecord, UpdateAddSitemNo, two lines, UpdateFCorLC, the
// check and the approval.
#ifndef CORVANE_BENCH_ORDER_ROAD_H_
#define CORVANE_BENCH_ORDER_ROAD_H_

#include <stdexcept>

#include "corvane/corvane.h"

namespace corvane::bench {

inline void OneOrder(clsDataBOrderh& orders, clsDataBOrderi& lines) {
  const auto today = orders.QueryTF();
  clsEntSitemNo last;
  orders.QueryChkitemiNo(last);
  const double number = today == 2 ? last.no + 1 : last.no;
  clsEntBOrderh order;
  order.OrderNo = number;
  order.OrderDate = last.fndate;
  order.CustNo = "C001";
  order.SalerId = "S01";
  order.Tabler = "wang";
  order.Currency = "CNY";
  if (orders.AddRecord(order) != 1) throw std::runtime_error("the road's order was refused");
  orders.UpdateAddSitemNo();
  clsEntBOrderi line;
  line.OrderNo = number;
  line.ItemNo = "GEAR-40";
  line.Price = 12.5;
  line.OrdQty = 80;
  line.No = "1";
  line.Tax = 13;
  line.Rate = 1;
  lines.AddBOrderi(line);
  line.ItemNo = "SHAFT-12";
  line.No = "2";
  lines.AddBOrderi(line);
  lines.UpdateFCorLC(number);
  orders.UpdateChecke("wang", number);
  orders.UpdateApprove("li", number);
}

}  // namespace corvane::bench

#endif  // CORVANE_BENCH_ORDER_ROAD_H_
