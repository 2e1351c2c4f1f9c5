// orvane-cli run, as a user calls it: the built program in a child process.
#include <QProcess>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct 结果 {
    int 退出码 = -1;
    QString 标准输出;
    QString 标准错误;
};

结果 运行(const QStringList& 参数, const QByteArray& 输入 = QByteArray()) {
    QProcess p;
    p.start(QStringLiteral(ORVANE_CLI), QStringList{QStringLiteral("run")} + 参数);
    结果 r;
    if (!p.waitForStarted(10000)) return r;
    if (!输入.isEmpty()) p.write(输入);
    p.closeWriteChannel();
    if (!p.waitForFinished(60000)) {
        p.kill();
        return r;
    }
    r.退出码 = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    r.标准输出 = QString::fromUtf8(p.readAllStandardOutput());
    r.标准错误 = QString::fromUtf8(p.readAllStandardError());
    return r;
}

QString Q(const char16_t* s) { return QString::fromUtf16(s); }

}  // namespace

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
        const 结果 r = 运行(e.参数);
        EXPECT_EQ(r.退出码, 0) << e.参数.join(u' ').toStdString() << "\n" << r.标准错误.toStdString();
        EXPECT_EQ(r.标准输出, e.输出) << e.参数.join(u' ').toStdString();
    }
}

TEST(命令行运行, FailureGivesTheFirstErrorAndTheWholeRecord) {
    const 结果 r = 运行({u"F=2;G=F/0;H=(1"_qs});
    EXPECT_EQ(r.退出码, 1);
    EXPECT_TRUE(r.标准输出.contains(Q(u"除数为0错误"))) << r.标准输出.toStdString();
    EXPECT_EQ(r.标准输出.count(u'\n'), 1);
    EXPECT_TRUE(r.标准错误.contains(Q(u"出错了，全部错误信息："))) << r.标准错误.toStdString();
    EXPECT_TRUE(r.标准错误.contains(Q(u"除数为0错误")));
}

TEST(命令行运行, Canonical) {
    const 结果 r = 运行({u"--canonical"_qs, Q(u"f = x+1 ; u=(1,2); =5; F=\u222B(0)(2)(X)")});
    EXPECT_EQ(r.退出码, 0);
    EXPECT_EQ(r.标准输出, Q(u"F = X + 1;  U = (1,2,);  请修改F=0;  F = \u222B(0)(2)(X)(100);  \n"));
}

TEST(命令行运行, ScriptFromStandardInputOneLineAStatement) {
    const 结果 r = 运行({u"-"_qs}, QByteArray("A=2;\r\n\r\nB=3\nA*B\n"));
    EXPECT_EQ(r.退出码, 0) << r.标准错误.toStdString();
    EXPECT_EQ(r.标准输出, u"6\n"_qs);
}

TEST(命令行运行, BadOptionsAndHelp) {
    const QList<QStringList> 表 = {
        {u"--angle"_qs, u"45"_qs, u"1"_qs},
        {u"--decimals"_qs, u"99"_qs, u"1"_qs},
        {u"--set"_qs, u"O=1"_qs, u"1"_qs},
        {u"--set"_qs, u"X=abc"_qs, u"1"_qs},
        {u"--list"_qs, u"Q=1,2"_qs, u"1"_qs},
        {u"--bogus"_qs, u"1"_qs},
        {},
        {u"1"_qs, u"2"_qs},
    };
    for (const auto& a : 表) {
        const 结果 r = 运行(a);
        EXPECT_EQ(r.退出码, 2) << a.join(u' ').toStdString();
        EXPECT_TRUE(r.标准输出.isEmpty());
        EXPECT_FALSE(r.标准错误.isEmpty());
    }
    const 结果 h = 运行({u"--help"_qs});
    EXPECT_EQ(h.退出码, 0);
    EXPECT_TRUE(h.标准输出.contains(u"--canonical"_qs));
    EXPECT_TRUE(h.标准输出.contains(u"--list"_qs));
}
