-- Sample rows for the outsource road of the demo: two suppliers, a user
-- limited to one of them, two earlier outsource orders (one with a line for
-- production number 8001), the production order and sales line of 8001, a
-- work order and a purchase order with some of their quantity waiting for
-- test.
INSERT INTO t_cprovider (F_ProviderNo, F_Name) VALUES ('P01', 'Eastern Foundry'), ('P02', 'Pressworks');
INSERT INTO t_dataright (F_ModuleID, f_userid, f_rightid) VALUES ('S', 'zhao', 'P01');
INSERT INTO t_boutmakeh (F_OrderOutNo, F_OrderoutDate, F_ProviderNo, F_ProviderName, F_Tabler,
                         F_Tabletime, F_Checker, F_Approve, F_Flags, F_Total, F_Currency)
  VALUES (2026100501, '2026-10-05', 'P01', 'Eastern Foundry', 'wang', '2026-10-05 09:00:00',
          'wang', 'li', 1, 1250, 'CNY'),
         (2026090301, '2026-09-03', 'P02', 'Pressworks', 'wang', '2026-09-03 10:00:00',
          'wang', '', 0, 800, 'CNY');
INSERT INTO t_sitemno (F_TableName, F_No, F_FnDate)
  VALUES ('t_boutmakeh', 2026100501, '2026-10-05'), ('t_boutmakeh', 2026090301, '2026-09-03');
INSERT INTO t_boutmakei (F_OrderoutNo, F_ProdNo, F_ItemNo, F_CurrencyID, F_Price, F_OrdoutQty,
                         F_DeliverDate, F_SupportPart, F_Status, F_ItemName)
  VALUES (2026100501, 8001, 'VALVE-2', 'CNY', 25, 50, '2026-11-05', 0, 0, 'Valve body');
INSERT INTO t_porder (F_ProdNo, F_OrdQty, F_DeliverDate, F_Status) VALUES (8001, 200, '2026-12-20', 0);
INSERT INTO t_borderi (F_OrderNo, F_ItemNo, F_ProdNo, F_BkQty) VALUES (20260101001, 'VALVE-2', 8001, 10);
INSERT INTO t_mmakeplanh (F_WoNo, F_ItemNo, F_ProdNo, F_OrdQty) VALUES (6001, 'VALVE-2', 8001, 80);
INSERT INTO t_cpurh (F_PurNo, F_Approve, F_Status, F_ProviderNo) VALUES (9001, 'li', 2, 'P01');
INSERT INTO t_cpuri (F_PurNo, F_ItemNo, F_Status, F_PurQty, F_ProdNo) VALUES (9001, 'BOLT-8', 2, 500, 8001);
INSERT INTO t_witemh (F_WaitTestNo, F_QType) VALUES (1, 1), (2, 3);
INSERT INTO t_witemi (F_WaitTestNo, F_WaitQty, F_PurNo, F_ItemNo, F_OrderOutNo, F_ProdNo, F_WoNo)
  VALUES (1, 30, NULL, 'VALVE-2', NULL, 8001, 6001),
         (2, 120, 9001, 'BOLT-8', NULL, NULL, NULL);
