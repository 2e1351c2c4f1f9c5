-- The coordinate database: one row a work area, its known points and its
-- solved transformation parameters. Empty when shipped.
-- The number columns are TEXT on purpose: they hold 96-bit decimals of up
-- to 29 digits as decimal text, which a REAL column would cut to 15-17.
-- 精度 is one of 0.1, 0.3, 1.0, 2.0 and fits a REAL.

CREATE TABLE 区域表 (
  用户 TEXT DEFAULT 'Guest',
  固化 INTEGER DEFAULT 0,
  ID TEXT,
  区域 TEXT,
  类型 INTEGER,
  点数 INTEGER,
  精度 REAL,
  X1A TEXT, Y1A TEXT, H1A TEXT,
  X2A TEXT, Y2A TEXT, H2A TEXT,
  X3A TEXT, Y3A TEXT, H3A TEXT,
  X1B TEXT, Y1B TEXT, H1B TEXT,
  X2B TEXT, Y2B TEXT, H2B TEXT,
  X3B TEXT, Y3B TEXT, H3B TEXT,
  ZZ TEXT,
  A1 TEXT, A2 TEXT, A3 TEXT,
  B1 TEXT, B2 TEXT, B3 TEXT,
  说明 TEXT DEFAULT ''
);

CREATE INDEX 区域表_区域 ON 区域表 (区域);
