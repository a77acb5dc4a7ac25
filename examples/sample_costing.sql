-- Sample rows for the costing road: the wage rates of two wage sorts, the
-- goods types that point to them, and earlier estimates of two items for two
-- customers (the user lin of the sample rights sees only C001's).
INSERT INTO t_bwagesort (F_ID, F_WageItem, F_Wage)
  VALUES ('W-GEAR', 'TURNING', 12.5), ('W-GEAR', 'HOBBING', 18), ('W-GEAR', 'ASSEMBLY', 6),
         ('W-SHAFT', 'TURNING', 10), ('W-SHAFT', 'GRINDING', 8);
INSERT INTO t_egoodstype (F_GoodStype, F_ID) VALUES ('GEARBOX', 'W-GEAR');
INSERT INTO t_ehalfgtype (F_HalfGtype, F_ID) VALUES ('SHAFT', 'W-SHAFT');
INSERT INTO t_bcosth (F_EstNo, F_EstDate, F_ItemNo, F_CustNo, F_Remark, F_Tabler, F_TableTime,
                      F_CurrencyID, F_PartCost, F_WageCost, F_ManageCost, F_TotCost,
                      F_QuotPrice_1, F_ProFit_1, F_TaxPrice, F_SalePrice_1)
  VALUES (20260110001, '2026-01-10', 'GEAR-40', 'C002', 'first offer', 'wang',
          '2026-01-10 09:00:00', 'CNY', 80, 30, 11, 121, 145, 24, 163.85, 165),
         (20260110002, '2026-01-10', 'GEAR-40', 'C001', NULL, NULL, '2026-01-10 10:00:00',
          NULL, 78, 30, 10.8, 118.8, 140, 21.2, 158.2, 160),
         (20260110003, '2026-01-10', 'SHAFT-12', 'C002', NULL, 'wang', '2026-01-10 11:00:00',
          'CNY', 20, 18, 3.8, 41.8, 50, 8.2, 56.5, 55);
INSERT INTO t_bcosti (F_EstNo, F_ItemNo, F_CurrencyID, F_Dosage, F_Waste, F_Price, F_CostPrice)
  VALUES (20260110001, 'STEEL-45', 'CNY', 2, 0.1, 38, 80);
INSERT INTO t_bcosts (F_EstNo, F_WageItem, F_Wage) VALUES (20260110001, 'TURNING', 30);
