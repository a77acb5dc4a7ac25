-- Sample rows for the demo database: order types, a user limited to one
-- customer, and an approved order of an earlier day whose line is in
-- production, with its production order and check-list row.
INSERT INTO t_bordertype (F_OrderType) VALUES ('Domestic'), ('Export'), ('Sample');
INSERT INTO t_dataright (F_ModuleID, f_userid, f_rightid) VALUES ('C', 'lin', 'C001');
INSERT INTO t_borderh (F_OrderNo, F_OrderDate, F_SalerId, F_CustNo, F_CorderNo, F_OrderType,
                       F_Tabler, F_Tabletime, F_Checker, F_approve, F_Flags, F_TotalBefore,
                       F_DisCount, F_Greight, F_Tax, F_Total, F_DueDate, F_TaxDate,
                       F_Currency)
  VALUES (20260101001, '2026-01-01', 'S01', 'C001', 'PO-7', 'Domestic', 'wang',
          '2026-01-01 09:00:00', 'wang', 'li', 0, 1000, 0, 0, 170, 1170, '2026-02-01',
          '2026-01-01', 'CNY');
INSERT INTO t_borderi (F_OrderNo, F_ItemNo, F_Currency, F_Price, F_OrdQty, F_DeliverDate,
                       F_ProdNo, F_InQty, F_OutQty, F_BkQty, F_No, F_Status, F_Flags, F_Rate,
                       F_Tax, F_DisPerRow, F_FcTotal, F_LcTotal)
  VALUES (20260101001, 'GEAR-40', 'CNY', 10, 100, '2026-02-01', 7001, 0, 20, 0, '1', 0, 0, 1,
          17, 0, 1000, 1170);
INSERT INTO t_porder (F_ProdNo, f_orderno, F_OrdQty, F_OutQty, f_outbkqty, f_balqty,
                      F_DeliverDate, F_Status)
  VALUES (7001, 20260101001, 100, 20, 5, 85, '2026-02-01', 0);
INSERT INTO t_porderchk (F_ProdNo, F_OrderCount, F_DeliverDate) VALUES (7001, 100, '2026-02-01');
INSERT INTO t_mreqbuyi (f_remark, f_itemno, f_reqqty) VALUES ('20260101001', 'GEAR-40', 40);
