-- Corvane attachment database: the files attached to quotation lines, kept
-- apart from the business database. Run inside the database of your choice;
-- the table is dropped and created again, so the script can be run more than once.

-- one attached file per quotation line (number and item); content as stored bytes
DROP TABLE IF EXISTS t_bprice_attach;
CREATE TABLE t_bprice_attach (
  F_QuotNo DOUBLE NULL DEFAULT NULL,
  F_AttachNo INT NULL DEFAULT NULL,
  F_ItemNo VARCHAR(50) NULL DEFAULT NULL,
  F_FileName VARCHAR(255) NULL DEFAULT NULL,
  F_Attach LONGBLOB NULL DEFAULT NULL
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_general_ci;
