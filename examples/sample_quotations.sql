-- Sample rows for the quotation road of the demo: the currencies of the
-- finance system, and three quotations of earlier days for gear GEAR-40 (two
-- approved, one not) whose prices make up the history the demo looks up.
INSERT INTO t_scurrency (F_CurrencyID, F_CurrencyName)
  VALUES ('CNY', '人民币'), ('USD', 'US Dollar'), ('EUR', 'Euro');
INSERT INTO t_bpriceh (F_QuotNo, F_Custno, F_CurrencyID, F_QuotDate, F_Tabler, F_TablerTime,
                       F_Checker, F_CheckerTime, F_Approve, F_ApproveTime, F_Flags, F_SalerID,
                       F_Total, F_DueDate, F_TaxDate, F_CustName)
  VALUES (2026091501, 'C001', 'USD', '2026-09-15', 'wang', '2026-09-15 09:00:00', 'wang',
          '2026-09-15 10:00:00', 'li', '2026-09-15 11:00:00', 1, 'S01', 1150, '2026-10-15',
          '2026-09-15', 'Acme'),
         (2026100801, 'C001', 'USD', '2026-10-08', 'wang', '2026-10-08 09:00:00', NULL, NULL,
          NULL, NULL, NULL, 'S01', 1100, '2026-11-08', '2026-10-08', 'Acme'),
         (2026101201, 'C002', 'EUR', '2026-10-12', 'zhao', '2026-10-12 09:00:00', 'zhao',
          '2026-10-12 10:00:00', 'li', '2026-10-12 11:00:00', 1, 'S02', 1300, '2026-11-12',
          '2026-10-12', 'Borealis');
INSERT INTO t_bpricei (F_CitemNO, F_ItemNo, F_Price, F_QuotNo, F_Currency, F_OrdQty, F_ProdNo,
                       F_InQty, F_OutQty, F_No, F_Flags, F_Rate, F_ItemName, F_FcTotal,
                       F_LcTotal)
  VALUES ('A-40', 'GEAR-40', 11.5, 2026091501, 'USD', 100, 0, 0, 0, '1', 0, 7.1, 'Gear 40',
          1150, 8165),
         ('A-40', 'GEAR-40', 11, 2026100801, 'USD', 100, 0, 0, 0, '1', 0, 7.1, 'Gear 40', 1100,
          7810),
         ('B-40', 'GEAR-40', 13, 2026101201, 'EUR', 100, 0, 0, 0, '1', 0, 7.8, 'Gear 40', 1300,
          10140);
