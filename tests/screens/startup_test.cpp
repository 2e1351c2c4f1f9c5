// The entry procedure: lock, data folder, identity, missing database.
#include "fixture.h"

#include "numeric/decimal.h"

#include <QFileInfo>
#include <QLockFile>

TEST_F(程序夹具, StartWithTheMenuDatabaseReadsIdentityAndCountsTheStart) {
    变量状态.字母变量[3] = 数值(QStringLiteral("7"));
    脚本状态.数组V.个数 = 9;
    建菜单库(程序夹());
    ASSERT_EQ(启动程序(环境()), 启动结果::已启动);
    EXPECT_TRUE(消息文本().isEmpty()) << 消息文本().join(u'|').toStdString();
    EXPECT_EQ(数据状态.程序目录, 程序夹() + u'/');
    EXPECT_EQ(取库文件名(数据状态.坐标库连接串), 程序夹() + QStringLiteral("/QdpxDate.db"));
    EXPECT_EQ(公共.程序.启动次数, 1);
    EXPECT_EQ(使用数(QStringLiteral("SoftName")), 1);
    EXPECT_NE(公共.程序.软件标题, QStringLiteral("Orvane"));  // the row's 软件显示
    EXPECT_EQ(变量状态.字母变量[3].文本(), QStringLiteral("0"));
    EXPECT_EQ(脚本状态.数组V.列表文本, QStringLiteral("0,0"));
    EXPECT_EQ(计算状态.输出小数位数, 8);

    // A later start of the same folder counts on.
    释放单实例锁();
    ASSERT_EQ(启动程序(环境()), 启动结果::已启动);
    EXPECT_EQ(公共.程序.启动次数, 2);
    EXPECT_EQ(使用数(QStringLiteral("SoftName")), 2);
}

TEST_F(程序夹具, StartWithoutTheMenuDatabaseSaysSoAndGoesOn) {
    // No database anywhere: not beside the program, not installed.
    计算状态.输出小数位数 = 3;
    ASSERT_EQ(启动程序(环境()), 启动结果::已启动);
    const QString 期望路径 = (用户夹() + QStringLiteral("/QdpxMenu.db")).toLower();
    ASSERT_EQ(消息文本().size(), 1);
    EXPECT_EQ(消息文本()[0], QStringLiteral("菜单按钮数据文件--") + 期望路径 + QStringLiteral("--已经丢失？ 建议重装本软件！"));
    EXPECT_EQ(公共.程序.软件标题, QStringLiteral("Orvane"));
    EXPECT_EQ(公共.程序.启动次数, 1);
    EXPECT_FALSE(公共.程序.说明文字.isEmpty());
    EXPECT_FALSE(公共.程序.主页地址.isEmpty());
    EXPECT_EQ(计算状态.输出小数位数, 8) << "the start goes on to the output defaults";
    EXPECT_FALSE(QFileInfo::exists(用户夹() + QStringLiteral("/QdpxMenu.db"))) << "no empty database is made";
}

TEST_F(程序夹具, ASecondInstanceIsRefusedAndTouchesNothing) {
    建菜单库(程序夹());
    QLockFile 别的副本(环境().锁文件路径);  // stands for the copy already running
    ASSERT_TRUE(别的副本.tryLock(0));
    变量状态.字母变量[0] = 数值(QStringLiteral("5"));
    数据状态.程序目录 = QStringLiteral("/unchanged/");
    EXPECT_EQ(启动程序(环境()), 启动结果::已有实例);
    EXPECT_EQ(消息文本(), QStringList{QStringLiteral("该软件已经运行：不要同时运行多个副本！")});
    EXPECT_EQ(变量状态.字母变量[0].文本(), QStringLiteral("5"));
    EXPECT_EQ(数据状态.程序目录, QStringLiteral("/unchanged/"));
    EXPECT_EQ(使用数(QStringLiteral("SoftName")), -1) << "connection text untouched, so nothing could be read";

    // Once the other copy ends, the lock is free.
    别的副本.unlock();
    EXPECT_EQ(启动程序(环境()), 启动结果::已启动);
    EXPECT_TRUE(QFileInfo::exists(环境().锁文件路径));
    QLockFile 第三(环境().锁文件路径);
    EXPECT_FALSE(第三.tryLock(0)) << "the started copy holds the lock";
}

TEST_F(程序夹具, TheDataFolderIsTheProgramFolderOrTheUsersCopy) {
    struct Case {
        const char* 名;
        bool 程序夹有库, 安装夹有库, 用户夹有库;
        bool 期望程序夹;
    };
    const Case cases[] = {
        {"build tree", true, false, false, true}, {"build tree beats installed", true, true, true, true},
        {"installed, first start", false, true, false, false}, {"installed, later start", false, true, true, false},
        {"nothing anywhere", false, false, false, false},
    };
    for (const auto& c : cases) {
        for (const QString& d : {程序夹(), 用户夹(), 安装夹()}) {
            QDir(d).removeRecursively();
            QDir().mkpath(d);
        }
        if (c.程序夹有库) 建菜单库(程序夹());
        if (c.安装夹有库) {
            建菜单库(安装夹());
            QFile h(安装夹() + u'/' + 帮助文件名);
            ASSERT_TRUE(h.open(QIODevice::WriteOnly));
            h.write("<html></html>");
        }
        // The user's own copy has been used: its count must survive.
        if (c.用户夹有库) {
            建菜单库(用户夹());
            数据状态.菜单库连接串 = QStringLiteral("Dbq=") + 用户夹() + QStringLiteral("/QdpxMenu.db;");
            执行SQL(QStringLiteral("Update 常规表 Set 使用数 = 41 Where 类别ID = 'SoftName'"));
        }
        const QString 目录 = 求程序目录(环境());
        EXPECT_EQ(目录, (c.期望程序夹 ? 程序夹() : 用户夹()) + u'/') << c.名;
        if (!c.期望程序夹 && c.安装夹有库) {
            EXPECT_TRUE(QFileInfo::exists(目录 + 菜单库文件名)) << c.名;
            EXPECT_TRUE(QFileInfo::exists(目录 + 帮助文件名)) << c.名;
            数据状态.菜单库连接串 = QStringLiteral("Dbq=") + 目录 + QStringLiteral("QdpxMenu.db;");
            EXPECT_EQ(使用数(QStringLiteral("SoftName")), c.用户夹有库 ? 41 : 0) << c.名 << ": never overwritten";
        }
    }
}

TEST(设置路径Test, OneClosingSlashAndTheConnectionShape) {
    全部状态守卫 守;
    struct Case { const char* 目录; const char* 程序目录; };
    const Case cases[] = {{"/opt/orvane", "/opt/orvane/"}, {"/数据 夹/Orvane/", "/数据 夹/Orvane/"}};
    for (const auto& c : cases) {
        设置路径(QString::fromUtf8(c.目录));
        const QString d = QString::fromUtf8(c.程序目录);
        EXPECT_EQ(数据状态.程序目录, d) << c.目录;
        EXPECT_TRUE(数据状态.驱动串.endsWith(QStringLiteral("Dbq=") + d)) << c.目录;
        EXPECT_EQ(数据状态.菜单库连接串, 数据状态.驱动串 + QStringLiteral("QdpxMenu.db;Uid=admin;Pwd=QrtPlvKest481926;"));
        EXPECT_EQ(数据状态.坐标库连接串, 数据状态.驱动串 + QStringLiteral("QdpxDate.db;Uid=admin;Pwd=QrtHnoWasp481927;"));
    }
}

TEST_F(程序夹具, OpenVerbGetsTheTargetAndItsFailuresStayInside) {
    设置路径(QStringLiteral("/opt/orvane"));
    打开帮助();
    打开链接(QStringLiteral("https://example.org/x"));
    打开链接(QStringLiteral("   "));
    EXPECT_EQ(已打开, (QStringList{QStringLiteral("/opt/orvane/") + 帮助文件名, QStringLiteral("https://example.org/x")}));

    安装打开器([](const QString&) -> bool { throw 1; });
    EXPECT_NO_THROW(打开链接(QStringLiteral("x")));
    安装打开器(nullptr);
    EXPECT_NO_THROW(打开帮助());
}

TEST(设置输出格式Test, RestoresEveryDefault) {
    全部状态守卫 守;
    计算状态.输出小数位数 = 27;
    计算状态.高精度开关 = false;
    计算状态.可达有效位数 = 15;
    坐标状态.格式高程 = QStringLiteral("x");
    设置输出格式();
    EXPECT_EQ(计算状态.输出小数位数, 8);
    EXPECT_TRUE(计算状态.高精度开关);
    EXPECT_EQ(计算状态.可达有效位数, 29);
    EXPECT_EQ(坐标状态.格式高程, QStringLiteral("###0.000"));
}
