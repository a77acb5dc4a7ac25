-- Sample rows for the customer road: the area tables, two sales people and
-- two customers. The user lin (sample.sql) may see customer C001 only.
INSERT INTO t_scountry (f_countryid, f_countryname) VALUES ('CN', 'China'), ('DE', 'Germany');
INSERT INTO t_sprovince (F_countryid, F_provinceid, f_provincename)
  VALUES ('CN', 'GD', 'Guangdong'), ('CN', 'ZJ', 'Zhejiang'), ('DE', 'BY', 'Bayern');
INSERT INTO t_scity (F_countryid, F_provinceid, F_cityname)
  VALUES ('CN', 'GD', 'Shenzhen'), ('CN', 'GD', 'Dongguan'), ('CN', 'ZJ', 'Ningbo'),
         ('DE', 'BY', 'Munich');
INSERT INTO t_bsaler (F_SalerId, F_Saler_1st) VALUES ('S01', 'Wang Wei'), ('S02', 'Li Na');
INSERT INTO t_bcustom (F_custno, F_countryid, F_provinceid, F_cityname, F_CustName,
                       F_CustFullName, F_Linkman_1st, F_SalerID, F_tel, F_payday,
                       F_CreateDate, F_EditDate, F_Status, F_GroupCode, F_CurrencyId,
                       F_Paymonth, F_CreditLimit)
  VALUES ('C001', 'CN', 'GD', 'Shenzhen', 'Acme', 'Acme Gears Ltd.', 'Mr. Chen', 'S01',
          '0755-1234567', 30, '2025-06-01 09:00:00', '2026-01-10 14:20:00', 1, 'G1', 'CNY',
          1, 500000),
         ('C002', 'DE', 'BY', 'Munich', 'Bergmann', 'Bergmann Antriebe GmbH', 'Ms. Huber',
          'S02', '+49-89-555', 60, '2025-09-15 10:30:00', '2026-02-03 08:00:00', 1, 'G2',
          'EUR', 2, 200000);
