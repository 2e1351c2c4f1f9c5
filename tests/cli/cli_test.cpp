// orvane-cli as a user calls it: the built program in a child process,
// result on stdout, status on stderr, exit codes and options of its three
// commands (calc, convert, run).
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct 输出 {
    int 代码 = -1;
    QString 出, 错;
};

输出 运行(const QString& 命令, const QStringList& 参数, const QByteArray& 输入 = QByteArray()) {
    QProcess p;
    p.start(QStringLiteral(ORVANE_CLI), QStringList{命令} + 参数);
    输出 o;
    if (!p.waitForStarted(10000)) return o;
    p.write(输入);
    p.closeWriteChannel();
    if (!p.waitForFinished(60000)) {
        p.kill();
        return o;
    }
    o.代码 = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    o.出 = QString::fromUtf8(p.readAllStandardOutput());
    o.错 = QString::fromUtf8(p.readAllStandardError());
    return o;
}

QString Q(const char16_t* s) { return QString::fromUtf16(s); }

}  // namespace

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
        {{"--raw", "--angle", "3", "asin(0.5)"}, 0, u"0.523598775598299", u""},
        {{"r*s*t*u*v*w*x*y*z"}, 0, u"362880.", u""},
        {{"--raw", "E"}, 0, u"0", u""},                 // letters start at decimal zero
        {{"--memory", "3;4", "(r^2+s^2)^0.5"}, 0, u"5.", u""},
        {{"--memory", "1", "r*s*t*u*v*w*x*y*z"}, 0, u"1.", u""},
        {{"1/0"}, 1, u"1/0除数为0错误！请修改算式后计算。", u"除数为0错误"},
        {{"--raw", "1/0"}, 1, u"1/0除数为0错误！请修改算式后计算。", u""},
        {{"(1+2"}, 1, u"算式中--括号无法配对--错误,请修改。", u"括号无法配对"},  // refused ahead of evaluation
        {{"csc(0)"}, 0, u"10000000000000000000000000000.", u"csc(x)为无穷大，采用近似计算....1E+28。"},
    };
    for (const auto& c : 表) {
        const 输出 o = 运行(u"calc"_qs, c.参数);
        const std::string 名 = c.参数.join(' ').toStdString();
        EXPECT_EQ(o.代码, c.代码) << 名 << "\n" << o.错.toStdString();
        QString 出 = o.出.trimmed();
        出.remove(u'_');
        出.remove(u' ');
        EXPECT_EQ(出, QString::fromUtf16(c.结果)) << 名;
        EXPECT_TRUE(o.错.contains(QString::fromUtf16(c.错误含))) << 名 << "\n" << o.错.toStdString();
    }
}

TEST(命令行计算, 结果行与屏幕一致) {
    // 8 decimals: the point in column 31, then eight places filled with "_".
    const 输出 o = 运行(u"calc"_qs, {"2.5"});
    EXPECT_EQ(o.出, QString(29, u' ') + QStringLiteral("2.5_______\n"));
}

TEST(命令行计算, 参数错误) {
    for (const char* b : {"--decimals=29", "--angle=45", "--bogus", "--memory"}) {
        const 输出 o = 运行(u"calc"_qs, {QString::fromUtf8(b), "1"});
        EXPECT_EQ(o.代码, 2) << b;
        EXPECT_TRUE(o.出.isEmpty());
        EXPECT_FALSE(o.错.isEmpty());
    }
    EXPECT_EQ(运行(u"calc"_qs, {}).代码, 2);  // no expression
    const 输出 h = 运行(u"calc"_qs, {"--help"});
    EXPECT_EQ(h.代码, 0);
    EXPECT_TRUE(h.出.contains(QStringLiteral("--memory")));
    EXPECT_TRUE(h.出.contains(QStringLiteral("--raw")));
}

const QByteArray 经纬度表 = QByteArray("D01, 116\xc2\xb0" "24\xe2\x80\xb2" "00\xe2\x80\xb3, 39.54, 50.5\n"
                                       "\xe5\x8c\x97\xe4\xba\xac, 116.24, 39.54\n");

TEST(命令行转换, 默认经纬度到公里网) {
    const auto r = 运行(u"convert"_qs, {}, 经纬度表);
    ASSERT_EQ(r.代码, 0) << r.错.toStdString();
    EXPECT_EQ(r.出, QString::fromUtf8("*** 北京54 公里网（YXH）┈ ZWX = 117°00′00″ \r\n"
                                      "D01  , 00448687.997 , 4418676.150 , 50.500\r\n"
                                      "北京 , 00448687.997 , 4418676.150\r\n\r\n"));
    EXPECT_TRUE(r.错.startsWith(QString::fromUtf8("┈┈ 经纬度 北京54 坐标系 ┈┈YXH ┈┈\r\n")));
}

TEST(命令行转换, 选项) {
    QTemporaryDir d;
    ASSERT_TRUE(d.isValid());
    const QString 文件 = d.filePath("gbk.txt");
    {
        QFile f(文件);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        // GBK: 甲 BCD7; separator ";"; XY order.
        f.write("\xbc\xd7;4418676.150;448687.997\r\n");
    }
    struct { QStringList 参数; int 代码; const char* 含; } 表[] = {
        {{"--mode", "xy2bl", "--separator", ";", "--in-order", "XYH", 文件}, 0, "甲 , 116°24′00″ , 39°54′00″\r\n"},
        {{"--mode", "xy2bl", "--separator", ";", "--in-order", "XYH", "--out-order", "XYH", "--no-names", 文件}, 0,
         "\r\n39°54′00″ , 116°24′00″\r\n"},
        {{"--mode", "xy2xy", "--separator", ";", "--in-order", "XYH", "--right", "120", 文件}, 0, "ZWX = 120°00′00″"},
        {{"--mode", "xy2xy", "--separator", ";", "--in-order", "XYH", "--right", "122", 文件}, 1, ""},
        {{"--system", "2k", "--mode", "xy2bl", "--separator", ";", "--in-order", "XYH", 文件}, 0, "*** 国家2000 经纬度"},
        {{"--system", "UTMN", "--mode", "xy2xy", 文件}, 2, ""}, {{"--system", "GK", 文件}, 2, ""},
        {{"--in-order", "HXY", 文件}, 2, ""}, {{"--out-order", "X", 文件}, 2, ""}, {{"--mode", "x", 文件}, 2, ""},
        {{"--left", "abc", 文件}, 2, ""}, {{"--right", "181", 文件}, 2, ""}, {{"--separator", ";;", 文件}, 2, ""},
        {{"--limit", "-1", 文件}, 2, ""}, {{"--bogus"}, 2, ""}, {{"--separator", "tab", 文件}, 1, ""},
        {{d.filePath("none.txt")}, 2, ""}, {{"--mode", "bl2xy", 文件}, 1, ""},
    };
    for (const auto& t : 表) {
        const auto r = 运行(u"convert"_qs, t.参数);
        EXPECT_EQ(r.代码, t.代码) << t.参数.join(' ').toStdString() << "\n" << r.错.toStdString();
        if (*t.含) { EXPECT_TRUE(r.出.contains(QString::fromUtf8(t.含))) << t.参数.join(' ').toStdString() << r.出.toStdString(); }
    }
    // The refusal of a far zone change is told on stderr.
    const auto r = 运行(u"convert"_qs, {"--mode", "xy2xy", "--separator", ";", "--in-order", "XYH", "--right", "122", 文件});
    EXPECT_TRUE(r.错.contains(QString::fromUtf8("两侧的中央子午线差值不能大于4度")));
    // --limit, and the half-degree meridian 70°30′.
    QByteArray 多;
    for (int i = 0; i < 5; ++i) 多 += "P" + QByteArray::number(i) + ",70.30,40\n";
    auto t = 运行(u"convert"_qs, {"--limit", "3", "--right", "70.30"}, 多);
    EXPECT_EQ(t.出.count(QStringLiteral("00500000.000")), 3);
    EXPECT_TRUE(t.出.contains(QString::fromUtf8("ZWX = 70°30′00″")));
    t = 运行(u"convert"_qs, {"--help"});
    EXPECT_EQ(t.代码, 0);
    EXPECT_TRUE(t.出.contains("--separator"));
}

TEST(命令行运行, ScriptsWithParametersAndLists) {
    struct 例 { QStringList 参数; QString 输出; };
    const 例 表[] = {
        {{u"--set"_qs, u"A=5"_qs, u"--set"_qs, u"b=6"_qs, u"--set=C=7"_qs,
          Q(u"S=(A+B+C)/2;\u2192面积=(S*(S-A)*(S-B)*(S-C))^0.5")},
         Q(u"面积 = ") + QString::number(std::sqrt(216.0), 'f', 8) + u"\n"_qs},
        {{u"--decimals"_qs, u"2"_qs, Q(u"\u2192A=2/3;1+1")}, u"A = 0.67; 2\n"_qs},
        {{u"--list"_qs, u"U=12.345,23.456，34.567"_qs, Q(u"L=\u03A3(1)(3)(U);\u2192总长=L")},
         Q(u"总长 = 70.368\n")},
        {{u"--angle"_qs, u"100"_qs, Q(u"\u2192A=ATAN(1)")}, u"A = 45\n"_qs},
        {{u"A=1;B=2"_qs}, u"\n"_qs},                      // assignments only: empty output
        {{u"   "_qs}, u"0\n"_qs},
    };
    for (const auto& e : 表) {
        const 输出 r = 运行(u"run"_qs, e.参数);
        EXPECT_EQ(r.代码, 0) << e.参数.join(u' ').toStdString() << "\n" << r.错.toStdString();
        EXPECT_EQ(r.出, e.输出) << e.参数.join(u' ').toStdString();
    }
}

TEST(命令行运行, FailureGivesTheFirstErrorAndTheWholeRecord) {
    const 输出 r = 运行(u"run"_qs, {u"F=2;G=F/0;H=(1"_qs});
    EXPECT_EQ(r.代码, 1);
    EXPECT_TRUE(r.出.contains(Q(u"除数为0错误"))) << r.出.toStdString();
    EXPECT_EQ(r.出.count(u'\n'), 1);
    EXPECT_TRUE(r.错.contains(Q(u"出错了，全部错误信息："))) << r.错.toStdString();
    EXPECT_TRUE(r.错.contains(Q(u"除数为0错误")));
}

TEST(命令行运行, Canonical) {
    const 输出 r = 运行(u"run"_qs, {u"--canonical"_qs, Q(u"f = x+1 ; u=(1,2); =5; F=\u222B(0)(2)(X)")});
    EXPECT_EQ(r.代码, 0);
    EXPECT_EQ(r.出, Q(u"F = X + 1;  U = (1,2,);  请修改F=0;  F = \u222B(0)(2)(X)(100);  \n"));
}

TEST(命令行运行, ScriptFromStandardInputOneLineAStatement) {
    const 输出 r = 运行(u"run"_qs, {u"-"_qs}, QByteArray("A=2;\r\n\r\nB=3\nA*B\n"));
    EXPECT_EQ(r.代码, 0) << r.错.toStdString();
    EXPECT_EQ(r.出, u"6\n"_qs);
}

TEST(命令行运行, BadOptionsAndHelp) {
    const QList<QStringList> 表 = {
        {u"--angle"_qs, u"45"_qs, u"1"_qs}, {u"--decimals"_qs, u"99"_qs, u"1"_qs}, {u"--bogus"_qs, u"1"_qs},
        {u"--set"_qs, u"O=1"_qs, u"1"_qs}, {u"--set"_qs, u"X=abc"_qs, u"1"_qs}, {u"--list"_qs, u"Q=1,2"_qs, u"1"_qs},
        {}, {u"1"_qs, u"2"_qs},
    };
    for (const auto& a : 表) {
        const 输出 r = 运行(u"run"_qs, a);
        EXPECT_EQ(r.代码, 2) << a.join(u' ').toStdString();
        EXPECT_TRUE(r.出.isEmpty());
        EXPECT_FALSE(r.错.isEmpty());
    }
    const 输出 h = 运行(u"run"_qs, {u"--help"_qs});
    EXPECT_EQ(h.代码, 0);
    EXPECT_TRUE(h.出.contains(u"--canonical"_qs));
    EXPECT_TRUE(h.出.contains(u"--list"_qs));
}
