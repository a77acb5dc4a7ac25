-- Sample rows for the road of studies and samples: the goods types (one
-- listed twice, as the goods table allows), a study and a sample of an
-- earlier day with the day's rows of t_sitemno.
INSERT INTO t_egoodstype (F_GoodStype, F_ID) VALUES ('metal', 'G01'), ('wood', 'G02'),
  ('metal', 'G03'), ('plastic', 'G04');
INSERT INTO t_bcstudy VALUES (2026010201, '2026-01-02', 'C001', 'li', 3, 4, 4, 3,
  'more colours', 'some scratches', 'on time', 'polite');
INSERT INTO t_bsample VALUES (2026010201, 'catalogue page 4', 'zhao', 'C001-BOX', '2026-01-02',
  'C001', 0, 'box, 20 cm', 'box', 'folded', 'B-20', 1, '2026-01-10', 'PO-7', 3, '',
  '2026-01-09', 'printed lid', 'paper', '2026-01-08', 3, 'wang', '2026-01-02', 'card',
  'K-3', 'shelf', 'A2');
INSERT INTO t_sitemno VALUES ('t_bcstudy', 2026010201, '2026-01-02'),
  ('t_bsample', 2026010201, '2026-01-02');
