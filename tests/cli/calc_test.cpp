// orvane-cli calc run as a process: result line on stdout, status on
// stderr, exit codes, options.
#include <gtest/gtest.h>

#include <QProcess>
#include <QStringList>

namespace {

struct 输出 {
    int 代码 = -1;
    QString 标准输出;
    QString 标准错误;
};

输出 运行(const QStringList& 参数) {
    QProcess p;
    p.start(QStringLiteral(ORVANE_CLI), QStringList{QStringLiteral("calc")} + 参数);
    输出 o;
    if (!p.waitForFinished(30000)) {
        p.kill();
        return o;
    }
    o.代码 = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    o.标准输出 = QString::fromUtf8(p.readAllStandardOutput());
    o.标准错误 = QString::fromUtf8(p.readAllStandardError());
    return o;
}

struct 例 {
    QStringList 参数;
    int 代码;
    const char16_t* 结果;    // stdout without blanks and the "_" fill
    const char16_t* 错误含;  // a piece stderr must hold ("" for none)
};

TEST(命令行计算, 各例) {
    const 例 表[] = {
        {{"1+2"}, 0, u"3.", u"请在重要计算时仔细核对运算成果"},
        {{"--decimals", "28", "1/3*3"}, 0, u"0.9999999999999999999999999999", u""},
        {{"--decimals=2", "--", "-3^2", "乘以", "2"}, 0, u"18.", u""},  // words joined with blanks
        {{"--raw", "1/3"}, 0, u"0.3333333333333333333333333333", u""},
        {{"--raw", "--angle", "3", "asin(0.5)"}, 0, u"0.523598775598299", u""},
        {{"--decimals", "28", "--angle", "3", "示例采用弧度制 ( 0.000000005 + 0.00000006 - 123.0004567 )  * "
                                             "0.00012345 / 167.234567 \\ 234.12 *  ( 1 / 0.00123 ) % + 12! - 0.234 ^ "
                                             "1.01765 ^ 9 ^  ( 1 / 2 )  ^  ( 1 / 3 )  ^  ( 1 / 7 ) -sin ( 1.5959 )  * cos "
                                             "( 0.5959 ) +tan ( 1.5969) -cot ( 3.5856543 ) + π - ε - 1e-28"},
         0, u"约数479001558.464642617773159716", u"从第28位有效数字后"},
        {{"r*s*t*u*v*w*x*y*z"}, 0, u"362880.", u""},
        {{"--raw", "E"}, 0, u"0", u""},                 // letters start at decimal zero
        {{"--memory", "1", "r*s*t*u*v*w*x*y*z"}, 0, u"1.", u""},
        {{"--memory", "3;4", "(r^2+s^2)^0.5"}, 0, u"5.", u""},
        {{"1/0"}, 1, u"1/0除数为0错误！请修改算式后计算。", u"除数为0错误"},
        {{"--raw", "1/0"}, 1, u"1/0除数为0错误！请修改算式后计算。", u""},
        {{"(1+2"}, 1, u"算式中--括号无法配对--错误,请修改。", u"括号无法配对"},  // refused ahead of evaluation
        {{"csc(0)"}, 0, u"10000000000000000000000000000.", u"csc(x)为无穷大，采用近似计算....1E+28。"},
    };
    for (const auto& c : 表) {
        const 输出 o = 运行(c.参数);
        const std::string 名 = c.参数.join(' ').toStdString();
        EXPECT_EQ(o.代码, c.代码) << 名 << "\n" << o.标准错误.toStdString();
        QString 出 = o.标准输出.trimmed();
        出.remove(u'_');
        出.remove(u' ');
        EXPECT_EQ(出, QString::fromUtf16(c.结果)) << 名;
        EXPECT_TRUE(o.标准错误.contains(QString::fromUtf16(c.错误含))) << 名 << "\n" << o.标准错误.toStdString();
    }
}

TEST(命令行计算, 结果行与屏幕一致) {
    // 8 decimals: the point in column 31, then eight places filled with "_".
    const 输出 o = 运行({"2.5"});
    EXPECT_EQ(o.标准输出, QString(29, u' ') + QStringLiteral("2.5_______\n"));
}

TEST(命令行计算, 参数错误) {
    for (const char* b : {"--decimals=29", "--angle=45", "--bogus", "--memory"}) {
        const 输出 o = 运行({QString::fromUtf8(b), "1"});
        EXPECT_EQ(o.代码, 2) << b;
        EXPECT_TRUE(o.标准输出.isEmpty());
        EXPECT_FALSE(o.标准错误.isEmpty());
    }
    EXPECT_EQ(运行({}).代码, 2);  // no expression
    const 输出 h = 运行({"--help"});
    EXPECT_EQ(h.代码, 0);
    EXPECT_TRUE(h.标准输出.contains(QStringLiteral("--memory")));
    EXPECT_TRUE(h.标准输出.contains(QStringLiteral("--raw")));
}

}  // namespace
