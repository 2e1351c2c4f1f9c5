// The data layer against real SQLite files built from the shipped seeds.
#include "library/access.h"

#include "library/state.h"
#include "tests/support/state_guard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace {

// The SQL driver is a plugin, found through the application object.
struct 应用环境 : ::testing::Environment {
    int argc = 1;
    char 名[8] = "test";
    char* argv[2] = {名, nullptr};
    std::unique_ptr<QCoreApplication> app;
    void SetUp() override {
        if (!QCoreApplication::instance()) app = std::make_unique<QCoreApplication>(argc, argv);
    }
    // Gone before exit: Qt's own statics are torn down after gtest's.
    void TearDown() override { app.reset(); }
};
[[maybe_unused]] auto* const 环境 = ::testing::AddGlobalTestEnvironment(new 应用环境);

const QString 种子目录 = QStringLiteral(ORVANE_SOURCE_DIR "/data/");

QString 连接串(const QString& 文件) {
    return QStringLiteral("Driver={SQLite3 ODBC Driver};Dbq=") + 文件 + QStringLiteral(";Uid=admin;Pwd=x;");
}

// Runs one statement with bound values on the file of `串`.
bool 执行(const QString& 串, const QString& sql, const QVariantList& 值 = {}) {
    return 执行库操作(串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        if (!q.prepare(sql)) return false;
        for (const auto& v : 值) q.addBindValue(v);
        return q.exec();
    });
}

// One integer of the first row of `sql`, -1 if none.
int 读数(const QString& 串, const QString& sql, const QVariantList& 值 = {}) {
    int r = -1;
    执行库操作(串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.prepare(sql);
        for (const auto& v : 值) q.addBindValue(v);
        if (q.exec() && q.next()) r = q.value(0).toInt();
        return true;
    });
    return r;
}

class 菜单库 : public ::testing::Test {
protected:
    QTemporaryDir 目录;
    QString 文件;
    状态守卫<数据状态> 守;

    void SetUp() override { 重建(); }
    void 重建() {
        ASSERT_TRUE(目录.isValid());
        文件 = 目录.filePath(QStringLiteral("QdpxMenu.db"));
        QFile::remove(文件);
        QString why;
        ASSERT_TRUE(由脚本建库(种子目录 + QStringLiteral("QdpxMenu.sql"), 文件, &why)) << why.toStdString();
        数据状态.驱动串 = QStringLiteral("Driver={SQLite3 ODBC Driver};Dbq=") + 目录.path() + u'/';
        数据状态.菜单库连接串 = 数据状态.驱动串 + QStringLiteral("QdpxMenu.db;Uid=admin;Pwd=QrtPlvKest481926;");
    }
    void TearDown() override {
        EXPECT_TRUE(QSqlDatabase::connectionNames().isEmpty()) << "a connection was left open";
    }
    int 使用数(const QString& id) {
        return 读数(数据状态.菜单库连接串, QStringLiteral("Select 使用数 From 常规表 Where 类别ID = ?"), {id});
    }
    int 所有使用数之和() {
        return 读数(数据状态.菜单库连接串, QStringLiteral("Select sum(使用数) From 常规表"));
    }
};

}  // namespace

TEST(取库文件名Test, FindsThePathBehindDbq) {
    struct Case { const char* 串; const char* 期望; };
    const Case cases[] = {
        {"driver={x};DBQ=/a/b.DB;uid=admin;", "/a/b.DB"}, {"Dbq=/a/b.dbx/c.db;Uid=admin;", "/a/b.dbx/c.db"},
        {"Dbq=/a/atlas", "/a/atlas"}, {"Dbq=/a/atlas;Uid=admin;", "/a/atlas"}, {"Dbq=/a/b.db", "/a/b.db"},
        {"Driver={x};Uid=admin;", ""}, {"Dbq=/路径/数据 文件.db;Pwd=1;", "/路径/数据 文件.db"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(取库文件名(QString::fromUtf8(c.串)), QString::fromUtf8(c.期望)) << c.串;
}

TEST_F(菜单库, SoftwareInfoCountsEachStartAndTakesTheIdentity) {
    软件信息 行;
    EXPECT_EQ(读软件信息(), 1);
    EXPECT_EQ(读软件信息(&行), 2);
    EXPECT_EQ(行.使用数, 2);
    EXPECT_EQ(使用数(QStringLiteral("SoftName")), 2);
    EXPECT_FALSE(行.软件显示.isEmpty());
    EXPECT_FALSE(行.备注.isEmpty());
    EXPECT_TRUE(行.链接.startsWith(QStringLiteral("https://")));
}

TEST_F(菜单库, SoftwareInfoNeedsExactlyOneRow) {
    struct Case { const char* 名; const char* 准备; };
    const Case cases[] = {
        {"two rows", "Insert Into 常规表 (排序, 类别ID, 软件显示, 使用数) Values (9, 'SoftName', '第二行', 5)"},
        {"no row", "Delete From 常规表 Where 类别ID = 'SoftName'"},
    };
    for (const auto& c : cases) {
        重建();
        ASSERT_TRUE(执行(数据状态.菜单库连接串, QString::fromUtf8(c.准备))) << c.名;
        const int 前 = 所有使用数之和();
        软件信息 行;
        行.软件显示 = QStringLiteral("默认");
        EXPECT_EQ(读软件信息(&行), 0) << c.名;
        EXPECT_EQ(行.软件显示, QStringLiteral("默认")) << c.名;
        EXPECT_EQ(所有使用数之和(), 前) << c.名 << ": nothing may be written";
    }
}

TEST_F(菜单库, UseCountsOfTheFixedRows) {
    struct Case { const char* id; int 第一次; int 第二次; };
    const Case cases[] = {
        {"dcButJiSuan", 1, 2}, {"dcButNone", 0, 0}, {"", 0, 0}, {"x' Or '1'='1", 0, 0},
        {"dcButJiSuan' ) Or ( '1'='1", 0, 0}, {"'; Drop Table 常规表; --", 0, 0},
    };
    for (const auto& c : cases) {
        重建();
        const int 前 = 所有使用数之和();
        EXPECT_EQ(累加使用数(QString::fromUtf8(c.id)), c.第一次) << c.id;
        EXPECT_EQ(累加使用数(QString::fromUtf8(c.id)), c.第二次) << c.id;
        EXPECT_EQ(所有使用数之和(), 前 + (c.第一次 ? 2 : 0)) << c.id;
        EXPECT_EQ(读常规表().size(), 3) << c.id << ": the table must survive";
    }
}

TEST_F(菜单库, AKeyWithAQuoteThatIsReallyStoredIsStillNoRow) {
    // Even a row whose key holds a quote can't be reached: the old
    // statements could never have matched it, and neither do these.
    ASSERT_TRUE(执行(数据状态.菜单库连接串,
                     QStringLiteral("Insert Into 常规表 (排序, 类别ID, 使用数) Values (4, ?, 7)"), {QStringLiteral("a'b")}));
    EXPECT_EQ(累加使用数(QStringLiteral("a'b")), 0);
    EXPECT_EQ(使用数(QStringLiteral("a'b")), 7);
}

TEST_F(菜单库, MissingOrBrokenFileGivesZeroAndCreatesNothing) {
    const QString 丢失 = 目录.filePath(QStringLiteral("没有/QdpxMenu.db"));
    数据状态.菜单库连接串 = 连接串(丢失);
    EXPECT_EQ(读软件信息(), 0);
    EXPECT_EQ(累加使用数(QStringLiteral("dcButJiSuan")), 0);
    EXPECT_TRUE(读表总表().isEmpty());
    QStringList a, b;
    EXPECT_EQ(读代码表(QStringLiteral("列类别"), QStringLiteral("编号"), QStringLiteral("名称"), a, b, QString()), 0);
    EXPECT_FALSE(QFileInfo::exists(丢失));

    // A file that is no database at all.
    const QString 坏 = 目录.filePath(QStringLiteral("坏.db"));
    QFile f(坏);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("this is not a database file, only text that looks like nothing");
    f.close();
    数据状态.菜单库连接串 = 连接串(坏);
    EXPECT_EQ(读软件信息(), 0);
    EXPECT_TRUE(读常规表().isEmpty());
}

TEST_F(菜单库, MenuRowsComeInSortOrder) {
    const auto 行 = 读常规表();
    ASSERT_EQ(行.size(), 3);
    EXPECT_EQ(行[0].类别ID, QStringLiteral("SoftName"));
    EXPECT_EQ(行[2].类别ID, QStringLiteral("dcButZuoBiao"));
    EXPECT_GT(行[1].按钮长, 0);
    EXPECT_FALSE(行[1].按钮名.isEmpty());
    EXPECT_TRUE(读表总表().isEmpty()) << "the shipped atlas list is empty";
}

TEST_F(菜单库, AtlasListHidesRowsNotAboveZeroAndKeepsOrder) {
    const int 排序[] = {5, 0, 13, -2, 1, 7};
    for (int s : 排序)
        ASSERT_TRUE(执行(数据状态.菜单库连接串,
                         QStringLiteral("Insert Into 表总表 (排序, 类别ID, 按钮名, 使用数) Values (?, ?, ?, 0)"),
                         {s, QStringLiteral("T%1").arg(s), QStringLiteral("图册%1").arg(s)}));
    const auto 行 = 读表总表();
    QStringList ids;
    for (const auto& r : 行) ids << r.类别ID;
    EXPECT_EQ(ids, (QStringList{"T1", "T5", "T7", "T13"}));
}

TEST_F(菜单库, CurrentAtlasTakesTheRowAndCounts) {
    ASSERT_TRUE(执行(数据状态.菜单库连接串,
                     QStringLiteral("Insert Into 表总表 (排序, 类别ID, 类别QZ, 软件显示, 帮助文件, Acs库名, Acs密码, "
                                    "公式ID, 公式LB, 使用数) Values (1, 'GS1', 'QZ', '图册一', 'h.html', ' atlas1.db ', "
                                    "' pw ', 'F7', 'L3', 4)")));
    ASSERT_TRUE(执行(数据状态.菜单库连接串,
                     QStringLiteral("Insert Into 表总表 (排序, 类别ID, 使用数) Values (2, 'DUP', 0), (3, 'DUP', 0)")));
    EXPECT_EQ(读当前图册(QStringLiteral("GS1")), 5);
    EXPECT_EQ(读当前图册(QStringLiteral("GS1")), 6);
    EXPECT_EQ(数据状态.图册ID前缀, QStringLiteral("QZ"));
    EXPECT_EQ(数据状态.图册标题, QStringLiteral("图册一"));
    EXPECT_EQ(数据状态.初始类别, QStringLiteral("L3"));
    EXPECT_EQ(数据状态.图册库文件, QStringLiteral(" atlas1.db "));
    EXPECT_EQ(数据状态.图册库连接串, 数据状态.驱动串 + QStringLiteral("atlas1.db;Uid=admin;Pwd=pw;"));

    for (const char* id : {"DUP", "none", "GS1'"}) {
        数据状态.图册标题 = QStringLiteral("旧");
        EXPECT_EQ(读当前图册(QString::fromUtf8(id)), 0) << id;
        EXPECT_TRUE(数据状态.图册标题.isEmpty()) << id;
        EXPECT_TRUE(数据状态.图册库连接串.isEmpty()) << id;
    }
    EXPECT_EQ(读数(数据状态.菜单库连接串, QStringLiteral("Select sum(使用数) From 表总表 Where 类别ID='DUP'")), 0);
}

TEST_F(菜单库, CodeTableBindsItsConditionAndFillsFromOne) {
    ASSERT_TRUE(执行(数据状态.菜单库连接串,
                     QStringLiteral("Insert Into 列类别 (编号, 名称, 父关联, 用否) Values "
                                    "('02', '二', 'GS1', -1), ('01', '一', 'GS1', -1), ('03', '三', 'GS1', 0), "
                                    "('04', NULL, 'GS1', -1), ('09', '九', 'GS2', -1), ('05', '五', 'G''S', -1)")));
    struct Case { const char* 名; QString 条件; QVariantList 参数; QStringList ID; QStringList 名称; };
    const QString 按父 = QStringLiteral(" Where (父关联=? and 用否=-1 ) Order By 编号 Asc");
    const Case cases[] = {
        {"by parent", 按父, {QStringLiteral("GS1")}, {"", "01", "02", "04"}, {"", "一", "二", ""}},
        {"other parent", 按父, {QStringLiteral("GS2")}, {"", "09"}, {"", "九"}},
        {"quote is a plain value", 按父, {QStringLiteral("G'S")}, {"", "05"}, {"", "五"}},
        {"injection finds nothing", 按父, {QStringLiteral("GS1' or '1'='1")}, {""}, {""}},
        {"blank condition: whole table", QStringLiteral("   "), {}, {"", "02", "01", "03", "04", "09", "05"},
         {"", "二", "一", "三", "", "九", "五"}},
    };
    for (const auto& c : cases) {
        QStringList ids{"junk"}, names;
        const int n = 读代码表(QStringLiteral("列类别"), QStringLiteral("编号"), QStringLiteral("名称"), ids, names,
                               c.条件, c.参数);
        EXPECT_EQ(n, c.ID.size() - 1) << c.名;
        EXPECT_EQ(ids, c.ID) << c.名;
        EXPECT_EQ(names, c.名称) << c.名;
    }
}

TEST_F(菜单库, CodeTableRefusesBadNamesAndBadConditions) {
    struct Case { const char* 表; const char* 列; const char* 条件; };
    const Case cases[] = {
        {"列类别]; Drop Table 常规表; --", "编号", ""}, {"列类别", "编号] From 常规表 --", ""},
        {"没有的表", "编号", ""}, {"列类别", "编号", "Where 没有的列 = 1"}, {" ", "编号", ""},
    };
    for (const auto& c : cases) {
        QStringList ids, names;
        EXPECT_EQ(读代码表(QString::fromUtf8(c.表), QString::fromUtf8(c.列), QStringLiteral("名称"), ids, names,
                           QString::fromUtf8(c.条件)),
                  0)
            << c.表 << " " << c.列;
        EXPECT_EQ(ids, QStringList{QString()});
    }
    EXPECT_EQ(读常规表().size(), 3);
}

TEST_F(菜单库, FormulaRecordsOfAnAtlas) {
    const QString 图册 = 目录.filePath(QStringLiteral("atlas.db"));
    数据状态.图册库连接串 = 连接串(图册);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("mk"));
        db.setDatabaseName(图册);
        ASSERT_TRUE(db.open());
        QSqlQuery q(db);
        ASSERT_TRUE(q.exec(QStringLiteral("Create Table 公式库 ([ID号] TEXT, [类别] TEXT, 式1图 BLOB, 式2图 BLOB)")));
        ASSERT_TRUE(q.exec(QStringLiteral("Insert Into 公式库 Values ('A1', '几何', x'0102', x'0304'), "
                                          "('B2', NULL, x'05', x'06'), ('D', '重', x'07', x'08'), ('D', '重', x'09', x'0a')")));
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("mk"));

    struct Case { const char* id; const char* 类别; bool 存在; };
    const Case 查[] = {{"  A1  ", "几何", true}, {"B2", "", true}, {"D", "重", true}, {"Z", "", false}, {"A1'", "", false}};
    for (const auto& c : 查) {
        EXPECT_EQ(查公式类别(QString::fromUtf8(c.id)), QString::fromUtf8(c.类别)) << c.id;
        EXPECT_EQ(公式存在(QString::fromUtf8(c.id)), c.存在) << c.id;
    }

    EXPECT_TRUE(清除公式图片(QStringLiteral("A1"), 1));
    EXPECT_EQ(读数(数据状态.图册库连接串, QStringLiteral("Select length(式1图) From 公式库 Where [ID号]='A1'")), 0);
    EXPECT_EQ(读数(数据状态.图册库连接串, QStringLiteral("Select length(式2图) From 公式库 Where [ID号]='A1'")), 2);
    EXPECT_TRUE(清除公式图片(QStringLiteral("A1"), 2));
    EXPECT_EQ(读数(数据状态.图册库连接串, QStringLiteral("Select length(式2图) From 公式库 Where [ID号]='A1'")), 0);
    EXPECT_FALSE(清除公式图片(QStringLiteral("Z"), 1));
    EXPECT_FALSE(清除公式图片(QStringLiteral("D"), 1)) << "two rows: not exactly one";
    EXPECT_EQ(读数(数据状态.图册库连接串, QStringLiteral("Select min(length(式1图)) From 公式库 Where [ID号]='D'")), 1);

    EXPECT_FALSE(删除公式记录(QStringLiteral("D")));
    EXPECT_FALSE(删除公式记录(QStringLiteral("B2' or '1'='1")));
    EXPECT_TRUE(删除公式记录(QStringLiteral(" B2 ")));
    EXPECT_FALSE(公式存在(QStringLiteral("B2")));
    EXPECT_EQ(读数(数据状态.图册库连接串, QStringLiteral("Select count(*) From 公式库")), 3);
}

TEST_F(菜单库, ACallbackThatThrowsOrFailsRollsBack) {
    const int 前 = 所有使用数之和();
    EXPECT_FALSE(执行库操作(数据状态.菜单库连接串, [](QSqlDatabase& db) -> bool {
        QSqlQuery(db).exec(QStringLiteral("Update 常规表 Set 使用数 = 100"));
        throw 1;
    }));
    EXPECT_FALSE(执行库操作(数据状态.菜单库连接串, [](QSqlDatabase& db) {
        QSqlQuery(db).exec(QStringLiteral("Update 常规表 Set 使用数 = 100"));
        return false;
    }));
    EXPECT_EQ(所有使用数之和(), 前);
}

TEST(由脚本建库Test, BuildsBothSeedsAndRefusesBadInput) {
    QTemporaryDir d;
    const QString 坐标 = d.filePath(QStringLiteral("QdpxDate.db"));
    ASSERT_TRUE(由脚本建库(种子目录 + QStringLiteral("QdpxDate.sql"), 坐标));
    const QString 串 = 连接串(坐标);
    EXPECT_EQ(读数(串, QStringLiteral("Select count(*) From 区域表")), 0);
    // A 29-digit decimal survives a round trip through a number column.
    const QString 长数 = QStringLiteral("3512345.1234567890123456789012");
    ASSERT_TRUE(执行(串, QStringLiteral("Insert Into 区域表 (区域, X1A) Values ('甲', ?)"), {长数}));
    QString 读回;
    执行库操作(串, [&](QSqlDatabase& db) {
        QSqlQuery q(db);
        q.exec(QStringLiteral("Select X1A From 区域表"));
        if (q.next()) 读回 = q.value(0).toString();
        return true;
    });
    EXPECT_EQ(读回, 长数);

    QString why;
    EXPECT_FALSE(由脚本建库(种子目录 + QStringLiteral("QdpxDate.sql"), 坐标, &why)) << "exists already";
    EXPECT_FALSE(why.isEmpty());
    EXPECT_FALSE(由脚本建库(d.filePath(QStringLiteral("none.sql")), d.filePath(QStringLiteral("n.db"))));

    const QString 坏脚本 = d.filePath(QStringLiteral("bad.sql"));
    QFile f(坏脚本);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("CREATE TABLE t (a TEXT);\nINSERT INTO nowhere VALUES (1);\n");
    f.close();
    EXPECT_FALSE(由脚本建库(坏脚本, d.filePath(QStringLiteral("bad.db")), &why));
    EXPECT_FALSE(QFileInfo::exists(d.filePath(QStringLiteral("bad.db")))) << "a failed build leaves no file";
    EXPECT_TRUE(QSqlDatabase::connectionNames().isEmpty());
}
