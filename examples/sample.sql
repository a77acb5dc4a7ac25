-- Sample rows for the demo database: order types, a user with data rights,
-- and the production order and check-list rows an order change is carried to.
INSERT INTO t_bordertype (F_OrderType) VALUES ('Domestic'), ('Export'), ('Sample');
INSERT INTO t_dataright (F_ModuleID, f_userid, f_rightid) VALUES ('C', 'lin', 'C001');
INSERT INTO t_porder (F_ProdNo, F_OrdQty, f_outqty, f_outbkqty, f_balqty, F_Status)
  VALUES (7001, 100, 20, 5, 85, 0);
INSERT INTO t_porderchk (F_ProdNo, F_OrderCount) VALUES (7001, 100);
