// The data layer: the program's database files, reached one operation at a
// time.
//
// The files are SQLite databases beside the program (QdpxMenu.db, QdpxDate.db
// and one file an atlas). A connection text keeps the old shape
//   "Driver={SQLite3 ODBC Driver};Dbq=<folder>/QdpxMenu.db;Uid=admin;Pwd=...;"
// and the file is the part behind "Dbq=". User and password are kept in the
// text for the atlas rows of 表总表 that carry them; SQLite ignores them.
//
// Every operation here:
//   * opens its own, uniquely named connection to the file, works inside one
//     transaction, and closes and removes the connection on every way out, so
//     a file may be replaced between two operations;
//   * never creates a file: a missing file is a failed open;
//   * passes values as bound parameters, never pasted into the statement;
//   * treats a key value holding a single quote as "no row" without touching
//     the file (such a key could never match a stored row in the old
//     string-built statements, so the outcome is kept: nothing read, nothing
//     written);
//   * swallows every failure and returns its zero result (0, "", false, an
//     empty list), with no message: callers read that as "no row".
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>

class QSqlDatabase;

// File names of the two fixed databases (beside the program).
inline const QString 菜单库文件名 = QStringLiteral("QdpxMenu.db");
inline const QString 坐标库文件名 = QStringLiteral("QdpxDate.db");

// The file path of a connection text: what follows "dbq=" (found without
// regard to case) up to the end of ".db" (also without regard to case), or,
// if there is no ".db", up to the next ";" or the end. The path keeps its
// case, because file names on this platform are case sensitive; callers that
// show it to the user lower-case it themselves. "" if there is no "dbq=".
// Never reports.
QString 取库文件名(const QString& 连接串);

// Runs `操作` on a fresh connection to the file of `连接串`, inside one
// transaction. The transaction is committed when `操作` returns true and
// rolled back otherwise (and on any exception, which is swallowed). Returns
// what `操作` returned, or false when the file is missing or does not open.
// The connection is closed and removed before returning. For the other
// modules' tables (公式库, 区域表), so that they follow the same discipline.
bool 执行库操作(const QString& 连接串, const std::function<bool(QSqlDatabase&)>& 操作);

// True when `值` could not have been a key in a string-built statement
// (it holds a single quote). Every keyed operation answers "no row" for it.
bool 含单引号(const QString& 值);

// ---- Menu database (菜单库连接串) ----

// One row of 常规表 or 表总表, the common column list of 19.
// Null texts read as "", null numbers as 0. 按钮左..按钮高 are in points of
// 15 screen units (twips / 15): multiply by 15 for twips, and since a
// pixel at 96 DPI is 15 twips, the numbers are pixels at 96 DPI.
struct 菜单行 {
    int 排序 = 0;
    QString 类别ID;
    QString 类别QZ;
    int 软件号 = 0;
    QString 软件显示;
    QString 软件英文;
    QString 帮助文件;
    QString Acs库名;
    QString Acs密码;
    QString 按钮名;
    int 按钮左 = 0;
    int 按钮顶 = 0;
    int 按钮长 = 0;
    int 按钮高 = 0;
    QString 官网;
    QString 链接;
    QString 公式ID;
    QString 公式LB;
    int 使用数 = 0;
};

// The tool tip of a menu button: 软件显示 + " -- " + 使用数.
QString 菜单提示(const 菜单行& 行);

// The program's identity as the row SoftName of 常规表 holds it.
struct 软件信息 {
    QString 软件显示, 备注, 官网, 链接;
    int 使用数 = 0;
};

// The row SoftName of 常规表: if exactly one row, 使用数 + 1 is written back
// and read again, and the row goes to *信息. Returns the new count, 0 when
// there is not exactly one row or the file fails (*信息 is then untouched).
int 读软件信息(软件信息* 信息 = nullptr);

// The row `类别ID` of 常规表: if exactly one row, 使用数 + 1 is written back
// and the new value returned; 0 otherwise (nothing written).
int 累加使用数(const QString& 类别ID);

// Every row of 常规表, ordered by 排序 ascending; empty on failure.
QList<菜单行> 读常规表();

// The rows of 表总表 with 排序 > 0, ordered by 排序 ascending (all of them;
// the menu shows at most 12). Empty on failure.
QList<菜单行> 读表总表();

// 读当前图册: the row `类别ID` of 表总表. If there is exactly one, it fills
// the 当前图册 fields of 公共 (图册类别ID, 图册ID前缀, 图册标题,
// 图册帮助文件, 初始类别, 初始公式ID, 图册库文件, and 图册库连接串 =
// 驱动串 + trimmed Acs库名 + ";Uid=admin;Pwd=" + trimmed Acs密码 + ";"),
// adds 1 to 使用数, writes it back and returns it. Otherwise those fields
// are emptied and 0 is returned.
int 读当前图册(const QString& 类别ID);

// A code table: "Select [ID列] as 我ID, [名称列] as 我Mc From [表名]" and,
// when the trimmed `条件` is not empty, a blank and `条件`, which carries its
// own "Where" and "Order By" with "?" placeholders for `条件参数` (bound in
// order). The two lists are resized to row count + 1 and filled from index 1
// (index 0 stays ""); a null ID or name gives "". Returns the row count, 0
// on failure (the lists then hold just index 0). Table and column names
// holding "]" are refused (0).
int 读代码表(const QString& 表名, const QString& ID列, const QString& 名称列,
             QStringList& ID表, QStringList& 名称表, const QString& 条件,
             const QVariantList& 条件参数 = {});

// The same on the open atlas's database (图册库连接串).
int 读图册代码表(const QString& 表名, const QString& ID列, const QString& 名称列,
                 QStringList& ID表, QStringList& 名称表, const QString& 条件,
                 const QVariantList& 条件参数 = {});

// ---- Atlas database (图册库连接串), table 公式库 ----

// [类别] of the formula `公式ID` (trimmed), "" if none or null.
QString 查公式类别(const QString& 公式ID);
// True if at least one row has [ID号] = trimmed `公式ID`.
bool 公式存在(const QString& 公式ID);
// Writes "" into 式1图 (号 == 1) or 式2图 (otherwise) of the one row of
// `公式ID`; true if exactly one row was found and written.
bool 清除公式图片(const QString& 公式ID, int 号);
// Deletes the one row of trimmed `公式ID`; true if exactly one row was found.
bool 删除公式记录(const QString& 公式ID);

// ---- Building the files ----

// Creates `库文件` (which must not exist yet) from the SQL text of
// `脚本文件`: statements end with ";" at the end of a line, lines starting
// with "--" are comments. All in one transaction; on any failure the new
// file is removed and false returned, with the reason in *错误.
bool 由脚本建库(const QString& 脚本文件, const QString& 库文件, QString* 错误 = nullptr);
