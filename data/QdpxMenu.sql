-- The menu database: the program's identity, the main menu's buttons, the
-- atlas list, the atlas categories and the formula editor's user numbers.
-- Built into QdpxMenu.db at build time; edit here, not in the .db file.
-- Button rectangles (按钮左, 按钮顶, 按钮长, 按钮高) are in points of 15
-- twips, which is one pixel at 96 DPI.

CREATE TABLE 常规表 (
  排序 INTEGER,
  类别ID TEXT,
  类别QZ TEXT,
  软件号 INTEGER,
  软件显示 TEXT,
  软件英文 TEXT,
  帮助文件 TEXT,
  Acs库名 TEXT,
  Acs密码 TEXT,
  按钮名 TEXT,
  按钮左 INTEGER,
  按钮顶 INTEGER,
  按钮长 INTEGER,
  按钮高 INTEGER,
  官网 TEXT,
  链接 TEXT,
  公式ID TEXT,
  公式LB TEXT,
  备注 TEXT,
  使用数 INTEGER DEFAULT 0
);

-- One row an atlas; rows with 排序 not above 0 are hidden.
CREATE TABLE 表总表 (
  排序 INTEGER,
  类别ID TEXT,
  类别QZ TEXT,
  软件号 INTEGER,
  软件显示 TEXT,
  软件英文 TEXT,
  帮助文件 TEXT,
  Acs库名 TEXT,
  Acs密码 TEXT,
  按钮名 TEXT,
  按钮左 INTEGER,
  按钮顶 INTEGER,
  按钮长 INTEGER,
  按钮高 INTEGER,
  官网 TEXT,
  链接 TEXT,
  公式ID TEXT,
  公式LB TEXT,
  使用数 INTEGER DEFAULT 0
);

-- Categories of every atlas; 用否 = -1 marks a category in use.
CREATE TABLE 列类别 (
  编号 TEXT,
  名称 TEXT,
  父关联 TEXT,
  用否 INTEGER DEFAULT -1
);

CREATE TABLE 用户表 (
  用户号 TEXT
);

INSERT INTO 常规表 (排序, 类别ID, 类别QZ, 软件号, 软件显示, 软件英文, 帮助文件, Acs库名, Acs密码,
  按钮名, 按钮左, 按钮顶, 按钮长, 按钮高, 官网, 链接, 公式ID, 公式LB, 备注, 使用数)
VALUES (1, 'SoftName', '', 1, 'Orvane 工程测算工作台', 'Orvane', '', '', '',
  'Orvane 工程测算工作台', 16, 10, 688, 44,
  'https://orvane.example.org/', 'https://orvane.example.org/download/', '', '',
  'Orvane 开发组 —— 问题与建议请发往 orvane@example.org', 0);

INSERT INTO 常规表 (排序, 类别ID, 类别QZ, 软件号, 软件显示, 软件英文, 帮助文件, Acs库名, Acs密码,
  按钮名, 按钮左, 按钮顶, 按钮长, 按钮高, 官网, 链接, 公式ID, 公式LB, 备注, 使用数)
VALUES (2, 'dcButJiSuan', '', 2, '科学计算器', 'Calculator', '', '', '',
  '科学计算器', 16, 64, 336, 72, '', '', '', '', '', 0);

INSERT INTO 常规表 (排序, 类别ID, 类别QZ, 软件号, 软件显示, 软件英文, 帮助文件, Acs库名, Acs密码,
  按钮名, 按钮左, 按钮顶, 按钮长, 按钮高, 官网, 链接, 公式ID, 公式LB, 备注, 使用数)
VALUES (3, 'dcButZuoBiao', '', 3, '坐标批量转换', 'Coordinates', '', '', '',
  '坐标批量转换', 368, 64, 336, 72, '', '', '', '', '', 0);
