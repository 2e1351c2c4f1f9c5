#include "library/access.h"

#include "numeric/text.h"
#include "library/state.h"

#include <QAtomicInteger>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTextStream>

namespace {

// A connection name no other live connection has: the layer may be entered
// again from inside an operation's callback (an atlas read inside a menu
// read), so a fixed name would close the outer one.
QString 新连接名() {
    static QAtomicInteger<quint64> 序号{0};
    return QStringLiteral("orvane-access-%1").arg(序号.fetchAndAddRelaxed(1) + 1);
}

// The SoftName row and the fixed button rows of 常规表.
const QString 软件行ID = QStringLiteral("SoftName");

// The common column list of 常规表 and 表总表 (19 columns).
const QString 公共列 = QStringLiteral(
    " 排序,类别ID,类别QZ,软件号,软件显示,软件英文,帮助文件,Acs库名,Acs密码,按钮名,"
    "按钮左,按钮顶,按钮长,按钮高,官网,链接,公式ID,公式LB,使用数 ");

QString 文本列(const QSqlQuery& q, const char* 列) {
    const QVariant v = q.value(QString::fromUtf8(列));
    return v.isNull() ? QString() : v.toString();
}
int 整数列(const QSqlQuery& q, const char* 列) {
    const QVariant v = q.value(QString::fromUtf8(列));
    if (v.isNull()) return 0;
    bool ok = false;
    const double d = v.toDouble(&ok);
    if (!ok || d != d || d > 2147483647.0 || d < -2147483648.0) return 0;
    return static_cast<int>(d);
}

菜单行 读行(const QSqlQuery& q) {
    菜单行 r;
    r.排序 = 整数列(q, "排序");
    r.类别ID = 文本列(q, "类别ID");
    r.类别QZ = 文本列(q, "类别QZ");
    r.软件号 = 整数列(q, "软件号");
    r.软件显示 = 文本列(q, "软件显示");
    r.软件英文 = 文本列(q, "软件英文");
    r.帮助文件 = 文本列(q, "帮助文件");
    r.Acs库名 = 文本列(q, "Acs库名");
    r.Acs密码 = 文本列(q, "Acs密码");
    r.按钮名 = 文本列(q, "按钮名");
    r.按钮左 = 整数列(q, "按钮左");
    r.按钮顶 = 整数列(q, "按钮顶");
    r.按钮长 = 整数列(q, "按钮长");
    r.按钮高 = 整数列(q, "按钮高");
    r.官网 = 文本列(q, "官网");
    r.链接 = 文本列(q, "链接");
    r.公式ID = 文本列(q, "公式ID");
    r.公式LB = 文本列(q, "公式LB");
    r.使用数 = 整数列(q, "使用数");
    return r;
}

// Reads every row of a prepared, executed query. SQLite gives no record
// count ahead of reading, so the rows are gathered first and counted after.
template <class F>
bool 逐行(QSqlQuery& q, F&& f) {
    while (q.next()) f(q);
    return !q.lastError().isValid();
}

// Adds 1 to 使用数 of the one row of `表` keyed by 类别ID and reads it back.
// 0 unless exactly one row matches.
int 累加一行(QSqlDatabase& db, const QString& 表, const QString& id) {
    QSqlQuery q(db);
    q.prepare(QStringLiteral("Select rowid, 使用数 From %1 Where ( 类别ID = ? ) ").arg(表));
    q.addBindValue(id);
    if (!q.exec()) return 0;
    QList<qint64> rows;
    逐行(q, [&](QSqlQuery& r) { rows << r.value(0).toLongLong(); });
    if (rows.size() != 1) return 0;
    QSqlQuery u(db);
    u.prepare(QStringLiteral("Update %1 Set 使用数 = coalesce(使用数, 0) + 1 Where rowid = ?").arg(表));
    u.addBindValue(rows[0]);
    if (!u.exec() || u.numRowsAffected() != 1) return 0;
    QSqlQuery b(db);
    b.prepare(QStringLiteral("Select 使用数 From %1 Where rowid = ?").arg(表));
    b.addBindValue(rows[0]);
    if (!b.exec() || !b.next()) return 0;
    return 整数列(b, "使用数");
}

// Identifiers are pasted (they come from the program, never from the user),
// quoted in brackets; one holding "]" could break out, so it is refused.
bool 标识符可用(const QString& s) {
    return !s.trimmed().isEmpty() && !s.contains(u']') && !s.contains(u'[');
}

int 代码表(const QString& 连接串, const QString& 表名, const QString& ID列, const QString& 名称列,
           QStringList& ID表, QStringList& 名称表, const QString& 条件, const QVariantList& 参数) {
    ID表 = QStringList{QString()};
    名称表 = QStringList{QString()};
    if (!标识符可用(表名) || !标识符可用(ID列) || !标识符可用(名称列)) return 0;
    QString sql = QStringLiteral("Select [%1] as 我ID, [%2] as 我Mc From [%3]").arg(ID列, 名称列, 表名);
    if (!txt::trim(条件).isEmpty()) sql += u' ' + 条件;
    QStringList ids{QString()}, names{QString()};
    const bool ok = 执行库操作(连接串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.setForwardOnly(true);
        if (!q.prepare(sql)) return false;
        for (const QVariant& v : 参数) q.addBindValue(v);
        if (!q.exec()) return false;
        return 逐行(q, [&](QSqlQuery& r) {
            ids << 文本列(r, "我ID");
            names << 文本列(r, "我Mc");
        });
    });
    if (!ok) return 0;
    ID表 = ids;
    名称表 = names;
    return static_cast<int>(ids.size()) - 1;
}

}  // namespace

QString 取库文件名(const QString& 连接串) {
    const QString 小写 = 连接串.toLower();
    const qsizetype b = 小写.indexOf(QStringLiteral("dbq="));
    if (b < 0) return QString();
    const qsizetype 起 = b + 4;
    qsizetype 止 = -1;
    // The end of ".db": the first ".db" followed by ";", the end, or a blank.
    for (qsizetype i = 小写.indexOf(QStringLiteral(".db"), 起); i >= 0;
         i = 小写.indexOf(QStringLiteral(".db"), i + 1)) {
        const qsizetype e = i + 3;
        if (e == 小写.size() || 小写[e] == u';') { 止 = e; break; }
    }
    if (止 < 0) {
        const qsizetype semi = 小写.indexOf(u';', 起);
        止 = semi < 0 ? 小写.size() : semi;
    }
    return 连接串.mid(起, 止 - 起);
}

bool 含单引号(const QString& 值) { return 值.contains(u'\''); }

bool 执行库操作(const QString& 连接串, const std::function<bool(QSqlDatabase&)>& 操作) {
    const QString 文件 = 取库文件名(连接串);
    if (文件.isEmpty() || !QFileInfo(文件).isFile()) return false;
    const QString 名 = 新连接名();
    bool 结果 = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), 名);
        db.setDatabaseName(文件);
        // 20 s, the command time-out: how long to wait on a file another
        // process holds locked.
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=20000"));
        if (db.open()) {
            try {
                if (db.transaction()) {
                    结果 = 操作(db);
                    if (结果) {
                        if (!db.commit()) { 结果 = false; db.rollback(); }
                    } else {
                        db.rollback();
                    }
                }
            } catch (...) {
                结果 = false;
                db.rollback();
            }
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(名);
    return 结果;
}

QString 菜单提示(const 菜单行& 行) {
    return 行.软件显示 + QStringLiteral(" -- ") + QString::number(行.使用数);
}

int 读软件信息(软件信息* 信息) {
    int 新数 = 0;
    QString 显示, 备注, 官网, 链接;
    执行库操作(数据状态.菜单库连接串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.prepare(QStringLiteral("Select 排序,类别ID,类别QZ,软件号,软件显示,官网,链接,备注,使用数 "
                                 "From 常规表 Where ( 类别ID = ? ) "));
        q.addBindValue(软件行ID);
        if (!q.exec()) return false;
        int n = 0;
        逐行(q, [&](QSqlQuery& r) {
            ++n;
            显示 = 文本列(r, "软件显示");
            备注 = 文本列(r, "备注");
            官网 = 文本列(r, "官网");
            链接 = 文本列(r, "链接");
        });
        if (n != 1) return false;
        新数 = 累加一行(db, QStringLiteral("常规表"), 软件行ID);
        return 新数 > 0;
    });
    if (新数 <= 0) return 0;
    if (信息) *信息 = {显示, 备注, 官网, 链接, 新数};
    return 新数;
}

int 累加使用数(const QString& 类别ID) {
    if (含单引号(类别ID)) return 0;
    int 新数 = 0;
    执行库操作(数据状态.菜单库连接串, [&](QSqlDatabase& db) {
        新数 = 累加一行(db, QStringLiteral("常规表"), 类别ID);
        return 新数 > 0;
    });
    return 新数;
}

QList<菜单行> 读常规表() {
    QList<菜单行> 行;
    执行库操作(数据状态.菜单库连接串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.setForwardOnly(true);
        if (!q.exec(QStringLiteral("Select ") + 公共列 + QStringLiteral(" From 常规表 Order By 排序 Asc ")))
            return false;
        return 逐行(q, [&](QSqlQuery& r) { 行 << 读行(r); });
    });
    return 行;
}

QList<菜单行> 读表总表() {
    QList<菜单行> 行;
    const bool ok = 执行库操作(数据状态.菜单库连接串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.setForwardOnly(true);
        if (!q.exec(QStringLiteral("Select ") + 公共列 +
                    QStringLiteral(" From 表总表 Where ( 排序 > 0 ) Order By 排序 Asc ")))
            return false;
        return 逐行(q, [&](QSqlQuery& r) { 行 << 读行(r); });
    });
    if (!ok) 行.clear();
    return 行;
}

int 读当前图册(const QString& 类别ID) {
    auto 清空 = [] {
        数据状态.图册类别ID.clear();
        数据状态.图册ID前缀.clear();
        数据状态.图册标题.clear();
        数据状态.图册帮助文件.clear();
        数据状态.初始类别.clear();
        数据状态.初始公式ID.clear();
        数据状态.图册库文件.clear();
        数据状态.图册库连接串.clear();
    };
    if (含单引号(类别ID)) { 清空(); return 0; }
    菜单行 行;
    int 新数 = 0;
    执行库操作(数据状态.菜单库连接串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.prepare(QStringLiteral("Select ") + 公共列 +
                  QStringLiteral(" From 表总表 Where ( 类别ID = ? ) Order By 排序 Asc "));
        q.addBindValue(类别ID);
        if (!q.exec()) return false;
        int n = 0;
        逐行(q, [&](QSqlQuery& r) { ++n; 行 = 读行(r); });
        if (n != 1) return false;
        新数 = 累加一行(db, QStringLiteral("表总表"), 类别ID);
        return 新数 > 0;
    });
    if (新数 <= 0) { 清空(); return 0; }
    数据状态.图册类别ID = 行.类别ID;
    数据状态.图册ID前缀 = 行.类别QZ;
    数据状态.图册标题 = 行.软件显示;
    数据状态.图册帮助文件 = 行.帮助文件;
    数据状态.初始类别 = 行.公式LB;
    数据状态.初始公式ID = 行.公式ID;
    数据状态.图册库文件 = 行.Acs库名;
    数据状态.图册库连接串 = 数据状态.驱动串 + txt::trim(行.Acs库名) + QStringLiteral(";Uid=admin;Pwd=") +
                        txt::trim(行.Acs密码) + QStringLiteral(";");
    return 新数;
}

int 读代码表(const QString& 表名, const QString& ID列, const QString& 名称列, QStringList& ID表,
             QStringList& 名称表, const QString& 条件, const QVariantList& 条件参数) {
    return 代码表(数据状态.菜单库连接串, 表名, ID列, 名称列, ID表, 名称表, 条件, 条件参数);
}

int 读图册代码表(const QString& 表名, const QString& ID列, const QString& 名称列, QStringList& ID表,
                 QStringList& 名称表, const QString& 条件, const QVariantList& 条件参数) {
    return 代码表(数据状态.图册库连接串, 表名, ID列, 名称列, ID表, 名称表, 条件, 条件参数);
}

// ---- 公式库 ----

QString 查公式类别(const QString& 公式ID) {
    const QString id = txt::trim(公式ID);
    if (含单引号(id)) return QString();
    QString 类别;
    执行库操作(数据状态.图册库连接串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.prepare(QStringLiteral("Select [类别],[ID号] From 公式库 Where( [ID号] = ? ) Limit 1"));
        q.addBindValue(id);
        if (!q.exec()) return false;
        if (q.next()) 类别 = 文本列(q, "类别");
        return true;
    });
    return 类别;
}

bool 公式存在(const QString& 公式ID) {
    const QString id = txt::trim(公式ID);
    if (含单引号(id)) return false;
    bool 有 = false;
    执行库操作(数据状态.图册库连接串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.prepare(QStringLiteral("Select [ID号] From 公式库 Where( [ID号] = ? ) Limit 1"));
        q.addBindValue(id);
        if (!q.exec()) return false;
        有 = q.next();
        return true;
    });
    return 有;
}

namespace {
// The rowids of the rows keyed by `id` in 公式库; at most two are fetched,
// enough to tell "exactly one".
QList<qint64> 公式行(QSqlDatabase& db, const QString& id) {
    QList<qint64> rows;
    QSqlQuery q(db);
    q.prepare(QStringLiteral("Select rowid From 公式库 Where( [ID号] = ? ) Limit 2"));
    q.addBindValue(id);
    if (!q.exec()) return {};
    while (q.next()) rows << q.value(0).toLongLong();
    return rows;
}
}  // namespace

bool 清除公式图片(const QString& 公式ID, int 号) {
    if (含单引号(公式ID)) return false;
    return 执行库操作(数据状态.图册库连接串, [&](QSqlDatabase& db) {
        const auto rows = 公式行(db, 公式ID);
        if (rows.size() != 1) return false;
        QSqlQuery u(db);
        u.prepare(号 == 1 ? QStringLiteral("Update 公式库 Set 式1图 = '' Where rowid = ?")
                          : QStringLiteral("Update 公式库 Set 式2图 = '' Where rowid = ?"));
        u.addBindValue(rows[0]);
        return u.exec() && u.numRowsAffected() == 1;
    });
}

bool 删除公式记录(const QString& 公式ID) {
    const QString id = txt::trim(公式ID);
    if (含单引号(id)) return false;
    return 执行库操作(数据状态.图册库连接串, [&](QSqlDatabase& db) {
        const auto rows = 公式行(db, id);
        if (rows.size() != 1) return false;
        QSqlQuery u(db);
        u.prepare(QStringLiteral("Delete From 公式库 Where rowid = ?"));
        u.addBindValue(rows[0]);
        return u.exec() && u.numRowsAffected() == 1;
    });
}

// ---- Building ----

bool 由脚本建库(const QString& 脚本文件, const QString& 库文件, QString* 错误) {
    auto 失败 = [&](const QString& why) {
        if (错误) *错误 = why;
        return false;
    };
    QFile f(脚本文件);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return 失败(QStringLiteral("cannot read ") + 脚本文件);
    const QString 全文 = QString::fromUtf8(f.readAll());
    if (QFileInfo::exists(库文件)) return 失败(QStringLiteral("exists already: ") + 库文件);

    // Statements: lines gathered until one ends with ";".
    QStringList 语句;
    QString 当前;
    for (const QString& 原行 : 全文.split(u'\n')) {
        const QString 行 = 原行.trimmed();
        if (行.isEmpty() || 行.startsWith(QStringLiteral("--"))) continue;
        当前 += 原行 + u'\n';
        if (行.endsWith(u';')) {
            语句 << 当前;
            当前.clear();
        }
    }
    if (!当前.trimmed().isEmpty()) 语句 << 当前;

    const QString 名 = 新连接名();
    QString why;
    bool ok = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), 名);
        db.setDatabaseName(库文件);
        if (db.open() && db.transaction()) {
            ok = true;
            for (const QString& s : 语句) {
                QSqlQuery q(db);
                if (!q.exec(s)) {
                    why = q.lastError().text() + QStringLiteral(" in: ") + s;
                    ok = false;
                    break;
                }
            }
            if (ok && !db.commit()) { ok = false; why = db.lastError().text(); }
            if (!ok) db.rollback();
        } else {
            why = db.lastError().text();
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(名);
    if (!ok) {
        QFile::remove(库文件);
        return 失败(why);
    }
    return true;
}
