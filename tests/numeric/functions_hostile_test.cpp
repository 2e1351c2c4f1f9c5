// Hostile input to the powers, circular functions, angle conversions and
// statistics: blank, signs alone, huge exponents, 10 000-character texts,
// full-width and Chinese digits, NUL and control characters. Nothing may
// crash or throw; each procedure answers with its marker and leaves in the
// collector exactly what its contract says.
#include "numeric/circular.h"
#include "numeric/powers.h"
#include "numeric/statistics.h"
#include "numeric/value.h"
#include "shell/interaction.h"
#include "shell/state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>

namespace {

std::string S(const QString& s) { return s.toStdString(); }

std::string 种类(const 数值& v) {
    switch (v.kind()) {
    case 数值::类型::空: return "E";
    case 数值::类型::文本: return "T:" + S(v.文本值());
    case 数值::类型::十进制: return "D";
    case 数值::类型::双精度: return "F";
    case 数值::类型::整数: return "I";
    }
    return "?";
}

QString 修剪(const QString& s) {
    qsizetype b = 0, e = s.size();
    while (b < e && s[b] == u' ') ++b;
    while (e > b && s[e - 1] == u' ') --e;
    return s.mid(b, e - b);
}

struct 输入 {
    QString 文本;
    bool 空白;  // reads as zero without a report; otherwise not a number
};

QList<输入> 恶意输入() {
    QList<输入> r;
    r.append({QString(), true});
    r.append({QStringLiteral("   "), true});
    for (const char* s : {"--", "E", ".", "+", "-", "1E", "E5", "1e999999", "-1e999999", "1 2",
                          "0x10", "NaN", "inf", "Infinity", "1,5", "1..2", "1E+5.5"})
        r.append({QString::fromLatin1(s), false});
    r.append({QString(10000, u'9'), false});                      // 1E+10000: overflows the double
    r.append({QString(10000, u'a'), false});
    r.append({QStringLiteral("1") + QString(9999, u'0'), false});
    r.append({QStringLiteral("１２３"), false});                   // full-width digits
    r.append({QStringLiteral("一二三"), false});
    r.append({QString::fromUtf16(u"1\u00002", 3), false});        // embedded NUL
    r.append({QStringLiteral("\t1"), false});                     // tab is not a blank
    r.append({QStringLiteral("1\n"), false});
    r.append({QStringLiteral("\x01\x02"), false});
    r.append({QStringLiteral("1\u200B"), false});                 // zero-width space
    return r;
}

class 函数恶意输入 : public ::testing::Test {
protected:
    交互记录作用域 框;
    void SetUp() override {
        清除计算状态();
        公共.高精度开关 = true;
        公共.角度单位 = 60;
    }
    void TearDown() override {
        清除计算状态();
        公共.高精度开关 = true;
        公共.角度单位 = 60;
    }
};

const QString k数转数头 = QStringLiteral("  进行[Hvt数转数]运算时， ");

struct 被测 {
    const char* 名;
    std::function<数值(const 数值&)> f;
    std::string 空白结果;     // 种类 for a blank input
    int 空白错误;             // 错误数 for a blank input
    std::string 坏结果;       // 种类 for a non-number
    int 坏错误;               // 错误数 for a non-number
    // The newest message for a non-number, or empty when it is that of
    // Hvt数转数 (the only report).
    std::function<QString(const QString&)> 坏消息;
};

TEST_F(函数恶意输入, 数值过程给标记并按约报告) {
    const 被测 表[] = {
        {"乘方(x,2)", [](const 数值& x) { return 乘方(x, 数值(QStringLiteral("2"))); }, "D", 0, "T:1", 2,
         [](const QString& t) { return t + QStringLiteral("^2 乘方计算超出本程序计算范围！返回 [1] 。"); }},
        {"乘方(2,y)", [](const 数值& y) { return 乘方(数值(QStringLiteral("2")), y); }, "D", 0, "T:1", 2,
         [](const QString& t) { return QStringLiteral("2^") + t + QStringLiteral(" 乘方计算超出本程序计算范围！返回 [1] 。"); }},
        {"开平方", [](const 数值& x) { return 开平方(x); }, "D", 0, "T:1", 1,
         [](const QString& t) { return QStringLiteral("  进行[开平方]运算时， ") + t + QStringLiteral(" 数值超出计算范围！返回数值用 [1] 表示。"); }},
        {"求自然对数", [](const 数值& x) { return 求自然对数(x); }, "T:1", 1, "F", 1, nullptr},
        {"求常用对数", [](const 数值& x) { return 求常用对数(x); }, "T:1", 1, "F", 1, nullptr},
        {"HvtSin", [](const 数值& x) { return HvtSin(x); }, "D", 0, "D", 1, nullptr},
        {"HvtCos", [](const 数值& x) { return HvtCos(x); }, "D", 0, "D", 1, nullptr},
        {"HvtTan", [](const 数值& x) { return HvtTan(x); }, "D", 0, "D", 1, nullptr},
        {"HvtCot", [](const 数值& x) { return HvtCot(x); }, "E", 1, "D", 1, nullptr},
        {"度转弧度", [](const 数值& x) { return 度转弧度(x); }, "D", 0, "D", 1, nullptr},
        {"度分秒转弧度", [](const 数值& x) { return 度分秒转弧度(x); }, "D", 0, "D", 1, nullptr},
        {"度转梯度", [](const 数值& x) { return 度转梯度(x); }, "D", 0, "T:1", 1, nullptr},
        {"度转度分秒", [](const 数值& x) { return 度转度分秒(x); }, "D", 0, "T:1", 1, nullptr},
    };
    for (const auto& p : 表) {
        for (const auto& in : 恶意输入()) {
            清除计算状态();
            数值 r;
            EXPECT_NO_THROW(r = p.f(数值(in.文本))) << p.名;
            const std::string 示 = std::string(p.名) + " on \"" + S(in.文本.left(20)) + "\"";
            if (in.空白) {
                EXPECT_EQ(种类(r), p.空白结果) << 示;
                EXPECT_EQ(公共.错误数, p.空白错误) << 示 << S(公共.错误记录);
                continue;
            }
            EXPECT_EQ(种类(r), p.坏结果) << 示;
            EXPECT_EQ(公共.错误数, p.坏错误) << 示 << S(公共.错误记录.left(300));
            // The first report is the reading of the bad text, quoted, save
            // for 开平方, which reads its argument itself.
            if (p.坏错误 > 1 || !p.坏消息) {
                EXPECT_EQ(S(公共.首个错误),
                          S(k数转数头 + 修剪(in.文本) + QStringLiteral(" 数值超出计算范围！返回数值用[1]表示。")))
                    << 示;
            }
            if (p.坏消息) {
                EXPECT_EQ(S(公共.错误提示), S(p.坏消息(修剪(in.文本)))) << 示;
            }
        }
    }
    // The angle readers show no message box for input that is no angle.
    EXPECT_TRUE(框.记录器.记录.isEmpty());
}

TEST_F(函数恶意输入, 统计项可为任何文本) {
    using 统计函数 = 数值 (*)(int, const QList<数值>&);
    const 统计函数 八个[] = {求合计值, 求最大值, 求最小值, 求平均值, 求均方差, 求均方差n, 求变异系数, 求变异系数n};
    for (统计函数 f : 八个) {
        for (const auto& in : 恶意输入()) {
            清除计算状态();
            const QList<数值> a = {数值(in.文本), 数值(QStringLiteral("3")), 数值()};
            数值 r;
            EXPECT_NO_THROW(r = f(3, a));
            if (in.空白) {
                EXPECT_EQ(公共.错误数, 0) << S(公共.错误记录);
                EXPECT_NE(种类(r), "E");
            } else {
                EXPECT_GE(公共.错误数, 1);
                EXPECT_TRUE(公共.首个错误.startsWith(k数转数头)) << S(公共.首个错误.left(80));
            }
        }
    }
}

TEST_F(函数恶意输入, 文本转角度不报告且有限) {
    QList<QString> 文 = {QStringLiteral("°°°"), QStringLiteral("-°-′-″"), QStringLiteral("″′°"),
                         QStringLiteral("1°2′3″4"), QString(10000, u'°'), QString(5000, u'9') + QStringLiteral("°"),
                         QStringLiteral("1°") + QString(5000, u'9') + QStringLiteral("′") + QString(5000, u'9') + QStringLiteral("″"),
                         QStringLiteral("１２°３４′"), QStringLiteral("NaN°NaN′NaN″"), QStringLiteral("inf°")};
    for (const auto& in : 恶意输入()) 文.append(in.文本);
    for (const QString& t : 文) {
        清除计算状态();
        double r = 1.0;
        EXPECT_NO_THROW(r = 文本转角度(t));
        EXPECT_TRUE(std::isfinite(r)) << S(t.left(20));
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST_F(函数恶意输入, 双精度族面对非有限与极值) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double 值[] = {nan, inf, -inf, 1E+308, -1E+308, std::numeric_limits<double>::max(),
                         std::numeric_limits<double>::lowest(), std::numeric_limits<double>::denorm_min(),
                         -std::numeric_limits<double>::denorm_min(), 1E-300, -0.0, 7.9228162514264337E+28,
                         179769313486232.5};
    for (double x : 值) {
        EXPECT_EQ(十进制度转弧度(x), 0.0) << x;
        EXPECT_EQ(度分秒转弧度双精度(x), 0.0) << x;
        const double g = 度转梯度双精度(x);
        EXPECT_TRUE(std::isfinite(g)) << x;
        // A value whose text needs an exponent has no angle text.
        const QString 文 = 角度转文本(x);
        if (!std::isfinite(x) || std::fabs(x) >= 1E+15 || (x != 0.0 && std::fabs(x) < 1E-15)) {
            EXPECT_EQ(S(文), "0°") << x;
        }
        // Beyond the bound, or without a fraction, the packed forms pass x on.
        const double p = 度转度分秒双精度(x), q = 规范度分秒(x);
        if (std::isnan(x)) {
            EXPECT_TRUE(std::isnan(p) && std::isnan(q));
        } else if (std::fabs(x) > 角度双精度界限 || x == 0.0) {
            EXPECT_EQ(p, x);
            EXPECT_EQ(q, x);
        } else {
            EXPECT_TRUE(std::isfinite(p) && std::isfinite(q)) << x;
        }
    }
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_TRUE(框.记录器.记录.isEmpty());
}

}  // namespace
