// The main menu: its look from the menu database, counts, atlas buttons.
#include "fixture.h"

#include "shell/screens/form1.h"
#include "shell/screens/form2.h"

#include <QLabel>
#include <QPushButton>

TEST_F(程序夹具, MenuTakesCaptionsRectanglesAndCountsFromTheDatabase) {
    带库启动();
    Form2 菜单;
    const auto 行 = 读常规表();
    ASSERT_EQ(行.size(), 3);
    auto* top = 控件<QLabel>(菜单, QStringLiteral("LabelTop"));
    auto* 计算 = 控件<QPushButton>(菜单, QStringLiteral("dcButJiSuan"));
    auto* 坐标 = 控件<QPushButton>(菜单, QStringLiteral("dcButZuoBiao"));
    ASSERT_TRUE(top && 计算 && 坐标);
    EXPECT_TRUE(top->text().startsWith(行[0].按钮名 + u' ')) << top->text().toStdString();
    EXPECT_EQ(top->toolTip(), 行[0].软件显示 + QStringLiteral(" -- 1"));
    EXPECT_EQ(计算->text(), 行[1].按钮名);
    EXPECT_EQ(计算->geometry(), QRect(行[1].按钮左, 行[1].按钮顶, 行[1].按钮长, 行[1].按钮高));
    EXPECT_EQ(计算->toolTip(), 行[1].软件显示 + QStringLiteral(" -- 0"));
    EXPECT_EQ(坐标->geometry(), QRect(行[2].按钮左, 行[2].按钮顶, 行[2].按钮长, 行[2].按钮高));
    EXPECT_FALSE(坐标->isEnabled()) << "its screen is not in this build";
    EXPECT_EQ(控件<QLabel>(菜单, QStringLiteral("LabelShuoMing"))->text(), 公共.程序.说明文字);

    // Opening the calculator counts; the menu shows it after a reload.
    计算->click();
    ASSERT_NE(菜单.计算器(), nullptr);
    EXPECT_TRUE(菜单.计算器()->isVisible());
    EXPECT_EQ(使用数(QStringLiteral("dcButJiSuan")), 1);
    EXPECT_EQ(公共.程序.计算次数, 1);
    菜单.计算器()->hide();
    计算->click();  // the same screen again: created once, counted once
    EXPECT_EQ(使用数(QStringLiteral("dcButJiSuan")), 1);
    菜单.载入();
    EXPECT_EQ(计算->toolTip(), 行[1].软件显示 + QStringLiteral(" -- 1"));
    EXPECT_TRUE(消息文本().isEmpty());
}

TEST_F(程序夹具, MenuWithoutDatabaseKeepsItsDesignAndWorks) {
    ASSERT_EQ(启动程序(环境()), 启动结果::已启动);
    ASSERT_EQ(消息文本().size(), 1);
    Form2 菜单;
    EXPECT_EQ(控件<QLabel>(菜单, QStringLiteral("LabelTop"))->text(), QStringLiteral("Orvane"));
    EXPECT_EQ(控件<QPushButton>(菜单, QStringLiteral("dcButJiSuan"))->text(), QStringLiteral("科学计算器"));
    EXPECT_TRUE(数据状态.图册按钮表.size() <= 1);
    点击(菜单, QStringLiteral("dcButJiSuan"));
    ASSERT_NE(菜单.计算器(), nullptr) << "the calculator needs no database";
    EXPECT_EQ(公共.程序.计算次数, 0);
}

TEST_F(程序夹具, FixedButtonsWithoutTheirScreenAreDisabled) {
    带库启动();
    Form2 菜单;
    struct Case { const char* 名; const char* 标题; bool 可用; };
    const Case cases[] = {
        {"dcButton001", "排列组合", false}, {"dcButton014", "坐标自由分带", false}, {"dcButton012", "软件升级", true},
        {"dcButton013", "帮助 ( F1 )", true}, {"dcButton015", "退 出  ", true},
    };
    for (const auto& c : cases) {
        auto* b = 控件<QPushButton>(菜单, QString::fromUtf8(c.名));
        ASSERT_NE(b, nullptr);
        EXPECT_EQ(b->text(), QString::fromUtf8(c.标题)) << c.名;
        EXPECT_EQ(b->isEnabled(), c.可用) << c.名;
    }
    点击(菜单, QStringLiteral("dcButton013"));
    点击(菜单, QStringLiteral("dcButton012"));
    EXPECT_EQ(已打开, (QStringList{数据状态.帮助文件路径, 公共.程序.主页地址}));
    菜单.show();
    点击(菜单, QStringLiteral("dcButton015"));
    EXPECT_FALSE(菜单.isVisible());
}

TEST_F(程序夹具, AtlasButtonsFollowTable) {
    带库启动();
    // 13 rows above 0 and one at 0: twelve buttons, in order.
    for (int i = 1; i <= 13; ++i)
        ASSERT_TRUE(执行SQL(QStringLiteral("Insert Into 表总表 (排序, 类别ID, 按钮名, 软件显示, 按钮左, 按钮顶, 按钮长, "
                                           "按钮高, Acs库名, 使用数) Values (?, ?, ?, ?, ?, 150, 50, 40, ?, 0)"),
                            {i, QStringLiteral("T%1").arg(i), QStringLiteral("图册%1").arg(i),
                             QStringLiteral("显示%1").arg(i), 16 + (i - 1) * 56,
                             i == 2 ? QStringLiteral("nowhere.db") : QStringLiteral("  ")}));
    ASSERT_TRUE(执行SQL(QStringLiteral("Insert Into 表总表 (排序, 类别ID, 按钮名) Values (0, 'T0', '隐')")));
    Form2 菜单;
    EXPECT_EQ(菜单.读图册按钮(), 12);
    EXPECT_EQ(数据状态.图册按钮表.size(), 13);  // entries 1..12
    for (int i = 1; i <= 12; ++i) {
        auto* b = 控件<QPushButton>(菜单, QStringLiteral("dcButMod%1").arg(i));
        ASSERT_NE(b, nullptr);
        EXPECT_FALSE(b->isHidden()) << i;
        EXPECT_EQ(b->text(), QStringLiteral("图册%1").arg(i));
        EXPECT_EQ(b->toolTip(), QStringLiteral("显示%1 -- 0").arg(i));
    }

    // A missing or blank atlas file: the message, and the count grew all the same.
    点击(菜单, QStringLiteral("dcButMod2"));
    点击(菜单, QStringLiteral("dcButMod1"));
    ASSERT_EQ(消息文本().size(), 2);
    EXPECT_EQ(消息文本()[0], QStringLiteral("该模块对应的数据文件 [ ") + 数据状态.程序目录 +
                                 QStringLiteral("nowhere.db ] 异常。"));
    EXPECT_TRUE(消息文本()[1].startsWith(QStringLiteral("该模块对应的数据文件 [ ")));
    EXPECT_EQ(数据状态.图册类别ID, QStringLiteral("T1"));
    菜单.载入();
    EXPECT_EQ(控件<QPushButton>(菜单, QStringLiteral("dcButMod2"))->toolTip(), QStringLiteral("显示2 -- 1"));
}

TEST_F(程序夹具, LogoShownOnlyWhenItsFileIsThere) {
    带库启动();
    {
        Form2 菜单;
        EXPECT_TRUE(控件<QLabel>(菜单, QStringLiteral("ImageLogo"))->isHidden());
    }
    // A 1x1 GIF.
    const unsigned char gif[] = {0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x01, 0x00, 0x01, 0x00, 0x80, 0x00, 0x00,
                                 0xff, 0xff, 0xff, 0x00, 0x00, 0x00, 0x21, 0xf9, 0x04, 0x01, 0x00, 0x00, 0x00,
                                 0x00, 0x2c, 0x00, 0x00, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00, 0x00, 0x02, 0x02,
                                 0x44, 0x01, 0x00, 0x3b};
    QFile f(数据状态.程序目录 + QStringLiteral("ReadLogo.gif"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(reinterpret_cast<const char*>(gif), sizeof gif);
    f.close();
    Form2 菜单;
    auto* logo = 控件<QLabel>(菜单, QStringLiteral("ImageLogo"));
    EXPECT_FALSE(logo->isHidden());
    EXPECT_FALSE(logo->pixmap().isNull());
}
