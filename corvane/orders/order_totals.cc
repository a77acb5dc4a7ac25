// The questions of clsDataBOrderi that look across tables: what approved
// orders still need bought, what has gone out against a customer's orders,
// and the recomputation of an order's money totals from its lines. The
// statements are long; each is kept in the pieces it was written in, joined
// with nothing between them: the leading blanks of each piece belong to the
// text sent.
#include "corvane/orders/order_lines.h"

namespace corvane {

// clang-format off
std::int16_t clsDataBOrderi::QueryBuyForMreqBuy(Collection<clsEntBOrderi>* collAllNeedPurItem) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    std::string sql = " select orderi.f_orderno,orderi.f_itemno,F_ordqty,f_bkqty,f_reqqty from ";
    sql = sql + "    (select t1.f_orderno,t1.f_itemno, sum(t1.F_ordqty) as F_ordqty  , sum(t1.f_bkqty) as f_bkqty";
    sql = sql + "    from T_Borderh t0 inner join T_Borderi t1 on t0.f_approve<>'' and t0.F_Orderno=t1.F_orderno and t0.F_flags=0 and t1.f_status=0";
    sql = sql + "    group by t1.f_orderno,t1.f_itemno) as orderi";
    sql = sql + "    Left Join";
    sql = sql + "    (select f_remark,f_itemno,sum(f_reqqty) as f_reqqty";
    sql = sql + "    from t_mreqbuyi group by f_remark,f_itemno) as rebuyi";
    sql = sql + "    on orderi.f_orderno=rebuyi.f_remark and orderi.f_itemno=rebuyi.f_itemno";
    sql = sql + "    Where orderi.F_ordqty + orderi.f_bkqty > ifnull(rebuyi.f_reqqty, 0)";
    ReadOpen(sql);
    FillCollection(collAllNeedPurItem, [&](clsEntBOrderi& e) {
      e.OrderNo = Nz("f_OrderNo", "").CDbl();
      e.ItemNo = Nz("f_ItemNo", "").CStr();
      e.OrdQty = Nz("f_OrdQty", 0).CDbl();
      e.BkQty = Nz("f_BKQty", 0).CDbl();
      e.OutQty = Nz("f_reqqty", 0).CDbl();
      result = 1;
    });
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOrderi::QueryOutForOrder(Collection<clsEntBOrderi>* collAllNeedOutItem,
                                              const std::string& CardCode, double OrderNo) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    std::string sql;
    if (OrderNo != 0) {
      sql = "select t0.F_custno,t4.f_prodno,  t1.f_orderno,t1.f_no,t1.f_itemno,t1.f_Custitemno,t1.f_custorderno , t1.F_ordqty  , t1.f_bkqty,t2.F_outqty,t2.f_outbkqty ,t3.f_outbkqty as Reqty";
      sql = sql + "    from T_Borderh t0 inner join T_Borderi t1 on t0.F_approve<>'' and t0.F_Orderno=t1.F_orderno and t1.f_orderno='" + Text(OrderNo) + "' and t1.f_status=0 left join t_porder t4 on t1.f_prodno=t4.f_prodno";
    } else {
      sql = "select t0.F_custno,t4.f_prodno,  t1.f_orderno,t1.f_no,t1.f_itemno,t1.f_Custitemno,t1.f_custorderno , t1.F_ordqty  , t1.f_bkqty,t2.F_outqty,t2.f_outbkqty,t3.f_outbkqty as Reqty";
      sql = sql + "    from T_Borderh t0 inner join T_Borderi t1 on t0.F_approve<>'' and t0.F_Orderno=t1.F_orderno and t1.f_status=0 left join t_porder t4 on t1.f_prodno=t4.f_prodno";
    }
    // Goods out per order line.
    sql = sql + "    left join (select f_basecode,f_baseline,f_itemno,sum(F_outqty) as F_outqty,sum(f_outbkqty) as f_outbkqty from t_wouti group by f_basecode,f_baseline,f_itemno) t2 on t1.F_orderno=t2.f_basecode and t1.f_no=t2.f_baseline and t1.f_itemno=t2.f_itemno";
    // The returns booked against those goods out.
    sql = sql + "    left join (select t31.f_basecode,t31.f_baseline,t32.f_itemno,sum(t32.f_outbkqty) as f_outbkqty from t_wouti t31 inner join t_woutbacki t32 on t31.f_outno=t32.f_basecode and t31.f_no=t32.f_baseline and t31.f_itemno=t32.f_itemno group by t31.f_basecode,t31.f_baseline,t31.f_itemno) t3 on t2.f_basecode=t3.f_basecode and t2.f_baseline=t3.f_baseline and t2.f_itemno=t3.f_itemno ";
    sql = sql + "    where t0.f_custno='" + CardCode + "'";
    ReadOpen(sql);
    FillCollection(collAllNeedOutItem, [&](clsEntBOrderi& e) {
      e.ProdNo = Nz("f_ProdNo", 0).CDbl();
      e.OrderNo = Nz("f_OrderNo", "").CDbl();
      e.No = Nz("f_no", "f_No", "").CStr();
      e.ItemNo = Nz("f_ItemNo", "").CStr();
      e.OrdQty = Nz("f_OrdQty", 0).CDbl();
      e.BkQty = Nz("f_BKQty", 0).CDbl();
      e.OutQty = Nz("f_OutQty", 0).CDbl() + Nz("f_OutbkQty", 0).CDbl();
      e.InQty = Nz("Reqty", 0).CDbl();
      e.CustOrderNo = Nz("f_CustOrderNo", "").CStr();
      e.CustItemNo = Nz("f_CustItemNo", "").CStr();
      result = 1;
    });
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOrderi::UpdateFCorLC(double OrderNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    // The line totals.
    FreshRs();
    Open("update t_borderi set f_fctotal =F_OrdQty*F_Price*(1-ifnull(F_disPerRow,0)/100),f_lctotal =F_OrdQty*F_Price*(1-ifnull(F_disPerRow,0)/100)*(1+F_Tax/100)*if(ifnull(F_Rate,0)=0,1,F_Rate) where F_OrderNo=" + Text(OrderNo), 1, 2);
    ResetRs();
    // The header's total before discount.
    FreshRs();
    Open("update t_borderh t0 inner join (select f_orderno, sum(f_fctotal*if(ifnull(F_Rate,0)=0,1,F_Rate)) as sumtotal from t_Borderi where f_orderno=" + Text(OrderNo) + "  group by F_OrderNo ) t1 on t0.f_orderno=t1.f_orderno  set t0.F_TotalBefore=t1.sumtotal where t0.f_orderno=" + Text(OrderNo), 1, 2);
    ResetRs();
    // The header's tax, from the lines before any discount of the header.
    FreshRs();
    Open("update t_borderh t0 inner join (select f_orderno, sum(f_fctotal*if(ifnull(F_Rate,0)=0,1,F_Rate)*F_Tax/100) as sumtotal from t_Borderi where f_orderno=" + Text(OrderNo) + "  group by F_OrderNo ) t1 on t0.f_orderno=t1.f_orderno  set t0.F_Tax=t1.sumtotal where t0.f_orderno=" + Text(OrderNo), 1, 2);
    ResetRs();
    // The header's total: the discount applies to the total before it only.
    FreshRs();
    Open("update t_borderh  set F_Total=F_TotalBefore*(1-F_DisCount/100)+F_greight+F_Tax  where F_OrderNo=" + Text(OrderNo), 1, 2);
    ResetRs();
    result = 1;
  });
  return result;
}
// clang-format on

}  // namespace corvane
